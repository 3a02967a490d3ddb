// Which match profiles take the same reports, so that only their order decides.
//
// What a report leaves out decides against no profile: a report that tells nothing fits
// all of them. So only complete reports count here, those that leave nothing out: every
// code that the ONU is asked for is answered, the capability among them if it is asked,
// vendor identifier and device name are told; the reported type is none that is known.
// With the capability, code 48 is set aside. Where the capability is not asked, both with
// a private capability and without one a report is complete.
//
// Two profiles overlap if and only if some complete report fits both: at every code that
// it tells, they ask for the same, or one of them asks for anything. Where totals of ports
// are compared, only what the library confirms is shown, and the counts are upper bounds.
#ifndef OLT_HOST_RECOGNITION_OVERLAPS_H
#define OLT_HOST_RECOGNITION_OVERLAPS_H

#include <cstddef>
#include <vector>

#include "recognition/example_report.h"

namespace olt_host {

struct Overlap {
  std::size_t newer = 0;
  OnuReport witness;       // fits both
  std::size_t winner = 0;  // whichever profile takes the witness: the newer, or a newer one yet
};

// What an older profile shares with newer ones.
struct PatternOverlaps {
  // Each asks for something that the other does not.
  std::size_t crossing = 0;
  // The newer asks for more: the older stands behind it and takes the rest.
  std::size_t behind = 0;
  std::vector<Overlap> examples;  // of the crossing ones, the newest first
};

// Of every profile, by its position, with at most so many examples each. Newer profiles
// that ask for no more than the older one are left out: they hide it. REQUIRES: the three
// were made of the same profiles.
std::vector<PatternOverlaps> FindOverlaps(const PatternBoxes& boxes, const ReportSpace& space,
                                          const LibraryTrial& trial, std::size_t examples);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_OVERLAPS_H
