// What was counted, for the eye and for programs.
#ifndef OLT_HOST_COMMANDS_STATISTICS_OUTPUT_H
#define OLT_HOST_COMMANDS_STATISTICS_OUTPUT_H

#include <nlohmann/json.hpp>

#include "commands/statistics_report.h"
#include "vty/terminal.h"

namespace olt_host {

// With `all`, every match profile; otherwise those that won most.
void WriteStatistics(struct vty& terminal, const StatisticsReport& report, bool all);
// With every match profile.
nlohmann::ordered_json StatisticsJson(const StatisticsReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_STATISTICS_OUTPUT_H
