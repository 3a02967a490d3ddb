#include "onu_ability_common_table/onu_real_ability_table.h"

#include <algorithm>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

OnuRealAbilityTable::OnuRealAbilityTable() { ONU_ABILITY_LOG(10, "OnuRealAbilityTable start!"); }

OnuRealAbilityTable::~OnuRealAbilityTable() { ONU_ABILITY_LOG(10, "release OnuRealAbilityTable!"); }

unsigned int OnuRealAbilityTable::Add(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::Add start!");
  unsigned int ret = ONU_ABILITY_RET_OK;
  {
    const TableLock lock(_mutex);
    RenewId(profile);
    profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
    if (profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_DEFAULT || !IsDuplicate(profile)) {
      Append(profile);
    } else {
      ONU_ABILITY_LOG(10, "Add profile of OnuRealAbilityTable failed!");
      ret = ONU_ABILITY_RET_OPERATE_FAILED;
    }
  }
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::Add end!");
  return ret;
}

bool OnuRealAbilityTable::IsDuplicate(const OnuAbilityProfile& profile) const {
  const auto source = profile._profile_source;
  const bool same_real_type = HasKeyOf(profile);
  bool same_id = false;
  if (profile.HasId()) {
    ONU_ABILITY_LOG_FOR("Add", 4, "id:%hu", profile._id);
    same_id = std::any_of(_vec_profile.begin(), _vec_profile.end(), [&](const auto& stored) {
      return stored._profile_source == source && stored._id == profile._id;
    });
  }
  // "find ok" marks the refusal and "find null" the success, as meant.
  if (same_id || same_real_type) {
    ONU_ABILITY_LOG_FOR("Add", 9, "find ok!flag_same_id:%hhu,flag_same_realtype:%hhu",
                        static_cast<unsigned char>(same_id),
                        static_cast<unsigned char>(same_real_type));
    return true;
  }
  ONU_ABILITY_LOG_FOR("Add", 1, "find null!flag_same_id:%hhu,flag_same_realtype:%hhu",
                      static_cast<unsigned char>(same_id),
                      static_cast<unsigned char>(same_real_type));
  return false;
}

bool OnuRealAbilityTable::HasKeyOf(const OnuAbilityProfile& profile) const {
  const auto source = profile._profile_source;
  ONU_ABILITY_COMMON_ABILITY_VALUE key_value;
  profile.Get(_key_ability_code, key_value);
  const ValueIndex* index = RegularShortWayBy(_key_ability_code);
  // A source of 2, which no filter means here, is left to the walk.
  if (index != nullptr && key_value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
      source != ONU_ABILITY_PROFILE_SOURCE_ALL) {
    return NewestFrom(source, *index, key_value.ability_ushort_value) != kNoPosition;
  }
  return std::any_of(_vec_profile.begin(), _vec_profile.end(), [&](const auto& stored) {
    return stored._profile_source == source && stored.IsEqual(_key_ability_code, key_value) != 0;
  });
}

unsigned int OnuRealAbilityTable::Del(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::DelRealTableItem start!");
  unsigned int ret = ONU_ABILITY_RET_NOT_FOUND;
  {
    const TableLock lock(_mutex);
    const auto found =
        std::find_if(_vec_profile.rbegin(), _vec_profile.rend(), [&](const auto& candidate) {
          return candidate._profile_source == source && candidate._bind_count == 0 &&
                 candidate.IsEqual(_key_ability_code, key_ability_value) != 0;
        });
    if (found != _vec_profile.rend()) {
      ONU_ABILITY_LOG(9, "find ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!");
      Erase(found);
      ret = ONU_ABILITY_RET_OK;
    } else {
      ONU_ABILITY_LOG(1, "DeleteItem of OnuRealAbilityTable failed!");
    }
  }
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::DelRealTableItem end!");
  return ret;
}

