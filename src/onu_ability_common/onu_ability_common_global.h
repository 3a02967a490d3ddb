/// @file
/// The vocabulary of the library: the value, enumeration and record types that
/// everything else names, status codes, text and hex utilities, the serial
/// number of an ONU and the process-wide settings.
///
/// Gathers the headers of the area; include this one.
#ifndef ONU_ABILITY_COMMON_GLOBAL_H
#define ONU_ABILITY_COMMON_GLOBAL_H

#include "onu_ability_common_global/ability_values.h"
#include "onu_ability_common_global/api.h"
#include "onu_ability_common_global/global_var.h"
#include "onu_ability_common_global/log_settings.h"
#include "onu_ability_common_global/physical_sn.h"
#include "onu_ability_common_global/status_codes.h"
#include "onu_ability_common_global/text_utilities.h"

#endif  // ONU_ABILITY_COMMON_GLOBAL_H
