#include "tables.h"

namespace model {

namespace {

bool HasNoId(u16 id) { return id == 0 || id == 65535; }

void LogMiss() { MODEL_LOG(1, "profile_type is out of range!"); }
void LogManagerMissOf(int type) {
  MODEL_LOG(1, "(OnuAbilityTableManager)profile_type is out of range!profile_type:%d", type);
}

}  // namespace

TableManager& Manager() {
  static TableManager manager;
  return manager;
}

void TableManager::Init() {
  MODEL_LOG(10, "OnuAbilityTableManager::InitOnuAbilityTable start!");
  AddTable(2);
  AddTable(1);
  MODEL_LOG(10, "OnuAbilityTableManager::InitOnuAbilityTable end!");
}

void TableManager::AddTable(int type) {
  if (type != 1 && type != 2) {
    MODEL_LOG(0, "table_type is out of range!");
    return;
  }
  Table* table = type == 1 ? static_cast<Table*>(new RealTable) : new MatchTable;
  if (Find(type) == nullptr) {
    tables[type].reset(table);
  }
  // Meant: a second table of a type is never released.
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

void TableManager::DelTable(int type) {
  if (Find(type) == nullptr) {
    MODEL_LOG(1, "do not find table_type(%d)", type);
    return;
  }
  MODEL_LOG(9, "find ok!profile type:%d", type);
  tables.erase(type);
}

Table* TableManager::Find(int type) {
  const auto found = tables.find(type);
  return found == tables.end() ? nullptr : found->second.get();
}

// --- Changes

u32 TableManager::Add(Profile& profile) {
  MODEL_LOG(10, "OnuAbilityTableManager::Add start!");
  MODEL_LOG(4, "profile_type:%d", profile.type);
  profile.Update();
  if (HasNoId(profile.id)) {
    GetNewId(profile.type, profile.source, profile.id);
  }
  Table* table = Find(profile.type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->Add(profile);
  MODEL_LOG(10, "OnuAbilityTableManager::Add end!");
  return ret;
}

u32 TableManager::Del(Profile& profile) {
  MODEL_LOG(10, "OnuAbilityTableManager::Del profile start!");
  profile.Update();
  Table* table = Find(profile.type);
  if (table == nullptr) {
    MODEL_LOG(1, "table_type is out of range!");
    return kInvalidParameter;
  }
  table->Del(profile);
  MODEL_LOG(10, "OnuAbilityTableManager::Del profile end!");
  return 0;
}

u32 TableManager::DelByKey(int source, int type, u32 key) {
  MODEL_LOG(10, "OnuAbilityTableManager::Del profile start!");
  Table* table = Find(type);
  if (table == nullptr) {
    MODEL_LOG(1, "table_type is out of range!");
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type is valid!");
  table->DelByKey(source, key);
  MODEL_LOG(10, "OnuAbilityTableManager::Del profile end!");
  return 0;
}

u32 TableManager::DelAll(int source, int type) {
  MODEL_LOG(10, "OnuAbilityTableManager::Del All profile start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type is valid!");
  table->DelAll(source);
  MODEL_LOG(10, "OnuAbilityTableManager::Del All profile end!");
  return 0;
}

u32 TableManager::Recognise(Profile& profile) {
  MODEL_LOG(10, "OnuAbilityTableManager::operator== start!");
  Table* table = Find(profile.type);
  if (table == nullptr) {
    LogMiss();
    return 0;
  }
  const u32 ret = table->Recognise(profile);
  MODEL_LOG(10, "OnuAbilityTableManager::operator== end!ret:0x%x", ret);
  return ret;
}

u32 TableManager::AddBindCount(int type, u32 key) {
  MODEL_LOG(10, "OnuAbilityTableManager::AddBindCount start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "OnuAbilityTable::AddBindCount start!");
  const u32 ret = table->AddBindCount(key);
  MODEL_LOG(10, "OnuAbilityTableManager::AddBindCount end!");
  return ret;
}

u32 TableManager::MinusBindCount(int type, u32 key) {
  MODEL_LOG(10, "OnuAbilityTableManager::MinusBindCount start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->MinusBindCount(key);
  MODEL_LOG(10, "OnuAbilityTableManager::MinusBindCount end!");
  return ret;
}

u32 TableManager::AddNumber(int type, int source, u32 key, u16 code, u32 value) {
  MODEL_LOG(10,
            "OnuAbilityTableManager::add ability value start!profile_type:%d, profile_source:%d, "
            "ability_code:%d, ability_name:%s, ability_value:0x%x",
            type, source, code, MODEL_NAME(code), value);
  Table* table = Find(type);
  if (table == nullptr) {
    LogManagerMissOf(type);
    return kInvalidParameter;
  }
  MODEL_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const u32 ret = table->AddNumber(source, key, code, value);
  if (ret != 0) {
    MODEL_LOG(5,
              "Add Ability Value failed!profile_type:%d, profile_source:%d, ability_code:%d, "
              "ability_name:%s, ability_value:0x%x, ret:0x%x",
              type, source, code, MODEL_NAME(code), value, ret);
  }
  MODEL_LOG(10, "OnuAbilityTableManager::Add ability value end!");
  return ret;
}

u32 TableManager::AddText(int type, int source, u32 key, u16 code, const std::string& value) {
  MODEL_LOG(10, "OnuAbilityTableManager::Add-string start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->AddText(source, key, code, value);
  MODEL_LOG(10, "OnuAbilityTableManager::Add-string end!");
  return ret;
}

// --- Questions

u32 TableManager::IsExist(int type, int source, u32 key) {
  MODEL_LOG(10, "OnuAbilityTableManager::IsExist start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return 0;
  }
  MODEL_LOG(9, "OnuAbilityTable::IsExist_1 start!");
  const u32 answer = table->IsExistKey(source, key);
  if (answer == 0) {
    MODEL_LOG(4,
              "key_ability_value do not exist!profile_type:%d, profile_source:%d, "
              "key_ability_value:%d",
              type, source, static_cast<int>(key));
  }
  MODEL_LOG(10, "OnuAbilityTableManager::IsExist end!");
  return answer;
}

u32 TableManager::IsEqual(int type, int source, u16 code, u32 value) {
  MODEL_LOG(10, "OnuAbilityTableManager::IsEqual start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return 0;
  }
  MODEL_LOG(9, "OnuAbilityTable::IsEqual_1 start!");
  const u32 answer = table->IsEqual(source, code, value);
  if (answer == 0) {
    MODEL_LOG(4,
              "ability_value is not equal!profile_type:%d, profile_source:%d,ability_code:%d, "
              "ability_name:%s, ability_value:%d",
              type, source, code, MODEL_NAME(code), static_cast<int>(value));
  }
  MODEL_LOG(10, "OnuAbilityTableManager::IsEqual end!");
  return answer;
}

u32 TableManager::GetNewId(int type, int source, u16& id) {
  MODEL_LOG(10, "OnuAbilityTableManager::GetNewId start!");
  Table* table = Find(type);
  if (table == nullptr) {
    LogMiss();
    return kInvalidParameter;
  }
  MODEL_LOG(9, "profile_type valid!");
  const u32 ret = table->GetNewId(source, id);
  MODEL_LOG(10, "OnuAbilityTableManager::GetNewId end!");
  return ret;
}

}  // namespace model
