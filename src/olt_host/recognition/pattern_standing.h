// What the match profiles with one key are to the report of one ONU, in the library as it
// is: absent, fitting, or stopped by an ability.
#ifndef OLT_HOST_RECOGNITION_PATTERN_STANDING_H
#define OLT_HOST_RECOGNITION_PATTERN_STANDING_H

#include <cstdint>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

struct PatternStanding {
  enum Kind { kAbsent, kFits, kStopped } kind = kAbsent;
  // Of kStopped: the first ability that decided against it, its number or text.
  std::uint16_t code = 0;
  std::string ability;  // the code's name, or "code 24" without one
  std::string reported;
  std::string held;
};

// Never kAbsent.
PatternStanding StandingOf(const OnuAbilityProfile& pattern, const OnuAbilityProfile& report);

// Of several profiles with the key one that fits counts, else the newest.
PatternStanding StandingOf(const std::vector<OnuAbilityProfile>& patterns, std::uint32_t key,
                           const OnuAbilityProfile& report);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PATTERN_STANDING_H
