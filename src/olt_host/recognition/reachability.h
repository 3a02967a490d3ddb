// Which match profiles some report reaches by its abilities, proven either way.
//
// Profiles are tried from the newest to the oldest, so a profile A is reached if and only
// if some report (report_space.h) fits A and no newer profile. To look for one it is enough
// to try a few reports, the hardest for the newer profiles to take:
//
//   where A asks for a value that a report can hold, let the report hold that value;
//   where A asks for anything, let it hold a value that no profile names;
//   where neither can be held, nothing.
//
// Let B fit this report. Where A asks for a value, B asks for that one or for anything.
// Where A asks for anything, so does B, for no profile names the value. Elsewhere every
// report that fits A holds nothing, which no profile decides against. So B fits all reports
// that fit A: one such newer B is a proof that A is never reached, and without one the
// report is a witness that it is. More newer profiles do not have to be taken together.
//
// There are two exceptions, where several reports have to be tried. The capability has
// only 255 values: when the profiles name them all, there is none left for "a value that
// no profile names", and each has to be tried. And of the capability and code 48 a report
// holds only one, so A is tried with either. A is never reached if and only if each of
// these reports is taken by some newer profile; those are named together then.
//
// Where totals of ports are compared (1001, 65533), or code 48 is the key code, values
// depend on each other in more ways. A proof holds there as well, for it looks at more
// reports than there are. A witness is tried on the library; when it fails and no other
// choice of ports helps, the question stays undecided, and is said to be.
#ifndef OLT_HOST_RECOGNITION_REACHABILITY_H
#define OLT_HOST_RECOGNITION_REACHABILITY_H

#include <cstddef>
#include <optional>
#include <vector>

#include "recognition/example_report.h"

namespace olt_host {

enum class Reach { kReached, kNever, kUndecided };

struct PatternReach {
  Reach reach = Reach::kReached;
  // Of kReached: a report that it takes and no newer profile would.
  std::optional<OnuReport> witness;
  // Of kNever: newer profiles, the newest first; one of them fits whatever it fits.
  std::vector<std::size_t> takers;
};

// Of every profile, by its position. REQUIRES: the three were made of the same profiles.
std::vector<PatternReach> FindReach(const PatternBoxes& boxes, const ReportSpace& space,
                                    const LibraryTrial& trial);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REACHABILITY_H
