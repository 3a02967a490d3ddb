#include "recognition/pattern_comparison.h"

#include <algorithm>

#include "catalogue/catalogue.h"

namespace olt_host {

namespace {

using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

constexpr unsigned short kComparedWithPatterns = 0x1;  // bit of the confirm-type attribute

// Which of its two members the library reads is told by the held value.
bool IsWildcard(const Value& value, unsigned int tag) {
  return tag == ONU_ABILITY_VALUE_TYPE_STRING ? value.ability_string_value.empty()
                                              : value.ability_ushort_value == kAnyNumber;
}

// A report of nothing but one ability.
OnuAbilityProfile ReportOf(unsigned short code, const Value& value) {
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
              ONU_ABILITY_MATCH_TYPE_PATTERN);
  report._common_ability[code] = value;
  return report;
}

AbilityComparison CompareAbility(OnuAbilityProfile& profile, unsigned short code,
                                 const Value& reported) {
  AbilityComparison comparison;
  comparison.code = code;
  comparison.reported = reported;
  const auto held = profile._common_ability.find(code);
  if (held == profile._common_ability.end()) {
    comparison.verdict = AbilityVerdict::kAbsent;
    return comparison;
  }
  comparison.held = held->second;
  const unsigned int tag = held->second.ability_value_type;
  if ((profile == ReportOf(code, reported)) == 0) {
    comparison.verdict = AbilityVerdict::kDecidesAgainst;
  } else if (IsWildcard(held->second, tag) || IsWildcard(reported, tag)) {
    comparison.verdict = AbilityVerdict::kWildcard;
  }
  return comparison;
}

}  // namespace

const char* ToText(AbilityVerdict verdict) {
  switch (verdict) {
    case AbilityVerdict::kAgrees:
      return "agrees";
    case AbilityVerdict::kWildcard:
      return "wildcard";
    case AbilityVerdict::kAbsent:
      return "absent";
    case AbilityVerdict::kDecidesAgainst:
      return "decides against";
  }
  return "";
}

bool Fits(const OnuAbilityProfile& profile, const OnuAbilityProfile& report) {
  // Copies: comparing may leave a pending key entry, and the kind of comparison is the
  // report's.
  OnuAbilityProfile compared = profile;
  OnuAbilityProfile input = report;
  input._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  return (compared == input) != 0;
}

bool IsCompared(std::uint16_t code) {
  const unsigned short confirm_type =
      OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_CONFIRM_TYPE);
  return (confirm_type & kComparedWithPatterns) != 0;
}

std::vector<AbilityComparison> CompareAbilities(const OnuAbilityProfile& profile,
                                                const OnuAbilityProfile& report) {
  OnuAbilityProfile compared = profile;
  // The first comparison gives the profile an entry for the key code, if it lacks one.
  compared._common_ability.try_emplace(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode());
  std::vector<AbilityComparison> comparisons;
  for (const auto& [code, value] : report._common_ability) {
    if (IsCompared(code)) {
      comparisons.push_back(CompareAbility(compared, code, value));
    }
  }
  return comparisons;
}

std::size_t CountOf(const std::vector<AbilityComparison>& comparisons, AbilityVerdict verdict) {
  return static_cast<std::size_t>(
      std::count_if(comparisons.begin(), comparisons.end(),
                    [verdict](const auto& one) { return one.verdict == verdict; }));
}

}  // namespace olt_host
