// Values of abilities as profiles hold them.
#ifndef OLT_HOST_RECOGNITION_ABILITY_VALUE_H
#define OLT_HOST_RECOGNITION_ABILITY_VALUE_H

#include <string>

#include "onu_ability_common_table.h"

namespace olt_host {

inline ONU_ABILITY_COMMON_ABILITY_VALUE Number(unsigned int number) {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = ONU_ABILITY_VALUE_TYPE_USHORT;
  value.ability_ushort_value = number;
  return value;
}

inline ONU_ABILITY_COMMON_ABILITY_VALUE Text(const std::string& text) {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = ONU_ABILITY_VALUE_TYPE_STRING;
  value.ability_string_value = text;
  return value;
}

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_ABILITY_VALUE_H
