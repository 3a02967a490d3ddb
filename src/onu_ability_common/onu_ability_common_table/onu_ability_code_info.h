/// @file
/// The registry of ability codes: the name and the attribute values of each, and
/// which of them is the key ability code, whose value identifies a profile.
/// Starts without any code and with key ability code 1085.
///
/// Any thread may call any operation at any time, but for Get(): each operation is one
/// step for the others, a change included, and so is the change that reading an
/// attribute may be (see Get). When the memory does not suffice, an operation throws
/// std::bad_alloc: the registry is then as before or as after.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_CODE_INFO_H
#define ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_CODE_INFO_H

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "onu_ability_common_global/reader_writer_guard.h"

class AbilityCodeIndex;
class NameText;

/// The registry of ability codes.
class ONU_ABILITY_API OnuAbilityCodeInfo {
 public:
  /// The singleton, built on first use, destroyed at process exit.
  static OnuAbilityCodeInfo* GetInstance();

  /// Forgets every record.
  virtual ~OnuAbilityCodeInfo();
  OnuAbilityCodeInfo(const OnuAbilityCodeInfo&) = delete;
  OnuAbilityCodeInfo& operator=(const OnuAbilityCodeInfo&) = delete;

  /// Makes `code` the key ability code; whether it is registered is not checked. A profile
  /// takes the key code over when it is constructed or initialised, a table when it is
  /// constructed. Logs nothing.
  void SetKeyAbilityCode(unsigned short code);
  /// The key ability code. Logs nothing.
  unsigned short GetKeyAbilityCode() const;

  /// The records themselves, in insertion order, for direct change, which nothing
  /// guards: for start-up, before other threads use the library, and worth nothing
  /// after the next operation that adds or removes a record. To read them,
  /// rather copy them (onu_ability_get_all_ability_attr_info), and to put back what
  /// was kept, use Restore: once the records have been handed out, the library has
  /// to expect a change at any moment and searches them for every code from then on.
  /// Logs nothing.
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& Get();
  /// Replaces all records, unchecked and in this order. Logs nothing. Two records with
  /// one code are searched from then on, too.
  void Restore(std::vector<ONU_ABILITY_CODE_ATTR_INFO> records);

  /// 1 when no other code has the record's name and every attribute id of the
  /// record is registered, else 0 (level 0). Any code, and an empty name, will do. Says
  /// each attribute at level 6.
  int IsValid(const ONU_ABILITY_CODE_ATTR_INFO& info);
  /// Adds the record (level 1), or replaces the one with its code in place (level 9); an
  /// invalid record changes nothing (level 0). The outcome shows only in the log.
  void Update(ONU_ABILITY_CODE_ATTR_INFO& info);

  /// 1 (level 6) when a record has this code, else 0 (level 1).
  unsigned int IsExist(unsigned short code);
  /// 1 (level 9) when any record has an entry for this attribute, else 0 (level 1).
  unsigned int IsExist(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);

  /// The code with this name (level 9), 65535 when there is none.
  unsigned short Get(std::string name);
  /// The name of the code (level 9), "NULL" (level 1) when there is none.
  std::string Get(unsigned short code);
  /// The code's value of an attribute, 16 bits (level 9); 65535 when the attribute is not
  /// registered (level 0) or the code is unknown (level 1). A record that lacks the
  /// attribute acquires it here with the value 0.
  unsigned short Get(unsigned short code, ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);

  /// @{
  /// Remove a code. Return 0 (level 9), also for an unknown one (level 1, by name without
  /// a word), or ONU_ABILITY_RET_OPERATE_FAILED while a real profile holds the code
  /// (level 0, by name 4). Match profiles do not hinder it.
  unsigned int Del(unsigned short code);
  unsigned int Del(std::string name);
  /// @}

  /// @{
  /// List on the terminal: every record; the record of a code; the records whose
  /// name contains `text` in upper case. A null `vty` is logged at level 13.
  void Show(void* vty);
  void Show(void* vty, unsigned short code);
  void Show(void* vty, std::string text);
  /// @}

 private:
  // The library's own readers, which are no holders of the records.
  friend class AbilityCodeReader;
  friend class OnuAbilityAttrInfo;
  friend class RegisteredCodes;
  friend void onu_ability_get_all_ability_attr_info(std::vector<ONU_ABILITY_CODE_ATTR_INFO>& out);

  using Records = std::vector<ONU_ABILITY_CODE_ATTR_INFO>;

  ONU_ABILITY_LOCAL OnuAbilityCodeInfo();

  // The first record with the code, or the end.
  ONU_ABILITY_LOCAL Records::const_iterator Find(unsigned short code) const
      ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Records::iterator Find(unsigned short code)
      ONU_ABILITY_REQUIRES(onu_ability_settings_guard);
  // What a new or changed record is judged by: whether another code has its name, and
  // whether all of its attributes are registered.
  ONU_ABILITY_LOCAL bool IsNameTaken(const ONU_ABILITY_CODE_ATTR_INFO& info) const
      ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL bool AreAttributesRegistered(const ONU_ABILITY_CODE_ATTR_INFO& info) const
      ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);
  // Whether a record has an entry for the attribute.
  ONU_ABILITY_LOCAL bool Uses(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) const
      ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);

  // Judges the record once more, since another thread may have been faster than the
  // lines about it. False when it is no longer allowed.
  ONU_ABILITY_LOCAL bool Store(ONU_ABILITY_CODE_ATTR_INFO record)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL void Erase(unsigned short code)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  // Returns how many records it was.
  ONU_ABILITY_LOCAL std::size_t Erase(const std::string& name)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  // The name of the code and its value of an attribute, which it acquires with the
  // value 0 when it lacks it. False for an unknown code.
  ONU_ABILITY_LOCAL bool Acquire(unsigned short code, ONU_ABILITY_ENUM_ABILITY_ATTR_ID id,
                                 NameText& name, unsigned short& value)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL unsigned short Acquire(ONU_ABILITY_CODE_ATTR_INFO& record,
                                           ONU_ABILITY_ENUM_ABILITY_ATTR_ID id)
      ONU_ABILITY_REQUIRES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Records CopyRecords() const ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);

  // Null when it may be out of date.
  ONU_ABILITY_LOCAL inline const AbilityCodeIndex* TrustedIndex() const;
  // To be called after every change.
  ONU_ABILITY_LOCAL void NoteChange(const ONU_ABILITY_CODE_ATTR_INFO& record)
      ONU_ABILITY_REQUIRES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL void NoteRemoval() ONU_ABILITY_REQUIRES(onu_ability_settings_guard);

  Records _vec_ability_attr ONU_ABILITY_GUARDED_BY(onu_ability_settings_guard);
  std::atomic<unsigned short> _key_ability_code{ONU_ABILITY_CODE_DEFAULT_KEY};
  const std::unique_ptr<AbilityCodeIndex> _index;  // read by atomic words
  std::atomic<bool> _unpredictable{false};         // handed out, or a code with two records
  // Counts changes, after each: who notes the count, then reads, sees what comes later.
  std::atomic<unsigned int> _generation{1};
};

/// Replaces `out` with a copy of every record of the registry. Logs nothing.
ONU_ABILITY_API void onu_ability_get_all_ability_attr_info(
    std::vector<ONU_ABILITY_CODE_ATTR_INFO>& out);

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_CODE_INFO_H
