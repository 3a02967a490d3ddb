/// @file
/// The process-wide settings that are neither registry nor table: the common
/// SFU and HGU types, and the profile that an operator is building. Also the
/// home of three small text utilities.
///
/// The library reads and changes the common types in one step for all threads; a host
/// that has other threads running sets them through OnuAbilityRegExternFunc, not here.
/// The pending profile belongs to the CLI thread.
#ifndef ONU_ABILITY_COMMON_GLOBAL_GLOBAL_VAR_H
#define ONU_ABILITY_COMMON_GLOBAL_GLOBAL_VAR_H

#include <string>

#include "onu_ability_common_global/api.h"

class OnuAbilityProfile;

/// The holder of what is set for the whole process.
class ONU_ABILITY_API OnuAbilityGlobalVar {
 public:
  /// The singleton, built on first use, destroyed at process exit.
  static OnuAbilityGlobalVar* GetInstance();

  /// Leaves the pending profile alone, as meant.
  virtual ~OnuAbilityGlobalVar();
  OnuAbilityGlobalVar(const OnuAbilityGlobalVar&) = delete;
  OnuAbilityGlobalVar& operator=(const OnuAbilityGlobalVar&) = delete;

  /// Copies the text of `src` without its terminator; the caller zeroes `dst`
  /// beforehand. Copies min(length of src modulo 256, maximum) modulo 256 bytes. Neither
  /// pointer may be null. Returns 0; logs nothing.
  static unsigned int char_to_string(char* src, char* dst, unsigned int maximum);

  /// Copies the smaller of `size`, the bytes in `dst`, and the length of `src`, without
  /// a terminator. A null `dst` is logged at level 13 and nothing copied.
  static void BufferCopy(unsigned char* dst, std::string src, unsigned int size);

  /// 1 when every character is a decimal digit, so also for the empty text. Else 0.
  static int IsDigit(std::string text);

  OnuAbilityProfile* _onu_ability_profile = nullptr;  ///< pending profile, null before the first
  unsigned short _sfu_common_type = 857;              ///< type of an SFU not known more closely
  unsigned short _hgu_common_type = 762;              ///< the same for an HGU

 private:
  OnuAbilityGlobalVar() = default;
};

#endif  // ONU_ABILITY_COMMON_GLOBAL_GLOBAL_VAR_H
