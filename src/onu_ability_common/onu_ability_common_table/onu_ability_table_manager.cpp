// The manager's own life, its tables, and the operations that change them.
#include "onu_ability_common_table/onu_ability_table_manager.h"

#include <memory>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_match_ability_table.h"
#include "onu_ability_common_table/onu_real_ability_table.h"

OnuAbilityTableManager* OnuAbilityTableManager::GetInstance() {
  static OnuAbilityTableManager instance;
  return &instance;
}

OnuAbilityTableManager::OnuAbilityTableManager() {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager start!");
}

OnuAbilityTableManager::~OnuAbilityTableManager() {
  // The tables are left alone, as meant.
  ONU_ABILITY_LOG(10, "release OnuAbilityTableManager!");
}

OnuAbilityTableBase* OnuAbilityTableManager::Find(ONU_ABILITY_ENUM_PROFILE_TYPE type) const {
  const auto entry = _map_table.find(type);
  return entry != _map_table.end() ? entry->second : nullptr;
}

void OnuAbilityTableManager::Init() {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::InitOnuAbilityTable start!");
  AddOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  AddOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::InitOnuAbilityTable end!");
}

void OnuAbilityTableManager::AddOnuAbilityTable(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::unique_ptr<OnuAbilityTableBase> table;
  if (type == ONU_ABILITY_PROFILE_TYPE_REAL) {
    table = std::make_unique<OnuRealAbilityTable>();
  } else if (type == ONU_ABILITY_PROFILE_TYPE_MATCH) {
    table = std::make_unique<OnuMatchAbilityTable>();
  } else {
    ONU_ABILITY_LOG(0, "table_type is out of range!");
    return;
  }
  table->KeepIndex();
  OnuAbilityTableBase*& entry = _map_table[type];
  // Where there is a table already, the new one is never released, as meant.
  OnuAbilityTableBase* made = table.release();
  if (entry == nullptr) {
    entry = made;
  }
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

void OnuAbilityTableManager::DelOnuAbilityTable(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "do not find table_type(%d)", type);
    return;
  }
  ONU_ABILITY_LOG(9, "find ok!profile type:%d", type);
  // Out of the map first: at the lines of its end the host may ask for it.
  _map_table.erase(type);
  delete table;
}

unsigned int OnuAbilityTableManager::Add(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Add start!");
  ONU_ABILITY_LOG(4, "profile_type:%d", profile._profile_type);
  profile.Update();
  const bool gets_new_id = !profile.HasId();
  if (gets_new_id) {
    // A failure shows below: the type then has no table.
    Get(profile._profile_type, profile._profile_source, profile._id);
  }
  OnuAbilityTableBase* table = Find(profile._profile_type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  profile._handling.has_new_id = gets_new_id;
  const unsigned int ret = table->Add(profile);
  profile._handling.has_new_id = false;  // of a table of the host's own
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Add end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Add(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned int key_ability_value,
                                         unsigned short ability_code, unsigned int value) {
  ONU_ABILITY_LOG(10,
                  "OnuAbilityTableManager::add ability value start!profile_type:%d, "
                  "profile_source:%d, ability_code:%d, ability_name:%s, ability_value:0x%x",
                  type, source, ability_code, AbilityName(ability_code).c_str(), value);
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "(OnuAbilityTableManager)profile_type is out of range!profile_type:%d",
                    type);
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "(OnuAbilityTableManager)profile_type valid!");
  const unsigned int ret = table->Add(source, key_ability_value, ability_code, value);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(5,
                    "Add Ability Value failed!profile_type:%d, profile_source:%d, ability_code:%d, "
                    "ability_name:%s, ability_value:0x%x, ret:0x%x",
                    type, source, ability_code, AbilityName(ability_code).c_str(), value, ret);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Add ability value end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Add(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         unsigned int key_ability_value,
                                         unsigned short ability_code, const std::string& value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Add-string start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->Add(source, key_ability_value, ability_code, value);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Add-string end!");
  return ret;
}

unsigned int OnuAbilityTableManager::Del(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del profile start!");
  profile.Update();
  OnuAbilityTableBase* table = Find(profile._profile_type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "table_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  // What the table found is not passed on, as meant.
  table->Del(profile);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del profile end!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableManager::Del(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                         ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                         unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del profile start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "table_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type is valid!");
  table->Del(source, key_ability_value);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del profile end!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableManager::DelAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                            ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del All profile start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type is valid!");
  table->DelAll(source);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::Del All profile end!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableManager::AddBindCount(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                                  unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::AddBindCount start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "OnuAbilityTable::AddBindCount start!");
  const unsigned int ret = table->AddBindCount(key_ability_value);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::AddBindCount end!");
  return ret;
}

unsigned int OnuAbilityTableManager::MinusBindCount(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                                    unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::MinusBindCount start!");
  OnuAbilityTableBase* table = Find(type);
  if (table == nullptr) {
    ONU_ABILITY_LOG(1, "profile_type is out of range!");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  ONU_ABILITY_LOG(9, "profile_type valid!");
  const unsigned int ret = table->MinusBindCount(key_ability_value);
  ONU_ABILITY_LOG(10, "OnuAbilityTableManager::MinusBindCount end!");
  return ret;
}
