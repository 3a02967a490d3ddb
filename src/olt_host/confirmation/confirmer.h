// Confirms ONUs through the library, one after the other.
#ifndef OLT_HOST_CONFIRMATION_CONFIRMER_H
#define OLT_HOST_CONFIRMATION_CONFIRMER_H

#include "confirmation/confirmation_result.h"
#include "confirmation/hooks.h"

namespace olt_host {

// Confirms the ONU of `report`, which `source` must know, with ConfirmOnuType.
//
// REQUIRES: the hooks are registered, the catalogue is loaded. Any thread; throws
// std::logic_error when a hook is missing.
ConfirmationResult ConfirmOnu(const ReportSource& source, const OnuReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CONFIRMER_H
