// Which match profiles a population reaches, by reported types or by abilities.
#ifndef OLT_HOST_RECOGNITION_EXERCISED_PROFILES_H
#define OLT_HOST_RECOGNITION_EXERCISED_PROFILES_H

#include <cstdint>
#include <set>
#include <utility>

#include "confirmation/population.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// A profile of the match table, by source and id.
using ProfileIdentity = std::pair<ONU_ABILITY_ENUM_PROFILE_SOURCE, std::uint16_t>;

// Those that recognise one of the ONUs. REQUIRES: the hooks are registered.
std::set<ProfileIdentity> FindExercised(const Population& population);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_EXERCISED_PROFILES_H
