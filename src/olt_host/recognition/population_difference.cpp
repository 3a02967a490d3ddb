#include "recognition/population_difference.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace olt_host {

namespace {

constexpr std::size_t kMostExamples = 3;

std::optional<OnuChange> KindOf(const OnuOutcome& before, const OnuOutcome& after) {
  if (before.real_type && after.real_type && *before.real_type != *after.real_type) {
    return OnuChange::kType;
  }
  if (!before.real_type && after.real_type) return OnuChange::kBecameKnown;
  if (before.real_type && !after.real_type) return OnuChange::kBecameUnknown;
  if (before.report_type != after.report_type) return OnuChange::kReportType;
  if (before.how != after.how || before.winner.key != after.winner.key) {
    return OnuChange::kOtherProfile;
  }
  return std::nullopt;
}

std::string NameOfType(const PopulationOutcome& outcome, const PatternName& pattern) {
  const auto name = outcome.type_names.find(pattern.key);
  return name == outcome.type_names.end() ? "" : name->second;
}

SideOfChange SideOf(const PopulationOutcome& outcome, const OnuOutcome& onu) {
  SideOfChange side;
  side.real_type = onu.real_type;
  side.report_type = onu.report_type;
  side.winner = onu.winner;
  if (onu.real_type) side.type_name = NameOfType(outcome, onu.winner);
  return side;
}

// What puts two changes into one group.
using GroupKey = std::tuple<OnuChange, long, long, std::uint64_t, std::uint64_t>;

GroupKey GroupKeyOf(OnuChange kind, const OnuOutcome& before, const OnuOutcome& after) {
  const auto type = [](const OnuOutcome& onu) { return onu.real_type ? long{*onu.real_type} : -1; };
  std::uint64_t detail_before = 0;
  std::uint64_t detail_after = 0;
  if (kind == OnuChange::kReportType) {
    detail_before = before.report_type;
    detail_after = after.report_type;
  } else if (kind == OnuChange::kOtherProfile) {
    detail_before = before.winner.key;
    detail_after = after.winner.key;
  }
  return {kind, type(before), type(after), detail_before, detail_after};
}

template <typename Group>
void Count(Group& group, std::size_t onu) {
  ++group.onus;
  if (group.examples.size() < kMostExamples) group.examples.push_back(onu);
}

// The groups of a map, most ONUs first, otherwise in the order of the map.
template <typename Key, typename Group>
std::vector<Group> MostFirst(std::map<Key, Group>& groups) {
  std::vector<Group> sorted;
  sorted.reserve(groups.size());
  for (auto& entry : groups) sorted.push_back(std::move(entry.second));
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Group& one, const Group& other) { return one.onus > other.onus; });
  return sorted;
}

Luck LuckOf(const PopulationOutcome& outcome) {
  const auto key_of = [](const PatternName& name) {
    return std::make_tuple(name.key, name.source, name.id);
  };
  using Key = std::tuple<std::uint32_t, unsigned int, std::uint16_t>;
  std::map<std::pair<Key, Key>, LuckGroup> groups;
  Luck luck;
  for (std::size_t i = 0; i < outcome.onus.size(); ++i) {
    const OnuOutcome& onu = outcome.onus[i];
    if (!onu.ByLuck()) continue;
    ++luck.onus;
    LuckGroup& group = groups[{key_of(onu.winner), key_of(onu.next)}];
    group.winner = onu.winner;
    group.next = onu.next;
    group.winner_name = NameOfType(outcome, onu.winner);
    group.next_name = NameOfType(outcome, onu.next);
    group.most_fitting = std::max(group.most_fitting, onu.fitting);
    Count(group, i);
  }
  luck.groups = MostFirst(groups);
  return luck;
}

// How the profile with `key` stands to the first example, in the library as it is.
PatternStanding StandingOfExample(const OnuOutcome& onu, std::uint32_t key,
                                  const std::vector<OnuAbilityProfile>& patterns,
                                  const Populations& populations) {
  const Population& population = *populations[onu.population];
  const OnuReport* report = population.Find(onu.place, onu.onu);
  return StandingOf(patterns, key, GatherForComparison(population, *report));
}

}  // namespace

const char* ToText(OnuChange kind) {
  switch (kind) {
    case OnuChange::kType:
      return "type_changed";
    case OnuChange::kBecameKnown:
      return "became_known";
    case OnuChange::kBecameUnknown:
      return "became_unknown";
    case OnuChange::kReportType:
      return "report_type_changed";
    case OnuChange::kOtherProfile:
      return "other_profile";
  }
  return "";
}

std::size_t PopulationDifference::Changed() const {
  return CountOf(OnuChange::kType) + CountOf(OnuChange::kBecameKnown) +
         CountOf(OnuChange::kBecameUnknown) + CountOf(OnuChange::kReportType);
}

PopulationDifference Compare(const PopulationOutcome& before, const PopulationOutcome& after) {
  PopulationDifference difference;
  difference.onus = before.onus.size();
  std::map<GroupKey, ChangeGroup> groups;
  for (std::size_t i = 0; i < before.onus.size(); ++i) {
    const auto kind = KindOf(before.onus[i], after.onus[i]);
    if (!kind) continue;
    ++difference.counts[static_cast<std::size_t>(*kind)];
    ChangeGroup& group = groups[GroupKeyOf(*kind, before.onus[i], after.onus[i])];
    if (group.onus == 0) {
      group.kind = *kind;
      group.before = SideOf(before, before.onus[i]);
      group.after = SideOf(after, after.onus[i]);
    }
    Count(group, i);
  }
  difference.groups = MostFirst(groups);
  std::stable_sort(
      difference.groups.begin(), difference.groups.end(),
      [](const ChangeGroup& one, const ChangeGroup& other) { return one.kind < other.kind; });
  difference.luck_before = LuckOf(before);
  difference.luck_after = LuckOf(after);
  return difference;
}

void AskAfter(PopulationDifference& difference, const PopulationOutcome& before,
              const Populations& populations) {
  const std::vector<OnuAbilityProfile> patterns = MatchProfiles();
  for (ChangeGroup& group : difference.groups) {
    if (!group.before.real_type) continue;
    const OnuOutcome& onu = before.onus[group.examples.front()];
    group.loser_after = StandingOfExample(onu, group.before.winner.key, patterns, populations);
  }
}

void AskBefore(PopulationDifference& difference, const PopulationOutcome& after,
               const Populations& populations) {
  const std::vector<OnuAbilityProfile> patterns = MatchProfiles();
  for (ChangeGroup& group : difference.groups) {
    if (!group.after.real_type) continue;
    const OnuOutcome& onu = after.onus[group.examples.front()];
    group.winner_before = StandingOfExample(onu, group.after.winner.key, patterns, populations);
  }
}

}  // namespace olt_host
