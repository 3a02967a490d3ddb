// What becomes otherwise of a population when the library changes: which ONUs change type
// and from what to what, become known or unknown, are reported as another type, or owe
// their type to the order of the match profiles.
#ifndef OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H
#define OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H

#include <array>
#include <cstddef>
#include <cstdint>
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

// What one ONU is on one side of a change.
struct SideOfChange {
  std::optional<std::uint16_t> real_type;
  std::string type_name;
  std::uint16_t report_type = 0;
  PatternName winner;  // where there is a real type
};

// ONUs that become the same out of the same. Of kReportType and kOtherProfile the two
// types are the same; kOtherProfile is told apart by the profiles.
struct ChangeGroup {
  OnuChange kind = OnuChange::kType;
  SideOfChange before;  // of the first example
  SideOfChange after;
  std::size_t onus = 0;
  std::vector<std::size_t> examples;  // the first few: indices of the outcomes
  // Of the first example: what the profile that takes it on one side is to it on the
  // other. Filled by the two functions below.
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
  std::vector<std::size_t> examples;
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

// Ask the library how the profiles of the examples stand. REQUIRES: the library is as it
// was for the outcome `after`, or `before`; the populations are those of that outcome.
void AskAfter(PopulationDifference& difference, const PopulationOutcome& before,
              const Populations& populations);
void AskBefore(PopulationDifference& difference, const PopulationOutcome& after,
               const Populations& populations);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_POPULATION_DIFFERENCE_H
