/// @file
/// One table of ability profiles of one profile type. It owns its profiles by
/// value, guards them with its own mutex, and implements every lookup. Created
/// and owned only by OnuAbilityTableManager, which forwards to it.
///
/// A lookup walks from the newest profile to the oldest and stops at the first
/// hit, unless said otherwise. Callers receive copies. Any thread may call any operation
/// at any time. Every operation that reads or changes the profiles does so under the
/// lock, except two, which say so; none takes a second one. Below the lock lies a guard,
/// which whoever changes the profiles holds for the change alone, and those two for
/// reading; no host function is called under it.
///
/// When the memory does not suffice, an operation throws std::bad_alloc and leaves the
/// table as it was; what it was to write to is then of no particular value.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_BASE_H
#define ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_BASE_H

#include <memory>
#include <string>
#include <vector>

#include "mutex_lock.h"
#include "onu_ability_common_global/reader_writer_guard.h"
#include "onu_ability_common_table/onu_ability_profile.h"

class ProfileIndex;
class ValueIndex;

/// A table of profiles under a lock of its own.
class ONU_ABILITY_API OnuAbilityTableBase {
 public:
  /// An empty table, for the key ability code of this moment.
  OnuAbilityTableBase();
  OnuAbilityTableBase(const OnuAbilityTableBase&) = delete;
  OnuAbilityTableBase& operator=(const OnuAbilityTableBase&) = delete;
  /// Destroys the profiles with it.
  virtual ~OnuAbilityTableBase();

  /// 1 (level 6) when some profile holds the code, else 0. Reads without the lock, as meant.
  virtual unsigned int IsExist(unsigned short ability_code);

  /// @{
  /// The base versions are inert and return 0.
  virtual unsigned int Add(OnuAbilityProfile& profile);
  virtual unsigned int Del(const OnuAbilityProfile& profile);
  virtual unsigned int Del(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value);
  /// @}

