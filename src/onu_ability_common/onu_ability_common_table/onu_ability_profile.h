/// @file
/// One ability profile: the set of ability values that describes one ONU type. A
/// real profile lists what an ONU real type can do; a match profile is a pattern
/// against which the abilities that an ONU reports are compared.
///
/// Held by value everywhere: tables copy profiles in and out. No lock of its
/// own; whoever owns a profile serialises access to it. Operations that change a
/// profile return nothing, their refusals show only in the log.
///
/// When the memory does not suffice, an operation throws std::bad_alloc: every ability is
/// then as before or as after, and the counts derived from them may be those of before.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_PROFILE_H
#define ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_PROFILE_H

#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "onu_ability_common_table/ability_map.h"
#include "onu_ability_common_table/held_ports.h"
#include "variant.h"
#include "vty.h"

/// The OMCI mode of a listing that shows no ONU.
constexpr unsigned char ONU_ABILITY_NO_OMCI_MODE = 255;

struct AbilityEntry;

/// A set of ability values.
class ONU_ABILITY_API OnuAbilityProfile {
 public:
  /// An empty profile that is neither real nor match; see Init.
  OnuAbilityProfile();
  /// Copies every member, the profile's own key ability code included.
  OnuAbilityProfile(const OnuAbilityProfile&) = default;
  /// Copies every member but `_key_ability_code`: the target keeps its own.
  OnuAbilityProfile& operator=(const OnuAbilityProfile& other);
  /// @{
  /// As the copy, but take the abilities over; `other` is left without any.
  OnuAbilityProfile(OnuAbilityProfile&& other) noexcept = default;
  OnuAbilityProfile& operator=(OnuAbilityProfile&& other) noexcept;
  /// @}
  /// Nothing but a line at level 10.
  virtual ~OnuAbilityProfile();

  /// Empties the profile and gives it a type, a source and a match type. Type 2
  /// (match) has the default value 0xFFFFFFFF and id 0xFFFF, types 0 and 1 the
  /// default value 0 and id 0; any other type is refused at level 0 and changes nothing.
  /// `_bind_count` stays. Says at level 4 what it was given.
  void Init(ONU_ABILITY_ENUM_PROFILE_TYPE profile_type,
            ONU_ABILITY_ENUM_PROFILE_SOURCE profile_source, ONU_ABILITY_ENUM_MATCH_TYPE match_type);
  /// Removes every ability and resets the id; type, source and the rest stay.
  void Clear();

  // --- Reading. Return 0 (level 9), or ONU_ABILITY_RET_NOT_FOUND when the code is absent
  // (level 1) or its value has the other type (level 0).

  /// The whole value. An absent code gives a number, the profile's default, and
  /// ONU_ABILITY_RET_NOT_FOUND (level 1); else 0 (level 9), as all four answer.
  unsigned int Get(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE& value) const;
  /// The number. An absent code gives the default value, a string leaves `value` untouched
  /// and is ONU_ABILITY_RET_NOT_FOUND, too (level 0).
  unsigned int Get(unsigned short code, unsigned int& value) const;
  /// The string. An absent code gives "", a number leaves `value` untouched.
  unsigned int Get(unsigned short code, std::string& value) const;
  /// The number of the registry's current key ability code, as the number of any code. Level
  /// 4 names that code, the other lines the profile's own key ability code, as meant.
  unsigned int Get(unsigned int& value) const;

  /// Whether the profile has an id: 0 and 65535 stand for none.
  bool HasId() const { return _id != 0 && _id != ONU_ABILITY_INVALID_ID; }
  /// Whether the profile holds the code; level 1 when it does not.
  bool IsExist(unsigned short code) const;
  /// The sum, in 32 bits, of all numbers whose code has a non-zero attribute `attr_id`; for
  /// the lamp attribute, of their low 8 bits. An unknown code or attribute reads as 65535 and
  /// so counts. Says each ability at level 6; a record that lacks the attribute acquires it.
  unsigned int GetTotalNum(ONU_ABILITY_ENUM_ABILITY_ATTR_ID attr_id) const;
  /// 30 + 14 for each ability, in bytes: the figure that callers reserve, which is not the
  /// exact serialised size.
  unsigned int GetSize() const;

  // --- Filling. The counts are derived anew after each number, not after a string.

