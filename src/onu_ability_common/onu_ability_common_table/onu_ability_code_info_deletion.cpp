// Deletion of ability codes, apart from the rest of the registry: it asks the
// table of real profiles, which builds on the registry, whether the code is in
// use. Match profiles are not asked, as meant.
#include <cstddef>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"

namespace {

bool IsHeldByRealProfile(unsigned short code) {
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  const auto real = tables.find(ONU_ABILITY_PROFILE_TYPE_REAL);
  return real != tables.end() && real->second != nullptr && real->second->IsExist(code) != 0;
}

}  // namespace

unsigned int OnuAbilityCodeInfo::Del(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsHeldByRealProfile(code)) {
    ONU_ABILITY_LOG(0, "ability_code exist!ability_code:%d", code);
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_OPERATE_FAILED;
  }
  const auto record = Find(code);
  if (record != _vec_ability_attr.end()) {
    ONU_ABILITY_LOG(9, "ability_code is equal!ability_code:%d", code);
    ONU_ABILITY_LOG(9, "find ability_code ok!ability_code:%d", code);
    _vec_ability_attr.erase(record);
    NoteRemoval();
  } else {
    ONU_ABILITY_LOG(1, "find ability_code null!ability_code:%d", code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityCodeInfo::Del(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsHeldByRealProfile(Get(name))) {
    // Level 4, where the deletion by code logs at level 0: the difference is
    // meant.
    ONU_ABILITY_LOG(4, "ability_name exist!ability_name:%s", name.c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_OPERATE_FAILED;
  }
  const std::size_t before = _vec_ability_attr.size();
  for (auto record = _vec_ability_attr.begin(); record != _vec_ability_attr.end();) {
    if (record->ability_name == name) {
      ONU_ABILITY_LOG(9, "ability_name valid!ability_name:%s", name.c_str());
      record = _vec_ability_attr.erase(record);
    } else {
      ++record;
    }
  }
  if (_vec_ability_attr.size() != before) {
    NoteRemoval();
  }
  ONU_ABILITY_LOG(10, "function end!");
  return ONU_ABILITY_RET_OK;
}
