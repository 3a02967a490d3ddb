#include "onu_ability_common_table/onu_ability_code_info.h"

#include <algorithm>
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/name_text.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"

OnuAbilityCodeInfo* OnuAbilityCodeInfo::GetInstance() {
  static OnuAbilityCodeInfo instance;
  return &instance;
}

OnuAbilityCodeInfo::OnuAbilityCodeInfo() : _index(std::make_unique<AbilityCodeIndex>()) {}

OnuAbilityCodeInfo::~OnuAbilityCodeInfo() = default;

void OnuAbilityCodeInfo::SetKeyAbilityCode(unsigned short code) {
  _key_ability_code.store(code, std::memory_order_relaxed);
}

unsigned short OnuAbilityCodeInfo::GetKeyAbilityCode() const {
  return _key_ability_code.load(std::memory_order_relaxed);
}

// Handed out past the guard, as the declaration says.
std::vector<ONU_ABILITY_CODE_ATTR_INFO>& OnuAbilityCodeInfo::Get() ONU_ABILITY_NOT_ANALYSED {
  // The index stays: another thread may be reading it.
  _unpredictable.store(true, std::memory_order_relaxed);
  return _vec_ability_attr;
}

void OnuAbilityCodeInfo::Restore(std::vector<ONU_ABILITY_CODE_ATTR_INFO> records) {
  const WriteScope scope(onu_ability_settings_guard);
  _vec_ability_attr.swap(records);
  NoteRemoval();
}

OnuAbilityCodeInfo::Records::const_iterator OnuAbilityCodeInfo::Find(unsigned short code) const {
  if (const AbilityCodeIndex* index = TrustedIndex()) {
    const AbilityCodeIndex::Entry entry = index->Find(code);
    return entry.traits != 0 ? _vec_ability_attr.begin() + entry.position : _vec_ability_attr.end();
  }
  return std::find_if(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                      [code](const auto& record) { return record.ability_code == code; });
}

OnuAbilityCodeInfo::Records::iterator OnuAbilityCodeInfo::Find(unsigned short code) {
  const Records::const_iterator found = std::as_const(*this).Find(code);
  return _vec_ability_attr.begin() + (found - _vec_ability_attr.cbegin());
}

bool OnuAbilityCodeInfo::IsNameTaken(const ONU_ABILITY_CODE_ATTR_INFO& info) const {
  // The same code with the same name is a new version of itself.
  return std::any_of(
      _vec_ability_attr.begin(), _vec_ability_attr.end(), [&info](const auto& record) {
        return record.ability_code != info.ability_code && record.ability_name == info.ability_name;
      });
}

bool OnuAbilityCodeInfo::AreAttributesRegistered(const ONU_ABILITY_CODE_ATTR_INFO& info) const {
  for (const auto& attr : info.ability_attr) {
    if (OnuAbilityAttrInfo::GetInstance()->_map_ability_attr.count(attr.first) == 0) {
      return false;
    }
  }
  return true;
}

bool OnuAbilityCodeInfo::Uses(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) const {
  return std::any_of(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                     [id](const auto& record) { return record.ability_attr.count(id) != 0; });
}

bool OnuAbilityCodeInfo::Store(ONU_ABILITY_CODE_ATTR_INFO record) {
  const WriteScope scope(onu_ability_settings_guard);
  if (IsNameTaken(record) || !AreAttributesRegistered(record)) {
    return false;
  }
  const auto known = Find(record.ability_code);
  if (known != _vec_ability_attr.end()) {
    known->ability_name.swap(record.ability_name);
    known->ability_attr.swap(record.ability_attr);
    NoteChange(*known);
  } else {
    _vec_ability_attr.push_back(std::move(record));
    NoteChange(_vec_ability_attr.back());
  }
  return true;
}

unsigned short OnuAbilityCodeInfo::Acquire(ONU_ABILITY_CODE_ATTR_INFO& record,
                                           ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  const auto [entry, added] = record.ability_attr.try_emplace(id, static_cast<unsigned short>(0));
  if (added) {
    NoteChange(record);
  }
  return entry->second;
}

