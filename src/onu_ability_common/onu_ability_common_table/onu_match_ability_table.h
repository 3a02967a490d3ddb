/// @file
/// The table of match profiles: the patterns that recognise an ONU's type from
/// what it reports.
///
/// Every operation runs wholly under the table's lock.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_MATCH_ABILITY_TABLE_H
#define ONU_ABILITY_COMMON_TABLE_ONU_MATCH_ABILITY_TABLE_H

#include "onu_ability_common_table/onu_ability_table_base.h"

/// The table of profile type 2.
class ONU_ABILITY_API OnuMatchAbilityTable : public OnuAbilityTableBase {
 public:
  /// An empty table.
  OnuMatchAbilityTable();
  /// Destroys the profiles with it.
  ~OnuMatchAbilityTable() override;

  /// A value for a stored profile: the base's.
  using OnuAbilityTableBase::Add;
  using OnuAbilityTableBase::Del;

  /// Appends a copy without any check, after setting the caller's match type to
  /// 2. Returns 0. Says "find null!onu ability profile will be added" at level 1 every
  /// time, as meant.
  unsigned int Add(OnuAbilityProfile& profile) override;

  /// Removes the newest profile of the same source with the same id; for an id
  /// of 0 or 65535, the newest that the argument fits. 0 (level 9), or
  /// ONU_ABILITY_RET_NOT_FOUND (level 1).
  unsigned int Del(const OnuAbilityProfile& profile) override;

  /// Finds the newest pattern that a reported profile fits. 1 with the argument
  /// overwritten by it, or 0; its match type becomes 1 in any case. A pattern that lacks
  /// the key ability code and is compared gets an entry for it. Compares at levels 4 to 6.
  unsigned int operator==(OnuAbilityProfile& profile) override;

 private:
  ONU_ABILITY_LOCAL static bool IsMeant(const OnuAbilityProfile& profile,
                                        const OnuAbilityProfile& candidate,
                                        unsigned short key_code);
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindFitting(const OnuAbilityProfile& report)
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL bool FindByIndex(const OnuAbilityProfile& report, unsigned short key_code,
                                     OnuAbilityProfile*& fitting) ONU_ABILITY_REQUIRES(_mutex);
  // The profiles from `oldest` on that lack the key code.
  ONU_ABILITY_LOCAL std::vector<unsigned int> LackingFrom(unsigned int oldest,
                                                          unsigned short key_code)
      ONU_ABILITY_REQUIRES(_mutex);
  // Gives them the entry for it that a comparison leaves.
  ONU_ABILITY_LOCAL void LeavePendingEntries(const std::vector<unsigned int>& lacking,
                                             unsigned short key_code) ONU_ABILITY_REQUIRES(_mutex);
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_MATCH_ABILITY_TABLE_H
