// The short ways to the profiles of a table and to what they hold: by the value of the
// key ability code or of the real type, by pattern, to the entries of a code, to lamp
// totals and free ids. Not for hosts.
//
// Owned by a table, which tells it of every change of its profiles and reads it
// under its lock (the table's two unlocked questions read it as they read the
// profiles). Nobody else can change the profiles of a table that the manager made;
// a table of a derived class, which could, has no index and walks.
#ifndef ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H
#define ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "onu_ability_common_table/onu_ability_profile.h"
#include "onu_ability_common_table/pattern_index.h"

// The position of each number, in one block: a number is looked for at the place
// that its bits give and at those after it. Half of the places stay free.
class NumberPositions {
 public:
  // kNoPosition for a number that is not there.
  unsigned int Find(unsigned int number) const;
  // What was there before, or kNoPosition.
  unsigned int Replace(unsigned int number, unsigned int position);
  void Clear();

 private:
  struct Place {
    unsigned int number = 0;
    unsigned int position = kNoPosition;  // a free place
  };

  std::size_t PlaceOf(unsigned int number) const;
  void Grow();

  std::vector<Place> _places;  // none, or a power of two
  std::size_t _taken = 0;
  unsigned int _shift = 32;  // what is left of 32 bits is a place
};

// Where in the table the numbers of one ability code are.
class ValueIndex {
 public:
  explicit ValueIndex(unsigned short code) : _code(code) {}

  unsigned short code() const { return _code; }

  // The newest profile that holds this number, and from each the next older one.
  unsigned int Newest(unsigned int number) const { return _newest.Find(number); }
  unsigned int Older(unsigned int position) const { return _older[position]; }
  // Profiles that lack the code or hold it with another tag, oldest first. A walk
  // has more to say about them than that they differ: they are asked themselves.
  const std::vector<unsigned int>& Irregular() const { return _irregular; }

  void Append(const OnuAbilityProfile& profile);
  void Clear();

 private:
  unsigned short _code;
  NumberPositions _newest;
  std::vector<unsigned int> _older;
  std::vector<unsigned int> _irregular;
};

// What a column keeps of an entry that is a number: the number. kNone says nothing, so
// the one number like it is asked from the profile, too.
struct KeptNumber {
  using Place = unsigned int;
  static constexpr Place kNone = 0xFFFFFFFEU;
  static Place Of(const OnuAbilityProfile& profile, unsigned short code);
};

// Of one that is a string: where it is. A map keeps its entries where they are as long
// as it lives, also when its profile moves.
struct KeptString {
  using Place = const std::string*;
  static constexpr Place kNone = nullptr;
  static Place Of(const OnuAbilityProfile& profile, unsigned short code);
};

// The entries of one code, a place a profile.
template <typename Kept>
class EntryColumn {
 public:
  using Place = typename Kept::Place;

  // The entry of the profile at `position`; kNone says nothing. The column is made when
  // it was asked for an eighth of the profiles, if so many hold an entry of its kind
  // that the places of the others cost little.
  Place Find(const std::vector<OnuAbilityProfile>& profiles, unsigned short code,
             unsigned int position) {
    return position < _places.size() ? _places[position] : Ask(profiles, code);
  }

  // What happened to the profiles.
  void Append(const OnuAbilityProfile& profile, unsigned short code);
  void NoteValue(const OnuAbilityProfile& profile, unsigned short code, unsigned int position);

 private:
  Place Ask(const std::vector<OnuAbilityProfile>& profiles, unsigned short code);

  std::vector<Place> _places;  // none before it is made
  std::size_t _asked = 0;
  bool _is_worth_it = true;
};

// Which ids a table gives to new profiles of one source.
class NewIds {
 public:
  static constexpr unsigned short kFirst = 30001;
  static constexpr unsigned short kLast = 65533;

  // The lowest that is not taken, or ONU_ABILITY_INVALID_ID.
  unsigned short Lowest();
  void Take(unsigned short id);

 private:
  std::vector<bool> _taken;  // from kFirst on, as far as any is
  std::size_t _lowest = 0;   // all before are taken
};

class ProfileIndex {
 public:
  explicit ProfileIndex(unsigned short key_ability_code);

  // Null for a code that is not indexed.
  const ValueIndex* Of(unsigned short code) const;

  PatternIndex& Patterns() { return _patterns; }

  // The number or string of a code of the profile at `position`. kNone says nothing.
  KeptNumber::Place Number(const std::vector<OnuAbilityProfile>& profiles, unsigned int position,
                           unsigned short code);
  KeptString::Place String(const std::vector<OnuAbilityProfile>& profiles, unsigned int position,
                           unsigned short code);

  // The lowest new id that no profile of the source has, or ONU_ABILITY_INVALID_ID.
  unsigned short NewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) { return _new_ids[source].Lowest(); }

  // The lamp total of the profile at `position`.
  // REQUIRES: nobody listens to what a sum says at each known code.
  unsigned int LampTotal(const OnuAbilityProfile& profile, unsigned int position);

  // What happened to the profiles.
  void Append(const OnuAbilityProfile& profile);
  // The value of a code, and with it the derived counts, of the one at `position`.
  void NoteValue(const std::vector<OnuAbilityProfile>& profiles, unsigned int position,
                 unsigned short code);
  // Anything.
  void Rebuild(const std::vector<OnuAbilityProfile>& profiles);

 private:
  // Kept as long as the code registry does not change.
  struct KeptTotal {
    unsigned int generation = 0;
    unsigned int total = 0;
  };

  ValueIndex _by_key;
  ValueIndex _by_real_type;
  PatternIndex _patterns;
  struct Columns {
    EntryColumn<KeptNumber> numbers;
    EntryColumn<KeptString> strings;
  };

  // The columns of a code that some profile holds, else null.
  Columns* ColumnsOf(const OnuAbilityProfile& profile, unsigned short code);

  std::unordered_map<unsigned short, Columns> _columns;
  std::map<ONU_ABILITY_ENUM_PROFILE_SOURCE, NewIds> _new_ids;
  std::vector<KeptTotal> _lamp_totals;
};

#endif  // ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H
