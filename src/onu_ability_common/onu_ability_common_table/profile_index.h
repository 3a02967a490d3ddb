// The short ways to the profiles of a table: by the value of its key ability code or
// of the real type, by pattern, and to the lamp total of each. Not for hosts.
//
// Owned by a table, which tells it of every change of its profiles and reads it
// under its lock (the table's two unlocked questions read it as they read the
// profiles). Nobody else can change the profiles of a table that the manager made;
// a table of a derived class, which could, has no index and walks.
#ifndef ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H
#define ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H

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

class ProfileIndex {
 public:
  explicit ProfileIndex(unsigned short key_ability_code);

  // Null for a code that is not indexed.
  const ValueIndex* Of(unsigned short code) const;

  PatternIndex& Patterns() { return _patterns; }

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
  std::vector<KeptTotal> _lamp_totals;
};

#endif  // ONU_ABILITY_COMMON_TABLE_PROFILE_INDEX_H
