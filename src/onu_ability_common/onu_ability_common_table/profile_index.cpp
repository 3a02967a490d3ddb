#include "onu_ability_common_table/profile_index.h"

#include <algorithm>
#include <utility>

#include "onu_ability_common_table/ability_code_index.h"

namespace {

// Whether storing a value under `code` may change what a profile holds under
// `indexed`: every filling derives the two counts again.
bool Touches(unsigned short code, unsigned short indexed) {
  return code == indexed || indexed == ONU_ABILITY_CODE_ALL_LAN ||
         indexed == ONU_ABILITY_CODE_DATA_UNI;
}

// Whether the next sum of the profile's lamps will be the same and say nothing about
// codes and attributes that are not there.
bool IsSilentSum(const OnuAbilityProfile& profile, const AbilityCodeReader& codes) {
  return AbilityCodeReader::IsRegistered(ONU_ABILITY_ATTR_LAMP) &&
         std::all_of(profile._common_ability.begin(), profile._common_ability.end(),
                     [&codes](const auto& ability) {
                       return (codes.Traits(ability.first) & kHoldsLamp) != 0;
                     });
}

}  // namespace

std::size_t NumberPositions::PlaceOf(unsigned int number) const {
  // Multiplied so that neighbours, which keys and types often are, spread.
  std::size_t place = number * 2654435769U >> _shift;
  while (_places[place].position != kNoPosition && _places[place].number != number) {
    place = (place + 1) & (_places.size() - 1);
  }
  return place;
}

unsigned int NumberPositions::Find(unsigned int number) const {
  return _places.empty() ? kNoPosition : _places[PlaceOf(number)].position;
}

unsigned int NumberPositions::Replace(unsigned int number, unsigned int position) {
  if (2 * (_taken + 1) > _places.size()) {
    Grow();
  }
  Place& place = _places[PlaceOf(number)];
  const unsigned int before = place.position;
  _taken += before == kNoPosition ? 1 : 0;
  place = {number, position};
  return before;
}

void NumberPositions::Grow() {
  constexpr std::size_t kFewest = 16;
  const std::vector<Place> before = std::move(_places);
  _places.assign(std::max(kFewest, 2 * before.size()), Place());
  for (_shift = 32; std::size_t{1} << (32 - _shift) < _places.size();) {
    --_shift;
  }
  for (const Place& place : before) {
    if (place.position != kNoPosition) {
      _places[PlaceOf(place.number)] = place;
    }
  }
}

void NumberPositions::Clear() {
  _places.clear();
  _taken = 0;
}

void ValueIndex::Append(const OnuAbilityProfile& profile) {
  const auto position = static_cast<unsigned int>(_older.size());
  _older.push_back(kNoPosition);
  const auto ability = profile._common_ability.find(_code);
  if (ability == profile._common_ability.end() ||
      ability->second.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
    _irregular.push_back(position);
    return;
  }
  _older[position] = _newest.Replace(ability->second.ability_ushort_value, position);
}

void ValueIndex::Clear() {
  _newest.Clear();
  _older.clear();
  _irregular.clear();
}

ProfileIndex::ProfileIndex(unsigned short key_ability_code)
    : _by_key(key_ability_code), _by_real_type(ONU_ABILITY_CODE_REAL_TYPE) {}

const ValueIndex* ProfileIndex::Of(unsigned short code) const {
  if (code == _by_key.code()) {
    return &_by_key;
  }
  return code == ONU_ABILITY_CODE_REAL_TYPE ? &_by_real_type : nullptr;
}

unsigned int ProfileIndex::LampTotal(const OnuAbilityProfile& profile, unsigned int position) {
  KeptTotal& kept = _lamp_totals[position];
  const AbilityCodeReader codes;
  if (kept.generation != 0 && kept.generation == codes.Generation()) {
    return kept.total;
  }
  kept.total = profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP);
  kept.generation = IsSilentSum(profile, codes) ? codes.Generation() : 0;
  return kept.total;
}

void ProfileIndex::Append(const OnuAbilityProfile& profile) {
  _by_key.Append(profile);
  _by_real_type.Append(profile);
  _patterns.Append(profile);
  _lamp_totals.emplace_back();
}

void ProfileIndex::NoteValue(const std::vector<OnuAbilityProfile>& profiles, unsigned int position,
                             unsigned short code) {
  for (ValueIndex* index : {&_by_key, &_by_real_type}) {
    if (Touches(code, index->code())) {
      index->Clear();
      for (const auto& profile : profiles) {
        index->Append(profile);
      }
    }
  }
  for (const unsigned short changed : {code, ONU_ABILITY_CODE_ALL_LAN, ONU_ABILITY_CODE_DATA_UNI}) {
    _patterns.Forget(changed);
  }
  _lamp_totals[position] = KeptTotal();
}

void ProfileIndex::Rebuild(const std::vector<OnuAbilityProfile>& profiles) {
  _by_key.Clear();
  _by_real_type.Clear();
  _patterns.Clear();
  _lamp_totals.clear();
  for (const auto& profile : profiles) {
    Append(profile);
  }
}
