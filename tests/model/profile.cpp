#include "profile.h"

#include <algorithm>
#include <iterator>

namespace model {

Profile::Profile() : key_code(Codes().key_code) {}

Profile& Profile::operator=(const Profile& other) {
  id = other.id;
  bind_count = other.bind_count;
  match_type = other.match_type;
  type = other.type;
  source = other.source;
  default_value = other.default_value;
  count = other.count;
  if (this != &other) {
    abilities = other.abilities;
  }
  age_count = other.age_count;
  std::copy(std::begin(other.reserved), std::end(other.reserved), std::begin(reserved));
  return *this;
}

void Profile::Init(int profile_type, int profile_source, int new_match_type) {
  if (profile_type < 0 || profile_type > 2) {
    MODEL_LOG(0, "profile_type invalid!profile_type:%d", profile_type);
    return;
  }
  default_value = profile_type == 2 ? 0xFFFFFFFFU : 0;
  id = profile_type == 2 ? 0xFFFF : 0;
  type = profile_type;
  source = profile_source;
  match_type = new_match_type;
  count = 0;
  age_count = 0;
  abilities.clear();
  key_code = Codes().key_code;
  MODEL_LOG(4,
            "profile_type:%d, profile_source:%d, flag_match_type:%d, "
            "ability_init_value:%d",
            type, source, match_type, static_cast<int>(default_value));
}

void Profile::Clear() {
  abilities.clear();
  count = 0;
  id = static_cast<u16>(default_value);
}

// --- Reading

u32 Profile::GetValue(u16 code, Value& value) const {
  const auto found = abilities.find(code);
  if (found == abilities.end()) {
    value.tag = 2;
    value.number = default_value;
    value.text = "";
    MODEL_LOG(1, "get null!ability_code:%d, ability_name:%s", code, MODEL_NAME(code));
    return kNotFound;
  }
  const Value& held = found->second;
  MODEL_LOG(9,
            "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_int_value:%d, "
            "ability_string_value:%s",
            code, MODEL_NAME(code), static_cast<int>(held.tag), static_cast<int>(held.number),
            held.text.c_str());
  value = held;
  return 0;
}

u32 Profile::GetNumber(u16 code, u32& value) const {
  const auto found = abilities.find(code);
  if (found == abilities.end()) {
    value = default_value;
    MODEL_LOG(1, "get null!ability_code:%d, ability_name:%s", code, MODEL_NAME(code));
    return kNotFound;
  }
  const Value& held = found->second;
  if (held.tag != 2) {
    MODEL_LOG(0, "value type is not ushort!ability_code:%d, ability_name:%s, value_type:%d", code,
              MODEL_NAME(code), static_cast<int>(held.tag));
    return kNotFound;
  }
  MODEL_LOG(9, "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_value:%d", code,
            MODEL_NAME(code), static_cast<int>(held.tag), static_cast<int>(held.number));
  value = held.number;
  return 0;
}

u32 Profile::GetText(u16 code, std::string& value) const {
  const auto found = abilities.find(code);
  if (found == abilities.end()) {
    value = "";
    MODEL_LOG(1, "get null!ability_code:%d, ability_name:%s", code, MODEL_NAME(code));
    return kNotFound;
  }
  const Value& held = found->second;
  if (held.tag != 3) {
    MODEL_LOG(0, "value type is not string!ability_code:%d, ability_name:%s, value_type:%d", code,
              MODEL_NAME(code), static_cast<int>(held.tag));
    return kNotFound;
  }
  MODEL_LOG(9, "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_value:%s", code,
            MODEL_NAME(code), static_cast<int>(held.tag), held.text.c_str());
  value = held.text;
  return 0;
}

u32 Profile::GetKeyValue(u32& value) const {
  const u16 current = Codes().key_code;
  MODEL_LOG(4, "(OnuAbilityProfile)get key ability value, key_ability_code:%d", current);
  // Looked up by the registry's key code, reported under the profile's own.
  const auto found = abilities.find(current);
  if (found == abilities.end()) {
    value = default_value;
    MODEL_LOG(1, "get null!ability_code:%d, ability_name:%s", key_code, MODEL_NAME(key_code));
    return kNotFound;
  }
  const Value& held = found->second;
  if (held.tag != 2) {
    MODEL_LOG(0, "value type is not ushort!_key_ability_code:%d, ability_name:%s, value_type:%d",
              key_code, MODEL_NAME(key_code), static_cast<int>(held.tag));
    return kNotFound;
  }
  MODEL_LOG(9, "get ok!_key_ability_code:%d, ability_name:%s, value_type:%d, ability_value:%d",
            key_code, MODEL_NAME(key_code), static_cast<int>(held.tag),
            static_cast<int>(held.number));
  value = held.number;
  return 0;
}

bool Profile::IsExist(u16 code) const {
  if (abilities.count(code) != 0) {
    return true;
  }
  MODEL_LOG(1, "ability_code is not exist,ability_code:%d, ability_name:%s", code,
            MODEL_NAME(code));
  return false;
}

u32 Profile::GetTotalNum(int attribute) const {
  u32 total = 0;
  for (const auto& entry : abilities) {
    const u16 marked = Codes().Attribute(entry.first, attribute);
    const Value& held = entry.second;
    MODEL_LOG(6,
              "ability_attr_id:%d, ability_attr_value:%d, ability_code:%d, ability_value_type:%d, "
              "ability_value:0x%04x",
              attribute, marked, entry.first, static_cast<int>(held.tag), held.number);
    if (marked != 0 && held.tag == 2 && held.number != 0) {
      total += attribute == 3 ? held.number & 0xFFU : held.number;
    }
  }
  return total;
}

u32 Profile::GetSize() const { return 30 + 14 * static_cast<u32>(abilities.size()); }

}  // namespace model
