// Keeps what operators change: their session's own pending profile around every
// command, and the state file after every command that changed something.
#ifndef OLT_HOST_COMMANDS_OPERATOR_CHANGES_H
#define OLT_HOST_COMMANDS_OPERATOR_CHANGES_H

namespace olt_host {

// Observes the commands from now on. REQUIRES: the library is loaded.
void KeepOperatorChanges();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_OPERATOR_CHANGES_H
