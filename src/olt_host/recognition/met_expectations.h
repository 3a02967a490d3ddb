// The expectation that each ONU of a population meets under the library as it is, nothing
// left out: what it is recognised as and how, the type to report, and the match profiles
// among which only the order decided.
//
// REQUIRES: the hooks are registered, the library is loaded. On the thread that works with
// the library, of which nothing changes but what every confirmation does to it.
#ifndef OLT_HOST_RECOGNITION_MET_EXPECTATIONS_H
#define OLT_HOST_RECOGNITION_MET_EXPECTATIONS_H

#include <memory>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/population.h"

namespace olt_host {

// An ONU each, in the order of the population. Keys of `ambiguous` stand in the order in
// which their profiles are tried, so the first won.
std::vector<Expectation> MetExpectations(const std::shared_ptr<const Population>& population);

// Whether `met` is what `stated` says of types; what it leaves open may be anything.
bool TypesAsStated(const Expectation& stated, const Expectation& met);

// Whether the same match profiles fit, in whatever order.
bool AmbiguityAsStated(const Expectation& stated, const Expectation& met);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_MET_EXPECTATIONS_H
