// Goes through the registered ability codes in their order, while they may change: by
// this thread, at whose every step the host may define or delete codes, or by another.
// Like an index that counts up: what is inserted behind it will be met, and of two
// neighbours the second is missed when the first is deleted at its turn. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_REGISTERED_CODES_H
#define ONU_ABILITY_COMMON_TABLE_REGISTERED_CODES_H

#include <cstddef>

#include "onu_ability_common_table/onu_ability_code_info.h"

class RegisteredCodes {
 public:
  RegisteredCodes() : _registry(*OnuAbilityCodeInfo::GetInstance()) {}
  RegisteredCodes(const RegisteredCodes&) = delete;
  RegisteredCodes& operator=(const RegisteredCodes&) = delete;

  // The next code. False behind the last one.
  bool Next(unsigned short& code);
  // Of the record that Next came to: its value of an attribute, which it acquires with
  // the value 0 when it lacks it. 0 when it is gone.
  unsigned short Acquire(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id);

 private:
  void Refill(unsigned int generation);
  // Whether the record that Next came to is where it was.
  bool IsThere() const ONU_ABILITY_REQUIRES_SHARED(onu_ability_settings_guard);

  // Copied some at a time, and again when the registry has changed since.
  static constexpr std::size_t kCopied = 32;

  OnuAbilityCodeInfo& _registry;
  std::size_t _next = 0;  // position
  unsigned short _codes[kCopied] = {};
  std::size_t _first = 0;  // position of the first copied code
  std::size_t _count = 0;
  unsigned int _generation = 0;
};

#endif  // ONU_ABILITY_COMMON_TABLE_REGISTERED_CODES_H
