#include "recognition/pattern_standing.h"

#include "catalogue/input_error.h"
#include "recognition/ability_reading.h"
#include "recognition/pattern_comparison.h"

namespace olt_host {

namespace {

// `tag` is that of the held value: it says which of the two members is compared.
std::string ValueText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value, unsigned int tag) {
  if (tag == ONU_ABILITY_VALUE_TYPE_STRING) return Quoted(value.ability_string_value);
  if (tag == ONU_ABILITY_VALUE_TYPE_USHORT) return std::to_string(value.ability_ushort_value);
  return "nothing";
}

}  // namespace

PatternStanding StandingOf(const OnuAbilityProfile& pattern, const OnuAbilityProfile& report) {
  PatternStanding standing;
  standing.kind = PatternStanding::kFits;
  for (const AbilityComparison& comparison : CompareAbilities(pattern, report)) {
    if (comparison.verdict != AbilityVerdict::kDecidesAgainst) continue;
    const unsigned int tag = comparison.held->ability_value_type;
    standing.kind = PatternStanding::kStopped;
    standing.code = comparison.code;
    standing.ability = CodeNameOrNumber(comparison.code);
    standing.reported =
        tag == ONU_ABILITY_VALUE_TYPE_NONE ? "a value" : ValueText(comparison.reported, tag);
    standing.held = ValueText(*comparison.held, tag);
    break;
  }
  return standing;
}

PatternStanding StandingOf(const std::vector<OnuAbilityProfile>& patterns, std::uint32_t key,
                           const OnuAbilityProfile& report) {
  PatternStanding newest;
  for (auto pattern = patterns.rbegin(); pattern != patterns.rend(); ++pattern) {
    unsigned int its_key = 0;
    pattern->Get(its_key);
    if (its_key != key) continue;
    PatternStanding standing = StandingOf(*pattern, report);
    if (standing.kind == PatternStanding::kFits) return standing;
    if (newest.kind == PatternStanding::kAbsent) newest = standing;
  }
  return newest;
}

}  // namespace olt_host
