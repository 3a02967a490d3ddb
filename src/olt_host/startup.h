// Brings the host up inside this process: the files read, the library started in
// the order that it asks for, the commands installed.
#ifndef OLT_HOST_STARTUP_H
#define OLT_HOST_STARTUP_H

#include <memory>

#include "catalogue/catalogue.h"
#include "command_line.h"

namespace olt_host {

// The library at work: made once a process, from the main thread, while no other
// thread uses the library.
class RunningLibrary {
 public:
  // Hooks, module id, command node and common types; the tables; the catalogue;
  // the library's commands. Throws LoadError.
  explicit RunningLibrary(const Catalogue& catalogue);
  // Releases the tables, which the library itself leaves alone at its end.
  ~RunningLibrary();
  RunningLibrary(const RunningLibrary&) = delete;
  RunningLibrary& operator=(const RunningLibrary&) = delete;
};

// Reads the catalogue and the reports into Host(), opens the log, starts the
// library, installs every command and restores the state file. The catalogue and
// the reports are read and checked before the library is touched. Throws
// InputError, LoadError, StateError, or std::runtime_error for a command that
// cannot be installed.
std::unique_ptr<RunningLibrary> StartHost(const CommandLine& command_line);

}  // namespace olt_host

#endif  // OLT_HOST_STARTUP_H
