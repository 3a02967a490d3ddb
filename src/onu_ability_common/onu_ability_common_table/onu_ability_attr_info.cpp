#include "onu_ability_common_table/onu_ability_attr_info.h"

#include "onu_ability_common_global/log.h"
#include "vty.h"

OnuAbilityAttrInfo* OnuAbilityAttrInfo::GetInstance() {
  static OnuAbilityAttrInfo instance;
  return &instance;
}

OnuAbilityAttrInfo::~OnuAbilityAttrInfo() = default;

void OnuAbilityAttrInfo::NoteIds() {
  _low_ids = 0;
  for (const auto& entry : _map_ability_attr) {
    if (entry.first >= 0 && entry.first < 32) {
      _low_ids |= 1U << entry.first;
    }
  }
}

int OnuAbilityAttrInfo::IsValid(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  for (const auto& entry : _map_ability_attr) {
    if (entry.second == name) {
      ONU_ABILITY_LOG(6, "ability attr name is equal!");
      ONU_ABILITY_LOG(10, "function end!");
      return 0;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 1;
}

unsigned int OnuAbilityAttrInfo::IsExist(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool registered = _map_ability_attr.count(id) != 0;
  if (!registered) {
    ONU_ABILITY_LOG(1, "ability_attr_code is invalid!ability_attr_code:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return registered ? 1 : 0;
}

std::string OnuAbilityAttrInfo::Get(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  std::string name = "NULL";
  const auto entry = _map_ability_attr.find(id);
  if (entry != _map_ability_attr.end()) {
    name = entry->second;
  } else {
    ONU_ABILITY_LOG(1, "find ability_attr_id null!ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return name;
}

ONU_ABILITY_ENUM_ABILITY_ATTR_ID OnuAbilityAttrInfo::Get(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_ENUM_ABILITY_ATTR_ID id = ONU_ABILITY_ATTR_NONE;
  for (const auto& entry : _map_ability_attr) {
    if (entry.second == name) {
      ONU_ABILITY_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
      id = entry.first;
      break;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return id;
}

void OnuAbilityAttrInfo::Add(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsValid(name) == 0) {
    ONU_ABILITY_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
  } else if (_map_ability_attr.count(id) != 0) {
    ONU_ABILITY_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
  } else {
    ONU_ABILITY_LOG(1, "ability_attr_id is valid!ability_attr_id:%d", id);
    _map_ability_attr.emplace(id, name);
    NoteIds();
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Update(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  const auto entry = _map_ability_attr.find(id);
  // The id's own name counts as taken, too, as meant.
  if (IsValid(name) == 0) {
    ONU_ABILITY_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
  } else if (entry == _map_ability_attr.end()) {
    ONU_ABILITY_LOG(1, "ability_attr_id do not exist,ability_attr_id:%d", id);
  } else {
    ONU_ABILITY_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
    entry->second = name;
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Show(void* vty) {
  ONU_ABILITY_LOG(10, "function start!");
  auto* terminal = static_cast<struct vty*>(vty);
  for (const auto& [id, name] : _map_ability_attr) {
    if (terminal != nullptr) {
      vty_out(terminal, "ability_attr_id:%d, ability_attr_name:%s\r\n", id, name.c_str());
    } else {
      // Without the common tail, as meant.
      ONU_ABILITY_LOG_BARE(6, "ability_attr_id:%d, ability_attr_name:%s\r\n", id, name.c_str());
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
}
