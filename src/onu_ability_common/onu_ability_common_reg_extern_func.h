/// @file
/// What the host registers at start-up: the ten hooks through which the library
/// learns about a live ONU, its module id for logging and the command node.
///
/// Register everything before other threads use the library: a confirmation that runs
/// meanwhile may call some hooks as they were and some as they are. Any thread may call
/// any operation at any time.
#ifndef ONU_ABILITY_COMMON_REG_EXTERN_FUNC_H
#define ONU_ABILITY_COMMON_REG_EXTERN_FUNC_H

#include <atomic>

#include "onu_ability_common_global.h"

class ConfirmOnuType;

/// @name The hooks
/// `place` (16 bits) and `onu` (8 bits) are the two values with which the ConfirmOnuType
/// was made. Results are ignored unless said otherwise. Each is called on the thread that
/// calls ConfirmOnuType::Perform, with no lock held, and may call back into the library.
/// @{

/// Id 0: writes the vendor identifier, 4 characters, into a zeroed buffer of 5
/// bytes. 0 is success; after anything else the vendor identifier is not stored.
using ONU_ABILITY_GET_VENDOR_ID_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                        char* vendor_id);
/// Id 1: returns the type that the ONU reported, 32 bits.
using ONU_ABILITY_GET_REPORT_TYPE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu);
/// Id 2: fills the private capability (0 SFU, 1 HGU, 0xFF unknown), given
/// identify setting 3. Left alone it is what hook 6 gave for code 1002, else 0xFF.
using ONU_ABILITY_GET_PRIVATE_CAPABILITY_FUNC = unsigned int (*)(unsigned short place,
                                                                 unsigned char onu,
                                                                 unsigned short setting_3,
                                                                 unsigned char* private_capability);
/// Id 3: lets the host read the whole profile; stage 0 after gathering, 2 after
/// confirmation. The profile is gone once the confirmation's owner destroys it: copy what
/// is to be kept.
using ONU_ABILITY_HAND_OVER_PROFILE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                            unsigned int stage,
                                                            ConfirmOnuType* profile);
/// Id 4: tells the host the confirmed real type, 65535 when the profile has none.
using ONU_ABILITY_SET_REAL_TYPE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                        unsigned short real_type);
/// Id 5: tells the host the reported type after translation.
using ONU_ABILITY_SET_REPORT_TYPE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                          unsigned short report_type);
/// Id 6: fetches the ONU's value of a code; `*value` is preset to 0xFFFFFFFF, which left
/// alone keeps the code out of the report.
using ONU_ABILITY_GET_ABILITY_VALUE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                            unsigned short ability_code,
                                                            unsigned int* value);
/// Id 7: fills identify setting `index`: 0 SFU mode, 1 unused, 2 HGU mode, 3
/// passed to hook 2. Each is preset to 0, which translates no type.
using ONU_ABILITY_GET_IDENTIFY_SETTING_FUNC = unsigned int (*)(unsigned int index,
                                                               unsigned short place,
                                                               unsigned short* setting);
/// Id 8: non-zero to have the ONU's abilities read one by one; with 0 the hooks 6, 2 and
/// 9 are not called.
using ONU_ABILITY_READ_ONE_BY_ONE_FUNC = unsigned int (*)(unsigned short place, unsigned char onu);
/// Id 9: writes the device name, up to `length` (20) characters, into a zeroed
/// buffer of 21 bytes. 0 is success; after anything else no name is stored.
using ONU_ABILITY_GET_DEVICE_NAME_FUNC = unsigned int (*)(unsigned short place, unsigned char onu,
                                                          unsigned int length, char* device_name);
/// @}

