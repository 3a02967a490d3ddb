// Sessions whose lines nobody edits: a pipe, a file of commands.
#ifndef OLT_HOST_CONSOLE_LINE_SESSION_H
#define OLT_HOST_CONSOLE_LINE_SESSION_H

#include <istream>
#include <string>

#include "vty/terminal.h"

namespace olt_host {

// Whether an operator's line asks for nothing: blank, or a remark after '!'.
bool IsRemark(const std::string& line);

// Runs every line of `in` until it or the terminal ends. An error shows its
// line behind "line N: ". Returns 1 when any line failed, 0 otherwise.
int RunLines(std::istream& in, struct vty& terminal);

}  // namespace olt_host

#endif  // OLT_HOST_CONSOLE_LINE_SESSION_H
