// Brings the library up inside this process, in the order that it asks for.
#ifndef OLT_HOST_STARTUP_H
#define OLT_HOST_STARTUP_H

#include "catalogue/catalogue.h"

namespace olt_host {

// The host's number in log lines, and the node of the library's commands.
constexpr unsigned int kModuleId = 19;
constexpr unsigned int kCommandNode = 26;

// Hooks, module id, command node and common types; the tables; the catalogue;
// the command line. Once a process. Throws LoadError.
void StartLibrary(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_STARTUP_H
