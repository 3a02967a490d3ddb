#include "recognition/ability_reading.h"

namespace olt_host {

const ONU_ABILITY_COMMON_ABILITY_VALUE* HeldUnder(const OnuAbilityProfile& profile,
                                                  std::uint16_t code) {
  const auto found = profile._common_ability.find(code);
  return found == profile._common_ability.end() ? nullptr : &found->second;
}

std::uint32_t NumberUnder(const OnuAbilityProfile& profile, std::uint16_t code) {
  const auto* held = HeldUnder(profile, code);
  const bool is_number =
      held != nullptr && held->ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT;
  return is_number ? held->ability_ushort_value : 0;
}

std::string TextUnder(const OnuAbilityProfile& profile, std::uint16_t code) {
  const auto* held = HeldUnder(profile, code);
  const bool is_text = held != nullptr && held->ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING;
  return is_text ? held->ability_string_value : "";
}

std::string CodeName(std::uint16_t code) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  // Asked for another one, the registry answers a stand-in and logs a line.
  return codes->IsExist(code) == 0 ? "" : codes->Get(code);
}

std::string CodeNameOrNumber(std::uint16_t code) {
  const std::string name = CodeName(code);
  return name.empty() ? "code " + std::to_string(code) : name;
}

}  // namespace olt_host