unsigned int OnuRealAbilityTable::Del(const OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::DelItem start!");
  unsigned int ret = ONU_ABILITY_RET_NOT_FOUND;
  {
    const TableLock lock(_mutex);
    unsigned int key_ability_value = 0;
    if (!profile.HasId()) {
      profile.Get(_key_ability_code, key_ability_value);
    }
    const auto found =
        std::find_if(_vec_profile.rbegin(), _vec_profile.rend(), [&](const auto& candidate) {
          if (candidate._profile_source != profile._profile_source || candidate._bind_count != 0) {
            return false;
          }
          // A real profile's id is compared with the real type, as meant.
          return profile.HasId() ? (candidate == profile._id) != 0
                                 : candidate.IsEqual(_key_ability_code, key_ability_value) != 0;
        });
    if (found != _vec_profile.rend()) {
      ONU_ABILITY_LOG(9, "find(2) ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!");
      Erase(found);
      ret = ONU_ABILITY_RET_OK;
    } else {
      ONU_ABILITY_LOG(1, "DeleteItem of OnuRealAbilityTable failed!");
    }
  }
  ONU_ABILITY_LOG(10, "OnuRealAbilityTable::DelItem end!");
  return ret;
}

unsigned int OnuRealAbilityTable::LampTotal(const OnuAbilityProfile& profile) {
  ProfileIndex* index = Index();
  if (index != nullptr && NobodyListensTo(LogLevels(6, 9, 10))) {
    return index->LampTotal(profile, PositionOf(profile));
  }
  return profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP);
}

unsigned int OnuRealAbilityTable::GetLampTotalNum(unsigned int key_ability_value) {
  const TableLock lock(_mutex);
  const OnuAbilityProfile* profile = FindByCode(_key_ability_code, key_ability_value);
  const unsigned int total = profile != nullptr ? LampTotal(*profile) : 0;
  ONU_ABILITY_LOG(4, "key_ability_value:%d, totalnum:%d", key_ability_value, total);
  return total;
}

unsigned int OnuRealAbilityTable::GetLampTotalNum(unsigned short onu_type) {
  const TableLock lock(_mutex);
  const OnuAbilityProfile* profile = FindByCode(ONU_ABILITY_CODE_REAL_TYPE, onu_type);
  const unsigned int total = profile != nullptr ? LampTotal(*profile) : 0;
  ONU_ABILITY_LOG(4, "onu_type:%d, totalnum:%d", onu_type, total);
  return total;
}

// Default profiles are never bound; of several external ones the oldest is.
OnuAbilityProfile* OnuRealAbilityTable::FindBindable(unsigned int key_ability_value) {
  if (const ValueIndex* index = RegularShortWayBy(_key_ability_code)) {
    return FindOldest(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, *index, key_ability_value);
  }
  for (auto& profile : _vec_profile) {
    unsigned int held = 0;
    profile.Get(_key_ability_code, held);
    if (held == key_ability_value &&
        profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL) {
      return &profile;
    }
  }
  return nullptr;
}

unsigned int OnuRealAbilityTable::AddBindCount(unsigned int key_ability_value) {
  const TableLock lock(_mutex);
  OnuAbilityProfile* profile = FindBindable(key_ability_value);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(1, "find null in OnuRealAbilityTable!key_ability_value:%d", key_ability_value);
    return ONU_ABILITY_RET_OPERATE_FAILED;
  }
  ++profile->_bind_count;
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuRealAbilityTable::MinusBindCount(unsigned int key_ability_value) {
  const TableLock lock(_mutex);
  OnuAbilityProfile* profile = FindBindable(key_ability_value);
  if (profile == nullptr) {
    ONU_ABILITY_LOG(1, "find null in OnuRealAbilityTable!key_ability_value:%d", key_ability_value);
    return ONU_ABILITY_RET_OPERATE_FAILED;
  }
  if (profile->_bind_count > 0) {
    --profile->_bind_count;
  }
  return ONU_ABILITY_RET_OK;
}
