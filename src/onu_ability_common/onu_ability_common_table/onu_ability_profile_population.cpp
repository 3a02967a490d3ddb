// Filling, updating and emptying a profile.
//
// Which paths examine a tag, derive again or refresh the count differs from
// operation to operation; the differences are meant.
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/ability_entry.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_profile.h"
#include "onu_ability_common_table/registered_codes.h"

ONU_ABILITY_COMMON_ABILITY_VALUE& OnuAbilityProfile::Hold(unsigned short code,
                                                          const AbilityCodeReader& codes) {
  const auto place = _common_ability.lower_bound(code);
  const bool held = place != _common_ability.end() && place->first == code;
  return held ? place->second : _ports.Insert(_common_ability, place, code, codes);
}

void OnuAbilityProfile::SetNumber(ONU_ABILITY_COMMON_ABILITY_VALUE& held, unsigned int value) {
  held.ability_value_type = ONU_ABILITY_VALUE_TYPE_USHORT;
  held.ability_ushort_value = value;
  held.ability_string_value.clear();
}

void OnuAbilityProfile::StoreNumber(unsigned short code, unsigned int value) {
  SetNumber(Hold(code, AbilityCodeReader()), value);
}

void OnuAbilityProfile::StoreString(unsigned short code, const std::string& value) {
  // Copied first: the entry is whole or as it was.
  std::string text = value;
  ONU_ABILITY_COMMON_ABILITY_VALUE& held = Hold(code, AbilityCodeReader());
  held.ability_value_type = ONU_ABILITY_VALUE_TYPE_STRING;
  held.ability_ushort_value = _ability_default_value;
  held.ability_string_value.swap(text);
}

