// What becomes of each ONU of a population under the library as it is, and by how much:
// which match profile took it, and how many others would have.
#ifndef OLT_HOST_RECOGNITION_POPULATION_OUTCOME_H
#define OLT_HOST_RECOGNITION_POPULATION_OUTCOME_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/hooks.h"
#include "confirmation/population.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// Which match profile of a table.
struct PatternName {
  std::uint32_t key = 0;
  unsigned int source = 0;
  std::uint16_t id = 0;

  bool operator==(const PatternName& other) const {
    return key == other.key && source == other.source && id == other.id;
  }
};

PatternName NameOf(const OnuAbilityProfile& pattern);

// Report files side by side: each may be of another OLT, with the same places.
using Populations = std::vector<std::shared_ptr<const Population>>;

struct OnuOutcome {
  std::size_t population = 0;  // of several
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  Recognition how = Recognition::kNone;
  std::optional<std::uint16_t> real_type;  // nothing: not recognised
  std::uint16_t report_type = 0;           // after translation
  std::uint32_t type_to_translate = 0;     // before
  PatternName winner;                      // unless `how` is kNone
  // The profiles that fit by abilities; 0 where none was compared.
  std::size_t fitting = 0;
  PatternName next;  // where two or more fit: who takes the ONU without the winner

  // Only the order of the profiles decided.
  bool ByLuck() const { return fitting > 1; }
};

using NamesByKey = std::map<std::uint32_t, std::string>;  // of the real profiles, by key

struct PopulationOutcome {
  std::vector<OnuOutcome> onus;  // in the order of the populations
  NamesByKey type_names;
};

// The ONU as it is compared with match profiles, the private capability brought in.
//
// REQUIRES: the hooks are registered; `source` knows the ONU of `report`.
OnuAbilityProfile GatherForComparison(const ReportSource& source, const OnuReport& report);

// As an OutcomeReader tells it. `progress` (may be empty) is called with the number of ONUs
// done.
//
// REQUIRES: the hooks are registered, the library is loaded. On the thread that works with
// the library.
PopulationOutcome OutcomeOf(const Populations& populations,
                            const std::function<void(std::size_t)>& progress = {});

// Of the library as it is.
NamesByKey ReadTypeNames();

// The match profiles of the library, oldest first.
std::vector<OnuAbilityProfile> MatchProfiles();

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_POPULATION_OUTCOME_H
