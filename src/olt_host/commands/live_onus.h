// Confirming the live ONUs of Host(), one by one or all, and keeping what became
// of them. Each confirmation is counted in Host().statistics.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_LIVE_ONUS_H
#define OLT_HOST_COMMANDS_LIVE_ONUS_H

#include "catalogue/reports.h"
#include "confirmation/confirmed_onus.h"

namespace olt_host {

// Confirms the ONU of `report`, one of Host().population, and puts the outcome
// into Host().confirmed, where the result refers to.
const ConfirmedOnu& ConfirmLiveOnu(const OnuReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_LIVE_ONUS_H
