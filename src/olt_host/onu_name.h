// How the command line names an ONU: PLACE/ONU, as in 1/2.
#ifndef OLT_HOST_ONU_NAME_H
#define OLT_HOST_ONU_NAME_H

#include <cstdint>
#include <string>

namespace olt_host {

// False, and the numbers unchanged, for anything else.
bool ReadOnuName(const std::string& text, std::uint16_t& place, std::uint8_t& onu);

}  // namespace olt_host

#endif  // OLT_HOST_ONU_NAME_H
