#include "onu_ability_common_table/onu_ability_attr_info.h"

#include <algorithm>

#include "onu_ability_common_global/log.h"
#include "vty.h"

OnuAbilityAttrInfo* OnuAbilityAttrInfo::GetInstance() {
  static OnuAbilityAttrInfo instance;
  return &instance;
}

OnuAbilityAttrInfo::~OnuAbilityAttrInfo() = default;

bool OnuAbilityAttrInfo::Has(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) const {
  const ReadScope scope(onu_ability_settings_guard);
  return _map_ability_attr.count(id) != 0;
}

OnuAbilityAttrInfo::Names::const_iterator OnuAbilityAttrInfo::FindName(
    const std::string& name) const {
  return std::find_if(_map_ability_attr.begin(), _map_ability_attr.end(),
                      [&name](const auto& entry) { return entry.second == name; });
}

OnuAbilityAttrInfo::Outcome OnuAbilityAttrInfo::Insert(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id,
                                                       const std::string& name) {
  const WriteScope scope(onu_ability_settings_guard);
  if (FindName(name) != _map_ability_attr.end()) {
    return Outcome::kNameTaken;
  }
  if (!_map_ability_attr.emplace(id, name).second) {
    return Outcome::kIdTaken;
  }
  NoteIds();
  return Outcome::kDone;
}

OnuAbilityAttrInfo::Outcome OnuAbilityAttrInfo::Rename(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id,
                                                       const std::string& name) {
  const WriteScope scope(onu_ability_settings_guard);
  if (FindName(name) != _map_ability_attr.end()) {
    return Outcome::kNameTaken;
  }
  const auto entry = _map_ability_attr.find(id);
  if (entry == _map_ability_attr.end()) {
    return Outcome::kUnknown;
  }
  entry->second = name;
  return Outcome::kDone;
}

void OnuAbilityAttrInfo::NoteIds() {
  unsigned int low_ids = 0;
  for (const auto& entry : _map_ability_attr) {
    if (entry.first >= 0 && entry.first < 32) {
      low_ids |= 1U << entry.first;
    }
  }
  _low_ids.store(low_ids, std::memory_order_relaxed);
}

int OnuAbilityAttrInfo::IsValid(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  bool taken = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    taken = FindName(name) != _map_ability_attr.end();
  }
  if (taken) {
    ONU_ABILITY_LOG(6, "ability attr name is equal!");
  }
  ONU_ABILITY_LOG(10, "function end!");
  return taken ? 0 : 1;
}

unsigned int OnuAbilityAttrInfo::IsExist(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool registered = Has(id);
  if (!registered) {
    ONU_ABILITY_LOG(1, "ability_attr_code is invalid!ability_attr_code:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return registered ? 1 : 0;
}

std::string OnuAbilityAttrInfo::Get(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  std::string name = "NULL";
  bool registered = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    const auto entry = _map_ability_attr.find(id);
    registered = entry != _map_ability_attr.end();
    if (registered) {
      name = entry->second;
    }
  }
  if (!registered) {
    ONU_ABILITY_LOG(1, "find ability_attr_id null!ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return name;
}

ONU_ABILITY_ENUM_ABILITY_ATTR_ID OnuAbilityAttrInfo::Get(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  ONU_ABILITY_ENUM_ABILITY_ATTR_ID id = ONU_ABILITY_ATTR_NONE;
  bool found = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    const auto entry = FindName(name);
    found = entry != _map_ability_attr.end();
    if (found) {
      id = entry->first;
    }
  }
  if (found) {
    ONU_ABILITY_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
  return id;
}

void OnuAbilityAttrInfo::Add(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  const Outcome outcome = IsValid(name) != 0 ? Insert(id, name) : Outcome::kNameTaken;
  if (outcome == Outcome::kNameTaken) {
    ONU_ABILITY_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
  } else if (outcome == Outcome::kDone) {
    ONU_ABILITY_LOG(1, "ability_attr_id is valid!ability_attr_id:%d", id);
  } else {
    ONU_ABILITY_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Update(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  // The id's own name counts as taken, too, as meant.
  const Outcome outcome = IsValid(name) != 0 ? Rename(id, name) : Outcome::kNameTaken;
  if (outcome == Outcome::kNameTaken) {
    ONU_ABILITY_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
  } else if (outcome == Outcome::kDone) {
    ONU_ABILITY_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
  } else {
    ONU_ABILITY_LOG(1, "ability_attr_id do not exist,ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityAttrInfo::Show(void* vty) {
  ONU_ABILITY_LOG(10, "function start!");
  auto* terminal = static_cast<struct vty*>(vty);
  Names names;
  {
    const ReadScope scope(onu_ability_settings_guard);
    names = _map_ability_attr;
  }
  for (const auto& [id, name] : names) {
    if (terminal != nullptr) {
      vty_out(terminal, "ability_attr_id:%d, ability_attr_name:%s\r\n", id, name.c_str());
    } else {
      // Without the common tail, as meant.
      ONU_ABILITY_LOG_BARE(6, "ability_attr_id:%d, ability_attr_name:%s\r\n", id, name.c_str());
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
}
