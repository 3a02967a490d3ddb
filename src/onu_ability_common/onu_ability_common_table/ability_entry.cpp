#include "onu_ability_common_table/ability_entry.h"

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/source_filter.h"
#include "onu_ability_common_table/ability_name.h"

bool AbilityEntry::IsExist(unsigned short code) const {
  ONU_ABILITY_LOG(10, "function start!");
  if (held != nullptr) {
    ONU_ABILITY_LOG(10, "function end!");
    return true;
  }
  ONU_ABILITY_LOG(1, "ability_code is not exist,ability_code:%d, ability_name:%s", code,
                  AbilityName(code).c_str());
  return false;
}

unsigned int AbilityEntry::Get(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE& value) const {
  ONU_ABILITY_LOG(10, "function start!");
  if (held == nullptr) {
    // The caller gets the default value and the not-found code.
    value.ability_value_type = ONU_ABILITY_VALUE_TYPE_USHORT;
    value.ability_ushort_value = default_value;
    value.ability_string_value.clear();
    ONU_ABILITY_LOG(1, "get null!ability_code:%d, ability_name:%s", code,
                    AbilityName(code).c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  ONU_ABILITY_LOG(9,
                  "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_int_value:%d, "
                  "ability_string_value:%s",
                  code, AbilityName(code).c_str(), held->ability_value_type,
                  held->ability_ushort_value, held->ability_string_value.c_str());
  value = *held;
  return ONU_ABILITY_RET_OK;
}

unsigned int AbilityEntry::Get(unsigned short code, unsigned int& value) const {
  if (held == nullptr) {
    value = default_value;
    ONU_ABILITY_LOG(1, "get null!ability_code:%d, ability_name:%s", code,
                    AbilityName(code).c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  if (held->ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG(0, "value type is not ushort!ability_code:%d, ability_name:%s, value_type:%d",
                    code, AbilityName(code).c_str(), held->ability_value_type);
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  ONU_ABILITY_LOG(9, "get ok!ability_code:%d, ability_name:%s, value_type:%d, ability_value:%d",
                  code, AbilityName(code).c_str(), held->ability_value_type,
                  held->ability_ushort_value);
  value = held->ability_ushort_value;
  return ONU_ABILITY_RET_OK;
}

unsigned int AbilityEntry::IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE wanted_source,
                                   unsigned short code, unsigned int value) const {
  ONU_ABILITY_LOG(10, "function start!");
  // An absent code compares as what Get gives for it.
  ONU_ABILITY_COMMON_ABILITY_VALUE found;
  Get(code, found);
  if (found.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
    ONU_ABILITY_LOG(0, "value_type invalid!value_type:%d", found.ability_value_type);
    return 0;
  }
  ONU_ABILITY_LOG(4, "ability_value_1:%d, ability_value_2:%d", found.ability_ushort_value, value);
  if (found.ability_ushort_value == value && PassesFilter(wanted_source, source)) {
    return 1;
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 0;
}
