// The reports with which it is decided whether a match profile is ever reached; see
// reachability.h.
#ifndef OLT_HOST_RECOGNITION_HARDEST_REPORTS_H
#define OLT_HOST_RECOGNITION_HARDEST_REPORTS_H

#include <cstddef>
#include <vector>

#include "recognition/pattern_boxes.h"

namespace olt_host {

// Reports that fit the profile, such that a newer profile that fits one of them fits every
// report that the profile takes in its stead. None when no report fits it at all.
std::vector<BoxReport> HardestReports(const PatternBoxes& boxes, const ReportSpace& space,
                                      std::size_t profile);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_HARDEST_REPORTS_H
