#include "onu_ability_common_table/onu_match_ability_table.h"

#include <iterator>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/table_lock.h"

namespace {

// Whether deleting `profile` means `candidate`: by the id when there is one, else
// by a comparison, which may change the candidate.
bool IsDeletedBy(const OnuAbilityProfile& profile, OnuAbilityProfile& candidate) {
  if (candidate._profile_source != profile._profile_source) {
    return false;
  }
  return profile.HasId() ? candidate._id == profile._id : (candidate == profile) != 0;
}

}  // namespace

OnuMatchAbilityTable::OnuMatchAbilityTable() { ONU_ABILITY_LOG(10, "OnuMatchAbilityTable start!"); }

OnuMatchAbilityTable::~OnuMatchAbilityTable() {
  ONU_ABILITY_LOG(10, "release OnuMatchAbilityTable!");
}

unsigned int OnuMatchAbilityTable::Add(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::Add start!");
  {
    const TableLock lock(_mutex);
    // The caller's own object changes, as meant.
    profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
    ONU_ABILITY_LOG(1, "find null!onu ability profile will be added");
    _vec_profile.push_back(profile);
  }
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::Add profile end!");
  return ONU_ABILITY_RET_OK;
}

unsigned int OnuMatchAbilityTable::Del(const OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::DeleteItem start!");
  unsigned int ret = ONU_ABILITY_RET_NOT_FOUND;
  {
    const TableLock lock(_mutex);
    auto candidate = _vec_profile.rbegin();
    while (candidate != _vec_profile.rend() && !IsDeletedBy(profile, *candidate)) {
      ++candidate;
    }
    if (candidate != _vec_profile.rend()) {
      ONU_ABILITY_LOG(9, "(Del)find ok!id:%hu", profile._id);
      _vec_profile.erase(std::next(candidate).base());
      ret = ONU_ABILITY_RET_OK;
    } else {
      ONU_ABILITY_LOG(1, "(Del)find null!id:%hu", profile._id);
    }
  }
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::DeleteItem end!");
  return ret;
}

unsigned int OnuMatchAbilityTable::operator==(OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::operator== start!");
  ONU_ABILITY_LOG(6, "operator== start!flag_match_type:%d", profile._flag_match_type);
  unsigned int ret = 0;
  {
    const TableLock lock(_mutex);
    profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
    auto stored = _vec_profile.rbegin();
    while (stored != _vec_profile.rend() && (*stored == profile) == 0) {
      ++stored;
    }
    if (stored != _vec_profile.rend()) {
      profile = *stored;
      ret = 1;
    }
  }
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::operator== end!");
  return ret;
}
