// Deletion of attribute ids, apart from the rest of the registry: it asks the
// code registry, which builds on this one, whether the id is in use.
#include <algorithm>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"
#include "onu_ability_common_table/onu_ability_code_info.h"

void OnuAbilityAttrInfo::Del(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  if (OnuAbilityCodeInfo::GetInstance()->IsExist(id) != 0) {
    ONU_ABILITY_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
  } else if (_map_ability_attr.count(id) == 0) {
    ONU_ABILITY_LOG(1, "ability_attr_id is not exist!ability_attr_id:%d", id);
  } else {
    _map_ability_attr.erase(id);
    NoteIds();
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Del(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  const ONU_ABILITY_ENUM_ABILITY_ATTR_ID id = Get(name);
  if (OnuAbilityCodeInfo::GetInstance()->IsExist(id) != 0) {
    ONU_ABILITY_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  const auto entry = std::find_if(_map_ability_attr.begin(), _map_ability_attr.end(),
                                  [&name](const auto& pair) { return pair.second == name; });
  if (entry != _map_ability_attr.end()) {
    ONU_ABILITY_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
    ONU_ABILITY_LOG(9, "find ability_attr_name ok!ability_attr_name:%s", name.c_str());
    _map_ability_attr.erase(entry);
    NoteIds();
  } else {
    ONU_ABILITY_LOG(1, "find ability_attr_name null!ability_attr_name:%s", name.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
}
