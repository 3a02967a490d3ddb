// The two registries as plain values, for reading: a registry that has handed out its
// records searches them for every code from then on.
#ifndef OLT_HOST_CATALOGUE_REGISTRIES_H
#define OLT_HOST_CATALOGUE_REGISTRIES_H

#include <map>
#include <string>
#include <vector>

#include "onu_ability_common_global.h"

namespace olt_host {

// By id. On the command thread.
std::map<unsigned short, std::string> RegisteredAttributes();
// In the order of the registry. On the command thread.
std::vector<ONU_ABILITY_CODE_ATTR_INFO> RegisteredCodes();

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REGISTRIES_H
