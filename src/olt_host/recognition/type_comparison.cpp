#include "recognition/type_comparison.h"

#include <set>
#include <string>

#include "recognition/ability_reading.h"

namespace olt_host {

namespace {

using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

bool IsText(const Value* value) {
  return value != nullptr && value->ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING;
}

bool ReadsTheSame(const Value* a, const Value* b) {
  if (IsText(a) || IsText(b)) {
    return IsText(a) && IsText(b) && a->ability_string_value == b->ability_string_value;
  }
  return (a == nullptr ? 0 : a->ability_ushort_value) ==
         (b == nullptr ? 0 : b->ability_ushort_value);
}

// A code that went from the registry is still held by its number.
NamedAbility NameOf(std::uint16_t code, const Value* value, const AbilityNames& names) {
  const NamedAbility* known = names.Find(code);
  if (known != nullptr) return *known;
  return {code, std::to_string(code), IsText(value)};
}

}  // namespace

std::vector<AbilityDifference> CompareTypes(const RealType& a, const RealType& b,
                                            const AbilityNames& names) {
  std::set<std::uint16_t> codes;
  for (const RealType* type : {&a, &b}) {
    for (const auto& ability : type->profile._common_ability) codes.insert(ability.first);
  }
  std::vector<AbilityDifference> differences;
  for (const std::uint16_t code : codes) {
    AbilityDifference difference;
    difference.a = HeldUnder(a.profile, code);
    difference.b = HeldUnder(b.profile, code);
    difference.ability = NameOf(code, difference.a != nullptr ? difference.a : difference.b, names);
    difference.same = ReadsTheSame(difference.a, difference.b);
    differences.push_back(difference);
  }
  return differences;
}

}  // namespace olt_host
