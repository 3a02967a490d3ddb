#include "onu_ability_common_table/onu_match_ability_table.h"

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/profile_index.h"
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
    // The caller's own object changes, as meant.
    profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
    ONU_ABILITY_LOG(1, "find null!onu ability profile will be added");
    Append(profile);
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
      Erase(candidate);
      ret = ONU_ABILITY_RET_OK;
    } else {
      ONU_ABILITY_LOG(1, "(Del)find null!id:%hu", profile._id);
      NoteComparisons();
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
  OnuAbilityProfile* fitting = nullptr;
  if (FindByIndex(report, fitting)) {
    return fitting;
  }
  auto stored = _vec_profile.rbegin();
  while (stored != _vec_profile.rend() && (*stored == report) == 0) {
    ++stored;
  }
  NoteComparisons();
  return stored != _vec_profile.rend() ? &*stored : nullptr;
}

// A walk's comparisons may have left entries for the key code.
void OnuMatchAbilityTable::NoteComparisons() {
  if (_index != nullptr) {
    _index->Patterns().NotePendingEntries(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode());
  }
}

// The short way. False, with nothing changed, when the walk has anything to say.
bool OnuMatchAbilityTable::FindByIndex(const OnuAbilityProfile& report,
                                       OnuAbilityProfile*& fitting) {
  std::vector<PatternIndex::Compared> compared;
  if (_index == nullptr || !NobodyListensTo(LogLevels(4, 5, 6, 9, 10)) ||
      !CollectCompared(report, compared)) {
    return false;
  }
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  PatternIndex& patterns = _index->Patterns();
  if (patterns.Prepare(_vec_profile, key_code, compared)) {
    return false;
  }
  const unsigned int found = patterns.Newest(compared);
  if (!report._common_ability.empty()) {
    patterns.AddPendingEntries(_vec_profile, key_code, found != kNoPosition ? found : 0);
  }
  fitting = found != kNoPosition ? &_vec_profile[found] : nullptr;
  return true;
}
