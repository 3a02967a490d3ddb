/// @file
/// The registries of attributes and ability codes, the profiles, their tables
/// with the manager in front of them, and ONU type confirmation.
///
/// Gathers the headers of the area; include this one.
#ifndef ONU_ABILITY_COMMON_TABLE_H
#define ONU_ABILITY_COMMON_TABLE_H

#include "onu_ability_common_table/confirm_onu_type.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_profile.h"
#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"
#include "onu_ability_common_table/onu_match_ability_table.h"
#include "onu_ability_common_table/onu_real_ability_table.h"

#endif  // ONU_ABILITY_COMMON_TABLE_H
