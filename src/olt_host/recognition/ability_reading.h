// What a profile says under a code, read as the query functions read it, without their
// log lines: an absent number is 0, and so is the number of a code that holds a text.
// And what a code is called.
#ifndef OLT_HOST_RECOGNITION_ABILITY_READING_H
#define OLT_HOST_RECOGNITION_ABILITY_READING_H

#include <cstdint>
#include <string>

#include "onu_ability_common_table.h"

namespace olt_host {

// Null when the profile does not hold the code.
const ONU_ABILITY_COMMON_ABILITY_VALUE* HeldUnder(const OnuAbilityProfile& profile,
                                                  std::uint16_t code);

std::uint32_t NumberUnder(const OnuAbilityProfile& profile, std::uint16_t code);
// "" when the profile holds no text there.
std::string TextUnder(const OnuAbilityProfile& profile, std::uint16_t code);

// "GE_PORTS"; empty for a code that is not registered.
std::string CodeName(std::uint16_t code);
// The same, with "code 24" instead of nothing.
std::string CodeNameOrNumber(std::uint16_t code);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_ABILITY_READING_H
