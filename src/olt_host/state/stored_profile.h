// A profile as a state file keeps it: the bytes that the library's Serialize makes of
// it, and beside them what Serialize leaves out.
#ifndef OLT_HOST_STATE_STORED_PROFILE_H
#define OLT_HOST_STATE_STORED_PROFILE_H

#include "onu_ability_common_table.h"
#include "state/byte_stream.h"

namespace olt_host {

// Throws StateError when the library could not serialise the profile.
void WriteProfile(ByteWriter& writer, const OnuAbilityProfile& profile);

// Reads one back, exactly as it was written, for the table of profiles of `type`. Holds
// every item against what the library keeps in that table; throws StateError. Reads
// from the code registry, changes nothing there.
OnuAbilityProfile ReadProfile(ByteReader& reader, ONU_ABILITY_ENUM_PROFILE_TYPE type);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STORED_PROFILE_H
