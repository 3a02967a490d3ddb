// Deletion of attribute ids, apart from the rest of the registry: it asks the
// code registry, which builds on this one, whether the id is in use.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"
#include "onu_ability_common_table/onu_ability_code_info.h"

OnuAbilityAttrInfo::Outcome OnuAbilityAttrInfo::Erase(Names::const_iterator entry) {
  if (entry == _map_ability_attr.end()) {
    return Outcome::kUnknown;
  }
  if (OnuAbilityCodeInfo::GetInstance()->Uses(entry->first)) {
    return Outcome::kInUse;
  }
  _map_ability_attr.erase(entry);
  NoteIds();
  return Outcome::kDone;
}

OnuAbilityAttrInfo::Outcome OnuAbilityAttrInfo::Erase(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  const WriteScope scope(onu_ability_settings_guard);
  return Erase(_map_ability_attr.find(id));
}

OnuAbilityAttrInfo::Outcome OnuAbilityAttrInfo::Erase(const std::string& name) {
  const WriteScope scope(onu_ability_settings_guard);
  return Erase(FindName(name));
}

void OnuAbilityAttrInfo::Del(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool is_used = OnuAbilityCodeInfo::GetInstance()->IsExist(id) != 0;
  const Outcome outcome = is_used ? Outcome::kInUse : Erase(id);
  if (outcome == Outcome::kInUse) {
    ONU_ABILITY_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
  } else if (outcome == Outcome::kUnknown) {
    ONU_ABILITY_LOG(1, "ability_attr_id is not exist!ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Del(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  const ONU_ABILITY_ENUM_ABILITY_ATTR_ID id = Get(name);
  const bool is_used = OnuAbilityCodeInfo::GetInstance()->IsExist(id) != 0;
  const Outcome outcome = is_used ? Outcome::kInUse : Erase(name);
  if (outcome == Outcome::kInUse) {
    ONU_ABILITY_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
  } else if (outcome == Outcome::kDone) {
    ONU_ABILITY_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
    ONU_ABILITY_LOG(9, "find ability_attr_name ok!ability_attr_name:%s", name.c_str());
  } else {
    ONU_ABILITY_LOG(1, "find ability_attr_name null!ability_attr_name:%s", name.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
}
