// What becomes otherwise of a population when the library changes: which ONUs change type
// and from what to what, become known or unknown, are reported as another type, or owe
// their type to the order of the match profiles.
//
// A value of its own: it needs no report any more, and differences of parts of a population
// add up to that of the whole, in whichever order. Its size is bounded by the profiles, not
// by the ONUs.
#ifndef OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H
#define OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "recognition/pattern_standing.h"
#include "recognition/population_outcome.h"

namespace olt_host {

// kReportType: the real type stays. kOtherProfile: both types stay, and another profile,
// or another way, leads to them; nothing changes for the ONU.
enum class OnuChange { kType, kBecameKnown, kBecameUnknown, kReportType, kOtherProfile };
constexpr std::array<OnuChange, 5> kOnuChanges = {OnuChange::kType, OnuChange::kBecameKnown,
                                                  OnuChange::kBecameUnknown, OnuChange::kReportType,
                                                  OnuChange::kOtherProfile};

// "type_changed", "became_known", "became_unknown", "report_type_changed" or
// "other_profile".
const char* ToText(OnuChange kind);

// Which ONU. Ordered by the members as they stand here.
struct OnuAddress {
  std::string olt;       // of a whole network
  std::size_t file = 0;  // of several report files
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
};

// What one ONU is on one side of a change.
struct SideOfChange {
  std::optional<std::uint16_t> real_type;
  std::string type_name;
  std::uint16_t report_type = 0;
  std::uint32_t type_to_translate = 0;
  Recognition how = Recognition::kNone;
  std::size_t fitting = 0;
  PatternName winner;  // where there is a real type
};

// Of each group so many ONUs are named.
constexpr std::size_t kMostExamples = 3;

// ONUs that become the same out of the same. Of kReportType and kOtherProfile the two
// types are the same; kOtherProfile is told apart by the profiles.
struct ChangeGroup {
  OnuChange kind = OnuChange::kType;
  std::size_t onus = 0;
  std::vector<OnuAddress> examples;  // the first few by their order
  // Of the first example; `report` is its line where its source is not kept.
  SideOfChange before;
  SideOfChange after;
  std::string report;
  // Of the first example: what the profile that takes it on one side is to it on the
  // other. Filled by the functions below.
  PatternStanding loser_after;
  PatternStanding winner_before;
};

// ONUs that one profile took only because it is tried before another one.
struct LuckGroup {
  PatternName winner;
  PatternName next;
  std::string winner_name;  // type names
  std::string next_name;
  std::size_t most_fitting = 0;  // profiles, of any of these ONUs
  std::size_t onus = 0;
  std::vector<OnuAddress> examples;
};

struct Luck {
  std::size_t onus = 0;
  std::vector<LuckGroup> groups;  // most ONUs first
};

struct PopulationDifference {
  std::size_t onus = 0;
  std::array<std::size_t, kOnuChanges.size()> counts{};  // by kind
  std::vector<ChangeGroup> groups;                       // by kind, then most ONUs first
  Luck luck_before;
  Luck luck_after;

  std::size_t CountOf(OnuChange kind) const { return counts[static_cast<std::size_t>(kind)]; }
  // ONUs of which something becomes otherwise.
  std::size_t Changed() const;
};

// REQUIRES: both are of the same ONUs in the same order.
PopulationDifference Compare(const PopulationOutcome& before, const PopulationOutcome& after);

// The first example of a group, as GatherForComparison gives it.
using GatherExample = std::function<OnuAbilityProfile(const ChangeGroup&)>;

// Ask the library how the profiles of the examples stand. REQUIRES: the library is as it
// was for `after`, and for `before`.
void AskAfter(PopulationDifference& difference, const GatherExample& gather);
void AskBefore(PopulationDifference& difference, const GatherExample& gather);

// Finds the examples of Compare in the populations that it compared, which must outlive it.
GatherExample ExamplesOf(const Populations& populations);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H
