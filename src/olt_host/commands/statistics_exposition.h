// What was counted, for a monitoring system to scrape. The metrics are described in
// docs/statistics.md; their names and labels are an interface.
#ifndef OLT_HOST_COMMANDS_STATISTICS_EXPOSITION_H
#define OLT_HOST_COMMANDS_STATISTICS_EXPOSITION_H

#include <string>

#include "commands/statistics_report.h"

namespace olt_host {

// In the exposition format 0.0.4. From any thread.
std::string ExpositionText(const StatisticsReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_STATISTICS_EXPOSITION_H