  /// @{
  /// Store a value of a registered code, any other code is refused at level 1. A value equal
  /// to the default (the empty string for strings) is not stored (level 4), but may replace
  /// a stored one, as the Update of these arguments does; a string for a held number is kept
  /// beside it. A tag other than 2 and 3 is refused at level 4, a number for a held string at
  /// level 0.
  void Add(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE value);
  void Add(unsigned short code, unsigned int value);
  void Add(unsigned short code, std::string value);
  /// @}
  /// The same for the key ability value, under the profile's own key ability code,
  /// registered or not.
  void Add(unsigned int value);
  /// One entry for every registered code that the profile lacks: `value`, equal to the
  /// default or not, for a number, "" for a string. For type 2 only the codes whose
  /// confirm-type attribute has the bit of value 2; a record that lacks the attribute
  /// acquires it. `_common_ability_num` may stay too low, as meant.
  void Add(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int value);

  /// Replaces the whole value of a held code, without any check. Derives the counts.
  void Update(unsigned short code, const ONU_ABILITY_COMMON_ABILITY_VALUE& value);
  /// @{
  /// Replace the number of a held number, the string of a held string; a value of the other
  /// type stays (level 0). A real profile stores the wildcard 0xFFFFFFFF as 0. The number,
  /// also of a code that is not held, has the counts derived.
  void Update(unsigned short code, unsigned int value);
  void Update(unsigned short code, const std::string& value);
  /// @}
  /// @{
  /// Set an entry, of any code, without any rule, check or count.
  void UpdateInit(unsigned short code, unsigned int value);
  void UpdateInit(unsigned short code, const std::string& value);
  /// @}

  /// @{
  /// Derive the LAN port total (code 1001: attribute 4 is 3), the data UNI total (code 65533:
  /// attribute 4 is 3 or 7, of number codes), or both; an entry is written only when some
  /// number other than 0 and the wildcard contributes. Say the sums at level 6.
  void Update();
  void UpdateLan();
  void UpdateDataUni();
  /// @}

  /// Removes a held code and derives the counts. `_common_ability_num` may stay one too high,
  /// as meant.
  void Del(unsigned short code);

  // --- Matching. Return 1 or 0, and say the compared values at level 4, 5 or 6. A value that
  // has not the type asked for is unequal (level 0).

