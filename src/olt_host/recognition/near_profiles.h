// The match profiles nearest to a report, for many reports: how near each is, in a lookup
// an ability; what separates the nearest, from the library's comparison of the two.
//
// For each code stand the distinct values that the profiles hold under it, and the verdict
// on each pair of a held and a reported value is asked for once.
//
// By the library as it was when this was made; its code registry must not change before
// the last question, an UndisturbedLibrary beside this keeps it as it was. On the thread
// that works with the library.
#ifndef OLT_HOST_RECOGNITION_NEAR_PROFILES_H
#define OLT_HOST_RECOGNITION_NEAR_PROFILES_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "onu_ability_common_table.h"
#include "recognition/pattern_comparison.h"
#include "recognition/population_outcome.h"

namespace olt_host {

struct NearProfile {
  PatternName profile;
  std::string name;  // type name of its real profile; empty without one
  AbilityTally tally;
  std::vector<AbilityComparison> against;
};

class NearProfiles {
 public:
  // Of the match profiles that the library has.
  NearProfiles();

  // At most `count`: the fewest abilities against first, then the most that agree, then the
  // newest.
  std::vector<NearProfile> Of(const OnuAbilityProfile& report, std::size_t count);

 private:
  using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;
  // Everything by which values can differ.
  using ValueKey = std::tuple<unsigned int, unsigned int, std::string>;

  struct Distance {
    std::size_t against = 0;
    std::size_t agrees = 0;
  };
  struct Column {
    std::vector<OnuAbilityProfile> held;  // each of one distinct value alone, or of none
    std::vector<std::size_t> held_by;     // of each profile
    std::map<ValueKey, std::vector<AbilityVerdict>> reported;
  };

  static ValueKey KeyOf(const Value& value);
  Column& ColumnOf(std::uint16_t code);
  Column MakeColumn(std::uint16_t code) const;
  static const std::vector<AbilityVerdict>& VerdictsOn(Column& column, std::uint16_t code,
                                                       const Value& value);
  std::vector<Distance> DistancesTo(const OnuAbilityProfile& report);
  NearProfile Describe(const ComparedReport& report, OnuAbilityProfile& profile) const;

  std::vector<OnuAbilityProfile> _profiles;  // copies, oldest first
  std::map<std::uint32_t, std::string> _names;
  std::map<std::uint16_t, Column> _columns;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_NEAR_PROFILES_H
