// A report and one match profile, ability by ability. Every verdict is the library's:
// it is asked about each ability alone, as it is asked about the whole.
//
// By the code registry as it is now; on the thread that works with the library.
#ifndef OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H
#define OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H

#include <cstddef>
#include <cstdint>
#include <optional>
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

// Whether the profile fits the report by the library's comparison of the whole.
bool Fits(const OnuAbilityProfile& profile, const OnuAbilityProfile& report);

// Whether the library compares the code with patterns.
bool IsCompared(std::uint16_t code);

// Every compared ability of the report, in the order in which the library goes through
// them: it stops at the first that decides against.
std::vector<AbilityComparison> CompareAbilities(const OnuAbilityProfile& profile,
                                                const OnuAbilityProfile& report);

// How many of them have the verdict.
std::size_t CountOf(const std::vector<AbilityComparison>& comparisons, AbilityVerdict verdict);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PATTERN_COMPARISON_H
