#include "recognition/reachability.h"

#include <algorithm>
#include <functional>
#include <set>

#include "recognition/hardest_reports.h"

namespace olt_host {

namespace {

// The newest profile of a set and whether the given one is it.
bool Wins(const PositionSet& fitting, std::size_t profile) { return fitting.Highest() == profile; }

PatternReach ReachOf(const PatternBoxes& boxes, const ReportSpace& space, const LibraryTrial& trial,
                     std::size_t profile) {
  PatternReach result;
  std::set<std::size_t, std::greater<>> takers;
  PositionSet taking_all(boxes.Profiles(), true);
  bool undecided = false;
  for (const BoxReport& report : HardestReports(boxes, space, profile)) {
    const PositionSet fitting = boxes.Fitting(report);
    if (!Wins(fitting, profile)) {
      takers.insert(fitting.Highest());
      taking_all &= fitting;
      continue;
    }
    result.witness = FindReport(boxes, space, report, trial,
                                [profile](const PositionSet& fits) { return Wins(fits, profile); });
    if (result.witness) return result;
    undecided = true;
  }
  result.reach = undecided ? Reach::kUndecided : Reach::kNever;
  if (undecided) return result;
  result.takers.assign(takers.begin(), takers.end());
  // One that takes all of it says more than several that share it.
  if (takers.size() > 1 && taking_all.Highest() > profile) result.takers = {taking_all.Highest()};
  return result;
}

}  // namespace

std::vector<PatternReach> FindReach(const PatternBoxes& boxes, const ReportSpace& space,
                                    const LibraryTrial& trial) {
  std::vector<PatternReach> reach;
  reach.reserve(boxes.Profiles());
  for (std::size_t profile = 0; profile < boxes.Profiles(); ++profile) {
    reach.push_back(ReachOf(boxes, space, trial, profile));
  }
  return reach;
}

}  // namespace olt_host
