// Everything that the library holds, as one value: taken out, compared, changed
// beside the running library, and put back whole.
//
// On the command thread, or before other threads use the library.
#ifndef OLT_HOST_STATE_LIBRARY_STATE_H
#define OLT_HOST_STATE_LIBRARY_STATE_H

#include <map>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

// Copies of a state are whole, but assigning to a profile leaves the target's own key
// ability code where it is, as the library means it: replace profiles, do not assign.
struct LibraryState {
  std::map<unsigned short, std::string> attributes;
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;  // in the registry's order
  unsigned short key_ability_code = ONU_ABILITY_CODE_DEFAULT_KEY;
  unsigned short sfu_common_type = 857;
  unsigned short hgu_common_type = 762;
  std::vector<OnuAbilityProfile> match_profiles;  // of both sources, in table order
  std::vector<OnuAbilityProfile> real_profiles;
};

LibraryState CaptureLibrary();

// Makes the library hold exactly `state`: ids, bind counts and the order of both
// tables included. What is already as wanted is not touched. Throws
// std::runtime_error when the library did not take it; it is as before then.
//
// The tables themselves stay, and with them the key ability code that they took
// when they were made.
void InstallLibrary(const LibraryState& state);

// Whether both hold the same under a code: kind, number and text.
bool SameValue(const ONU_ABILITY_COMMON_ABILITY_VALUE& a,
               const ONU_ABILITY_COMMON_ABILITY_VALUE& b);
// Deep comparison of everything that InstallLibrary sets.
bool SameProfile(const OnuAbilityProfile& a, const OnuAbilityProfile& b);
bool SameState(const LibraryState& a, const LibraryState& b);

bool AnyHolds(const std::vector<OnuAbilityProfile>& profiles, unsigned short code);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_LIBRARY_STATE_H
