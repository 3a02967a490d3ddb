// A report and a match profile, ability by ability. Every verdict is the library's: it is
// asked about each ability alone, as it is asked about the whole.
//
// By the code registry as it is now; on the thread that works with the library.
#ifndef OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H
#define OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

// kAbsent: the profile does not name the code, so anything passes. kWildcard: one of
// the two stands for anything.
enum class AbilityVerdict { kAgrees, kWildcard, kAbsent, kDecidesAgainst };

// "agrees", "wildcard", "absent" or "decides against".
const char* ToText(AbilityVerdict verdict);

struct AbilityComparison {
  std::uint16_t code = 0;
  AbilityVerdict verdict = AbilityVerdict::kAgrees;
  ONU_ABILITY_COMMON_ABILITY_VALUE reported;
  std::optional<ONU_ABILITY_COMMON_ABILITY_VALUE> held;  // by the profile
};

// How near a profile is to a report: how many compared abilities have each verdict.
struct AbilityTally {
  std::size_t agrees = 0;
  std::size_t wildcards = 0;
  std::size_t absent = 0;
  std::size_t against = 0;
  std::optional<AbilityComparison> decider;  // the first that decides against
};

// Whether the library compares the code with patterns.
bool IsCompared(std::uint16_t code);

// A report taken apart once, to be compared with many profiles. By the code registry at
// the moment of its making.
//
// Comparing gives a profile without the key code an unset entry for it, as the library
// means it; here that is taken back, so a profile stays as it was.
class ComparedReport {
 public:
  explicit ComparedReport(const OnuAbilityProfile& report);

  // By the library's comparison of the whole.
  bool Fits(OnuAbilityProfile& profile) const;
  // Every compared ability of the report, in the order in which the library goes through
  // them: it stops at the first that decides against.
  std::vector<AbilityComparison> Compare(OnuAbilityProfile& profile) const;
  // The same, counted.
  AbilityTally Tally(OnuAbilityProfile& profile) const;

 private:
  OnuAbilityProfile _whole;
  // Each a report of nothing but one compared ability.
  std::vector<std::pair<std::uint16_t, OnuAbilityProfile>> _single;
  std::uint16_t _key_code;
};

// The same for one profile, which stays as it is.
std::vector<AbilityComparison> CompareAbilities(const OnuAbilityProfile& profile,
                                                const OnuAbilityProfile& report);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H
