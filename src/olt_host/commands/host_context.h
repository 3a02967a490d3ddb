// What the host's own commands work on. One for the process; set up at start
// before any command runs, then used on the command thread only.
#ifndef OLT_HOST_COMMANDS_HOST_CONTEXT_H
#define OLT_HOST_COMMANDS_HOST_CONTEXT_H

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/catalogue_files.h"
#include "commands/operator_register.h"
#include "commands/unconfirmed_change.h"
#include "confirmation/confirmation_statistics.h"
#include "confirmation/confirmed_onus.h"
#include "confirmation/population.h"
#include "session/session_server.h"

namespace olt_host {

struct HostContext {
  std::chrono::system_clock::time_point started = std::chrono::system_clock::now();

  // The catalogue as it was last loaded, and how to read it again.
  CatalogueRequest catalogue_request;
  LoadedCatalogue catalogue;

  // The live ONUs and what became of them; empty without reports.
  std::shared_ptr<const Population> population;
  ConfirmedOnus confirmed;
  ConfirmationStatistics statistics;

  // The sessions, for `who`; null where there are none.
  const SessionServer* sessions = nullptr;

  OperatorRegister operator_register;

  // The change that waits to be confirmed. By this clock it goes back, on the thread that
  // serves the sessions, or where there is none (null) before the next command.
  UnconfirmedChange unconfirmed;
  std::function<UnconfirmedChange::Time()> clock = std::chrono::steady_clock::now;
  CommandThread* commands = nullptr;

  // Where `save` and every change go; empty without --state.
  std::string state_file;
};

HostContext& Host();

// The command node of all commands, and the host's number in log lines.
constexpr unsigned int kCommandNode = 26;
constexpr unsigned int kModuleId = 19;

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_HOST_CONTEXT_H
