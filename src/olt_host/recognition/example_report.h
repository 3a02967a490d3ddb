// A report made of what the columns of match profiles ask for, in the form in which a
// reports file states it, and what the library says to it.
#ifndef OLT_HOST_RECOGNITION_EXAMPLE_REPORT_H
#define OLT_HOST_RECOGNITION_EXAMPLE_REPORT_H

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "catalogue/reports.h"
#include "recognition/pattern_boxes.h"

namespace olt_host {

// Of place 1, ONU 1. Under the totals it says what is to come out there; whether the
// library derives that from the ports is another matter.
OnuReport MakeReport(const PatternBoxes& boxes, const ReportSpace& space, const BoxReport& report);

// The profiles, by their positions, that fit a report as the library itself gathers it.
//
// REQUIRES: the hooks are registered; the boxes outlive this.
class LibraryTrial {
 public:
  explicit LibraryTrial(const PatternBoxes& boxes) : _boxes(boxes) {}

  PositionSet Fitting(const OnuReport& report) const;

 private:
  const PatternBoxes& _boxes;
};

// Whether the sums of ports or a key under a code that the library itself fills make
// values depend on each other beyond what the columns tell: the library then has to be
// asked about every report.
bool HasDependentColumns(const PatternBoxes& boxes);

// The report for which `holds` is true of what fits it: as it stands, or with other ports,
// so that a total comes out that it asks for. Nothing when none of those will do.
std::optional<OnuReport> FindReport(const PatternBoxes& boxes, const ReportSpace& space,
                                    const BoxReport& report, const LibraryTrial& trial,
                                    const std::function<bool(const PositionSet&)>& holds);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_EXAMPLE_REPORT_H
