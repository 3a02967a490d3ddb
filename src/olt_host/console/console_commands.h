// The console's own commands: list, help, exit and quit. They are installed
// beside the node's other commands, so that abbreviations and completion treat
// all alike.
#ifndef OLT_HOST_CONSOLE_CONSOLE_COMMANDS_H
#define OLT_HOST_CONSOLE_CONSOLE_COMMANDS_H

namespace olt_host {

// Does nothing for a node that has them.
void InstallConsoleCommands(unsigned int node);

}  // namespace olt_host

#endif  // OLT_HOST_CONSOLE_CONSOLE_COMMANDS_H