void OnuAbilityProfile::Add(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE value) {
  ONU_ABILITY_LOG(10, "function start!");
  if (OnuAbilityCodeInfo::GetInstance()->IsExist(code) == 0) {
    ONU_ABILITY_LOG(1, "ability_code don't exist,ability_code:%d", code);
    return;
  }
  if (IsExist(code)) {
    Update(code, value);
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  const unsigned int type = value.ability_value_type;
  if (type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    if (value.ability_ushort_value == _ability_default_value) {
      ONU_ABILITY_LOG(4,
                      "ability value is equal to default value,profile type:%d, value type:%d, "
                      "ability_code:%d, ability name:%s, ability_value:%d, default value:%d",
                      _profile_type, type, code, AbilityName(code).c_str(),
                      value.ability_ushort_value, _ability_default_value);
      return;
    }
  } else if (type == ONU_ABILITY_VALUE_TYPE_STRING) {
    if (value.ability_string_value.empty()) {
      ONU_ABILITY_LOG(4,
                      "ability value is equal to default value,profile type:%d, value type:%d, "
                      "ability_code:%d, ability_value:%s",
                      _profile_type, type, code, value.ability_string_value.c_str());
      return;
    }
  } else {
    ONU_ABILITY_LOG(4,
                    "ability value type is invalid,profile type:%d, value type:%d, ability_code:%d",
                    _profile_type, type, code);
    return;
  }
  const AbilityCodeReader codes;
  Hold(code, codes) = std::move(value);
  Update(codes);
  _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Add(unsigned short code, unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  OnuAbilityCodeInfo& registry = *OnuAbilityCodeInfo::GetInstance();
  if (registry.IsExist(code) == 0) {
    ONU_ABILITY_LOG(1, "ability_code don't exist,ability_code:%d", code);
    return;
  }
  // Searched for once: this is how catalogues and reports are filled.
  const auto place = _common_ability.lower_bound(code);
  const bool is_held = place != _common_ability.end() && place->first == code;
  const AbilityEntry entry = {is_held ? &place->second : nullptr, _ability_default_value,
                              _profile_source};
  if (entry.IsExist(code)) {
    Update(code, value);
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  if (value == _ability_default_value) {
    ONU_ABILITY_LOG(4,
                    "ability value is equal to default value,profile type:%d, ability_code:%d, "
                    "ability_name:%s, ability_value:%d, default value:%d",
                    _profile_type, code, AbilityName(code).c_str(), value, _ability_default_value);
    return;
  }
  const AbilityCodeReader codes(registry);
  SetNumber(_ports.Insert(_common_ability, place, code, codes), value);
  Update(codes);
  _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Add(unsigned short code, std::string value) {
  ONU_ABILITY_LOG(10, "function start!");
  if (OnuAbilityCodeInfo::GetInstance()->IsExist(code) == 0) {
    ONU_ABILITY_LOG(1, "ability_code don't exist,ability_code:%d", code);
    return;
  }
  if (IsExist(code)) {
    // Whatever its tag, and past Update(code, string).
    _common_ability.at(code).ability_string_value = std::move(value);
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  if (value.empty()) {
    ONU_ABILITY_LOG(4,
                    "ability value is equal to default value,profile type:%d, ability_code:%d, "
                    "ability name:%s, ability_value:%s",
                    _profile_type, code, AbilityName(code).c_str(), value.c_str());
    return;
  }
  // Strings never feed the derived counts: nothing is derived again.
  StoreString(code, value);
  _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Add(unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsExist(_key_ability_code)) {
    Update(_key_ability_code, value);
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  if (value == _ability_default_value) {
    ONU_ABILITY_LOG(4,
                    "ability value is equal to default value,profile type:%d, key_ability_code:%d, "
                    "ability_name:%s, key_ability_value:%d, default value:%d",
                    _profile_type, _key_ability_code, AbilityName(_key_ability_code).c_str(), value,
                    _ability_default_value);
    return;
  }
  StoreNumber(_key_ability_code, value);
  Update();
  _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Add(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  // Neither the default rule nor the count applies here, as meant.
  RegisteredCodes registered;
  for (unsigned short code = 0; registered.Next(code);) {
    if (IsExist(code)) {
      continue;
    }
    // Reading an absent confirm type adds it to the record with the value 0.
    if (type == ONU_ABILITY_PROFILE_TYPE_MATCH &&
        (registered.Acquire(ONU_ABILITY_ATTR_CONFIRM_TYPE) & ONU_ABILITY_CONFIRM_ASKED) == 0) {
      continue;
    }
    const unsigned int value_type =
        OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_VALUE_TYPE);
    ONU_ABILITY_COMMON_ABILITY_VALUE& held = Hold(code, AbilityCodeReader());
    held.ability_value_type = value_type;
    if (value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      held.ability_ushort_value = value;
    }
  }
  Update();
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Update(unsigned short code, const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  ONU_ABILITY_LOG(10, "function start!");
  const auto ability = _common_ability.find(code);
  if (ability != _common_ability.end()) {
    ability->second = ONU_ABILITY_COMMON_ABILITY_VALUE(value);
  }
  Update();
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Update(unsigned short code, unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  const auto ability = _common_ability.find(code);
  if (ability != _common_ability.end()) {
    ONU_ABILITY_COMMON_ABILITY_VALUE& held = ability->second;
    if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
      ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", held.ability_value_type);
      return;
    }
    // A real profile never keeps the wildcard, as meant.
    const bool is_real = _profile_type == ONU_ABILITY_PROFILE_TYPE_REAL;
    held.ability_ushort_value = is_real && value == ONU_ABILITY_WILDCARD ? 0 : value;
  }
  Update();
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Update(unsigned short code, const std::string& value) {
  ONU_ABILITY_LOG(10, "function start!");
  const auto ability = _common_ability.find(code);
  if (ability != _common_ability.end()) {
    ONU_ABILITY_COMMON_ABILITY_VALUE& held = ability->second;
    if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
      ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", held.ability_value_type);
      return;
    }
    held.ability_string_value = value;
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::UpdateInit(unsigned short code, unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  StoreNumber(code, value);
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::UpdateInit(unsigned short code, const std::string& value) {
  ONU_ABILITY_LOG(10, "function start!");
  StoreString(code, value);
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Del(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  // The count is left to Update, which refreshes it only when it writes a
  // derived entry: it may stay one too high, as meant.
  if (_common_ability.erase(code) != 0) {
    Update();
  }
  ONU_ABILITY_LOG(10, "function end!");
}
