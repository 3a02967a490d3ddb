// The two questions that a table answers without its lock, as meant: the host sees no
// lock. The table's contents are read under the guard below the lock, and what there is
// to say is said afterwards, from copies. Both go from the oldest profile to the newest.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/source_filter.h"
#include "onu_ability_common_table/ability_entry.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "onu_ability_common_table/onu_ability_table_base.h"
#include "onu_ability_common_table/profile_index.h"

namespace {

// An entry that outlives the guard.
class CopiedEntry {
 public:
  CopiedEntry() = default;
  CopiedEntry(const OnuAbilityProfile& profile, unsigned short code)
      : _default_value(profile._ability_default_value), _source(profile._profile_source) {
    const auto ability = profile._common_ability.find(code);
    _is_held = ability != profile._common_ability.end();
    if (_is_held) {
      _value = ability->second;
    }
  }

  AbilityEntry Entry() const { return {_is_held ? &_value : nullptr, _default_value, _source}; }
  // What AbilityEntry::IsEqual finds, without a word.
  bool Equals(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int value) const {
    const bool is_number = !_is_held || _value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT;
    const unsigned int number = _is_held ? _value.ability_ushort_value : _default_value;
    return is_number && number == value && PassesFilter(source, _source);
  }

 private:
  bool _is_held = false;
  ONU_ABILITY_COMMON_ABILITY_VALUE _value;
  unsigned int _default_value = 0;
  ONU_ABILITY_ENUM_PROFILE_SOURCE _source = ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
};

// The profiles' entries of a code, up to the first that equals the value.
std::vector<CopiedEntry> CopyEntries(const std::vector<OnuAbilityProfile>& profiles,
                                     ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short code,
                                     unsigned int value) {
  std::vector<CopiedEntry> entries;
  for (const auto& profile : profiles) {
    entries.emplace_back(profile, code);
    if (entries.back().Equals(source, value)) {
      break;
    }
  }
  return entries;
}

}  // namespace

unsigned int OnuAbilityTableBase::IsExist(unsigned short ability_code) {
  ONU_ABILITY_LOG(10, "function start!");
  // The registry's current key code, not the table's own.
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  std::size_t lacking = 0;
  bool found = false;
  CopiedEntry key;
  {
    const ReadScope scope(_contents);
    ContentsAreReadable();
    while (lacking < _vec_profile.size() &&
           _vec_profile[lacking]._common_ability.count(ability_code) == 0) {
      ++lacking;
    }
    found = lacking < _vec_profile.size();
    if (found) {
      key = CopiedEntry(_vec_profile[lacking], key_code);
    }
  }
  for (; lacking != 0; --lacking) {
    AbilityEntry{nullptr, 0, ONU_ABILITY_PROFILE_SOURCE_DEFAULT}.IsExist(ability_code);
  }
  if (found) {
    const AbilityEntry entry = key.Entry();
    static const ONU_ABILITY_COMMON_ABILITY_VALUE kAny;
    AbilityEntry{&kAny, 0, ONU_ABILITY_PROFILE_SOURCE_DEFAULT}.IsExist(ability_code);
    unsigned int key_ability_value = 0;
    entry.Get(key_code, key_ability_value);
    ONU_ABILITY_LOG(6, "ability_code exist!key_ability_value:%d, ability_code:%d",
                    key_ability_value, ability_code);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return found ? 1 : 0;
}

unsigned int OnuAbilityTableBase::IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                          unsigned short ability_code, unsigned int value) {
  ONU_ABILITY_LOG(10, "function start!");
  bool found = false;
  std::vector<CopiedEntry> entries;
  {
    const ReadScope scope(_contents);
    ContentsAreReadable();
    if (const ValueIndex* index = RegularShortWayBy(ability_code)) {
      found = NewestFrom(source, *index, value) != kNoPosition;
    } else {
      entries = CopyEntries(_vec_profile, source, ability_code, value);
    }
  }
  for (const CopiedEntry& entry : entries) {
    found = entry.Entry().IsEqual(source, ability_code, value) != 0;
  }
  if (!found) {
    ONU_ABILITY_LOG(1,
                    "ability value is not equal!profile_source:%d, ability_code:%d, "
                    "ability_name:%s, ability_value:%d",
                    source, ability_code, AbilityName(ability_code).c_str(), value);
  }
  ONU_ABILITY_LOG(10, "function end!");
  return found ? 1 : 0;
}
