// The name of an ability as log lines and cells print it. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H

#include <string>

#include "onu_ability_common_table/onu_ability_code_info.h"

// Asked from the code registry, whose own log lines so come before the line
// that prints the name; "NULL" for an unknown code.
inline std::string AbilityName(unsigned short code) {
  return OnuAbilityCodeInfo::GetInstance()->Get(code);
}

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
