// Comparing a profile with values and with other profiles.
//
// The end trace marks one outcome, as meant: comparisons with a value log it
// when the values differ, the comparison of profiles when they fit.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_entry.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_profile.h"

namespace {

// A fixed list, deliberately not following the current key ability code.
bool IsLeftOutOfExactMatch(unsigned short code) {
  return code == ONU_ABILITY_CODE_REPORT_TYPE || code == ONU_ABILITY_CODE_REAL_TYPE ||
         code == ONU_ABILITY_CODE_DEFAULT_KEY;
}

}  // namespace

unsigned int OnuAbilityProfile::IsAmbiguousMatch(unsigned int value_1, unsigned int value_2) const {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_LOG(5, "value_1:%d, value_2:%d", value_1, value_2);
  if (value_1 == ONU_ABILITY_WILDCARD || value_1 == value_2 || value_2 == ONU_ABILITY_WILDCARD) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::IsAmbiguousMatch(const std::string& string_1,
                                                 const std::string& string_2) const {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_LOG(5, "string_1:%s, string_2:%s", string_1.c_str(), string_2.c_str());
  if (string_1.empty() || string_2.empty() || string_1 == string_2) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::IsEqual(unsigned short code,
                                        const ONU_ABILITY_COMMON_ABILITY_VALUE& value) const {
  ONU_ABILITY_LOG(10, "function start!");
  // An absent code compares as what Get gives for it.
  ONU_ABILITY_COMMON_ABILITY_VALUE held;
  Get(code, held);
  if (held.ability_value_type != value.ability_value_type) {
    ONU_ABILITY_LOG(0, "value_type is not equal!value_type_1:%d, value_type_2:%d",
                    held.ability_value_type, value.ability_value_type);
    return 0;
  }
  if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG(4, "ability_value_1:%d, ability_value_2:%d", held.ability_ushort_value,
                    value.ability_ushort_value);
    if (held.ability_ushort_value == value.ability_ushort_value) {
      return 1;
    }
  } else if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG(4, "ability_value_1:%s, ability_value_2:%s", held.ability_string_value.c_str(),
                    value.ability_string_value.c_str());
    if (held.ability_string_value == value.ability_string_value) {
      return 1;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::IsEqual(unsigned short code, unsigned int value) const {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_COMMON_ABILITY_VALUE held;
  Get(code, held);
  if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", held.ability_value_type);
    return 0;
  }
  ONU_ABILITY_LOG(4, "ability_value_1:%d, ability_value_2:%d", held.ability_ushort_value, value);
  if (held.ability_ushort_value == value) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short code,
                                        unsigned int value) const {
  return EntryOf(code).IsEqual(source, code, value);
}

unsigned int OnuAbilityProfile::IsEqual(unsigned short code, const std::string& value) const {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_COMMON_ABILITY_VALUE held;
  Get(code, held);
  if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", held.ability_value_type);
    return 0;
  }
  ONU_ABILITY_LOG(4, "ability_value_1:%s, ability_value_2:%s", held.ability_string_value.c_str(),
                  value.c_str());
  if (held.ability_string_value == value) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::operator==(unsigned short real_type) const {
  ONU_ABILITY_LOG(10, "function start!");
  const auto ability = _common_ability.find(ONU_ABILITY_CODE_REAL_TYPE);
  if (ability != _common_ability.end() && ability->second.ability_ushort_value == real_type) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::operator==(std::string vendor_id) const {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_COMMON_ABILITY_VALUE held;
  const unsigned int ret = Get(ONU_ABILITY_CODE_VENDOR_ID, held);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "get failed!ret:0x%x", ret);
    return 0;
  }
  if (held.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", held.ability_value_type);
    return 0;
  }
  const std::string& held_id = held.ability_string_value;
  ONU_ABILITY_LOG(4, "vendorid_1:%s, vendorid_2:%s", held_id.c_str(), vendor_id.c_str());
  if (held_id.empty() || vendor_id.empty() || held_id == vendor_id) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::operator==(unsigned int key_ability_value) const {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned int held = 0;
  Get(held);
  ONU_ABILITY_LOG(4, "(OnuAbilityProfile)key_ability_value_temp:%d, key_ability_value:%d", held,
                  key_ability_value);
  if (held == key_ability_value) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}

unsigned int OnuAbilityProfile::operator==(const OnuAbilityProfile& input) {
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  const bool leaves_entry = LeavesPendingEntry(input) && _common_ability.count(key_code) == 0;
  // Compared with itself, a profile meets the entry on its way, if it lies ahead.
  const bool meets_entry =
      leaves_entry && &input == this && _common_ability.begin()->first < key_code;
  if (meets_entry) {
    _common_ability.try_emplace(key_code);
  }
  const bool fits = Fits(input, key_code);
  if (leaves_entry && !meets_entry) {
    _common_ability.try_emplace(key_code);
  }
  return fits ? 1 : 0;
}

// A profile that lacks the key code acquires an unset entry for it by such a comparison,
// as meant, whether or not it fits: later counts and listings show it.
bool OnuAbilityProfile::LeavesPendingEntry(const OnuAbilityProfile& input) {
  return input._flag_match_type == ONU_ABILITY_MATCH_TYPE_PATTERN && !input._common_ability.empty();
}

bool OnuAbilityProfile::Fits(const OnuAbilityProfile& input, unsigned short key_code) const {
  ONU_ABILITY_LOG_FOR("operator==", 10, "function start!");
  ONU_ABILITY_LOG_FOR("operator==", 6,
                      "operator== start!flag_match_type:%d, id_input:%d, id_compare:%d",
                      input._flag_match_type, input._id, _id);
  bool fits = true;  // any other match type fits, as meant
  if (input._flag_match_type == ONU_ABILITY_MATCH_TYPE_PATTERN) {
    fits = MatchPattern(input, key_code);
  } else if (input._flag_match_type == ONU_ABILITY_MATCH_TYPE_EXACT) {
    fits = MatchExactly(input);
  }
  if (fits) {
    ONU_ABILITY_LOG_FOR("operator==", 10, "function end!");
  }
  return fits;
}

bool OnuAbilityProfile::MatchPattern(const OnuAbilityProfile& input,
                                     unsigned short key_code) const {
  // The entry that is pending counts as held already.
  static const ONU_ABILITY_COMMON_ABILITY_VALUE kPending;
  const auto key = _common_ability.find(key_code);
  const ONU_ABILITY_COMMON_ABILITY_VALUE& held_key =
      key != _common_ability.end() ? key->second : kPending;
  for (const auto& [code, value] : input._common_ability) {
    const unsigned short confirm_type =
        OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_CONFIRM_TYPE);
    ONU_ABILITY_LOG_FOR(
        "operator==", 6,
        "key_ability_code:%d, key_ability_value:%d, ability_code:%d, ability_name:%s, "
        "confirm_type_attr_value:%d",
        key_code, held_key.ability_ushort_value, code, AbilityName(code).c_str(), confirm_type);
    if ((confirm_type & ONU_ABILITY_CONFIRM_COMPARED) == 0) {
      continue;
    }
    const auto ability = _common_ability.find(code);
    if (ability == _common_ability.end() && code != key_code) {
      // What the pattern does not name never blocks a match.
      ONU_ABILITY_LOG_FOR("operator==", 4,
                          "ability_code is not exist, don't need match!ability_code:%d, "
                          "ability_name:%s",
                          code, AbilityName(code).c_str());
      continue;
    }
    const ONU_ABILITY_COMMON_ABILITY_VALUE& held =
        ability != _common_ability.end() ? ability->second : kPending;
    if (!MatchAbility(code, held, value, key_code, held_key.ability_ushort_value)) {
      return false;
    }
  }
  return true;
}

// Both values are read by the stored one's type; the reported one's type is not
// compared.
bool OnuAbilityProfile::MatchAbility(unsigned short code,
                                     const ONU_ABILITY_COMMON_ABILITY_VALUE& held,
                                     const ONU_ABILITY_COMMON_ABILITY_VALUE& input,
                                     unsigned short key_code, unsigned int key_value) const {
  ONU_ABILITY_LOG_FOR("operator==", 6, "value_type:%d", held.ability_value_type);
  if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG_FOR(
        "operator==", 6,
        "key_ability_code:%d, key_ability_value:%d, ability_code:%d, ability_name:%s, "
        "value_input:%d, value_compare:%d",
        key_code, key_value, code, AbilityName(code).c_str(), input.ability_ushort_value,
        held.ability_ushort_value);
    return IsAmbiguousMatch(held.ability_ushort_value, input.ability_ushort_value) != 0;
  }
  if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG_FOR("operator==", 6,
                        "key_ability_code:%d, ability_code:%d, ability_name:%s, string_input:%s, "
                        "string_compare:%s",
                        key_code, code, AbilityName(code).c_str(),
                        input.ability_string_value.c_str(), held.ability_string_value.c_str());
    return IsAmbiguousMatch(held.ability_string_value, input.ability_string_value) != 0;
  }
  ONU_ABILITY_LOG_FOR("operator==", 0, "ability_code:%d, ability_name:%s, value_type:%d", code,
                      AbilityName(code).c_str(), input.ability_value_type);
  return false;
}

