// Why an ONU is not what it was: one sentence for an engineer.
#ifndef OLT_HOST_RECOGNITION_CHANGE_REASON_H
#define OLT_HOST_RECOGNITION_CHANGE_REASON_H

#include <string>

#include "recognition/population_difference.h"

namespace olt_host {

// `1077 "EXAMPLE-SFU"`, or the number alone without a name.
std::string NamedNumber(std::uint32_t number, const std::string& name);

// Of the group's first example.
std::string ReasonOf(const ChangeGroup& group);

// "profile 1077 "A" is tried before 1078 "B", which fits as well, and 2 more do".
std::string ReasonOf(const LuckGroup& group);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CHANGE_REASON_H
