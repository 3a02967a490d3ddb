// Deletion of ability codes, apart from the rest of the registry: it asks the
// table of real profiles, which builds on the registry, whether the code is in
// use. Match profiles are not asked, as meant.
//
// A profile may come to hold the code between that question and the deletion; its
// code is then unknown, as that of a match profile may be.
#include <algorithm>
#include <cstddef>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"

namespace {

bool IsHeldByRealProfile(unsigned short code) {
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  const auto real = tables.find(ONU_ABILITY_PROFILE_TYPE_REAL);
  return real != tables.end() && real->second != nullptr && real->second->IsExist(code) != 0;
}

}  // namespace

void OnuAbilityCodeInfo::Erase(unsigned short code) {
  const WriteScope scope(onu_ability_settings_guard);
  const auto record = Find(code);
  if (record != _vec_ability_attr.end()) {
    _vec_ability_attr.erase(record);
    NoteRemoval();
  }
}

std::size_t OnuAbilityCodeInfo::Erase(const std::string& name) {
  const WriteScope scope(onu_ability_settings_guard);
  const auto kept =
      std::remove_if(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                     [&name](const auto& record) { return record.ability_name == name; });
  const auto removed = static_cast<std::size_t>(_vec_ability_attr.end() - kept);
  if (removed != 0) {
    _vec_ability_attr.erase(kept, _vec_ability_attr.end());
    NoteRemoval();
  }
  return removed;
}

unsigned int OnuAbilityCodeInfo::Del(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsHeldByRealProfile(code)) {
    ONU_ABILITY_LOG(0, "ability_code exist!ability_code:%d", code);
    ONU_ABILITY_LOG(10, "function end!");
    return ONU_ABILITY_RET_OPERATE_FAILED;
  }
  if (AbilityCodeReader(*this).Knows(code)) {
    ONU_ABILITY_LOG(9, "ability_code is equal!ability_code:%d", code);
    ONU_ABILITY_LOG(9, "find ability_code ok!ability_code:%d", code);
    Erase(code);
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
  for (std::size_t removed = Erase(name); removed != 0; --removed) {
    ONU_ABILITY_LOG(9, "ability_name valid!ability_name:%s", name.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
  return ONU_ABILITY_RET_OK;
}
