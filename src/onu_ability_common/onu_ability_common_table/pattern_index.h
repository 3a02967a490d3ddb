// The short way to the newest pattern that a report fits. Not for hosts.
//
// For each code that reports are compared by, a column says which profiles of a
// table fit which value: a set of positions for those that fit every value, and one
// for each value that some profile names. The profiles that fit a report are the
// intersection over its compared codes, the newest of them the highest position.
//
// A column is made when its code is first compared, and forgotten when what it was
// made from changes. Part of a ProfileIndex, whose rules hold here.
#ifndef ONU_ABILITY_COMMON_TABLE_PATTERN_INDEX_H
#define ONU_ABILITY_COMMON_TABLE_PATTERN_INDEX_H

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "onu_ability_common_table/onu_ability_profile.h"

constexpr unsigned int kNoPosition = 0xFFFFFFFFU;

// A set of positions in a table, one bit each.
using PositionBits = std::vector<std::uint64_t>;

// The positions of the profiles that name one value: listed while they are few,
// which keeps columns of many values small, then as bits.
struct NamedPositions {
  std::vector<unsigned int> list;
  PositionBits bits;  // in use once not empty
  unsigned int count = 0;
};

class PatternColumn {
 public:
  void Append(const OnuAbilityProfile& profile, unsigned short code, unsigned int position);

  // True when some profile holds the code with a tag that no comparison knows. Such
  // a profile fits nothing, and says so.
  bool HasUnknownTag() const { return _has_unknown_tag; }
  // How many profiles fit the value.
  unsigned int CountFitting(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);
  // Leaves of `fitting` what fits the value. False when nothing is left.
  bool Intersect(const ONU_ABILITY_COMMON_ABILITY_VALUE& value, PositionBits& fitting);

 private:
  // The profiles that hold a number, or string, which the value fits. Null for none.
  NamedPositions* FittingNumbers(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);
  NamedPositions* FittingStrings(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);

  NamedPositions _any;          // lack the code, or hold a wildcard: every value fits
  NamedPositions _all_numbers;  // hold a number: what a reported wildcard fits
  NamedPositions _all_strings;  // hold a string: what a reported "" fits
  std::unordered_map<unsigned int, NamedPositions> _numbers;
  std::unordered_map<std::string, NamedPositions> _strings;
  bool _has_unknown_tag = false;
};

class PatternIndex {
 public:
  using Profiles = std::vector<OnuAbilityProfile>;

  // A value that a report has under a code by which reports are compared.
  struct Compared {
    unsigned short code;
    const ONU_ABILITY_COMMON_ABILITY_VALUE* value;
    PatternColumn* column = nullptr;
    unsigned int fitting = 0;
  };

  // Finds the columns, and makes those that are missing. True when a profile may be
  // met that fits nothing and says so.
  bool Prepare(const Profiles& profiles, unsigned short key_code, std::vector<Compared>& compared);
  // The newest profile that fits all values, or kNoPosition. Reorders them.
  // REQUIRES: Prepare.
  unsigned int Newest(std::vector<Compared>& compared);
  // The profiles that lack the key code, oldest first. Good until the next change.
  const std::vector<unsigned int>& Lacking(const Profiles& profiles, unsigned short key_code);

  // What happened to the profiles.
  void Append(const OnuAbilityProfile& profile);
  // Drops what was worked out of one code, who has it and with what value, or of all.
  void Forget(unsigned short code);
  void Clear();

 private:
  // Made where it is missing.
  PatternColumn& ColumnOf(const Profiles& profiles, unsigned short code);

  std::map<unsigned short, PatternColumn> _columns;
  unsigned int _size = 0;  // of the table
  // The profiles that lack the key code, oldest first; of none before it is asked.
  bool _knows_lacking = false;
  unsigned short _lacked_code = 0;
  std::vector<unsigned int> _lacking;
  PositionBits _fitting;  // kept for its memory
};

#endif  // ONU_ABILITY_COMMON_TABLE_PATTERN_INDEX_H
