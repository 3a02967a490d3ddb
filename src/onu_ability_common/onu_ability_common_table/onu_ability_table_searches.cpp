// The searches under a table's operations: each a plain walk, and before it the
// short way, which asks only the profiles that the walk would hit or hear from.
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_global/source_filter.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/profile_index.h"

namespace {

// The profile at `found`, or an irregular one that is newer and, asked itself in the
// order of the walk, `fits`.
template <typename Fits>
OnuAbilityProfile* NewerIrregularOr(unsigned int found, std::vector<OnuAbilityProfile>& profiles,
                                    const ValueIndex& index, Fits fits) {
  const auto& irregular = index.Irregular();
  for (auto position = irregular.rbegin(); position != irregular.rend(); ++position) {
    if (found != kNoPosition && *position < found) {
      break;
    }
    if (fits(profiles[*position])) {
      return &profiles[*position];
    }
  }
  return found != kNoPosition ? &profiles[found] : nullptr;
}

template <typename Fits>
OnuAbilityProfile* WalkFromNewest(std::vector<OnuAbilityProfile>& profiles, Fits fits) {
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    if (fits(*profile)) {
      return &*profile;
    }
  }
  return nullptr;
}

}  // namespace

ProfileIndex* OnuAbilityTableBase::Index() const {
  return _is_index_whole ? _index.get() : nullptr;
}

const ValueIndex* OnuAbilityTableBase::ShortWayBy(unsigned short code) const {
  const ProfileIndex* index = Index();
  return index != nullptr && NobodyListensTo(LogLevels(4, 9, 10)) ? index->Of(code) : nullptr;
}

const ValueIndex* OnuAbilityTableBase::RegularShortWayBy(unsigned short code) const {
  const ValueIndex* index = ShortWayBy(code);
  return index != nullptr && index->Irregular().empty() ? index : nullptr;
}

OnuAbilityProfile* OnuAbilityTableBase::FindByCode(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                   unsigned short code, unsigned int value) {
  const auto fits = [&](const OnuAbilityProfile& profile) {
    return profile.IsEqual(source, code, value) != 0;
  };
  if (const ValueIndex* index = ShortWayBy(code)) {
    return NewerIrregularOr(NewestFrom(source, *index, value), _vec_profile, *index, fits);
  }
  return WalkFromNewest(_vec_profile, fits);
}

OnuAbilityProfile* OnuAbilityTableBase::FindByCode(unsigned short code, unsigned int value) {
  const auto fits = [&](const OnuAbilityProfile& profile) {
    return profile.IsEqual(code, value) != 0;
  };
  if (const ValueIndex* index = ShortWayBy(code)) {
    return NewerIrregularOr(index->Newest(value), _vec_profile, *index, fits);
  }
  return WalkFromNewest(_vec_profile, fits);
}

OnuAbilityProfile* OnuAbilityTableBase::FindByRealType(unsigned short onu_real_type) {
  const auto fits = [&](const OnuAbilityProfile& profile) {
    return (profile == onu_real_type) != 0;
  };
  if (const ValueIndex* index = ShortWayBy(ONU_ABILITY_CODE_REAL_TYPE)) {
    return NewerIrregularOr(index->Newest(onu_real_type), _vec_profile, *index, fits);
  }
  return WalkFromNewest(_vec_profile, fits);
}

unsigned int OnuAbilityTableBase::NewestFrom(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                             const ValueIndex& index, unsigned int number) const {
  unsigned int position = index.Newest(number);
  while (position != kNoPosition && !PassesFilter(source, _vec_profile[position]._profile_source)) {
    position = index.Older(position);
  }
  return position;
}

OnuAbilityProfile* OnuAbilityTableBase::FindOldest(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                   const ValueIndex& index, unsigned int number) {
  OnuAbilityProfile* oldest = nullptr;
  for (unsigned int position = index.Newest(number); position != kNoPosition;
       position = index.Older(position)) {
    if (_vec_profile[position]._profile_source == source) {
      oldest = &_vec_profile[position];
    }
  }
  return oldest;
}

OnuAbilityProfile* OnuAbilityTableBase::FindOldestByKey(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                        unsigned int key_ability_value) {
  // A profile is asked for the registry's current key code, not the table's own.
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  if (const ValueIndex* index = RegularShortWayBy(key_code)) {
    return FindOldest(source, *index, key_ability_value);
  }
  for (auto& profile : _vec_profile) {
    if (profile._profile_source == source && profile == key_ability_value) {
      return &profile;
    }
  }
  return nullptr;
}
