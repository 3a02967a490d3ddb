// The lookups of a table. Unless a comment says otherwise they walk from the
// newest profile to the oldest, so of two profiles that qualify the one added
// later wins.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/source_filter.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

unsigned int OnuAbilityTableBase::IsExist(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                          unsigned int key_ability_value) {
  ONU_ABILITY_LOG(10, "(OnuAbilityTableBase)function start!");
  const TableLock lock(_mutex);
  const OnuAbilityProfile* profile = FindByCode(source, _key_ability_code, key_ability_value);
  if (profile != nullptr) {
    ONU_ABILITY_LOG(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  } else {
    ONU_ABILITY_LOG(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  }
  ONU_ABILITY_LOG(10, "function end!");
  return profile != nullptr ? 1 : 0;
}

unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value,
                                      std::vector<OnuAbilityProfile>& profiles) {
  ONU_ABILITY_LOG(10,
                  "(OnuAbilityTableBase)function start!profile_source:%d, key_ability_code:%d, "
                  "ability_name:%s, ability_value:0x%x",
                  source, _key_ability_code, AbilityName(_key_ability_code).c_str(),
                  key_ability_value);
  const unsigned int ret = CollectByCode(source, _key_ability_code, key_ability_value, profiles);
  ONU_ABILITY_LOG(10, "(OnuAbilityTableBase)function end!");
  return ret;
}

unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned short onu_real_type,
                                      std::vector<OnuAbilityProfile>& profiles) {
  ONU_ABILITY_LOG(10, "(OnuAbilityTableBase)function start!profile_source:%d, onu_real_type:%d",
                  source, onu_real_type);
  const unsigned int ret =
      CollectByCode(source, ONU_ABILITY_CODE_REAL_TYPE, onu_real_type, profiles);
  ONU_ABILITY_LOG(10, "(OnuAbilityTableBase)function end!");
  return ret;
}

unsigned int OnuAbilityTableBase::CollectByCode(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                unsigned short code, unsigned int value,
                                                std::vector<OnuAbilityProfile>& profiles) {
  profiles.clear();
  const TableLock lock(_mutex);
  if (const ValueIndex* index = RegularShortWayBy(code)) {
    for (unsigned int position = index->Newest(value); position != kNoPosition;
         position = index->Older(position)) {
      if (PassesFilter(source, _vec_profile[position]._profile_source)) {
        profiles.push_back(_vec_profile[position]);
      }
    }
  } else {
    for (auto profile = _vec_profile.rbegin(); profile != _vec_profile.rend(); ++profile) {
      if (profile->IsEqual(source, code, value) != 0) {
        profiles.push_back(*profile);
      }
    }
  }
  if (profiles.empty()) {
    ONU_ABILITY_LOG_FOR("Get", 1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  ONU_ABILITY_LOG_FOR("Get", 9,
                      "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase, match num:%d.",
                      static_cast<int>(profiles.size()));
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                      unsigned int key_ability_value, OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "function start!");
  const TableLock lock(_mutex);
  const unsigned int ret =
      CopyOut(FindByCode(source, _key_ability_code, key_ability_value), profile);
  ONU_ABILITY_LOG(10, "function end!");
  return ret;
}

// A profile of either source may be returned: the source is not consulted, as
// meant.
unsigned int OnuAbilityTableBase::Get(ONU_ABILITY_ENUM_PROFILE_SOURCE /*source*/,
                                      unsigned short onu_real_type, OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "function start!");
  const TableLock lock(_mutex);
  const unsigned int ret = CopyOut(FindByRealType(onu_real_type), profile);
  ONU_ABILITY_LOG(10, "function end!");
  return ret;
}

unsigned int OnuAbilityTableBase::CopyOut(const OnuAbilityProfile* found,
                                          OnuAbilityProfile& profile) {
  if (found == nullptr) {
    ONU_ABILITY_LOG_FOR("Get", 1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
    return ONU_ABILITY_RET_NOT_FOUND;
  }
  profile = *found;
  ONU_ABILITY_LOG_FOR("Get", 9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!");
  return ONU_ABILITY_RET_OK;
}

void OnuAbilityTableBase::GetAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                 std::vector<OnuAbilityProfile>& profiles) {
  OnuAbilityProfile::DropSilently(profiles);
  const TableLock lock(_mutex);
  // Growing would release copies, each with a log line.
  profiles.reserve(_vec_profile.size());
  for (const auto& profile : _vec_profile) {
    if (PassesFilter(source, profile._profile_source)) {
      profiles.push_back(profile);
    }
  }
}
