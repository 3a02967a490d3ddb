// The library's records and profiles for the entries of a catalogue.
//
// In the library as in the file three things differ: a code that is not held, the
// wildcard, which is held as 0xFFFFFFFF or the empty text and fits everything, and
// a value, which in a real profile may be an empty text. A real profile does not
// hold the number 0, its default: absent and 0 read alike there.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_PROFILE_H
#define OLT_HOST_CATALOGUE_CATALOGUE_PROFILE_H

#include <vector>

#include "catalogue/catalogue.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// The code records as loading the catalogue makes them: a value for every attribute.
std::vector<ONU_ABILITY_CODE_ATTR_INFO> MakeCodes(const Catalogue& catalogue);

// A default profile without derived totals, and without id unless the entry states
// one, whatever the registry holds.
OnuAbilityProfile MakeProfile(const ProfileEntry& entry, ONU_ABILITY_ENUM_PROFILE_TYPE type,
                              unsigned short key_ability_code);

// The profiles of a table as loading the catalogue into an empty one gives them:
// ids, totals and order.
std::vector<OnuAbilityProfile> MakeTable(const Catalogue& catalogue,
                                         ONU_ABILITY_ENUM_PROFILE_TYPE type);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_PROFILE_H
