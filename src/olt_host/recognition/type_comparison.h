// How two ONU types differ, ability by ability.
#ifndef OLT_HOST_RECOGNITION_TYPE_COMPARISON_H
#define OLT_HOST_RECOGNITION_TYPE_COMPARISON_H

#include <cstdint>
#include <vector>

#include "recognition/ability_names.h"
#include "recognition/real_types.h"

namespace olt_host {

struct AbilityDifference {
  NamedAbility ability;
  const ONU_ABILITY_COMMON_ABILITY_VALUE* a = nullptr;  // null: not held
  const ONU_ABILITY_COMMON_ABILITY_VALUE* b = nullptr;
  // Whether queries read the same: an absent number is 0, an absent text is not "".
  bool same = false;
};

// Every ability that one of them holds, by code. The values are those of `a` and `b`, which
// must outlive the result.
std::vector<AbilityDifference> CompareTypes(const RealType& a, const RealType& b,
                                            const AbilityNames& names);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_TYPE_COMPARISON_H
