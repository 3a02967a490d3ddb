// The lines that rebuild what operators made, typed into an empty host.
#ifndef OLT_HOST_COMMANDS_RUNNING_CONFIG_H
#define OLT_HOST_COMMANDS_RUNNING_CONFIG_H

#include <string>
#include <vector>

#include "state/library_state.h"

namespace olt_host {

// Attributes, codes, common types, the profiles of source 1 of both tables in their order,
// the key ability code, the log mask where it is not the default. What no command can express is a
// remark ("! text") at its place.
//
// REQUIRES: the registries hold what `state` says, because the profiles are built beside
// the library as the commands would build them.
std::vector<std::string> RunningConfig(const LibraryState& state);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_RUNNING_CONFIG_H