  /// Removes every profile of exactly this source, bound ones too. Returns 0.
  virtual unsigned int DelAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source);

  /// Inert: answers 1 and leaves the profile untouched.
  virtual unsigned int operator==(OnuAbilityProfile& profile);

  /// The lowest id from 30001 to 65533 that no profile of this source has, 65535
  /// when all are taken (level 4). Returns 0.
  virtual unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short& id);

  /// Copies of all profiles of the source (2 is all) with this key ability
  /// value, newest first; `profiles` is emptied first. 0 (level 9), or
  /// ONU_ABILITY_RET_NOT_FOUND (level 1).
  virtual unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value,
                           std::vector<OnuAbilityProfile>& profiles);
  /// A copy of the newest of them. 0 (level 9), or ONU_ABILITY_RET_NOT_FOUND (level 1) with
  /// `profile` untouched.
  virtual unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value,
                           OnuAbilityProfile& profile);
  /// The same by real type. The source is not consulted, as meant.
  virtual unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short onu_real_type,
                           OnuAbilityProfile& profile);

  /// @{
  /// One value of the newest profile, of any source, with this key ability value
  /// or real type. 0 (level 9); ONU_ABILITY_RET_OPERATE_FAILED when the profile cannot
  /// give it (level 1 for a number, 4 for a string); ONU_ABILITY_RET_NOT_FOUND without such
  /// a profile (level 1). On failure a number becomes 0 and a string "NULL".
  virtual unsigned int Get(unsigned int key_ability_value, unsigned short ability_code,
                           unsigned int& value);
  virtual unsigned int Get(unsigned int key_ability_value, unsigned short ability_code,
                           std::string& value);
  virtual unsigned int Get(unsigned short onu_real_type, unsigned short ability_code,
                           std::string& value);
  /// @}

  /// @{
  /// Inert: 0.
  virtual unsigned int GetLampTotalNum(unsigned int key_ability_value);
  virtual unsigned int GetLampTotalNum(unsigned short onu_type);
  virtual unsigned int AddBindCount(unsigned int key_ability_value);
  virtual unsigned int MinusBindCount(unsigned int key_ability_value);
  /// @}

  /// @{
  /// Add a value to the oldest profile of exactly this source with this value of the
  /// registry's current key ability code, under the rules of OnuAbilityProfile::Add. 0 once
  /// there is one, even if it refuses the value, as meant; ONU_ABILITY_RET_OPERATE_FAILED
  /// (level 1) without one.
  unsigned int Add(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value,
                   unsigned short ability_code, unsigned int value);
  unsigned int Add(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value,
                   unsigned short ability_code, const std::string& value);
  /// @}

  /// 1 (level 9) when some profile of the source (2 is all) has this key ability value,
  /// else 0 (level 1).
  unsigned int IsExist(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int key_ability_value);
  /// 1 when some profile of the source (2 is all) has this value under the code, else 0
  /// (level 1). An absent code compares as the profile's default number. Reads without the
  /// lock, as meant.
  unsigned int IsEqual(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short ability_code,
                       unsigned int value);

  /// One number of the newest profile of this real type, as the other Get of one value.
  unsigned int Get(unsigned short onu_real_type, unsigned short ability_code, unsigned int& value);
  /// Copies of all profiles of the source (2 is all) of this real type, as by key ability
  /// value; here the source counts.
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short onu_real_type,
                   std::vector<OnuAbilityProfile>& profiles);

  /// Replaces `profiles` with copies of the profiles of the source (2 is all) in
  /// table order. Logs nothing, not even the release of what `profiles` held.
  void GetAll(ONU_ABILITY_ENUM_PROFILE_SOURCE source, std::vector<OnuAbilityProfile>& profiles);
  /// Replaces all profiles by these, unchecked and in this order: a host puts back
  /// what it kept. Logs nothing but the release of what the table held.
  void Restore(std::vector<OnuAbilityProfile> profiles);

  /// From now on lookups may take short ways. For the table's owner alone, and for a
  /// table whose profiles nobody but itself can change: not one of a derived class of
  /// the host's, which reaches them.
  /// REQUIRES: the table is new and empty.
  ONU_ABILITY_LOCAL void KeepIndex();

 protected:
  CMutexLock _mutex;  ///< the table's lock
  /// The profiles in insertion order. Changed under the guard, too, but for bind counts, which
  /// nobody reads without the lock; read with the lock or with it.
  std::vector<OnuAbilityProfile> _vec_profile ONU_ABILITY_GUARDED_BY(_mutex);
  const unsigned short _key_ability_code;  ///< the registry's at construction, never refreshed

  /// @{
  /// The newest profile that qualifies, or null.
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindByCode(unsigned short code, unsigned int value)
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindByCode(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                  unsigned short code, unsigned int value)
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindByRealType(unsigned short onu_real_type)
      ONU_ABILITY_REQUIRES(_mutex);
  /// @}

  /// Where a profile of the table stands in it.
  unsigned int PositionOf(const OnuAbilityProfile& profile) const ONU_ABILITY_REQUIRES(_mutex) {
    return static_cast<unsigned int>(&profile - _vec_profile.data());
  }

  /// Whether a profile of the source has the id.
  ONU_ABILITY_LOCAL bool IsTaken(ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned short id) const
      ONU_ABILITY_REQUIRES(_mutex);
  /// Gives the profile its new id once more, if the manager gave it one: with the lock held
  /// from here to Append no other profile of its source can get the same.
  ONU_ABILITY_LOCAL void RenewId(OnuAbilityProfile& profile) const ONU_ABILITY_REQUIRES(_mutex);
  /// @{
  /// How a table adds and removes, so that the index stays right and whoever reads without
  /// the lock sees the table before or after.
  ONU_ABILITY_LOCAL void Append(const OnuAbilityProfile& profile) ONU_ABILITY_REQUIRES(_mutex)
      ONU_ABILITY_EXCLUDES(_contents);
  ONU_ABILITY_LOCAL void Erase(std::vector<OnuAbilityProfile>::reverse_iterator profile)
      ONU_ABILITY_REQUIRES(_mutex) ONU_ABILITY_EXCLUDES(_contents);
  /// @}

  /// The index, null in a table that walks.
  ONU_ABILITY_LOCAL ProfileIndex* Index() const ONU_ABILITY_REQUIRES_SHARED(_mutex);
  /// @{
  /// The index by the values of a code where a walk over them may be left out, else
  /// null. The second one also says that there is no irregular profile in the table.
  ONU_ABILITY_LOCAL const ValueIndex* ShortWayBy(unsigned short code) const
      ONU_ABILITY_REQUIRES_SHARED(_mutex);
  ONU_ABILITY_LOCAL const ValueIndex* RegularShortWayBy(unsigned short code) const
      ONU_ABILITY_REQUIRES_SHARED(_mutex);
  /// @}
  /// The newest of the source (2 is all) that holds the number, or kNoPosition.
  ONU_ABILITY_LOCAL unsigned int NewestFrom(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                            const ValueIndex& index, unsigned int number) const
      ONU_ABILITY_REQUIRES_SHARED(_mutex);
  /// The oldest of exactly this source that holds it, or null.
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindOldest(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                  const ValueIndex& index, unsigned int number)
      ONU_ABILITY_REQUIRES(_mutex);

  /// The guard below the lock.
  mutable ReaderWriterGuard _contents ONU_ABILITY_TAKEN_AFTER(_mutex);

 private:
  // Whoever holds the guard may read as if the lock were held: changes need both.
  void ContentsAreReadable() const ONU_ABILITY_REQUIRES_SHARED(_contents)
      ONU_ABILITY_SAYS_SHARED(_mutex) {}
  template <typename Change>
  ONU_ABILITY_LOCAL void ChangeIndex(Change change) ONU_ABILITY_REQUIRES(_mutex, _contents);
  ONU_ABILITY_LOCAL void RebuildIndex() ONU_ABILITY_REQUIRES(_mutex, _contents);
  ONU_ABILITY_LOCAL void EraseFrom(ONU_ABILITY_ENUM_PROFILE_SOURCE source)
      ONU_ABILITY_REQUIRES(_mutex) ONU_ABILITY_EXCLUDES(_contents);
  // Gives a profile of the table the abilities of its draft, which stored a value of
  // `code`; the draft is left with those that the profile had.
  ONU_ABILITY_LOCAL void TakeOver(OnuAbilityProfile& stored, OnuAbilityProfile& draft,
                                  unsigned short code) ONU_ABILITY_REQUIRES(_mutex)
      ONU_ABILITY_EXCLUDES(_contents);
  ONU_ABILITY_LOCAL unsigned short NewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) const
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL unsigned short FindNewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) const
      ONU_ABILITY_REQUIRES(_mutex);
  // A profile's own value of a code, as its Get gives it.
  ONU_ABILITY_LOCAL unsigned int Read(const OnuAbilityProfile& profile, unsigned short code,
                                      unsigned int& value) ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL unsigned int Read(const OnuAbilityProfile& profile, unsigned short code,
                                      std::string& value) ONU_ABILITY_REQUIRES(_mutex);
  template <typename Value>
  ONU_ABILITY_LOCAL bool AddToOldest(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                     unsigned int key_ability_value, unsigned short ability_code,
                                     const Value& value) ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL OnuAbilityProfile* FindOldestByKey(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                                       unsigned int key_ability_value)
      ONU_ABILITY_REQUIRES(_mutex);
  ONU_ABILITY_LOCAL unsigned int CollectByCode(ONU_ABILITY_ENUM_PROFILE_SOURCE source,
                                               unsigned short code, unsigned int value,
                                               std::vector<OnuAbilityProfile>& profiles);
  ONU_ABILITY_LOCAL static unsigned int CopyOut(const OnuAbilityProfile* found,
                                                OnuAbilityProfile& profile);

  // Null in a table that always walks; not looked at while it is not whole. Changed and
  // read as the profiles, but for what questions under the lock leave in it.
  std::unique_ptr<ProfileIndex> _index ONU_ABILITY_GUARDED_BY(_mutex);
  bool _is_index_whole ONU_ABILITY_GUARDED_BY(_mutex) = true;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_TABLE_BASE_H
