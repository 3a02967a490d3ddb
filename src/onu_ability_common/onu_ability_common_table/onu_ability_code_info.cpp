#include "onu_ability_common_table/onu_ability_code_info.h"

#include <algorithm>
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"

OnuAbilityCodeInfo* OnuAbilityCodeInfo::GetInstance() {
  static OnuAbilityCodeInfo instance;
  return &instance;
}

OnuAbilityCodeInfo::OnuAbilityCodeInfo() : _index(std::make_unique<AbilityCodeIndex>()) {}

OnuAbilityCodeInfo::~OnuAbilityCodeInfo() = default;

void OnuAbilityCodeInfo::SetKeyAbilityCode(unsigned short code) { _key_ability_code = code; }

unsigned short OnuAbilityCodeInfo::GetKeyAbilityCode() const { return _key_ability_code; }

std::vector<ONU_ABILITY_CODE_ATTR_INFO>& OnuAbilityCodeInfo::Get() {
  // The index stays: another thread may be reading it.
  _unpredictable.store(true, std::memory_order_relaxed);
  return _vec_ability_attr;
}

void OnuAbilityCodeInfo::Restore(std::vector<ONU_ABILITY_CODE_ATTR_INFO> records) {
  _vec_ability_attr = std::move(records);
  NoteRemoval();
}

std::vector<ONU_ABILITY_CODE_ATTR_INFO>::iterator OnuAbilityCodeInfo::Find(unsigned short code) {
  if (const AbilityCodeIndex* index = TrustedIndex()) {
    const AbilityCodeIndex::Entry entry = index->Find(code);
    return entry.traits != 0 ? _vec_ability_attr.begin() + entry.position : _vec_ability_attr.end();
  }
  return std::find_if(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                      [code](const auto& record) { return record.ability_code == code; });
}

unsigned short OnuAbilityCodeInfo::Acquire(ONU_ABILITY_CODE_ATTR_INFO& record,
                                           ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  const auto [entry, added] = record.ability_attr.try_emplace(id, static_cast<unsigned short>(0));
  if (added) {
    NoteChange(record);
  }
  return entry->second;
}

void OnuAbilityCodeInfo::NoteChange(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  ++_generation;
  _index->Set(record.ability_code, static_cast<std::size_t>(&record - _vec_ability_attr.data()),
              TraitsOf(record));
}

void OnuAbilityCodeInfo::NoteRemoval() {
  ++_generation;
  if (!_index->Rebuild(_vec_ability_attr)) {
    _unpredictable.store(true, std::memory_order_relaxed);
  }
}

int OnuAbilityCodeInfo::IsValid(const ONU_ABILITY_CODE_ATTR_INFO& info) {
  ONU_ABILITY_LOG(10, "function start!");
  for (const auto& record : _vec_ability_attr) {
    // The same code with the same name is a new version of itself.
    if (record.ability_code != info.ability_code && record.ability_name == info.ability_name) {
      ONU_ABILITY_LOG(0, "ability name is invalid!ability_code:%d, ability_name:%s",
                      info.ability_code, info.ability_name.c_str());
      ONU_ABILITY_LOG(10, "function end!");
      return 0;
    }
  }
  for (const auto& attr : info.ability_attr) {
    ONU_ABILITY_LOG(6, "ability_attr_id:%d", attr.first);
    if (OnuAbilityAttrInfo::GetInstance()->IsExist(attr.first) == 0) {
      ONU_ABILITY_LOG(0, "ability attr id do not exist!ability_attr_id:%d", attr.first);
      ONU_ABILITY_LOG(10, "function end!");
      return 0;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return 1;
}

void OnuAbilityCodeInfo::Update(ONU_ABILITY_CODE_ATTR_INFO& info) {
  ONU_ABILITY_LOG(10, "function start!");
  if (IsValid(info) == 0) {
    ONU_ABILITY_LOG(0, "ability_code_info is invalid!");
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  const auto record = Find(info.ability_code);
  if (record != _vec_ability_attr.end()) {
    ONU_ABILITY_LOG(9, "ability code is equal!ability_code:%d", info.ability_code);
    record->ability_name = info.ability_name;
    record->ability_attr = info.ability_attr;
    NoteChange(*record);
  } else {
    ONU_ABILITY_LOG(1, "find ability code null!ability_code:%d", info.ability_code);
    _vec_ability_attr.push_back(info);
    NoteChange(_vec_ability_attr.back());
  }
  ONU_ABILITY_LOG(10, "function end!");
}

unsigned int OnuAbilityCodeInfo::IsExist(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool known = Find(code) != _vec_ability_attr.end();
  if (known) {
    ONU_ABILITY_LOG(6, "ability code is equal!ability_code:%d", code);
  } else {
    ONU_ABILITY_LOG(1, "find ability code null!ability_code:%d", code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return known ? 1 : 0;
}

unsigned int OnuAbilityCodeInfo::IsExist(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool used =
      std::any_of(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                  [id](const auto& record) { return record.ability_attr.count(id) != 0; });
  if (used) {
    ONU_ABILITY_LOG(9, "ability attr id exist!ability_attr_id:%d", id);
  } else {
    ONU_ABILITY_LOG(1, "find ability_attr_id null!ability_attr_id:%d", id);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return used ? 1 : 0;
}

unsigned short OnuAbilityCodeInfo::Get(std::string name) {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned short code = ONU_ABILITY_INVALID_ID;
  for (const auto& record : _vec_ability_attr) {
    if (record.ability_name == name) {
      ONU_ABILITY_LOG(9, "ability_name is equal!ability_name:%s", name.c_str());
      code = record.ability_code;
      break;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
  return code;
}

std::string OnuAbilityCodeInfo::Get(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  std::string name = "NULL";
  const auto record = Find(code);
  if (record != _vec_ability_attr.end()) {
    name = record->ability_name;
    ONU_ABILITY_LOG(9, "ability_code is equal!ability_code:%d, ability_name:%s", code,
                    name.c_str());
  } else {
    ONU_ABILITY_LOG(1, "find ability_code null!ability_code:%d", code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return name;
}

unsigned short OnuAbilityCodeInfo::Get(unsigned short code, ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned short value = ONU_ABILITY_INVALID_ID;
  if (OnuAbilityAttrInfo::GetInstance()->IsExist(id) == 0) {
    ONU_ABILITY_LOG(0, "ability_attr_id do not exist,ability_attr_id:%d", id);
    ONU_ABILITY_LOG(10, "function end!");
    return value;
  }
  const auto record = Find(code);
  if (record != _vec_ability_attr.end()) {
    // Reading an absent attribute adds it with the value 0, as meant: a code
    // older than an attribute acquires it this way.
    value = Acquire(*record, id);
    ONU_ABILITY_LOG(9,
                    "ability_code is equal!ability_code:%d, ability_name:%s, ability_attr_id:%d, "
                    "ability_attr_name:%s, ability_attr_value:%d",
                    code, record->ability_name.c_str(), id,
                    OnuAbilityAttrInfo::GetInstance()->Get(id).c_str(), value);
  } else {
    ONU_ABILITY_LOG(1, "find ability_code null!ability_code:%d", code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return value;
}

void onu_ability_get_all_ability_attr_info(std::vector<ONU_ABILITY_CODE_ATTR_INFO>& out) {
  out = OnuAbilityCodeInfo::GetInstance()->_vec_ability_attr;
}