  /// @{
  /// 1 or 0, with wildcards: 0xFFFFFFFF and "" match anything. Level 5.
  unsigned int IsAmbiguousMatch(unsigned int value_1, unsigned int value_2) const;
  unsigned int IsAmbiguousMatch(const std::string& string_1, const std::string& string_2) const;
  /// @}
  /// @{
  /// 1 or 0, without wildcards; an absent code compares as the profile's default number. A
  /// `source` of 2 fits every profile. Level 4, and 0 for a value of the other type.
  unsigned int IsEqual(unsigned short code, const ONU_ABILITY_COMMON_ABILITY_VALUE& value) const;
  unsigned int IsEqual(unsigned short code, unsigned int value) const;
  unsigned int IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short code,
                       unsigned int value) const;
  unsigned int IsEqual(unsigned short code, const std::string& value) const;
  /// @}
  /// Whether this is the real type (code 1081), 0 without one.
  unsigned int operator==(unsigned short real_type) const;
  /// Whether this is the vendor identifier (code 1082), 0 without one; an empty one on
  /// either side matches. Level 4.
  unsigned int operator==(std::string vendor_id) const;
  /// Whether this is the key ability value. Level 4.
  unsigned int operator==(unsigned int key_ability_value) const;
  /// Whether `input` fits this stored profile, by the match type of `input`: 1 a
  /// pattern comparison of the codes whose confirm-type attribute has the bit of value 1,
  /// which a code that this profile lacks never fails; 2 an exact comparison of what this
  /// profile holds, but for the codes 1080, 1081 and 1085, where a code that `input` lacks
  /// must hold the default; any other fits always. A pattern comparison with a profile that holds
  /// any ability inserts the key ability code into this one when it lacks it. An external profile
  /// whose real type is the id of an exact `input` fits whatever they hold. Levels 4 to 6, and 0
  /// for a value of no type.
  unsigned int operator==(const OnuAbilityProfile& input);

  // --- Serialisation into the host's buffer, item by item. A failing item is
  // logged at level 13 and ends the operation; what was read or written so far stays.

  /// Appends the header (the id in 16 bits; six items of 32 bits: bind count, match type,
  /// type, source, default value, `_common_ability_num`), then each ability in ascending
  /// code order: four items of 32 bits (code, value type, number, length of the string in
  /// bytes), and the string's bytes unless there are none. An item that the buffer refuses
  /// is logged at level 13 and ends it.
  void Serialize(Variant& variant);
  /// Reads what Serialize wrote: replaces the header and adds the abilities to those already
  /// held, under the rules of Add; the count becomes the buffer's. An item that the buffer
  /// does not give is logged at level 13 and ends it: what was read so far stays.
  void UnSerialize(const Variant& variant);

  /// Lists the profile on the terminal. `source` filters (2 is all; another than the
  /// profile's is logged at level 0 and nothing listed); `flag` 0 hides numbers equal to the
  /// default. `sn` and `omci_mode` (ONU_ABILITY_NO_OMCI_MODE: none) describe one ONU. A null
  /// `vty` is logged at level 13.
  void Show(void* vty, ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int flag,
            ONU_ABILITY_PHYSICAL_SN& sn, unsigned char omci_mode);

  unsigned short _id = 0;        ///< within table and source; 0 and 65535: none
  unsigned int _bind_count = 0;  ///< ONUs that use the profile
  /// its role in comparisons
  ONU_ABILITY_ENUM_MATCH_TYPE _flag_match_type = ONU_ABILITY_MATCH_TYPE_NONE;
  /// real or match
  ONU_ABILITY_ENUM_PROFILE_TYPE _profile_type = ONU_ABILITY_PROFILE_TYPE_NONE;
  /// where it came from
  ONU_ABILITY_ENUM_PROFILE_SOURCE _profile_source = ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
  unsigned int _ability_default_value = 0;  ///< the number of whatever is not held
  unsigned int _common_ability_num = 0;     ///< cached count, stale after some operations as meant
  AbilityMap _common_ability;               ///< value of each code held
  unsigned char _reserved[16] = {};         ///< copied with the profile, read by nobody
  unsigned short _key_ability_code;         ///< the registry's at construction or the last Init
  unsigned int _age_count = 0;              ///< the host's own, listed with the profile

 private:
  friend class OnuAbilityTableBase;
  friend class OnuAbilityTableManager;
  friend class OnuMatchAbilityTable;

  ONU_ABILITY_LOCAL void CopyHeader(const OnuAbilityProfile& other);
  ONU_ABILITY_LOCAL AbilityEntry EntryOf(unsigned short code) const;
  ONU_ABILITY_LOCAL static void SayReleased();
  ONU_ABILITY_LOCAL static void DropSilently(std::vector<OnuAbilityProfile>& profiles);
  ONU_ABILITY_LOCAL void Update(const AbilityCodeReader& codes);
  ONU_ABILITY_LOCAL bool UpdateSilently(const AbilityCodeReader& codes);
  // The value under the code, an empty one where the code was not held.
  ONU_ABILITY_LOCAL ONU_ABILITY_COMMON_ABILITY_VALUE& Hold(unsigned short code,
                                                           const AbilityCodeReader& codes);
  ONU_ABILITY_LOCAL static void SetNumber(ONU_ABILITY_COMMON_ABILITY_VALUE& held,
                                          unsigned int value);
  ONU_ABILITY_LOCAL void StoreNumber(unsigned short code, unsigned int value);
  ONU_ABILITY_LOCAL void StoreString(unsigned short code, const std::string& value);
  // The comparison with another profile, and whether it leaves an entry for the key code.
  ONU_ABILITY_LOCAL bool Fits(const OnuAbilityProfile& input, unsigned short key_code) const;
  ONU_ABILITY_LOCAL static bool LeavesPendingEntry(const OnuAbilityProfile& input);
  ONU_ABILITY_LOCAL bool MatchPattern(const OnuAbilityProfile& input,
                                      unsigned short key_code) const;
  ONU_ABILITY_LOCAL bool MatchAbility(unsigned short code,
                                      const ONU_ABILITY_COMMON_ABILITY_VALUE& held,
                                      const ONU_ABILITY_COMMON_ABILITY_VALUE& input,
                                      unsigned short key_code, unsigned int key_value) const;
  ONU_ABILITY_LOCAL bool MatchExactly(const OnuAbilityProfile& input) const;
  ONU_ABILITY_LOCAL bool IsSameIn(const OnuAbilityProfile& input, unsigned short code,
                                  const ONU_ABILITY_COMMON_ABILITY_VALUE& held) const;
  ONU_ABILITY_LOCAL void ShowHeader(struct vty* terminal) const;
  ONU_ABILITY_LOCAL void ShowAbilities(struct vty* terminal, unsigned int flag) const;

  // What the library says of one object while it has it in hand. It never travels with a
  // copy or a move.
  struct Handling {
    Handling() = default;
    Handling(const Handling&) noexcept {}
    Handling& operator=(const Handling&) = delete;
    ~Handling() = default;

    // Not for what a table makes and drops under its guard, where no line may be written.
    bool says_its_end = true;
    // The id was given by the manager, and another thread may get the same: the table
    // gives it once more when it stores the profile.
    bool has_new_id = false;
  };

  HeldPorts _ports;
  Handling _handling;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_PROFILE_H
