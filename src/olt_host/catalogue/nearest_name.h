// The known name that somebody most likely meant.
#ifndef OLT_HOST_CATALOGUE_NEAREST_NAME_H
#define OLT_HOST_CATALOGUE_NEAREST_NAME_H

#include <string>
#include <vector>

namespace olt_host {

// The member of `known` that takes the fewest insertions, deletions,
// replacements and swaps of neighbours to reach from `name`, upper and lower
// case being the same; "" when none is near enough to be a likely slip.
std::string NearestName(const std::string& name, const std::vector<std::string>& known);

// What to expect in place of `name`: the nearest known one in quotes, or else
// all of them after "one of".
std::string ExpectedName(const std::string& name, const std::vector<std::string>& known);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_NEAREST_NAME_H
