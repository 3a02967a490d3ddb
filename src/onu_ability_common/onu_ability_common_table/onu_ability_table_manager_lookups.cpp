// The manager's questions: each chooses the table of a profile type, forwards
// and says in the log what came of it.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"

unsigned int OnuAbilityTableManager::operator==(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::operator== start!");
  OnuAbilityTableBase* table = Find(profile._profile_type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return 0;
  }
  const unsigned int ret = *table == profile;
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::operator== end!ret:0x%x", ret);
  return ret;
}

unsigned int OnuAbilityTableManager::IsExist(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                             ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                             unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::IsExist start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return 0;
  }
  ONU_ABILITY_LOG(9, "OnuAbilityTable::IsExist_1 start!");
  const unsigned int ret = table->IsExist(source, key_ability_value);
  if (ret == 0) {
    ONU_ABILITY_LOG(4,
                    "key_ability_value do not exist!profile_type:%d, profile_source:%d, "
                    "key_ability_value:%d",
                    type, source, key_ability_value);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::IsExist end!");
  return ret;
}

unsigned int OnuAbilityTableManager::IsEqual(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                             ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                             unsigned short ability_code, unsigned int value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::IsEqual start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return 0;
  }
  ONU_ABILITY_LOG(9, "OnuAbilityTable::IsEqual_1 start!");
  const unsigned int ret = table->IsEqual(source, ability_code, value);
  if (ret == 0) {
    ONU_ABILITY_LOG(4,
                    "ability_value is not equal!profile_type:%d, profile_source:%d,"
                    "ability_code:%d, ability_name:%s, ability_value:%d",
                    type, source, ability_code, AbilityName(ability_code).c_str(), value);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::IsEqual end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned short& id) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetNewId start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(source, id);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "GetOnuAllAbilityValue failed!profile_source:%d, ret:0x%x", source, ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetNewId end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned int key_ability_value,
                                         std::vector<OnuAbilityProfile>& profiles) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get vec_onu_ability_profile start!profile_type:%d, "
                  "profile_source:%d, ability_value:0x%x",
                  type, source, key_ability_value);
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "(OnuAbilityTableManager)profile_type is out of range!profile_type:%d",
                    type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const unsigned int ret = table->Get(source, key_ability_value, profiles);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4,
                    "Get vec_onu_ability_profile failed!ret:0x%x, profile_source:%d, "
                    "ability_value:0x%x",
                    ret, source, key_ability_value);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned short onu_real_type,
                                         std::vector<OnuAbilityProfile>& profiles) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::Get vec_onu_ability_profile start!profile_type:%d, "
                  "profile_source:%d, ability_value:%d",
                  type, source, onu_real_type);
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "(OnuAbilityTableManager)profile_type is out of range!profile_type:%d",
                    type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const unsigned int ret = table->Get(source, onu_real_type, profiles);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4,
                    "Get vec_onu_ability_profile failed!ret:0x%x, profile_source:%d, "
                    "ability_value:%d",
                    ret, source, onu_real_type);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned int key_ability_value,
                                         OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::GetOnuAllAbilityValue start!profile_type:%d, "
                  "profile_source:%d, key_ability_value:%d",
                  type, source, key_ability_value);
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(source, key_ability_value, profile);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4,
                    "GetOnuAllAbilityValue failed!ret:0x%x, profile_source:%d, "
                    "key_ability_value:%d",
                    ret, source, key_ability_value);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Get(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned short onu_real_type, OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::GetOnuAllAbilityValue start!profile_type:%d, "
                  "profile_source:%d, onu_real_type:%d",
                  type, source, onu_real_type);
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!profile_type:%d", type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Get(source, onu_real_type, profile);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "GetOnuAllAbilityValue failed!ret:0x%x, profile_source:%d, onu_real_type:%d",
                    ret, source, onu_real_type);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

void OnuAbilityTableManager::GetAll(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                    ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                    std::vector<OnuAbilityProfile>& out) {
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    OnuAbilityProfile::DropSilently(out);
    return;
  }
  table->GetAll(source, out);
}
