// Brings the library up inside this process, in the order that it asks for.
#ifndef OLT_HOST_STARTUP_H
#define OLT_HOST_STARTUP_H

#include "catalogue/catalogue.h"

namespace olt_host {

// The host's number in log lines, and the node of the library's commands.
constexpr unsigned int kModuleId = 19;
constexpr unsigned int kCommandNode = 26;

// The library at work: made once a process, from the main thread, while no other
// thread uses the library.
class RunningLibrary {
 public:
  // Hooks, module id, command node and common types; the tables; the catalogue;
  // the command line. Throws LoadError, or std::runtime_error for a command that
  // cannot be installed.
  explicit RunningLibrary(const Catalogue& catalogue);
  // Releases the tables, which the library itself leaves alone at its end.
  ~RunningLibrary();
  RunningLibrary(const RunningLibrary&) = delete;
  RunningLibrary& operator=(const RunningLibrary&) = delete;
};

}  // namespace olt_host

#endif  // OLT_HOST_STARTUP_H
