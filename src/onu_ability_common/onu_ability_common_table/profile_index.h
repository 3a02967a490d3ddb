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

// The entries of one code, a place a profile: null where the profile lacks the code.
// A map keeps its entries where they are as long as it lives, also when its profile
// moves, so a pointer holds until the table removes a profile.
class EntryColumn {
 public:
  // The entry of the profile at `position`, null for none or as long as the column is
  // not worth its making: it is made when it was asked for an eighth of the profiles,
  // and only for a code that most of them hold.
  const ONU_ABILITY_COMMON_ABILITY_VALUE* Find(const std::vector<OnuAbilityProfile>& profiles,
                                               unsigned short code, unsigned int position) {
    return position < _entries.size() ? _entries[position] : Ask(profiles, code);
  }

  // What happened to the profiles.
  void Append(const OnuAbilityProfile& profile, unsigned short code);
  void NoteValue(const OnuAbilityProfile& profile, unsigned short code, unsigned int position);

 private:
  const ONU_ABILITY_COMMON_ABILITY_VALUE* Ask(const std::vector<OnuAbilityProfile>& profiles,
                                              unsigned short code);

  std::vector<const ONU_ABILITY_COMMON_ABILITY_VALUE*> _entries;  // none before it is made
  std::size_t _asked = 0;
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

  // The entry of a code of the profile at `position`. Null says nothing.
  const ONU_ABILITY_COMMON_ABILITY_VALUE* Entry(const std::vector<OnuAbilityProfile>& profiles,
                                                unsigned int position, unsigned short code);

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
  std::unordered_map<unsigned short, EntryColumn> _entries;
  std::map<ONU_ABILITY_ENUM_PROFILE_SOURCE, NewIds> _new_ids;
  std::vector<KeptTotal> _lamp_totals;
};

#endif  // ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H
