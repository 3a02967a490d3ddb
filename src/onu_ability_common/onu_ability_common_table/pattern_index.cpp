#include "onu_ability_common_table/pattern_index.h"

#include <algorithm>
#include <utility>

namespace {

constexpr unsigned int kBitsOfWord = 64;
// A list of more than one position in 32 takes more memory than bits.
constexpr unsigned int kListedAtMost = 32;

void SetBit(PositionBits& bits, unsigned int position) {
  const std::size_t word = position / kBitsOfWord;
  if (bits.size() <= word) {
    bits.resize(word + 1);
  }
  bits[word] |= std::uint64_t{1} << (position % kBitsOfWord);
}

// REQUIRES: `position` is the highest of the table so far.
void AppendTo(NamedPositions& named, unsigned int position) {
  ++named.count;
  if (!named.bits.empty()) {
    SetBit(named.bits, position);
    return;
  }
  named.list.push_back(position);
  if (named.list.size() * kListedAtMost > position + kBitsOfWord) {
    for (const unsigned int listed : named.list) {
      SetBit(named.bits, listed);
    }
    named.list = {};
  }
}

// The set as bits of so many words; `room` holds those of a list.
const std::uint64_t* AsBits(NamedPositions& named, std::size_t words, PositionBits& room) {
  PositionBits& bits = named.bits.empty() ? room : named.bits;
  bits.resize(words);
  for (const unsigned int position : named.list) {
    SetBit(bits, position);
  }
  return bits.data();
}

// Some bit has to be set.
unsigned int Highest(const PositionBits& bits) {
  std::size_t word = bits.size() - 1;
  while (bits[word] == 0) {
    --word;
  }
  unsigned int bit = kBitsOfWord - 1;
  while ((bits[word] >> bit & 1U) == 0) {
    --bit;
  }
  return static_cast<unsigned int>(word * kBitsOfWord) + bit;
}

template <typename Key>
NamedPositions* Find(std::unordered_map<Key, NamedPositions>& values, const Key& key) {
  const auto entry = values.find(key);
  return entry != values.end() ? &entry->second : nullptr;
}

}  // namespace

void PatternColumn::Append(const OnuAbilityProfile& profile, unsigned short code,
                           unsigned int position) {
  const auto ability = profile._common_ability.find(code);
  if (ability == profile._common_ability.end()) {
    AppendTo(_any, position);
    return;
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE& held = ability->second;
  if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    const bool is_wildcard = held.ability_ushort_value == ONU_ABILITY_WILDCARD;
    AppendTo(is_wildcard ? _any : _numbers[held.ability_ushort_value], position);
    AppendTo(_all_numbers, position);
  } else if (held.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    const bool is_wildcard = held.ability_string_value.empty();
    AppendTo(is_wildcard ? _any : _strings[held.ability_string_value], position);
    AppendTo(_all_strings, position);
  } else {
    _has_unknown_tag = true;
  }
}

// Both values are compared by the held one's tag, so a reported string has a number
// to compare, too, and the reverse.
NamedPositions* PatternColumn::FittingNumbers(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_ushort_value == ONU_ABILITY_WILDCARD
             ? &_all_numbers
             : Find(_numbers, value.ability_ushort_value);
}

NamedPositions* PatternColumn::FittingStrings(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_string_value.empty() ? &_all_strings
                                            : Find(_strings, value.ability_string_value);
}

unsigned int PatternColumn::CountFitting(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  unsigned int count = _any.count;
  for (const NamedPositions* named : {FittingNumbers(value), FittingStrings(value)}) {
    count += named != nullptr ? named->count : 0;
  }
  return count;
}

bool PatternColumn::Intersect(const ONU_ABILITY_COMMON_ABILITY_VALUE& value,
                              PositionBits& fitting) {
  const std::size_t words = fitting.size();
  PositionBits room[3];
  const std::uint64_t* any = AsBits(_any, words, room[0]);
  NamedPositions* named = FittingNumbers(value);
  const std::uint64_t* numbers = named != nullptr ? AsBits(*named, words, room[1]) : any;
  named = FittingStrings(value);
  const std::uint64_t* strings =
      named != nullptr && named->count != 0 ? AsBits(*named, words, room[2]) : any;
  std::uint64_t left = 0;
  for (std::size_t word = 0; word < words; ++word) {
    fitting[word] &= any[word] | numbers[word] | strings[word];
    left |= fitting[word];
  }
  return left != 0;
}

bool PatternIndex::Prepare(const Profiles& profiles, unsigned short key_code,
                           std::vector<Compared>& compared) {
  const bool is_key_lacking = !Lacking(profiles, key_code).empty();
  bool has_unknown_tag = false;
  for (Compared& question : compared) {
    question.column = &ColumnOf(profiles, question.code);
    // The pending entry that a profile gets for the key code has such a tag.
    has_unknown_tag = has_unknown_tag || question.column->HasUnknownTag() ||
                      (question.code == key_code && is_key_lacking);
  }
  return has_unknown_tag;
}

PatternColumn& PatternIndex::ColumnOf(const Profiles& profiles, unsigned short code) {
  const auto known = _columns.find(code);
  if (known != _columns.end()) {
    return known->second;
  }
  PatternColumn column;
  for (unsigned int position = 0; position < profiles.size(); ++position) {
    column.Append(profiles[position], code, position);
  }
  return _columns.emplace(code, std::move(column)).first->second;
}

unsigned int PatternIndex::Newest(std::vector<Compared>& compared) {
  if (_size == 0) {
    return kNoPosition;
  }
  for (Compared& question : compared) {
    question.fitting = question.column->CountFitting(*question.value);
  }
  // The one that excludes most comes first: often little is left after a few.
  for (auto next = compared.begin(); next != compared.end(); ++next) {
    std::iter_swap(next, std::min_element(next, compared.end(), [](const auto& a, const auto& b) {
                     return a.fitting < b.fitting;
                   }));
  }
  _fitting.assign((_size + kBitsOfWord - 1) / kBitsOfWord, ~std::uint64_t{0});
  _fitting.back() >>= (kBitsOfWord - _size % kBitsOfWord) % kBitsOfWord;
  for (const Compared& question : compared) {
    if (!question.column->Intersect(*question.value, _fitting)) {
      return kNoPosition;
    }
  }
  return Highest(_fitting);
}

const std::vector<unsigned int>& PatternIndex::Lacking(const Profiles& profiles,
                                                       unsigned short key_code) {
  if (_knows_lacking && _lacked_code == key_code) {
    return _lacking;
  }
  _knows_lacking = false;
  _lacking.clear();
  for (unsigned int position = 0; position < profiles.size(); ++position) {
    if (profiles[position]._common_ability.count(key_code) == 0) {
      _lacking.push_back(position);
    }
  }
  _lacked_code = key_code;
  _knows_lacking = true;
  return _lacking;
}

void PatternIndex::Append(const OnuAbilityProfile& profile) {
  for (auto& [code, column] : _columns) {
    column.Append(profile, code, _size);
  }
  if (_knows_lacking && profile._common_ability.count(_lacked_code) == 0) {
    _lacking.push_back(_size);
  }
  ++_size;
}

void PatternIndex::Forget(unsigned short code) {
  _columns.erase(code);
  _knows_lacking = _knows_lacking && code != _lacked_code;
}

void PatternIndex::Clear() {
  _columns.clear();
  _size = 0;
  _knows_lacking = false;
  _lacking.clear();
}
