// A report in the form in which a reports file states it.
#ifndef OLT_HOST_RECOGNITION_REPORT_LINE_H
#define OLT_HOST_RECOGNITION_REPORT_LINE_H

#include <nlohmann/json.hpp>
#include <string>

#include "catalogue/reports.h"

namespace olt_host {

// The members of an entry of `onus`, codes by their numbers.
nlohmann::ordered_json ReportJson(const OnuReport& report);

// The same as an entry to paste, in one line of YAML, codes by their names in the code
// registry: "{place: 1, onu: 1, reported_type: unknown, abilities: {GE_PORTS: 4}}".
std::string ReportLine(const OnuReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REPORT_LINE_H
