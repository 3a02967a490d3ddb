// The attribute registry as a map.
#ifndef OLT_HOST_COMMANDS_REGISTERED_ATTRIBUTES_H
#define OLT_HOST_COMMANDS_REGISTERED_ATTRIBUTES_H

#include <map>
#include <string>

namespace olt_host {

// By id. On the command thread.
std::map<unsigned short, std::string> RegisteredAttributes();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_REGISTERED_ATTRIBUTES_H
