#include "confirmation/match_profile_names.h"

#include <map>
#include <utility>

namespace olt_host {

std::vector<MatchProfileName> MatchProfileNames(const std::vector<OnuAbilityProfile>& patterns,
                                                std::uint16_t key_ability_code) {
  std::map<std::pair<unsigned int, std::uint32_t>, unsigned int> seen;
  std::vector<MatchProfileName> names;
  names.reserve(patterns.size());
  for (const OnuAbilityProfile& pattern : patterns) {
    MatchProfileName name;
    name.source = static_cast<unsigned int>(pattern._profile_source);
    if (pattern.Get(key_ability_code, name.key) != ONU_ABILITY_RET_OK) name.key = 0;
    if (name.key != 0) name.number = ++seen[{name.source, name.key}];
    names.push_back(name);
  }
  return names;
}

}  // namespace olt_host
