#include "texts.h"

std::string Quoted(const std::string& text) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string result = "\"";
  for (const char c : text) {
    if (c >= ' ' && c <= '~') {
      result += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      result += "\\x";
      result += kDigits[byte >> 4U];
      result += kDigits[byte & 0xFU];
    }
  }
  return result + "\"";
}

std::string Shown(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  std::string text = std::to_string(value.ability_value_type);
  text += "/" + std::to_string(value.ability_ushort_value);
  return value.ability_string_value.empty() ? text
                                            : text + "/" + Quoted(value.ability_string_value);
}

std::string Shown(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  std::string text = std::to_string(record.ability_code) + " " + Quoted(record.ability_name);
  for (const auto& attribute : record.ability_attr) {
    text += " " + std::to_string(attribute.first) + "=" + std::to_string(attribute.second);
  }
  return text;
}

std::string Shown(const OnuAbilityProfile& profile) {
  std::string text = "type " + std::to_string(profile._profile_type);
  text += " source " + std::to_string(profile._profile_source);
  text += " id " + std::to_string(profile._id);
  text += " bound " + std::to_string(profile._bind_count);
  text += " match " + std::to_string(profile._flag_match_type);
  text += " default " + std::to_string(profile._ability_default_value);
  text += " key code " + std::to_string(profile._key_ability_code);
  text += " age " + std::to_string(profile._age_count);
  text += " reserved";
  for (const unsigned char byte : profile._reserved) {
    text += byte == 0 ? "." : " " + std::to_string(byte);
  }
  text += " count " + std::to_string(profile._common_ability_num) + ":";
  for (const auto& ability : profile._common_ability) {
    text += " " + std::to_string(ability.first) + "=" + Shown(ability.second);
  }
  return text;
}
