#include "recognition/population_outcome.h"

#include "recognition/outcome_reader.h"
#include "recognition/silent_observer.h"

namespace olt_host {

namespace {

OnuAbilityTableManager& Tables() { return *OnuAbilityTableManager::GetInstance(); }

}  // namespace

PatternName NameOf(const OnuAbilityProfile& pattern) {
  PatternName name;
  pattern.Get(name.key);
  name.source = static_cast<unsigned int>(pattern._profile_source);
  name.id = pattern._id;
  return name;
}

OnuAbilityProfile GatherForComparison(const ReportSource& source, const OnuReport& report) {
  SilentObserver silent;
  const ScopedHookContext context(source, silent);
  ConfirmOnuType onu(report.place, report.onu);
  onu.Init();
  onu.UpdateOnucapaFromSpecialMe();
  return onu;
}

PopulationOutcome OutcomeOf(const Populations& populations,
                            const std::function<void(std::size_t)>& progress) {
  PopulationOutcome outcome;
  OutcomeReader reader;
  for (std::size_t i = 0; i < populations.size(); ++i) {
    for (const OnuReport& report : populations[i]->Onus()) {
      outcome.onus.push_back(reader.Read(*populations[i], report));
      outcome.onus.back().population = i;
      if (progress) progress(outcome.onus.size());
    }
  }
  outcome.type_names = ReadTypeNames();
  return outcome;
}

NamesByKey ReadTypeNames() {
  std::vector<OnuAbilityProfile> profiles;
  Tables().GetAll(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  NamesByKey names;
  for (const OnuAbilityProfile& profile : profiles) {
    std::string name;
    profile.Get(ONU_ABILITY_CODE_TYPE_NAME, name);
    names[NameOf(profile).key] = name;
  }
  return names;
}

std::vector<OnuAbilityProfile> MatchProfiles() {
  std::vector<OnuAbilityProfile> profiles;
  Tables().GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

}  // namespace olt_host
