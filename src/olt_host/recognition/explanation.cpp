#include "recognition/explanation.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

using Profiles = std::vector<OnuAbilityProfile>;

std::string TypeNameOf(std::uint32_t key) {
  std::string name;
  const unsigned int ret = OnuAbilityTableManager::GetInstance()->Get(
      ONU_ABILITY_PROFILE_TYPE_REAL, key, ONU_ABILITY_CODE_TYPE_NAME, name);
  return ret == ONU_ABILITY_RET_OK ? name : "";
}

// Newest first, as they are asked.
Profiles CopiesOfMatchProfiles() {
  Profiles profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH,
                                                ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  // Not in place: an assigned profile keeps its own key ability code.
  return {std::make_move_iterator(profiles.rbegin()), std::make_move_iterator(profiles.rend())};
}

// Neither unset nor a wildcard.
bool AsksForSomething(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
             ? !value.ability_string_value.empty()
             : value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
                   value.ability_ushort_value != ONU_ABILITY_WILDCARD;
}

std::optional<std::uint32_t> KeyOf(const OnuAbilityProfile& profile) {
  unsigned int key = 0;
  return profile.Get(key) == ONU_ABILITY_RET_OK ? std::optional(key) : std::nullopt;
}

// Of profiles with one id the newest, as in the table's own search.
std::optional<std::size_t> PositionOf(const Profiles& profiles, const OnuAbilityProfile& wanted) {
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    if (profiles[i]._id == wanted._id && profiles[i]._profile_source == wanted._profile_source &&
        SameAbilities(profiles[i], wanted)) {
      return i;
    }
  }
  return std::nullopt;
}

ProfileFate FateOf(std::size_t position, const Explanation& explanation) {
  if (explanation.winner == position) return ProfileFate::kWon;
  const bool asked =
      explanation.compared && (!explanation.winner || position < *explanation.winner);
  return asked ? ProfileFate::kLost : ProfileFate::kNeverAsked;
}

// As the library hands them over.
void ReadOutcome(ConfirmOnuType& onu, Explanation& explanation) {
  explanation.translation = Translate(onu);
  onu.Add(ONU_ABILITY_CODE_TYPE_NAME, TypeNameOf(explanation.translation.key));
  onu.Get(ONU_ABILITY_CODE_TYPE_NAME, explanation.type_name);
  explanation.report_type = static_cast<std::uint16_t>(explanation.translation.after);
  if (explanation.how != Recognition::kNone) {
    unsigned int real_type = 0;
    onu.Get(ONU_ABILITY_CODE_REAL_TYPE, real_type);
    explanation.real_type = static_cast<std::uint16_t>(real_type);
  }
}

std::optional<std::size_t> FirstThatFits(const std::vector<ProfileVerdict>& verdicts) {
  const auto first = std::find_if(verdicts.begin(), verdicts.end(),
                                  [](const ProfileVerdict& verdict) { return verdict.fits; });
  return first == verdicts.end()
             ? std::nullopt
             : std::optional(static_cast<std::size_t>(first - verdicts.begin()));
}

}  // namespace

const char* ToText(ProfileFate fate) {
  switch (fate) {
    case ProfileFate::kWon:
      return "won";
    case ProfileFate::kLost:
      return "lost";
    case ProfileFate::kNeverAsked:
      return "never asked";
  }
  return "";
}

Explainer::Explainer(const ProfileOrigins& origins) : _origins(origins) {
  const UndisturbedLibrary undisturbed;
  _profiles = CopiesOfMatchProfiles();
  _verdicts.reserve(_profiles.size());
  for (const OnuAbilityProfile& profile : _profiles) {
    ProfileVerdict verdict;
    verdict.turn = _verdicts.size() + 1;
    verdict.id = profile._id;
    verdict.source = static_cast<unsigned int>(profile._profile_source);
    verdict.key = KeyOf(profile);
    if (verdict.key) verdict.name = TypeNameOf(*verdict.key);
    _verdicts.push_back(std::move(verdict));
  }
}

void Explainer::Compare(const OnuAbilityProfile& report, Explanation& explanation) {
  const ComparedReport compared(report);
  explanation.profiles = _verdicts;
  for (std::size_t i = 0; i < _profiles.size(); ++i) {
    explanation.profiles[i].fits = compared.Fits(_profiles[i]);
    explanation.profiles[i].tally = compared.Tally(_profiles[i]);
  }
  explanation.by_abilities = FirstThatFits(explanation.profiles);
}

// The road by the reported type, then that by abilities.
void Explainer::Recognise(const GatheredReport& report, ConfirmOnuType& onu,
                          Explanation& explanation) {
  explanation.compared = onu.IsValidOnuType() != ONU_ABILITY_RET_OK;
  if (!explanation.compared) {
    explanation.winner = PositionOf(_profiles, onu);
    explanation.how = explanation.report.reported_type != kUnknownReportedType
                          ? Recognition::kType
                          : Recognition::kAbilities;
    return;
  }
  onu.UpdateOnucapaFromSpecialMe();
  explanation.winner = explanation.by_abilities;
  if (!explanation.winner) return;
  explanation.how = Recognition::kAbilities;
  // With what being compared leaves in it, as the table hands it out.
  OnuAbilityProfile winner = _profiles[*explanation.winner];
  static_cast<void>(winner == report.compared);
  static_cast<OnuAbilityProfile&>(onu) = winner;
}

void Explainer::DescribeWinner(const GatheredReport& report, Explanation& explanation) {
  OnuAbilityProfile& winner = _profiles[*explanation.winner];
  explanation.origin = _origins.Of(winner);
  explanation.winner_abilities = ComparedReport(report.compared).Compare(winner);
  for (const auto& [code, value] : winner._common_ability) {
    const bool is_told = report.compared._common_ability.count(code) != 0;
    if (!is_told && AsksForSomething(value) && IsCompared(code)) {
      explanation.unreported.push_back(code);
    }
  }
}

Explanation Explainer::Explain(const ReportSource& source, const OnuReport& report) {
  const UndisturbedLibrary undisturbed;
  Explanation explanation;
  explanation.report = report;
  explanation.settings = source.Settings(report.place);
  const GatheredReport gathered = Gather(source, report);
  explanation.values = ValuesOf(gathered, report);
  Compare(gathered.compared, explanation);
  ConfirmOnuType onu = gathered.gathered;
  Recognise(gathered, onu, explanation);
  for (std::size_t i = 0; i < explanation.profiles.size(); ++i) {
    explanation.profiles[i].fate = FateOf(i, explanation);
  }
  if (explanation.winner) DescribeWinner(gathered, explanation);
  ReadOutcome(onu, explanation);
  if (explanation.translation.real_profile) {
    explanation.real_origin = _origins.Of(*explanation.translation.real_profile);
  }
  return explanation;
}

std::vector<std::size_t> NearestOf(const Explanation& explanation, ProfileFate fate, bool fits) {
  std::vector<std::size_t> nearest;
  for (std::size_t i = 0; i < explanation.profiles.size(); ++i) {
    const ProfileVerdict& verdict = explanation.profiles[i];
    if (verdict.fate == fate && verdict.fits == fits) nearest.push_back(i);
  }
  const auto distance = [&explanation](std::size_t i) {
    const AbilityTally& tally = explanation.profiles[i].tally;
    return std::make_tuple(tally.against, explanation.values.size() - tally.agrees, i);
  };
  std::sort(nearest.begin(), nearest.end(),
            [&distance](std::size_t a, std::size_t b) { return distance(a) < distance(b); });
  return nearest;
}

}  // namespace olt_host
