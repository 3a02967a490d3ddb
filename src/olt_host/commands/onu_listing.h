// The live ONUs of Host() for the eye and for programs: what each reports and what
// became of it. An ONU that was not confirmed yet is shown as such.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_ONU_LISTING_H
#define OLT_HOST_COMMANDS_ONU_LISTING_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "confirmation/confirmation_result.h"
#include "confirmation/confirmed_onus.h"
#include "vty/terminal.h"

namespace olt_host {

using OnuReports = std::vector<const OnuReport*>;

// All of the population, by place and number; none without one.
OnuReports LiveOnus();

// What became of an ONU; null while it is not confirmed.
const ConfirmedOnu* ConfirmedOf(const OnuReport& report);

// What became of all of `onus`; those not confirmed are not counted.
ConfirmationSummary SummaryOf(const OnuReports& onus);

// A table with a line an ONU; "No ONUs" without any.
void WriteOnuTable(struct vty& terminal, const OnuReports& onus);
nlohmann::ordered_json OnuJson(const OnuReport& report);

void WriteOnuDetails(struct vty& terminal, const OnuReport& report);
nlohmann::ordered_json OnuDetailsJson(const OnuReport& report);

// Counts, and the ONUs that were not confirmed as expected.
void WriteOnuSummary(struct vty& terminal, const OnuReports& onus);
nlohmann::ordered_json OnuSummaryJson(const OnuReports& onus);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_ONU_LISTING_H
