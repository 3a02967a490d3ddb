// The ONUs that no match profile recognises, and those that only the order of several
// recognises, grouped by what they reported: one group, one thing to do.
//
// Told by the library's own steps and comparisons; nothing of it changes, and it says
// nothing to the log.
#ifndef OLT_HOST_RECOGNITION_UNKNOWN_ONUS_H
#define OLT_HOST_RECOGNITION_UNKNOWN_ONUS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/population.h"
#include "onu_ability_common_table.h"
#include "recognition/population_outcome.h"

namespace olt_host {

// ONUs that told the same of what is compared with match profiles.
struct AlikeOnus {
  std::vector<const OnuReport*> onus;  // of the population, in its order
  OnuAbilityProfile report;            // of the first, as it is compared
  std::size_t fitting = 0;             // match profiles that fit
  PatternName winner;                  // where one fits

  bool IsRecognised() const { return fitting != 0; }
};

struct UnknownOnus {
  // That none fits, then that several fit; of a kind the largest first.
  std::vector<AlikeOnus> groups;
  // Recognised by the one match profile that fits. (Who is recognised by the reported type
  // is nobody's to take, and in neither list.)
  std::vector<AlikeOnus> safe;
  std::size_t unrecognised = 0;  // ONUs
  std::size_t by_luck = 0;
};

// REQUIRES: `population` outlives the result; the hooks are registered, the library is
// loaded. On the thread that works with the library.
UnknownOnus FindUnknownOnus(const Population& population);

// The abilities of a report that are compared with profiles, ascending by code.
std::map<std::uint16_t, ONU_ABILITY_COMMON_ABILITY_VALUE> ComparedAbilities(
    const OnuAbilityProfile& report);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_UNKNOWN_ONUS_H
