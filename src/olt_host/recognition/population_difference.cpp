#include "recognition/population_difference.h"

#include "recognition/difference_counter.h"

namespace olt_host {

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
  DifferenceCounter counter;
  for (std::size_t i = 0; i < before.onus.size(); ++i) {
    const OnuOutcome& onu = before.onus[i];
    counter.Count({"", onu.population, onu.place, onu.onu}, onu, after.onus[i],
                  {before.type_names, after.type_names});
  }
  return counter.Difference();
}

void AskAfter(PopulationDifference& difference, const GatherExample& gather) {
  const std::vector<OnuAbilityProfile> patterns = MatchProfiles();
  for (ChangeGroup& group : difference.groups) {
    if (!group.before.real_type) continue;
    group.loser_after = StandingOf(patterns, group.before.winner.key, gather(group));
  }
}

void AskBefore(PopulationDifference& difference, const GatherExample& gather) {
  const std::vector<OnuAbilityProfile> patterns = MatchProfiles();
  for (ChangeGroup& group : difference.groups) {
    if (!group.after.real_type) continue;
    group.winner_before = StandingOf(patterns, group.after.winner.key, gather(group));
  }
}

GatherExample ExamplesOf(const Populations& populations) {
  return [&populations](const ChangeGroup& group) {
    const OnuAddress& onu = group.examples.front();
    const Population& population = *populations[onu.file];
    return GatherForComparison(population, *population.Find(onu.place, onu.onu));
  };
}

}  // namespace olt_host
