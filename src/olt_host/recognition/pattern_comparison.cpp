#include "recognition/pattern_comparison.h"

#include "catalogue/catalogue.h"
#include "recognition/ability_reading.h"

namespace olt_host {

namespace {

using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

// Which of its two members the library reads is told by the held value.
bool IsWildcard(const Value& value, unsigned int tag) {
  return tag == ONU_ABILITY_VALUE_TYPE_STRING ? value.ability_string_value.empty()
                                              : value.ability_ushort_value == kAnyNumber;
}

// A report of nothing but one ability.
OnuAbilityProfile ReportOf(std::uint16_t code, const Value& value) {
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
              ONU_ABILITY_MATCH_TYPE_PATTERN);
  report._common_ability[code] = value;
  return report;
}

const Value& Reported(const OnuAbilityProfile& single) {
  return single._common_ability.begin()->second;
}

// `held` is what `profile` has under the code of `single`, null for nothing.
AbilityVerdict VerdictOn(OnuAbilityProfile& profile, const Value* held,
                         const OnuAbilityProfile& single) {
  if (held == nullptr) return AbilityVerdict::kAbsent;
  if ((profile == single) == 0) return AbilityVerdict::kDecidesAgainst;
  const unsigned int tag = held->ability_value_type;
  return IsWildcard(*held, tag) || IsWildcard(Reported(single), tag) ? AbilityVerdict::kWildcard
                                                                     : AbilityVerdict::kAgrees;
}

// Gives a profile its entry for the key code, as the library does before it compares a
// value, and takes it back at the end unless it was there.
class KeyEntry {
 public:
  KeyEntry(OnuAbilityProfile& profile, std::uint16_t key_code, bool wanted)
      : _profile(profile), _key_code(key_code) {
    const bool was_there = profile._common_ability.count(key_code) != 0;
    _is_added = wanted && !was_there;
    if (_is_added) profile._common_ability.try_emplace(key_code);
  }
  ~KeyEntry() {
    if (_is_added) _profile._common_ability.erase(_key_code);
  }
  KeyEntry(const KeyEntry&) = delete;
  KeyEntry& operator=(const KeyEntry&) = delete;

 private:
  OnuAbilityProfile& _profile;
  std::uint16_t _key_code;
  bool _is_added;
};

AbilityComparison ComparisonOf(std::uint16_t code, AbilityVerdict verdict, const Value* held,
                               const OnuAbilityProfile& single) {
  AbilityComparison comparison;
  comparison.code = code;
  comparison.verdict = verdict;
  comparison.reported = Reported(single);
  if (held != nullptr) comparison.held = *held;
  return comparison;
}

void Count(AbilityVerdict verdict, AbilityTally& tally) {
  switch (verdict) {
    case AbilityVerdict::kAgrees:
      ++tally.agrees;
      return;
    case AbilityVerdict::kWildcard:
      ++tally.wildcards;
      return;
    case AbilityVerdict::kAbsent:
      ++tally.absent;
      return;
    case AbilityVerdict::kDecidesAgainst:
      ++tally.against;
      return;
  }
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

bool IsCompared(std::uint16_t code) {
  const unsigned short confirm_type =
      OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_CONFIRM_TYPE);
  return (confirm_type & ONU_ABILITY_CONFIRM_COMPARED) != 0;
}

ComparedReport::ComparedReport(const OnuAbilityProfile& report)
    : _whole(report), _key_code(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()) {
  // The kind of comparison is the report's.
  _whole._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  for (const auto& [code, value] : report._common_ability) {
    if (IsCompared(code)) _single.emplace_back(code, ReportOf(code, value));
  }
}

bool ComparedReport::Fits(OnuAbilityProfile& profile) const {
  const KeyEntry entry(profile, _key_code, !_whole._common_ability.empty());
  return (profile == _whole) != 0;
}

std::vector<AbilityComparison> ComparedReport::Compare(OnuAbilityProfile& profile) const {
  const KeyEntry entry(profile, _key_code, !_single.empty());
  std::vector<AbilityComparison> comparisons;
  comparisons.reserve(_single.size());
  for (const auto& [code, single] : _single) {
    const Value* held = HeldUnder(profile, code);
    comparisons.push_back(ComparisonOf(code, VerdictOn(profile, held, single), held, single));
  }
  return comparisons;
}

AbilityTally ComparedReport::Tally(OnuAbilityProfile& profile) const {
  const KeyEntry entry(profile, _key_code, !_single.empty());
  AbilityTally tally;
  for (const auto& [code, single] : _single) {
    const Value* held = HeldUnder(profile, code);
    const AbilityVerdict verdict = VerdictOn(profile, held, single);
    Count(verdict, tally);
    if (verdict == AbilityVerdict::kDecidesAgainst && !tally.decider) {
      tally.decider = ComparisonOf(code, verdict, held, single);
    }
  }
  return tally;
}

std::vector<AbilityComparison> CompareAbilities(const OnuAbilityProfile& profile,
                                                const OnuAbilityProfile& report) {
  OnuAbilityProfile compared = profile;
  return ComparedReport(report).Compare(compared);
}

}  // namespace olt_host
