// The life and the read side of a profile.
#include "onu_ability_common_table/onu_ability_profile.h"

#include <algorithm>
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_entry.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_code_info.h"

OnuAbilityProfile::OnuAbilityProfile()
    : _key_ability_code(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()) {
  ONU_ABILITY_LOG(10, "OnuAbilityProfile start!\r\n");
}

OnuAbilityProfile::~OnuAbilityProfile() {
  if (_handling.says_its_end) {
    SayReleased();
  }
}

void OnuAbilityProfile::SayReleased() {
  ONU_ABILITY_LOG_FOR("~OnuAbilityProfile", 10, "release OnuAbilityProfile!");
}

void OnuAbilityProfile::DropSilently(std::vector<OnuAbilityProfile>& profiles) {
  for (OnuAbilityProfile& profile : profiles) {
    profile._handling.says_its_end = false;
  }
  profiles.clear();
}

OnuAbilityProfile& OnuAbilityProfile::operator=(const OnuAbilityProfile& other) {
  if (this != &other) {
    // Copied first: when the memory does not suffice, the profile is as it was.
    AbilityMap abilities(other._common_ability);
    CopyHeader(other);
    _common_ability = std::move(abilities);
  }
  return *this;
}

OnuAbilityProfile& OnuAbilityProfile::operator=(OnuAbilityProfile&& other) noexcept {
  if (this != &other) {
    CopyHeader(other);
    _common_ability = std::move(other._common_ability);
    other._common_ability.clear();
  }
  return *this;
}

void OnuAbilityProfile::CopyHeader(const OnuAbilityProfile& other) {
  _id = other._id;
  _bind_count = other._bind_count;
  _flag_match_type = other._flag_match_type;
  _profile_type = other._profile_type;
  _profile_source = other._profile_source;
  _ability_default_value = other._ability_default_value;
  _common_ability_num = other._common_ability_num;
  _age_count = other._age_count;
  std::copy(std::begin(other._reserved), std::end(other._reserved), std::begin(_reserved));
  // _key_ability_code is left alone, as meant: the target keeps its own.
}

void OnuAbilityProfile::Init(ONU_ABILITY_ENUM_PROFILE_TYPE profile_type,
                             ONU_ABILITY_ENUM_PROFILE_SOURCE profile_source,
                             ONU_ABILITY_ENUM_MATCH_TYPE match_type) {
  ONU_ABILITY_LOG(10, "function start!");
  if (profile_type < ONU_ABILITY_PROFILE_TYPE_NONE ||
      profile_type > ONU_ABILITY_PROFILE_TYPE_MATCH) {
    ONU_ABILITY_LOG(0, "profile_type invalid!profile_type:%d", profile_type);
    return;
  }
  const bool is_pattern = profile_type == ONU_ABILITY_PROFILE_TYPE_MATCH;
  _ability_default_value = is_pattern ? ONU_ABILITY_WILDCARD : 0;
  _id = static_cast<unsigned short>(_ability_default_value);
  _profile_type = profile_type;
  _profile_source = profile_source;
  _flag_match_type = match_type;
  _common_ability_num = 0;
  _age_count = 0;
  _common_ability.clear();
  // _bind_count stays, as meant.
  _key_ability_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  ONU_ABILITY_LOG(4,
                  "profile_type:%d, profile_source:%d, flag_match_type:%d, ability_init_value:%d",
                  _profile_type, _profile_source, _flag_match_type, _ability_default_value);
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::Clear() {
  ONU_ABILITY_LOG(10, "function start!");
  _common_ability.clear();
  _common_ability_num = 0;
  _id = static_cast<unsigned short>(_ability_default_value);
  ONU_ABILITY_LOG(10, "function end!");
}

AbilityEntry OnuAbilityProfile::EntryOf(unsigned short code) const {
  const auto ability = _common_ability.find(code);
  return {ability != _common_ability.end() ? &ability->second : nullptr, _ability_default_value,
          _profile_source};
}

unsigned int OnuAbilityProfile::Get(unsigned short code,
                                    ONU_ABILITY_COMMON_ABILITY_VALUE& value) const {
  return EntryOf(code).Get(code, value);
}

unsigned int OnuAbilityProfile::Get(unsigned short code, unsigned int& value) const {
  return EntryOf(code).Get(code, value);
}

unsigned int OnuAbilityProfile::Get(unsigned short code, std::string& value) const {
  const auto ability = _common_ability.find(code);
  if (ability == _common_ability.end()) {
    value.clear();
    ONU_ABILITY_LOG(1, "get null!ability_code:%d, ability_name:%s", code,
                    AbilityName(code).c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE& held = ability->second;
  if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG(0, "value type is not string!ability_code:%d, ability_name:%s, value_type:%d",
                    code, AbilityName(code).c_str(), held.ability_value_type);
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  ONU_ABILITY_LOG(9, "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_value:%s",
                  code, AbilityName(code).c_str(), held.ability_value_type,
                  held.ability_string_value.c_str());
  value = held.ability_string_value;
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityProfile::Get(unsigned int& value) const {
  ONU_ABILITY_LOG(10, "function start!");
  // Looked up under the registry's current key code, reported under the
  // profile's own: meant, the two differ after the key code was changed.
  const unsigned short current_key = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  ONU_ABILITY_LOG(4, "(OnuAbilityProfile)get key ability value, key_ability_code:%d", current_key);
  const auto ability = _common_ability.find(current_key);
  if (ability == _common_ability.end()) {
    value = _ability_default_value;
    ONU_ABILITY_LOG(1, "get null!ability_code:%d, ability_name:%s", _key_ability_code,
                    AbilityName(_key_ability_code).c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE& held = ability->second;
  if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG(
        0, "value type is not ushort!_key_ability_code:%d, ability_name:%s, value_type:%d",
        _key_ability_code, AbilityName(_key_ability_code).c_str(), held.ability_value_type);
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  ONU_ABILITY_LOG(9,
                  "get ok!_key_ability_code:%d, ability_name:%s, value_type:%d, ability_value:%d",
                  _key_ability_code, AbilityName(_key_ability_code).c_str(),
                  held.ability_value_type, held.ability_ushort_value);
  value = held.ability_ushort_value;
  return ONU_ABILITY_RET_OK;
}

bool OnuAbilityProfile::IsExist(unsigned short code) const { return EntryOf(code).IsExist(code); }

unsigned int OnuAbilityProfile::GetTotalNum(ONU_ABILITY_ENUM_ABILITY_ATTR_ID attr_id) const {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned int total = 0;
  for (const auto& [code, value] : _common_ability) {
    // A yes/no mark, not a weight. An unknown code or attribute reads as 65535
    // and so counts, as meant.
    const unsigned short attr_value = OnuAbilityCodeInfo::GetInstance()->Get(code, attr_id);
    const unsigned int number = value.ability_ushort_value;
    ONU_ABILITY_LOG(6,
                    "ability_attr_id:%d, ability_attr_value:%d, ability_code:%d, "
                    "ability_value_type:%d, ability_value:0x%04x",
                    attr_id, attr_value, code, value.ability_value_type, number);
    if (attr_value != 0 && value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      total += attr_id == ONU_ABILITY_ATTR_LAMP ? number & 0xFFU : number;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return total;
}

unsigned int OnuAbilityProfile::GetSize() const {
  ONU_ABILITY_LOG(10, "function start!");
  // Not the exact size of the serialised form, as meant: callers reserve this.
  const auto size = 30 + 14 * static_cast<unsigned int>(_common_ability.size());
  ONU_ABILITY_LOG(10, "function end!");
  return size;
}
