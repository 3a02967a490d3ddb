/// @file
/// The table of real profiles: what each ONU real type can do, with the number
/// of ONUs bound to each.
///
/// Every operation runs wholly under the table's lock.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_REAL_ABILITY_TABLE_H
#define ONU_ABILITY_COMMON_TABLE_ONU_REAL_ABILITY_TABLE_H

#include "onu_ability_common_table/onu_ability_table_base.h"

/// The table of profile type 1.
class ONU_ABILITY_API OnuRealAbilityTable : public OnuAbilityTableBase {
 public:
  /// An empty table.
  OnuRealAbilityTable();
  /// Destroys the profiles with it.
  ~OnuRealAbilityTable() override;

  /// A value for a stored profile: the base's.
  using OnuAbilityTableBase::Add;
  using OnuAbilityTableBase::Del;

  /// Appends a copy, after setting the caller's match type to 2. A default
  /// profile is always taken; any other is refused with
  /// ONU_ABILITY_RET_OPERATE_FAILED when its source already has its key ability
  /// value or its (valid) id. The refusal says "find ok!" at level 9, taking it "find
  /// null!" at level 1, as meant. Else 0. Says a valid id at level 4.
  unsigned int Add(OnuAbilityProfile& profile) override;

  /// @{
  /// Remove the newest unbound profile of exactly this source: by key ability
  /// value; for a profile with a valid id, by real type, which the id is
  /// compared with as meant, else by its key ability value. 0 (level 9), or
  /// ONU_ABILITY_RET_NOT_FOUND (level 1).
  unsigned int Del(const OnuAbilityProfile& profile) override;
  unsigned int Del(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value) override;
  /// @}

  /// @{
  /// The lamp total of the newest profile, of any source, with this key ability value or
  /// this real type; 0 without one. Says it at level 4.
  unsigned int GetLampTotalNum(unsigned int key_ability_value) override;
  unsigned int GetLampTotalNum(unsigned short onu_type) override;
  /// @}

  /// @{
  /// Count ONUs on the oldest external profile with this key ability value; the
  /// count never falls below 0, and a profile with ONUs is not deleted. 0, or
  /// ONU_ABILITY_RET_OPERATE_FAILED, at level 1, without such a profile.
  unsigned int AddBindCount(unsigned int key_ability_value) override;
  unsigned int MinusBindCount(unsigned int key_ability_value) override;
  /// @}

 private:
  ONU_ABILITY_LOCAL bool IsDuplicate(const OnuAbilityProfile& profile) const
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL bool HasKeyOf(const OnuAbilityProfile& profile) const
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL unsigned int LampTotal(const OnuAbilityProfile& profile)
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindBindable(unsigned int key_ability_value)
      ONU_ABILITY_REQUIRES(_mutex);
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_REAL_ABILITY_TABLE_H