bool OnuAbilityProfile::MatchExactly(const OnuAbilityProfile& input) const {
  if (_profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL && *this == input._id) {
    ONU_ABILITY_LOG_FOR("operator==", 5, "id already exist!");
    return true;
  }
  for (const auto& [code, value] : _common_ability) {
    ONU_ABILITY_LOG_FOR("operator==", 6, "ability_code:%d, ability_name:%s", code,
                        AbilityName(code).c_str());
    if (!IsLeftOutOfExactMatch(code) && !IsSameIn(input, code, value)) {
      return false;
    }
  }
  return true;
}

bool OnuAbilityProfile::IsSameIn(const OnuAbilityProfile& input, unsigned short code,
                                 const ONU_ABILITY_COMMON_ABILITY_VALUE& held) const {
  const auto ability = input._common_ability.find(code);
  if (ability == input._common_ability.end()) {
    if (held.ability_ushort_value == _ability_default_value && held.ability_string_value.empty()) {
      ONU_ABILITY_LOG_FOR("operator==", 6,
                          "ability_code is not exist and ability_value is default value!"
                          "ability_code:%d, ability_name:%s",
                          code, AbilityName(code).c_str());
      return true;
    }
    ONU_ABILITY_LOG_FOR("operator==", 6,
                        "ability_code is not exist!ability_code:%d, ability_name:%s", code,
                        AbilityName(code).c_str());
    return false;
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE& value = ability->second;
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG_FOR("operator==", 6, "value_1:%d, value_2:%d", held.ability_ushort_value,
                        value.ability_ushort_value);
  } else if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    ONU_ABILITY_LOG_FOR("operator==", 6, "string_1:%s, string_2:%s",
                        held.ability_string_value.c_str(), value.ability_string_value.c_str());
  } else {
    ONU_ABILITY_LOG_FOR("operator==", 0, "value_type invalid!value_type:%d",
                        value.ability_value_type);
    return false;
  }
  // No wildcards here: all three fields count, whatever the type.
  return held.ability_value_type == value.ability_value_type &&
         held.ability_ushort_value == value.ability_ushort_value &&
         held.ability_string_value == value.ability_string_value;
}
