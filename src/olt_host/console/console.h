// The operator's console on standard input.
#ifndef OLT_HOST_CONSOLE_CONSOLE_H
#define OLT_HOST_CONSOLE_CONSOLE_H

namespace olt_host {

// Runs the commands of `node` that are typed on standard input, until "exit",
// "quit" or the end of the input. Adds the console's own commands to the node.
//
// On a terminal with a prompt, line editing, history and completion; the result
// is 0 then. Otherwise line by line: an error names its line, the rest is still
// run, and the result is 1 when any line failed or the output could not be
// written. Blank lines and lines that begin with '!' are ignored.
int RunConsole(unsigned int node);

}  // namespace olt_host

#endif  // OLT_HOST_CONSOLE_CONSOLE_H