/// A registered function, or null: called, compared and assigned as the pointer that it
/// is, in one step for all threads.
template <typename Function>
class OnuAbilityHook {
 public:
  /// Null.
  OnuAbilityHook() = default;
  OnuAbilityHook(const OnuAbilityHook&) = delete;
  OnuAbilityHook& operator=(const OnuAbilityHook&) = delete;
  /// Stores the function for all threads.
  OnuAbilityHook& operator=(Function function) {
    _function.store(function, std::memory_order_release);
    return *this;
  }
  /// The function that was stored last.
  operator Function() const { return _function.load(std::memory_order_acquire); }

 private:
  std::atomic<Function> _function{nullptr};
};

/// The registry of the host's hooks and settings.
class ONU_ABILITY_API OnuAbilityRegExternFunc {
 public:
  /// The singleton, built on first use, destroyed at process exit.
  static OnuAbilityRegExternFunc* GetInstance();

  /// Forgets the hooks; the module id stays.
  virtual ~OnuAbilityRegExternFunc();
  OnuAbilityRegExternFunc(const OnuAbilityRegExternFunc&) = delete;
  OnuAbilityRegExternFunc& operator=(const OnuAbilityRegExternFunc&) = delete;

  /// Stores `func` as the hook `id` (0 to 9), replacing an earlier one. A null
  /// function is logged at level 13 and not stored; any other id is ignored without a
  /// word.
  void RegisterExternFunc(unsigned short id, void* func);

  /// True when all ten hooks are there.
  bool WhetherExternFuncRegistered() const;

  /// The first argument of every ulogPrintf call, 32 bits; 19 until it is set.
  void SetModuleId(unsigned int module_id);
  /// As onu_ability_get_module_id.
  unsigned int GetModuleId() const;

  /// Sets the vty node under which the commands are installed, 32 bits; 26 unless set
  /// before onu_ability_service_cbb_cli_install_element.
  void SetCmdNode(unsigned int cmd_node) { _cmd_node = cmd_node; }
  /// The node that was set last.
  unsigned int GetCmdNode() const { return _cmd_node; }

  /// @{
  /// Set the types of OnuAbilityGlobalVar, in one step for all threads: what an SFU, or
  /// an HGU, is served as when the identify modes say so. 16 bits, 857 and 762 at first.
  void SetSfuCommonType(unsigned short type);
  void SetHguCommonType(unsigned short type);
  /// @}

  /// @{
  /// The hooks in storage order: id 9 stands between ids 2 and 3, as meant. Null
  /// until registered.
  OnuAbilityHook<ONU_ABILITY_GET_VENDOR_ID_FUNC> _get_vendor_id;
  OnuAbilityHook<ONU_ABILITY_GET_REPORT_TYPE_FUNC> _get_report_type;
  OnuAbilityHook<ONU_ABILITY_GET_PRIVATE_CAPABILITY_FUNC> _get_private_capability;
  OnuAbilityHook<ONU_ABILITY_GET_DEVICE_NAME_FUNC> _get_device_name;
  OnuAbilityHook<ONU_ABILITY_HAND_OVER_PROFILE_FUNC> _hand_over_profile;
  OnuAbilityHook<ONU_ABILITY_SET_REAL_TYPE_FUNC> _set_real_type;
  OnuAbilityHook<ONU_ABILITY_SET_REPORT_TYPE_FUNC> _set_report_type;
  OnuAbilityHook<ONU_ABILITY_GET_ABILITY_VALUE_FUNC> _get_ability_value;
  OnuAbilityHook<ONU_ABILITY_GET_IDENTIFY_SETTING_FUNC> _get_identify_setting;
  OnuAbilityHook<ONU_ABILITY_READ_ONE_BY_ONE_FUNC> _read_one_by_one;
  /// @}

 private:
  OnuAbilityRegExternFunc() = default;

  std::atomic<unsigned int> _cmd_node{26};
};

/// OnuAbilityRegExternFunc::RegisterExternFunc for hosts that pass plain
/// functions: `func` has the hook type of `id` above.
extern "C" ONU_ABILITY_API void onu_ability_register_extern_func(unsigned short id, void* func);

#endif  // ONU_ABILITY_COMMON_REG_EXTERN_FUNC_H
