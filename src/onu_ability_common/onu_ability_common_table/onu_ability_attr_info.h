/// @file
/// The registry of attribute ids and their names. Every ability code carries one
/// value for each id registered when it was made. Starts empty: the host fills
/// it at start-up.
///
/// Any thread may call any operation at any time: each is one step for the others, a
/// change included. Operations that change it report their outcome only in the log. When the
/// memory does not suffice, an operation throws std::bad_alloc: the registry is then as before
/// or as after.
#ifndef ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_ATTR_INFO_H
#define ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_ATTR_INFO_H

#include <atomic>
#include <map>
#include <string>

#include "onu_ability_common_global.h"
#include "onu_ability_common_global/reader_writer_guard.h"

/// The registry of attributes.
class ONU_ABILITY_API OnuAbilityAttrInfo {
 public:
  /// The singleton, built on first use, destroyed at process exit.
  static OnuAbilityAttrInfo* GetInstance();

  /// Forgets every id.
  virtual ~OnuAbilityAttrInfo();
  OnuAbilityAttrInfo(const OnuAbilityAttrInfo&) = delete;
  OnuAbilityAttrInfo& operator=(const OnuAbilityAttrInfo&) = delete;

  /// 1 when no id has this name, else 0 (level 6). Names compare byte for byte.
  int IsValid(std::string name);
  /// 1 when the id is registered, else 0 (level 1).
  unsigned int IsExist(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);
  /// The name of the id, "NULL" (level 1) when it is not registered.
  std::string Get(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);
  /// The id with this name (level 6), 0 when there is none.
  ONU_ABILITY_ENUM_ABILITY_ATTR_ID Get(std::string name);

  /// Registers the id, any number of 32 bits, unless the name (level 0) or the id (level 9)
  /// is taken. Codes made from now on get an entry for it. Says at level 1 that it does.
  void Add(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name);
  /// Renames the id (level 9), unless any id, this one included, already has the name
  /// (level 0) or the id is not registered (level 1).
  void Update(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, std::string name);
  /// @{
  /// Unregister, unless some ability code has an entry for the id, whatever its
  /// value (level 0), or there is no such id or name (level 1). By name it is said at levels 6
  /// and 9.
  void Del(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);
  void Del(std::string name);
  /// @}

  /// Lists ids and names on the terminal, or in the log, at level 6, when `vty` is null.
  void Show(void* vty);

 private:
  // A new code record gets an entry for every registered id.
  friend struct ONU_ABILITY_CODE_ATTR_INFO;
  friend class AbilityCodeReader;
  friend class OnuAbilityCodeInfo;

  using Names = std::map<ONU_ABILITY_ENUM_ABILITY_ATTR_ID, std::string>;

  OnuAbilityAttrInfo() = default;

  ONU_ABILITY_LOCAL bool Has(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) const
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Names::const_iterator FindName(const std::string& name) const
      ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);
  // What became of a change.
  enum class Outcome { kDone, kNameTaken, kIdTaken, kUnknown, kInUse };

  // Changes, each judged once more: another thread may have been faster than the lines
  // that said what will happen.
  ONU_ABILITY_LOCAL Outcome Insert(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, const std::string& name)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Outcome Rename(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, const std::string& name)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Outcome Erase(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Outcome Erase(const std::string& name)
      ONU_ABILITY_EXCLUDES(onu_ability_settings_guard);
  ONU_ABILITY_LOCAL Outcome Erase(Names::const_iterator entry)
      ONU_ABILITY_REQUIRES(onu_ability_settings_guard);
  // To be called after every change of the ids.
  ONU_ABILITY_LOCAL void NoteIds() ONU_ABILITY_REQUIRES(onu_ability_settings_guard);

  Names _map_ability_attr ONU_ABILITY_GUARDED_BY(onu_ability_settings_guard);
  std::atomic<unsigned int> _low_ids{0};  // bit n: id n, below 32, is registered
};

#endif  // ONU_ABILITY_COMMON_TABLE_ONU_ABILITY_ATTR_INFO_H
