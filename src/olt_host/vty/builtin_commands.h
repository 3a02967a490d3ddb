// The commands of the command line itself: list, find TEXT, help, exit, quit,
// terminal length, exec-timeout, show history. They are installed beside the
// node's other commands, so that abbreviations, help and completion treat all
// alike.
#ifndef OLT_HOST_VTY_BUILTIN_COMMANDS_H
#define OLT_HOST_VTY_BUILTIN_COMMANDS_H

namespace olt_host {

// Does nothing for a node that has them.
void InstallBuiltinCommands(unsigned int node);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_BUILTIN_COMMANDS_H
