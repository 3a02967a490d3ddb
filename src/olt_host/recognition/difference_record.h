// A difference as JSON that is read again: what parts of a network came to, to be added up
// by another process or at another time.
#ifndef OLT_HOST_RECOGNITION_DIFFERENCE_RECORD_H
#define OLT_HOST_RECOGNITION_DIFFERENCE_RECORD_H

#include <nlohmann/json.hpp>

#include "recognition/population_difference.h"

namespace olt_host {

// DifferenceJson with the reports of the first examples. REQUIRES: no examples of several
// files; texts are UTF-8, but for the reports, which may be any bytes.
nlohmann::ordered_json RecordOf(const PopulationDifference& difference);

// Reads what RecordOf or, without reports, DifferenceJson made. Throws
// nlohmann::json::exception or std::runtime_error for anything else.
PopulationDifference DifferenceOf(const nlohmann::ordered_json& record);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_DIFFERENCE_RECORD_H
