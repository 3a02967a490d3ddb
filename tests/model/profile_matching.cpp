#include "profile.h"

namespace model {

u32 Profile::IsAmbiguousNumber(u32 value_1, u32 value_2) const {
  MODEL_LOG(5, "value_1:%d, value_2:%d", static_cast<int>(value_1), static_cast<int>(value_2));
  return value_1 == 0xFFFFFFFFU || value_1 == value_2 || value_2 == 0xFFFFFFFFU ? 1 : 0;
}

u32 Profile::IsAmbiguousText(const std::string& string_1, const std::string& string_2) const {
  MODEL_LOG(5, "string_1:%s, string_2:%s", string_1.c_str(), string_2.c_str());
  return string_1.empty() || string_2.empty() || string_1 == string_2 ? 1 : 0;
}

u32 Profile::IsEqualValue(u16 code, const Value& value) const {
  Value held;
  GetValue(code, held);
  if (held.tag != value.tag) {
    MODEL_LOG(0, "value_type is not equal!value_type_1:%d, value_type_2:%d",
              static_cast<int>(held.tag), static_cast<int>(value.tag));
    return 0;
  }
  if (held.tag == 2) {
    MODEL_LOG(4, "ability_value_1:%d, ability_value_2:%d", static_cast<int>(held.number),
              static_cast<int>(value.number));
    return held.number == value.number ? 1 : 0;
  }
  if (held.tag == 3) {
    MODEL_LOG(4, "ability_value_1:%s, ability_value_2:%s", held.text.c_str(), value.text.c_str());
    return held.text == value.text ? 1 : 0;
  }
  return 0;
}

u32 Profile::IsEqualNumber(u16 code, u32 value) const {
  Value held;
  GetValue(code, held);
  if (held.tag != 2) {
    MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(held.tag));
    return 0;
  }
  MODEL_LOG(4, "ability_value_1:%d, ability_value_2:%d", static_cast<int>(held.number),
            static_cast<int>(value));
  return held.number == value ? 1 : 0;
}

u32 Profile::IsEqualOfSource(int wanted, u16 code, u32 value) const {
  if (IsEqualNumber(code, value) == 0) {
    return 0;
  }
  return wanted == 2 || wanted == source ? 1 : 0;
}

u32 Profile::IsEqualText(u16 code, const std::string& value) const {
  Value held;
  GetValue(code, held);
  if (held.tag != 3) {
    MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(held.tag));
    return 0;
  }
  MODEL_LOG(4, "ability_value_1:%s, ability_value_2:%s", held.text.c_str(), value.c_str());
  return held.text == value ? 1 : 0;
}

u32 Profile::HasRealType(u16 real_type) const {
  const auto found = abilities.find(1081);
  return found != abilities.end() && found->second.number == real_type ? 1 : 0;
}

u32 Profile::HasVendor(const std::string& vendor) const {
  Value held;
  const u32 ret = GetValue(1082, held);
  if (ret != 0) {
    MODEL_LOG(4, "get failed!ret:0x%x", ret);
    return 0;
  }
  if (held.tag != 3) {
    MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(held.tag));
    return 0;
  }
  MODEL_LOG(4, "vendorid_1:%s, vendorid_2:%s", held.text.c_str(), vendor.c_str());
  return held.text.empty() || vendor.empty() || held.text == vendor ? 1 : 0;
}

u32 Profile::HasKey(u32 key_value) const {
  u32 held = 0;
  GetKeyValue(held);
  MODEL_LOG(4, "(OnuAbilityProfile)key_ability_value_temp:%d, key_ability_value:%d",
            static_cast<int>(held), static_cast<int>(key_value));
  return held == key_value ? 1 : 0;
}

u32 Profile::Matches(const Profile& input) {
  MODEL_LOG(6, "operator== start!flag_match_type:%d, id_input:%d, id_compare:%d", input.match_type,
            input.id, id);
  if (input.match_type == 1) {
    return MatchesPattern(input);
  }
  if (input.match_type == 2) {
    return MatchesExactly(input);
  }
  return 1;
}

u32 Profile::MatchesPattern(const Profile& input) {
  const u16 key = Codes().key_code;
  for (const auto& entry : input.abilities) {
    const u16 code = entry.first;
    const Value& reported = entry.second;
    const u16 confirm_type = Codes().Attribute(code, 1);
    // Meant: this profile acquires the key code when it lacks it.
    const u32 key_value = abilities[key].number;
    MODEL_LOG(6,
              "key_ability_code:%d, key_ability_value:%d, ability_code:%d, ability_name:%s, "
              "confirm_type_attr_value:%d",
              key, static_cast<int>(key_value), code, MODEL_NAME(code), confirm_type);
    if ((confirm_type & 1U) == 0) {
      continue;
    }
    if (abilities.count(code) == 0) {
      MODEL_LOG(4, "ability_code is not exist, don't need match!ability_code:%d, ability_name:%s",
                code, MODEL_NAME(code));
      continue;
    }
    const Value& held = abilities[code];
    MODEL_LOG(6, "value_type:%d", static_cast<int>(held.tag));
    if (held.tag == 2) {
      MODEL_LOG(6,
                "key_ability_code:%d, key_ability_value:%d, ability_code:%d, ability_name:%s, "
                "value_input:%d, value_compare:%d",
                key, static_cast<int>(key_value), code, MODEL_NAME(code),
                static_cast<int>(reported.number), static_cast<int>(held.number));
      if (IsAmbiguousNumber(held.number, reported.number) == 0) {
        return 0;
      }
    } else if (held.tag == 3) {
      MODEL_LOG(6,
                "key_ability_code:%d, ability_code:%d, ability_name:%s, string_input:%s, "
                "string_compare:%s",
                key, code, MODEL_NAME(code), reported.text.c_str(), held.text.c_str());
      if (IsAmbiguousText(held.text, reported.text) == 0) {
        return 0;
      }
    } else {
      MODEL_LOG(0, "ability_code:%d, ability_name:%s, value_type:%d", code, MODEL_NAME(code),
                static_cast<int>(reported.tag));
      return 0;
    }
  }
  return 1;
}

u32 Profile::MatchesExactly(const Profile& input) const {
  if (source == 1 && HasRealType(input.id) != 0) {
    MODEL_LOG(5, "id already exist!");
    return 1;
  }
  for (const auto& entry : abilities) {
    const u16 code = entry.first;
    const Value& held = entry.second;
    MODEL_LOG(6, "ability_code:%d, ability_name:%s", code, MODEL_NAME(code));
    if (code == 1080 || code == 1081 || code == 1085) {
      continue;
    }
    const auto found = input.abilities.find(code);
    if (found == input.abilities.end()) {
      if (held.number == default_value && held.text.empty()) {
        MODEL_LOG(6,
                  "ability_code is not exist and ability_value is default value!ability_code:%d, "
                  "ability_name:%s",
                  code, MODEL_NAME(code));
        continue;
      }
      MODEL_LOG(6, "ability_code is not exist!ability_code:%d, ability_name:%s", code,
                MODEL_NAME(code));
      return 0;
    }
    const Value& given = found->second;
    if (given.tag == 2) {
      MODEL_LOG(6, "value_1:%d, value_2:%d", static_cast<int>(held.number),
                static_cast<int>(given.number));
    } else if (given.tag == 3) {
      MODEL_LOG(6, "string_1:%s, string_2:%s", held.text.c_str(), given.text.c_str());
    } else {
      MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(given.tag));
      return 0;
    }
    if (held.tag != given.tag || held.number != given.number || held.text != given.text) {
      return 0;
    }
  }
  return 1;
}

}  // namespace model
