// Reading one value of the newest profile that a table finds.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

// The short way to a value is taken where the profile's own Get would have nothing to
// say but that it went well.
unsigned int OnuAbilityTableBase::Read(const OnuAbilityProfile& profile, unsigned short code,
                                       unsigned int& value) {
  ProfileIndex* index = Index();
  if (index != nullptr && NobodyListensTo(LogLevels(9))) {
    const KeptNumber::Place kept = index->Number(_vec_profile, PositionOf(profile), code);
    if (kept != KeptNumber::kNone) {
      value = kept;
      return ONU_ABILITY_RET_OK;
    }
  }
  return profile.Get(code, value);
}

unsigned int OnuAbilityTableBase::Read(const OnuAbilityProfile& profile, unsigned short code,
                                       std::string& value) {
  ProfileIndex* index = Index();
  if (index != nullptr && NobodyListensTo(LogLevels(9))) {
    const KeptString::Place kept = index->String(_vec_profile, PositionOf(profile), code);
    if (kept != KeptString::kNone) {
      value = *kept;
      return ONU_ABILITY_RET_OK;
    }
  }
  return profile.Get(code, value);
}

unsigned int OnuAbilityTableBase::Get(unsigned int key_ability_value, unsigned short ability_code,
                                      unsigned int& value) {
  ONU_ABILITY_LOG(10,
                  "(OnuAbilityTableBase)function start!key_ability_code:%d, key_ability_value:%d, "
                  "ability_code:%d, ability_name:%s",
                  _key_ability_code, key_ability_value, ability_code,
                  AbilityName(ability_code).c_str());
  const TableLock lock(_mutex);
  unsigned int result = ONU_ABILITY_RET_OK;
  const OnuAbilityProfile* profile = FindByCode(_key_ability_code, key_ability_value);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(1,
                    "find null!key_ability_code:%d, key_ability_value:%d, abilitycode %d, "
                    "ability_name:%s",
                    _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str());
    value = 0;
    result = ONU_ABILITY_RET_NOT_FOUND;
  } else if (const unsigned int ret = Read(*profile, ability_code, value)) {
    ONU_ABILITY_LOG(1,
                    "Get ability value failed!ret:0x%x, key_ability_code:%d, key_ability_value:%d, "
                    "ability_code:%d, ability_name:%s",
                    ret, _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str());
    value = 0;
    result = ONU_ABILITY_RET_OPERATE_FAILED;
  } else {
    ONU_ABILITY_LOG(9,
                    "find ok!key_ability_code:%d, key_ability_value:%d, abilitycode %d, "
                    "ability_name:%s, ability_value:%d",
                    _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str(), value);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return result;
}

unsigned int OnuAbilityTableBase::Get(unsigned int key_ability_value, unsigned short ability_code,
                                      std::string& value) {
  ONU_ABILITY_LOG(10,
                  "(OnuAbilityTableBase)function start!key_ability_code:%d, key_ability_value:%d, "
                  "ability_code:%d, ability_name:%s",
                  _key_ability_code, key_ability_value, ability_code,
                  AbilityName(ability_code).c_str());
  const TableLock lock(_mutex);
  unsigned int result = ONU_ABILITY_RET_OK;
  const OnuAbilityProfile* profile = FindByCode(_key_ability_code, key_ability_value);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(1,
                    "find null!key_ability_code:%d, key_ability_value:%d, ability_code:%d, "
                    "ability_name:%s",
                    _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str());
    value = "NULL";
    result = ONU_ABILITY_RET_NOT_FOUND;
  } else if (const unsigned int ret = Read(*profile, ability_code, value)) {
    ONU_ABILITY_LOG(4,
                    "Get ability value failed!ret:0x%x, key_ability_code:%d, key_ability_value:%d, "
                    "ability_code:%d, ability_name:%s",
                    ret, _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str());
    value = "NULL";
    result = ONU_ABILITY_RET_OPERATE_FAILED;
  } else {
    ONU_ABILITY_LOG(9,
                    "find ok!key_ability_code:%d, key_ability_value:%d, ability_code:%d, "
                    "ability_name:%s, ability_value:%s",
                    _key_ability_code, key_ability_value, ability_code,
                    AbilityName(ability_code).c_str(), value.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
  return result;
}

unsigned int OnuAbilityTableBase::Get(unsigned short onu_real_type, unsigned short ability_code,
                                      unsigned int& value) {
  ONU_ABILITY_LOG(10,
                  "(OnuAbilityTableBase)function start!key_ability_code:%d, onu_real_type:%d, "
                  "ability_code:%d, ability_name:%s",
                  _key_ability_code, onu_real_type, ability_code,
                  AbilityName(ability_code).c_str());
  const TableLock lock(_mutex);
  unsigned int result = ONU_ABILITY_RET_OK;
  const OnuAbilityProfile* profile = FindByCode(ONU_ABILITY_CODE_REAL_TYPE, onu_real_type);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(
        1, "find null!key_ability_code:%d, onu_real_type:%d, abilitycode %d, ability_name:%s",
        _key_ability_code, onu_real_type, ability_code, AbilityName(ability_code).c_str());
    value = 0;
    result = ONU_ABILITY_RET_NOT_FOUND;
  } else if (const unsigned int ret = Read(*profile, ability_code, value)) {
    ONU_ABILITY_LOG(1,
                    "Get ability value failed!ret:0x%x, key_ability_code:%d, onu_real_type:%d, "
                    "ability_code:%d, ability_name:%s",
                    ret, _key_ability_code, onu_real_type, ability_code,
                    AbilityName(ability_code).c_str());
    value = 0;
    result = ONU_ABILITY_RET_OPERATE_FAILED;
  } else {
    ONU_ABILITY_LOG(9,
                    "find ok!key_ability_code:%d, onu_real_type:%d, abilitycode %d, "
                    "ability_name:%s, ability_value:%d",
                    _key_ability_code, onu_real_type, ability_code,
                    AbilityName(ability_code).c_str(), value);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return result;
}

unsigned int OnuAbilityTableBase::Get(unsigned short onu_real_type, unsigned short ability_code,
                                      std::string& value) {
  ONU_ABILITY_LOG(10, "function start!");
  const TableLock lock(_mutex);
  unsigned int result = ONU_ABILITY_RET_OK;
  const OnuAbilityProfile* profile = FindByRealType(onu_real_type);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(1, "find null!onu_real_type:%d, ability_code:%d, ability_name:%s",
                    onu_real_type, ability_code, AbilityName(ability_code).c_str());
    value = "NULL";
    result = ONU_ABILITY_RET_NOT_FOUND;
  } else if (const unsigned int ret = Read(*profile, ability_code, value)) {
    ONU_ABILITY_LOG(4,
                    "Get ability value failed!ret:0x%x, onu_real_type:%d, ability_code:%d, "
                    "ability_name:%s",
                    ret, onu_real_type, ability_code, AbilityName(ability_code).c_str());
    value = "NULL";
    result = ONU_ABILITY_RET_OPERATE_FAILED;
  } else {
    ONU_ABILITY_LOG(9,
                    "find ok!onu_real_type:%d, ability_code:%d, ability_name:%s, "
                    "ability_value:%s",
                    onu_real_type, ability_code, AbilityName(ability_code).c_str(), value.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
  return result;
}
