#include "recognition/population_outcome.h"

#include "recognition/fit_index.h"

namespace olt_host {

namespace {

OnuAbilityTableManager& Tables() { return *OnuAbilityTableManager::GetInstance(); }

class Unheard : public ConfirmationObserver {
 public:
  void OnProfile(unsigned int /*stage*/, const ConfirmOnuType& /*profile*/) override {}
  void OnRealType(std::uint16_t /*real_type*/) override {}
  void OnReportType(std::uint16_t /*report_type*/) override {}
};

// Among the fitting patterns the newest but one.
PatternName NextOf(const std::vector<std::size_t>& fitting,
                   const std::vector<OnuAbilityProfile>& patterns) {
  return NameOf(patterns[fitting[fitting.size() - 2]]);
}

class OutcomeReader {
 public:
  OutcomeReader() : _patterns(MatchProfiles()), _index(_patterns) {}

  OnuOutcome Read(const ReportSource& source, const OnuReport& report) {
    Unheard unheard;
    const ScopedHookContext context(source, unheard);
    ConfirmOnuType onu(report.place, report.onu);
    onu.Init();
    OnuOutcome outcome;
    outcome.place = report.place;
    outcome.onu = report.onu;
    Recognise(onu, outcome);
    onu.Get(ONU_ABILITY_CODE_REPORT_TYPE, outcome.type_to_translate);
    onu.TransOnutypeByHswSwitch();
    outcome.report_type = static_cast<std::uint16_t>(onu._report_type);
    if (outcome.how != Recognition::kNone) {
      unsigned int real_type = 0;
      onu.Get(ONU_ABILITY_CODE_REAL_TYPE, real_type);
      outcome.real_type = static_cast<std::uint16_t>(real_type);
      outcome.winner = NameOf(onu);
    }
    return outcome;
  }

 private:
  void Recognise(ConfirmOnuType& onu, OnuOutcome& outcome) {
    if (onu.IsValidOnuType() == ONU_ABILITY_RET_OK) {
      // A profile without a key is what an ONU without a type names.
      outcome.how = onu._type_from_onu_report == kUnknownReportedType ? Recognition::kAbilities
                                                                      : Recognition::kType;
      return;
    }
    onu._type_from_onu_report = kUnknownReportedType;
    onu.UpdateOnucapaFromSpecialMe();
    const std::vector<std::size_t> fitting = _index.Fitting(onu);
    outcome.fitting = fitting.size();
    if (fitting.size() > 1) outcome.next = NextOf(fitting, _patterns);
    if (Tables() == onu) outcome.how = Recognition::kAbilities;
  }

  const std::vector<OnuAbilityProfile> _patterns;
  FitIndex _index;
};

std::map<std::uint32_t, std::string> TypeNames() {
  std::vector<OnuAbilityProfile> profiles;
  Tables().GetAll(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  std::map<std::uint32_t, std::string> names;
  for (const OnuAbilityProfile& profile : profiles) {
    std::string name;
    profile.Get(ONU_ABILITY_CODE_TYPE_NAME, name);
    names[NameOf(profile).key] = name;
  }
  return names;
}

}  // namespace

PatternName NameOf(const OnuAbilityProfile& pattern) {
  PatternName name;
  pattern.Get(name.key);
  name.source = static_cast<unsigned int>(pattern._profile_source);
  name.id = pattern._id;
  return name;
}

OnuAbilityProfile GatherForComparison(const ReportSource& source, const OnuReport& report) {
  Unheard unheard;
  const ScopedHookContext context(source, unheard);
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
  outcome.type_names = TypeNames();
  return outcome;
}

std::vector<OnuAbilityProfile> MatchProfiles() {
  std::vector<OnuAbilityProfile> profiles;
  Tables().GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

}  // namespace olt_host
