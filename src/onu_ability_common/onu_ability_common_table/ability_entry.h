/// @file
/// What a question about one ability reads of a profile, and the questions that are
/// asked of it alone. For profiles, and for a table that copied it out.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_ENTRY_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_ENTRY_H

#include "onu_ability_common_global.h"

/// What is known of one ability. A view: it lives no longer than the profile, and as that is
/// not changed.
struct AbilityEntry {
  /// @{
  /// Each as the operation of OnuAbilityProfile with this name and these arguments.
  bool IsExist(unsigned short code) const;
  unsigned int Get(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE& value) const;
  unsigned int Get(unsigned short code, unsigned int& value) const;
  unsigned int IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE wanted_source, unsigned short code,
                       unsigned int value) const;
  /// @}

  const ONU_ABILITY_COMMON_ABILITY_VALUE* held;  ///< null: the profile lacks the code
  unsigned int default_value;                    ///< the profile's
  ONU_ABILITY_ENUM_PROFILE_SOURCE source;        ///< the profile's
};

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_ENTRY_H
