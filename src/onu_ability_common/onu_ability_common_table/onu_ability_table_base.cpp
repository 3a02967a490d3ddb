// The operations that change a table, new ids, and the inert operations that the
// concrete tables override.
#include "onu_ability_common_table/onu_ability_table_base.h"

#include <algorithm>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

OnuAbilityTableBase::OnuAbilityTableBase()
    : _key_ability_code(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase start!");
}

// Nobody else knows a new table.
void OnuAbilityTableBase::KeepIndex() ONU_ABILITY_NOT_ANALYSED {
  _index = std::make_unique<ProfileIndex>(_key_ability_code);
}

OnuAbilityTableBase::~OnuAbilityTableBase() { ONU_ABILITY_LOG(10, "release OnuAbilityTableBase!"); }

unsigned int OnuAbilityTableBase::Add(OnuAbilityProfile& /*profile*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::Add!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableBase::Del(const OnuAbilityProfile& /*profile*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::Del profile!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableBase::Del(ONU_ABILITY_ENUM_PROFILE_SOURCE /*source*/,
                                      unsigned int /*key_ability_value*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::Del profile!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableBase::operator==(OnuAbilityProfile& /*profile*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::operator==!");
  return 1;
}

unsigned int OnuAbilityTableBase::GetLampTotalNum(unsigned int /*key_ability_value*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::GetLampTotalNum start!");
  return 0;
}

unsigned int OnuAbilityTableBase::GetLampTotalNum(unsigned short /*onu_type*/) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::GetLampTotalNum start!");
  return 0;
}

unsigned int OnuAbilityTableBase::AddBindCount(unsigned int /*key_ability_value*/) {
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableBase::MinusBindCount(unsigned int /*key_ability_value*/) {
  return ONU_ABILITY_RET_OK;
}

template <typename Value>
bool OnuAbilityTableBase::AddToOldest(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value, unsigned short ability_code,
                                      const Value& value) {
  OnuAbilityProfile* profile = FindOldestByKey(source, key_ability_value);
  if (profile == nullptr) {
    return false;
  }
  // A value that the profile refuses still counts as success, as meant. The draft may say
  // and take as much as it likes: the table has the value and the counts that follow from
  // it at once, or not at all.
  OnuAbilityProfile draft(*profile);
  draft._handling.says_its_end = false;
  draft.Add(ability_code, value);
  TakeOver(*profile, draft, ability_code);
  return true;
}

unsigned int OnuAbilityTableBase::Add(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value, unsigned short ability_code,
                                      unsigned int value) {
  ONU_ABILITY_LOG(10, "Add-1 profile start!");
  const TableLock lock(_mutex);
  if (AddToOldest(source, key_ability_value, ability_code, value)) {
    ONU_ABILITY_LOG(10, "Add-1 profile end!");
    return ONU_ABILITY_RET_OK;
  }
  ONU_ABILITY_LOG(1,
                  "Add-1 failed!profile_source:%d, key_ability_value:%d, ability_code:%d, "
                  "ability_name:%s, ability_value:%d",
                  source, key_ability_value, ability_code, AbilityName(ability_code).c_str(),
                  value);
  return ONU_ABILITY_RET_OPERATE_FAILED;
}

unsigned int OnuAbilityTableBase::Add(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value, unsigned short ability_code,
                                      const std::string& value) {
  ONU_ABILITY_LOG(10, "Add-string profile start!");
  const TableLock lock(_mutex);
  if (AddToOldest(source, key_ability_value, ability_code, value)) {
    ONU_ABILITY_LOG(10, "Add-string profile end!");
    return ONU_ABILITY_RET_OK;
  }
  ONU_ABILITY_LOG(1,
                  "Add-string failed!profile_source:%d, key_ability_value:%d, ability_code:%d, "
                  "ability_name:%s, ability_value:%s",
                  source, key_ability_value, ability_code, AbilityName(ability_code).c_str(),
                  value.c_str());
  return ONU_ABILITY_RET_OPERATE_FAILED;
}

unsigned int OnuAbilityTableBase::DelAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::Del All profile start!");
  {
    const TableLock lock(_mutex);
    EraseFrom(source);
  }
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase::Del All profile end!");
  return ONU_ABILITY_RET_OK;
}

unsigned short OnuAbilityTableBase::FindNewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) const {
  // Ids of the other source do not block one.
  NewIds ids;
  for (const auto& profile : _vec_profile) {
    if (profile._profile_source == source) {
      ids.Take(profile._id);
    }
  }
  return ids.Lowest();
}

unsigned short OnuAbilityTableBase::NewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) const {
  ProfileIndex* index = Index();
  return index != nullptr && !WalksOnly() ? index->NewId(source) : FindNewId(source);
}

bool OnuAbilityTableBase::IsTaken(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short id) const {
  return std::any_of(_vec_profile.begin(), _vec_profile.end(), [=](const auto& profile) {
    return profile._profile_source == source && profile._id == id;
  });
}

void OnuAbilityTableBase::RenewId(OnuAbilityProfile& profile) const {
  if (!profile._handling.has_new_id) {
    return;
  }
  profile._handling.has_new_id = false;
  // A host's own table may have answered with an id of its own choice.
  if (_index != nullptr || IsTaken(profile._profile_source, profile._id)) {
    profile._id = NewId(profile._profile_source);
  }
}

unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short& id) {
  ONU_ABILITY_LOG(10, "function start!");
  const TableLock lock(_mutex);
  id = NewId(source);
  ONU_ABILITY_LOG(4, "index:%d", id);
  ONU_ABILITY_LOG(10, "function end!");
  return ONU_ABILITY_RET_OK;
}
