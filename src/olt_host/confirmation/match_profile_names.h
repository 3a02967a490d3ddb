// The names of all match profiles of a table.
#ifndef OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAMES_H
#define OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAMES_H

#include <cstdint>
#include <vector>

#include "confirmation/match_profile_name.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// Of each of `patterns`, which stand oldest first. Those without a key count as one.
std::vector<MatchProfileName> MatchProfileNames(const std::vector<OnuAbilityProfile>& patterns,
                                                std::uint16_t key_ability_code);

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_MATCH_PROFILE_NAMES_H
