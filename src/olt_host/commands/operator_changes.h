// Keeps what operators change: their session's own pending profile around every
// command, and the state file after every command that changed something.
#ifndef OLT_HOST_COMMANDS_OPERATOR_CHANGES_H
#define OLT_HOST_COMMANDS_OPERATOR_CHANGES_H

#include <string>

namespace olt_host {

// Brings back what Host().state_file holds, when there is one. REQUIRES: the catalogue
// is loaded. The file is kept by this process from now on. Throws StateError, the library
// as it was; the message names the backup.
void RestoreAtStart();

// Observes the commands from now on. What the library holds at this moment, or after
// RestoreAtStart if that comes later, counts as kept. REQUIRES: the library is loaded.
void KeepOperatorChanges();

// The content of a state file for what the library holds. Throws StateError when the
// catalogue was not taken whole, or a change waits to be confirmed.
std::string EncodeOperatorChanges();

// Writes Host().state_file now. Throws StateError; the operator is to be told of it, and
// is not told again when the command ends.
void KeepNow(std::string content);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_OPERATOR_CHANGES_H