bool OnuAbilityCodeInfo::Acquire(unsigned short code, ONU_ABILITY_ENUM_ABILITY_ATTR_ID id,
                                 NameText& name, unsigned short& value) {
  {
    const ReadScope scope(onu_ability_settings_guard);
    const auto record = std::as_const(*this).Find(code);
    if (record == _vec_ability_attr.end()) {
      return false;
    }
    const auto entry = record->ability_attr.find(id);
    if (entry != record->ability_attr.end()) {
      name.Assign(record->ability_name);
      value = entry->second;
      return true;
    }
  }
  const WriteScope scope(onu_ability_settings_guard);
  const auto record = Find(code);
  // Either may have gone meanwhile.
  if (record == _vec_ability_attr.end() ||
      OnuAbilityAttrInfo::GetInstance()->_map_ability_attr.count(id) == 0) {
    return false;
  }
  name.Assign(record->ability_name);
  value = Acquire(*record, id);
  return true;
}

OnuAbilityCodeInfo::Records OnuAbilityCodeInfo::CopyRecords() const {
  const ReadScope scope(onu_ability_settings_guard);
  // One by one: the copying of a whole vector leaks, in one standard library, what it has
  // copied when the memory does not suffice for the rest.
  Records copies;
  copies.reserve(_vec_ability_attr.size());
  for (const auto& record : _vec_ability_attr) {
    copies.push_back(record);
  }
  return copies;
}

void OnuAbilityCodeInfo::NoteChange(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  _index->Set(record.ability_code, static_cast<std::size_t>(&record - _vec_ability_attr.data()),
              TraitsOf(record));
  _generation.fetch_add(1, std::memory_order_release);
}

void OnuAbilityCodeInfo::NoteRemoval() {
  if (!_index->Rebuild(_vec_ability_attr)) {
    _unpredictable.store(true, std::memory_order_relaxed);
  }
  _generation.fetch_add(1, std::memory_order_release);
}

int OnuAbilityCodeInfo::IsValid(const ONU_ABILITY_CODE_ATTR_INFO& info) {
  ONU_ABILITY_LOG(10, "function start!");
  bool taken = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    taken = IsNameTaken(info);
  }
  if (taken) {
    ONU_ABILITY_LOG(0, "ability name is invalid!ability_code:%d, ability_name:%s",
                    info.ability_code, info.ability_name.c_str());
    ONU_ABILITY_LOG(10, "function end!");
    return 0;
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
  } else {
    if (AbilityCodeReader(*this).Knows(info.ability_code)) {
      ONU_ABILITY_LOG(9, "ability code is equal!ability_code:%d", info.ability_code);
    } else {
      ONU_ABILITY_LOG(1, "find ability code null!ability_code:%d", info.ability_code);
    }
    if (!Store(info)) {
      ONU_ABILITY_LOG(0, "ability_code_info is invalid!");
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
}

unsigned int OnuAbilityCodeInfo::IsExist(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  const bool known = AbilityCodeReader(*this).Knows(code);
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
  bool used = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    used = Uses(id);
  }
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
  bool known = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    const auto record =
        std::find_if(_vec_ability_attr.begin(), _vec_ability_attr.end(),
                     [&name](const auto& candidate) { return candidate.ability_name == name; });
    known = record != _vec_ability_attr.end();
    if (known) {
      code = record->ability_code;
    }
  }
  if (known) {
    ONU_ABILITY_LOG(9, "ability_name is equal!ability_name:%s", name.c_str());
  }
  ONU_ABILITY_LOG(10, "function end!");
  return code;
}

std::string OnuAbilityCodeInfo::Get(unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  std::string name = "NULL";
  bool known = false;
  {
    const ReadScope scope(onu_ability_settings_guard);
    const auto record = std::as_const(*this).Find(code);
    known = record != _vec_ability_attr.end();
    if (known) {
      name = record->ability_name;
    }
  }
  if (known) {
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
  // Reading an absent attribute adds it with the value 0, as meant: a code
  // older than an attribute acquires it this way.
  NameText name;
  if (Acquire(code, id, name, value)) {
    ONU_ABILITY_LOG(9,
                    "ability_code is equal!ability_code:%d, ability_name:%s, ability_attr_id:%d, "
                    "ability_attr_name:%s, ability_attr_value:%d",
                    code, name.c_str(), id, OnuAbilityAttrInfo::GetInstance()->Get(id).c_str(),
                    value);
  } else {
    ONU_ABILITY_LOG(1, "find ability_code null!ability_code:%d", code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return value;
}

void onu_ability_get_all_ability_attr_info(std::vector<ONU_ABILITY_CODE_ATTR_INFO>& out) {
  out = OnuAbilityCodeInfo::GetInstance()->CopyRecords();
}
