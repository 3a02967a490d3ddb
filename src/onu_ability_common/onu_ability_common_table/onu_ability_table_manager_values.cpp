// The manager's questions for one value of a profile.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         unsigned int key_ability_value,
                                         unsigned short ability_code, unsigned int& value) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get ability value start!profile_type:%d, "
                  "key_ability_value:%d, ability_code:%d, ability_name:%s",
                  type, key_ability_value, ability_code, AbilityName(ability_code).c_str());
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(key_ability_value, ability_code, value);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(5,
                    "Get Ability Value failed!profile_type:%d, key_ability_value:%d, "
                    "ability_code:%d, ability_name:%s, ret:0x%x",
                    type, key_ability_value, ability_code, AbilityName(ability_code).c_str(), ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         unsigned int key_ability_value,
                                         unsigned short ability_code, std::string& value) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get (str)ability value start!profile_type:%d, "
                  "key_ability_value:%d, ability_code:%d, ability_name:%s",
                  type, key_ability_value, ability_code, AbilityName(ability_code).c_str());
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(key_ability_value, ability_code, value);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(1,
                    "Get Ability Value failed!key_ability_value:%d, ability_code:%d, "
                    "ability_name:%s, ret:0x%x",
                    key_ability_value, ability_code, AbilityName(ability_code).c_str(), ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         unsigned short onu_real_type, unsigned short ability_code,
                                         std::string& value) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get ability value start!profile_type:%d, "
                  "onu_real_type:%d, ability_code:%d, ability_name:%s",
                  type, onu_real_type, ability_code, AbilityName(ability_code).c_str());
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(onu_real_type, ability_code, value);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(1,
                    "Get (str)Ability Value failed!onu_real_type:%d, ability_code:%d, "
                    "ability_name:%s, ret:0x%x",
                    onu_real_type, ability_code, AbilityName(ability_code).c_str(), ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         unsigned short onu_real_type, unsigned short ability_code,
                                         unsigned int& value) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get ability value start!profile_type:%d, "
                  "onu_real_type:%d, ability_code:%d, ability_name:%s",
                  type, onu_real_type, ability_code, AbilityName(ability_code).c_str());
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(onu_real_type, ability_code, value);
  if (ret != ONU_ABILITY_RET_OK) {
    // "(str)" in the line of this number lookup, too: meant.
    ONU_ABILITY_LOG(1,
                    "Get (str)Ability Value failed!onu_real_type:%d, ability_code:%d, "
                    "ability_name:%s, ret:0x%x",
                    onu_real_type, ability_code, AbilityName(ability_code).c_str(), ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}
