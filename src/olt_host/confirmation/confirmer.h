// Confirms ONUs through the library, one after the other.
#ifndef OLT_HOST_CONFIRMATION_CONFIRMER_H
#define OLT_HOST_CONFIRMATION_CONFIRMER_H

#include <optional>

#include "confirmation/confirmation_result.h"
#include "confirmation/hooks.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// How a confirmation went.
struct ConfirmationTrace {
  HookCalls hook_calls{};
  std::optional<OnuAbilityProfile> winner;  // the match profile; nothing: none took the ONU
};

// Confirms the ONU of `report`, which `source` must know, with ConfirmOnuType.
// `trace`, unless null, is a new one and is filled in.
//
// REQUIRES: the hooks are registered, the catalogue is loaded. Any thread; throws
// std::logic_error when a hook is missing.
ConfirmationResult ConfirmOnu(const ReportSource& source, const OnuReport& report,
                              ConfirmationTrace* trace = nullptr);

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CONFIRMER_H
