#include "onu_ability_common_table/profile_index.h"

#include <algorithm>
#include <new>
#include <utility>

#include "onu_ability_common_table/ability_code_index.h"

namespace {

// Whether storing a value under `code` may change what a profile holds under
// `indexed`: every filling derives the two counts again.
bool Touches(unsigned short code, unsigned short indexed) {
  return code == indexed || indexed == ONU_ABILITY_CODE_ALL_LAN ||
         indexed == ONU_ABILITY_CODE_DATA_UNI;
}

const ONU_ABILITY_COMMON_ABILITY_VALUE* HeldValue(const OnuAbilityProfile& profile,
                                                  unsigned short code) {
  const auto ability = profile._common_ability.find(code);
  return ability != profile._common_ability.end() ? &ability->second : nullptr;
}

// The lamp total of a profile whose codes all hold the lamp attribute. False where the
// sum by the registry would say or acquire something.
bool SumLamps(const OnuAbilityProfile& profile, const AbilityCodeReader& codes,
              unsigned int& total) {
  if (!AbilityCodeReader::AreRegistered(ONU_ABILITY_ATTR_LAMP)) {
    return false;
  }
  total = 0;
  for (const auto& [code, value] : profile._common_ability) {
    const AbilityTraits traits = codes.Traits(code);
    if ((traits & kHoldsLamp) == 0) {
      return false;
    }
    if ((traits & kCountsLamps) != 0 && value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      total += value.ability_ushort_value & 0xFFU;
    }
  }
  return true;
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

KeptNumber::Place KeptNumber::Of(const OnuAbilityProfile& profile, unsigned short code) {
  const ONU_ABILITY_COMMON_ABILITY_VALUE* entry = HeldValue(profile, code);
  return entry != nullptr && entry->ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT
             ? entry->ability_ushort_value
             : kNone;
}

KeptString::Place KeptString::Of(const OnuAbilityProfile& profile, unsigned short code) {
  const ONU_ABILITY_COMMON_ABILITY_VALUE* entry = HeldValue(profile, code);
  return entry != nullptr && entry->ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
             ? &entry->ability_string_value
             : kNone;
}

template <typename Kept>
typename Kept::Place EntryColumn<Kept>::Ask(const std::vector<OnuAbilityProfile>& profiles,
                                            unsigned short code) {
  constexpr std::size_t kAskedOfProfiles = 8;
  // For each entry that is kept, places of no more than so many bytes.
  constexpr std::size_t kBytesOfEntry = 10;
  if (!_is_worth_it || ++_asked * kAskedOfProfiles < profiles.size()) {
    return Kept::kNone;
  }
  std::vector<Place> places;
  places.reserve(profiles.size());
  for (const auto& profile : profiles) {
    places.push_back(Kept::Of(profile, code));
  }
  const auto kept = profiles.size() -
                    static_cast<std::size_t>(std::count(places.begin(), places.end(), Kept::kNone));
  _is_worth_it = kept * kBytesOfEntry >= profiles.size() * sizeof(Place);
  if (_is_worth_it) {
    _places = std::move(places);
  }
  return Kept::kNone;
}

template <typename Kept>
void EntryColumn<Kept>::Append(const OnuAbilityProfile& profile, unsigned short code) {
  if (!_places.empty()) {
    _places.push_back(Kept::Of(profile, code));
  }
}

template <typename Kept>
void EntryColumn<Kept>::NoteValue(const OnuAbilityProfile& profile, unsigned short code,
                                  unsigned int position) {
  if (position < _places.size()) {
    _places[position] = Kept::Of(profile, code);
  }
}

unsigned short NewIds::Lowest() {
  while (_lowest < _taken.size() && _taken[_lowest]) {
    ++_lowest;
  }
  return _lowest <= kLast - kFirst ? static_cast<unsigned short>(kFirst + _lowest)
                                   : ONU_ABILITY_INVALID_ID;
}

void NewIds::Take(unsigned short id) {
  if (id < kFirst || id > kLast) {
    return;
  }
  const auto place = static_cast<std::size_t>(id - kFirst);
  if (_taken.size() <= place) {
    _taken.resize(place + 1);
  }
  _taken[place] = true;
}

ProfileIndex::ProfileIndex(unsigned short key_ability_code)
    : _by_key(key_ability_code), _by_real_type(ONU_ABILITY_CODE_REAL_TYPE) {}

const ValueIndex* ProfileIndex::Of(unsigned short code) const {
  if (code == _by_key.code()) {
    return &_by_key;
  }
  return code == ONU_ABILITY_CODE_REAL_TYPE ? &_by_real_type : nullptr;
}

ProfileIndex::Columns* ProfileIndex::ColumnsOf(const OnuAbilityProfile& profile,
                                               unsigned short code) {
  const auto columns = _columns.find(code);
  if (columns != _columns.end()) {
    return &columns->second;
  }
  // Codes that nobody holds are not remembered, however many are asked for.
  return HeldValue(profile, code) != nullptr ? &_columns[code] : nullptr;
}

KeptNumber::Place ProfileIndex::Number(const std::vector<OnuAbilityProfile>& profiles,
                                       unsigned int position, unsigned short code) {
  try {
    Columns* columns = ColumnsOf(profiles[position], code);
    return columns != nullptr ? columns->numbers.Find(profiles, code, position) : KeptNumber::kNone;
  } catch (const std::bad_alloc&) {
    return KeptNumber::kNone;  // the profile itself answers without memory
  }
}

KeptString::Place ProfileIndex::String(const std::vector<OnuAbilityProfile>& profiles,
                                       unsigned int position, unsigned short code) {
  try {
    Columns* columns = ColumnsOf(profiles[position], code);
    return columns != nullptr ? columns->strings.Find(profiles, code, position) : KeptString::kNone;
  } catch (const std::bad_alloc&) {
    return KeptString::kNone;  // as above
  }
}

unsigned int ProfileIndex::LampTotal(const OnuAbilityProfile& profile, unsigned int position) {
  KeptTotal& kept = _lamp_totals[position];
  const AbilityCodeReader codes;
  const unsigned int generation = codes.Generation();
  if (kept.generation != 0 && kept.generation == generation) {
    return kept.total;
  }
  kept.generation = 0;
  if (!SumLamps(profile, codes, kept.total)) {
    return profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP);
  }
  kept.generation = generation;
  return kept.total;
}

void ProfileIndex::Append(const OnuAbilityProfile& profile) {
  _by_key.Append(profile);
  _by_real_type.Append(profile);
  _patterns.Append(profile);
  for (auto& [code, columns] : _columns) {
    columns.numbers.Append(profile, code);
    columns.strings.Append(profile, code);
  }
  _new_ids[profile._profile_source].Take(profile._id);
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
  // The profile has the abilities of its draft, so every string of it is another one.
  for (auto& [kept_code, columns] : _columns) {
    columns.numbers.NoteValue(profiles[position], kept_code, position);
    columns.strings.NoteValue(profiles[position], kept_code, position);
  }
  _lamp_totals[position] = KeptTotal();
}

void ProfileIndex::Rebuild(const std::vector<OnuAbilityProfile>& profiles) {
  _by_key.Clear();
  _by_real_type.Clear();
  _patterns.Clear();
  _columns.clear();
  _new_ids.clear();
  _lamp_totals.clear();
  for (const auto& profile : profiles) {
    Append(profile);
  }
}
