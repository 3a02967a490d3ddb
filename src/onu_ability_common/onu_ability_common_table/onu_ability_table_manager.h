/// @file
/// The single owner of the ability tables, one for each profile type, and the
/// one way to them: it chooses the table and forwards.
///
/// Takes no lock; the tables lock for themselves. Init must have run before
/// other threads call in, and tables are neither added nor deleted after that.
///
/// Every forwarding operation answers ONU_ABILITY_RET_INVALID_PARAM, or 0 for a
/// yes/no question, when the profile type has no table, and otherwise what the
/// table answers unless said otherwise. It logs a missing table at level 1, a table that it
/// found at level 9 (but for Del of a profile and operator==), and at levels 1, 4 or 5 what the
/// table could not do; the table's own lines come in between. What each operation does is said with
/// the table's operation of this name, in OnuAbilityTableBase and the two tables.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_MANAGER_H
#define ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_MANAGER_H

#include <map>
#include <string>
#include <vector>

#include "onu_ability_common_table/onu_ability_table_base.h"

/// The manager of both tables.
class ONU_ABILITY_API OnuAbilityTableManager {
 public:
  /// The singleton, built on first use, destroyed at process exit; without tables until
  /// Init.
  static OnuAbilityTableManager* GetInstance();

  /// Leaves the tables themselves alone, as meant: they live until the process
  /// ends.
  virtual ~OnuAbilityTableManager();
  OnuAbilityTableManager(const OnuAbilityTableManager&) = delete;
  OnuAbilityTableManager& operator=(const OnuAbilityTableManager&) = delete;

  /// Creates the match table, then the real table. To be called once, at start-up.
  void Init();
  /// Creates the table of a type (1 or 2; any other is refused at level 0) that has none.
  /// For a type that has one, the existing table stays and the new one is never released,
  /// as meant.
  void AddOnuAbilityTable(ONU_ABILITY_ENUM_PROFILE_TYPE type);
  /// Destroys the table of a type with all its profiles (level 9), if there is one (else
  /// level 1).
  void DelOnuAbilityTable(ONU_ABILITY_ENUM_PROFILE_TYPE type);

  /// Brings the profile's derived counts up to date, gives it a new id when it
  /// has none (0 or 65535), and stores a copy in the table of its type. The caller's profile
  /// is changed, also when the table refuses it.
  unsigned int Add(OnuAbilityProfile& profile);
  /// @{
  /// Add one value to the oldest profile of this source with this key ability value. A number
  /// that no profile took is said at level 5 here, a string only by the table.
  unsigned int Add(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned int key_ability_value, unsigned short ability_code, unsigned int value);
  unsigned int Add(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned int key_ability_value, unsigned short ability_code,
                   const std::string& value);
  /// @}

  /// @{
  /// Return 0 whether or not the table found anything to delete, as meant. The
  /// source comes before the type. A profile's derived counts are brought up to date first.
  unsigned int Del(OnuAbilityProfile& profile);
  unsigned int Del(ONU_ABILITY_ENUM_PROFILE_SOURCE source, ONU_ABILITY_ENUM_PROFILE_TYPE type,
                   unsigned int key_ability_value);
  unsigned int DelAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source, ONU_ABILITY_ENUM_PROFILE_TYPE type);
  /// @}

  /// Matches the profile against the table of its type: type 2 as OnuMatchAbilityTable, type
  /// 1 answers 1 without looking.
  unsigned int operator==(OnuAbilityProfile& profile);

  /// @{
  /// 1 or 0: some profile of the source (2 is all) has this key ability value, or this value
  /// under the code. 0 is said at level 4 here.
  unsigned int IsExist(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                       unsigned int key_ability_value);
  unsigned int IsEqual(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                       unsigned short ability_code, unsigned int value);
  /// @}

  /// @{
  /// Count an ONU on the oldest external profile with this key ability value, or count it no
  /// more; the match table counts nothing.
  unsigned int AddBindCount(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key_ability_value);
  unsigned int MinusBindCount(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key_ability_value);
  /// @}

  /// The lowest id from 30001 that no profile of the source has, 65535 without any.
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned short& id);
  /// @{
  /// Copies of profiles: all, newest first, or the newest, by key ability value or real type.
  /// What they are written to stays as it was when the type has no table. That there is none
  /// is said at level 4 here.
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned int key_ability_value, std::vector<OnuAbilityProfile>& profiles);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned short onu_real_type, std::vector<OnuAbilityProfile>& profiles);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned int key_ability_value, OnuAbilityProfile& profile);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                   unsigned short onu_real_type, OnuAbilityProfile& profile);
  /// @}
  /// @{
  /// One value of the newest profile, by key ability value or real type. `value` stays as it
  /// was when the type has no table. That there is none is said here at level 5 for a number
  /// by key ability value, else at level 1.
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key_ability_value,
                   unsigned short ability_code, unsigned int& value);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key_ability_value,
                   unsigned short ability_code, std::string& value);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short onu_real_type,
                   unsigned short ability_code, std::string& value);
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short onu_real_type,
                   unsigned short ability_code, unsigned int& value);
  /// @}

  /// Replaces `out` with copies of the profiles of one table, filtered by source
  /// (2 is all), in table order; empty when the type has no table. Logs
  /// nothing, not even the release of what `out` held.
  void GetAll(ONU_ABILITY_ENUM_PROFILE_TYPE type, ONU_ABILITY_ENUM_PROFILE_SOURCE source,
              std::vector<OnuAbilityProfile>& out);

  /// The table of each type. Null entries count as no table; see the lamp totals of the
  /// query interface.
  std::map<ONU_ABILITY_ENUM_PROFILE_TYPE, OnuAbilityTableBase*> _map_table;

 private:
  ONU_ABILITY_LOCAL OnuAbilityTableManager();

  ONU_ABILITY_LOCAL OnuAbilityTableBase* Find(ONU_ABILITY_ENUM_PROFILE_TYPE type) const;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_MANAGER_H
