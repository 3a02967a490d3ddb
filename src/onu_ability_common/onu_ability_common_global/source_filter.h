// The rule of every lookup by source. Not for hosts.
#ifndef ONU_ABILITY_COMMON_GLOBAL_SOURCE_FILTER_H
#define ONU_ABILITY_COMMON_GLOBAL_SOURCE_FILTER_H

#include "onu_ability_common_global/ability_values.h"

constexpr bool PassesFilter(ONU_ABILITY_ENUM_PROFILE_SOURCE filter,
                            ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  return filter == ONU_ABILITY_PROFILE_SOURCE_ALL || filter == source;
}

#endif  // ONU_ABILITY_COMMON_GLOBAL_SOURCE_FILTER_H
