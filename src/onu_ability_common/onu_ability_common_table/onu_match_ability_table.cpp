#include "onu_ability_common_table/onu_match_ability_table.h"

#include <algorithm>
#include <new>
#include <utility>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/profile_index.h"
#include "onu_ability_common_table/table_lock.h"

namespace {

// The values of a report that patterns are compared with. False when reading their
// codes would say or acquire something.
bool CollectCompared(const OnuAbilityProfile& report,
                     std::vector<PatternIndex::Compared>& compared) {
  if (!AbilityCodeReader::AreRegistered(ONU_ABILITY_ATTR_CONFIRM_TYPE)) {
    return false;
  }
  const AbilityCodeReader codes;
  compared.reserve(report._common_ability.size());
  for (const auto& [code, value] : report._common_ability) {
    const AbilityTraits traits = codes.Traits(code);
    if ((traits & kHoldsConfirmType) == 0) {
      return false;
    }
    if ((traits & kComparedWithPatterns) != 0) {
      compared.push_back({code, &value});
    }
  }
  return true;
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
    RenewId(profile);
    // The caller's own object changes, as meant.
    profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
    ONU_ABILITY_LOG(1, "find null!onu ability profile will be added");
    Append(profile);
  }
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::Add profile end!");
  return ONU_ABILITY_RET_OK;
}

// Whether deleting `profile` means `candidate`: by the id when there is one, else by a
// comparison.
bool OnuMatchAbilityTable::IsMeant(const OnuAbilityProfile& profile,
                                   const OnuAbilityProfile& candidate, unsigned short key_code) {
  if (candidate._profile_source != profile._profile_source) {
    return false;
  }
  return profile.HasId() ? candidate._id == profile._id : candidate.Fits(profile, key_code);
}

unsigned int OnuMatchAbilityTable::Del(const OnuAbilityProfile& profile) {
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::DeleteItem start!");
  unsigned int ret = ONU_ABILITY_RET_NOT_FOUND;
  {
    const TableLock lock(_mutex);
    const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
    auto candidate = _vec_profile.rbegin();
    while (candidate != _vec_profile.rend() && !IsMeant(profile, *candidate, key_code)) {
      ++candidate;
    }
    const bool found = candidate != _vec_profile.rend();
    if (!profile.HasId() && OnuAbilityProfile::LeavesPendingEntry(profile)) {
      // Only those of exactly its source were compared.
      auto lacking = LackingFrom(found ? PositionOf(*candidate) : 0, key_code);
      lacking.erase(std::remove_if(lacking.begin(), lacking.end(),
                                   [&](unsigned int position) ONU_ABILITY_REQUIRES(_mutex) {
                                     return _vec_profile[position]._profile_source !=
                                            profile._profile_source;
                                   }),
                    lacking.end());
      LeavePendingEntries(lacking, key_code);
    }
    if (found) {
      ONU_ABILITY_LOG(9, "(Del)find ok!id:%hu", profile._id);
      Erase(candidate);
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
    if (const OnuAbilityProfile* fitting = FindFitting(profile)) {
      profile = *fitting;
      ret = 1;
    }
  }
  ONU_ABILITY_LOG(10, "OnuMatchAbilityTable::operator== end!");
  return ret;
}

OnuAbilityProfile* OnuMatchAbilityTable::FindFitting(const OnuAbilityProfile& report) {
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  OnuAbilityProfile* fitting = nullptr;
  if (!FindByIndex(report, key_code, fitting)) {
    auto stored = _vec_profile.rbegin();
    while (stored != _vec_profile.rend() && !stored->Fits(report, key_code)) {
      ++stored;
    }
    fitting = stored != _vec_profile.rend() ? &*stored : nullptr;
  }
  if (OnuAbilityProfile::LeavesPendingEntry(report)) {
    LeavePendingEntries(LackingFrom(fitting != nullptr ? PositionOf(*fitting) : 0, key_code),
                        key_code);
  }
  return fitting;
}

// The short way. False when the walk has anything to say, or the memory does not suffice.
bool OnuMatchAbilityTable::FindByIndex(const OnuAbilityProfile& report, unsigned short key_code,
                                       OnuAbilityProfile*& fitting) {
  ProfileIndex* index = Index();
  if (index == nullptr || !NobodyListensTo(LogLevels(4, 5, 6, 9, 10))) {
    return false;
  }
  try {
    std::vector<PatternIndex::Compared> compared;
    PatternIndex& patterns = index->Patterns();
    if (!CollectCompared(report, compared) || patterns.Prepare(_vec_profile, key_code, compared)) {
      return false;
    }
    const unsigned int found = patterns.Newest(compared);
    fitting = found != kNoPosition ? &_vec_profile[found] : nullptr;
    return true;
  } catch (const std::bad_alloc&) {
    return false;  // the walk needs none
  }
}

std::vector<unsigned int> OnuMatchAbilityTable::LackingFrom(unsigned int oldest,
                                                            unsigned short key_code) {
  std::vector<unsigned int> lacking;
  if (ProfileIndex* index = Index()) {
    const auto& known = index->Patterns().Lacking(_vec_profile, key_code);
    lacking.assign(std::lower_bound(known.begin(), known.end(), oldest), known.end());
    return lacking;
  }
  for (unsigned int position = oldest; position < _vec_profile.size(); ++position) {
    if (_vec_profile[position]._common_ability.count(key_code) == 0) {
      lacking.push_back(position);
    }
  }
  return lacking;
}

void OnuMatchAbilityTable::LeavePendingEntries(const std::vector<unsigned int>& lacking,
                                               unsigned short key_code) {
  if (lacking.empty()) {
    return;
  }
  // Made before any is stored: all profiles get theirs, or none.
  std::vector<AbilityMap::node_type> entries;
  entries.reserve(lacking.size());
  AbilityMap maker;
  while (entries.size() < lacking.size()) {
    maker.try_emplace(key_code);
    entries.push_back(maker.extract(key_code));
  }
  const WriteScope scope(_contents);
  for (const unsigned int position : lacking) {
    _vec_profile[position]._common_ability.insert(std::move(entries.back()));
    entries.pop_back();
  }
  if (ProfileIndex* index = Index()) {
    index->Patterns().Forget(key_code);
  }
}
