#include "tables.h"

namespace model {

namespace {

void LogMissOf(int type) { MODEL_LOG(1, "profile_type is out of range!profile_type:%d", type); }
void LogManagerMissOf(int type) {
  MODEL_LOG(1, "(OnuAbilityTableManager)profile_type is out of range!profile_type:%d", type);
}

}  // namespace

// --- Of profiles

u32 TableManager::GetAllByKey(int type, int source, u32 key, Profiles& out) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get vec_onu_ability_profile start!profile_type:%d, "
            "profile_source:%d, ability_value:0x%x",
            type, source, key);
  Table* table = Find(type);
  if (table == nullptr) {
    LogManagerMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const u32 ret = table->GetAllByKey(source, key, out);
  if (ret != 0) {
    MODEL_LOG(4,
              "Get vec_onu_ability_profile failed!ret:0x%x, profile_source:%d, "
              "ability_value:0x%x",
              ret, source, key);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

u32 TableManager::GetAllByRealType(int type, int source, u16 real_type, Profiles& out) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get vec_onu_ability_profile start!profile_type:%d, "
            "profile_source:%d, ability_value:%d",
            type, source, real_type);
  Table* table = Find(type);
  if (table == nullptr) {
    LogManagerMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const u32 ret = table->GetAllByRealType(source, real_type, out);
  if (ret != 0) {
    MODEL_LOG(4, "Get vec_onu_ability_profile failed!ret:0x%x, profile_source:%d, ability_value:%d",
              ret, source, real_type);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

u32 TableManager::GetByKey(int type, int source, u32 key, Profile& out) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::GetOnuAllAbilityValue start!profile_type:%d, "
            "profile_source:%d, key_ability_value:%d",
            type, source, static_cast<int>(key));
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetByKey(source, key, out);
  if (ret != 0) {
    MODEL_LOG(4, "GetOnuAllAbilityValue failed!ret:0x%x, profile_source:%d, key_ability_value:%d",
              ret, source, static_cast<int>(key));
  }
  MODEL_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

u32 TableManager::GetByRealType(int type, int source, u16 real_type, Profile& out) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::GetOnuAllAbilityValue start!profile_type:%d, "
            "profile_source:%d, onu_real_type:%d",
            type, source, real_type);
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetByRealType(source, real_type, out);
  if (ret != 0) {
    MODEL_LOG(4, "GetOnuAllAbilityValue failed!ret:0x%x, profile_source:%d, onu_real_type:%d", ret,
              source, real_type);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::GetOnuAllAbilityValue end!");
  return ret;
}

// --- Of values

u32 TableManager::GetNumberByKey(int type, u32 key, u16 code, u32& value) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get ability value start!profile_type:%d, "
            "key_ability_value:%d, ability_code:%d, ability_name:%s",
            type, static_cast<int>(key), code, MODEL_NAME(code));
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetNumberByKey(key, code, value);
  if (ret != 0) {
    MODEL_LOG(5,
              "Get Ability Value failed!profile_type:%d, key_ability_value:%d, ability_code:%d, "
              "ability_name:%s, ret:0x%x",
              type, static_cast<int>(key), code, MODEL_NAME(code), ret);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

u32 TableManager::GetTextByKey(int type, u32 key, u16 code, std::string& value) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get (str)ability value start!profile_type:%d, "
            "key_ability_value:%d, ability_code:%d, ability_name:%s",
            type, static_cast<int>(key), code, MODEL_NAME(code));
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetTextByKey(key, code, value);
  if (ret != 0) {
    MODEL_LOG(1,
              "Get Ability Value failed!key_ability_value:%d, ability_code:%d, ability_name:%s, "
              "ret:0x%x",
              static_cast<int>(key), code, MODEL_NAME(code), ret);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

u32 TableManager::GetTextByRealType(int type, u16 real_type, u16 code, std::string& value) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get ability value start!profile_type:%d, onu_real_type:%d, "
            "ability_code:%d, ability_name:%s",
            type, real_type, code, MODEL_NAME(code));
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetTextByRealType(real_type, code, value);
  if (ret != 0) {
    MODEL_LOG(1,
              "Get (str)Ability Value failed!onu_real_type:%d, ability_code:%d, ability_name:%s, "
              "ret:0x%x",
              real_type, code, MODEL_NAME(code), ret);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

u32 TableManager::GetNumberByRealType(int type, u16 real_type, u16 code, u32& value) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::Get ability value start!profile_type:%d, onu_real_type:%d, "
            "ability_code:%d, ability_name:%s",
            type, real_type, code, MODEL_NAME(code));
  Table* table = Find(type);
  if (table == nullptr) {
    LogMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetNumberByRealType(real_type, code, value);
  if (ret != 0) {
    // Meant: the line of the text lookup, for a number too.
    MODEL_LOG(1,
              "Get (str)Ability Value failed!onu_real_type:%d, ability_code:%d, ability_name:%s, "
              "ret:0x%x",
              real_type, code, MODEL_NAME(code), ret);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::Get ability value end!");
  return ret;
}

}  // namespace model
