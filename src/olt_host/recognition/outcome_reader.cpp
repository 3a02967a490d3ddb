#include "recognition/outcome_reader.h"

#include "recognition/silent_observer.h"

namespace olt_host {

namespace {

// Among the fitting patterns the newest but one.
PatternName NextOf(const std::vector<std::size_t>& fitting,
                   const std::vector<OnuAbilityProfile>& patterns) {
  return NameOf(patterns[fitting[fitting.size() - 2]]);
}

}  // namespace

OutcomeReader::OutcomeReader() : _patterns(MatchProfiles()), _index(_patterns) {}

OnuOutcome OutcomeReader::Read(const ReportSource& source, const OnuReport& report) {
  SilentObserver silent;
  const ScopedHookContext context(source, silent);
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

void OutcomeReader::Recognise(ConfirmOnuType& onu, OnuOutcome& outcome) {
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
  if (*OnuAbilityTableManager::GetInstance() == onu) outcome.how = Recognition::kAbilities;
}

}  // namespace olt_host
