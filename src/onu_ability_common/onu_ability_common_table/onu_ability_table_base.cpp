// What a table stores: additions, deletions, new ids, and the inert operations
// that the concrete tables override.
#include "onu_ability_common_table/onu_ability_table_base.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

OnuAbilityTableBase::OnuAbilityTableBase()
    : _key_ability_code(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()) {
  ONU_ABILITY_LOG(10, "OnuAbilityTableBase start!");
}

void OnuAbilityTableBase::KeepIndex() {
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
  // A value that the profile refuses still counts as success, as meant.
  profile->Add(ability_code, value);
  if (_index != nullptr) {
    _index->NoteValue(_vec_profile, PositionOf(*profile), ability_code);
  }
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
    // What moves up keeps the place's own key ability code, as with each erased alone.
    const auto removed =
        std::remove_if(_vec_profile.begin(), _vec_profile.end(),
                       [source](const auto& profile) { return profile._profile_source == source; });
    _vec_profile.erase(removed, _vec_profile.end());
    if (_index != nullptr) {
      _index->Rebuild(_vec_profile);
    }
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

unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short& id) {
  ONU_ABILITY_LOG(10, "function start!");
  const TableLock lock(_mutex);
  id = _index != nullptr && !WalksOnly() ? _index->NewId(source) : FindNewId(source);
  ONU_ABILITY_LOG(4, "index:%d", id);
  ONU_ABILITY_LOG(10, "function end!");
  return ONU_ABILITY_RET_OK;
}

void OnuAbilityTableBase::Append(const OnuAbilityProfile& profile) {
  _vec_profile.push_back(profile);
  if (_index != nullptr) {
    _index->Append(_vec_profile.back());
  }
}

void OnuAbilityTableBase::Erase(std::vector<OnuAbilityProfile>::reverse_iterator profile) {
  _vec_profile.erase(std::next(profile).base());
  if (_index != nullptr) {
    _index->Rebuild(_vec_profile);
  }
}

void OnuAbilityTableBase::Restore(std::vector<OnuAbilityProfile> profiles) {
  const TableLock lock(_mutex);
  _vec_profile.swap(profiles);
  if (_index != nullptr) {
    _index->Rebuild(_vec_profile);
  }
}
