// Sessions whose lines nobody edits: a pipe, a file of commands.
#ifndef OLT_HOST_SESSION_LINE_SESSION_H
#define OLT_HOST_SESSION_LINE_SESSION_H

#include <cstddef>
#include <istream>
#include <string>

#include "vty/terminal.h"

namespace olt_host {

// A longer line is refused, and nothing of it is run.
constexpr std::size_t kLongestLine = 4096;

// Runs every line of `in` until it or the terminal ends; with `check_only`, says
// what is wrong with the lines and runs none. An error shows its line behind
// "line N: ", and `where` before that. Returns 1 when any line failed or `in` could not be read to
// its end, 0 otherwise.
int RunLines(std::istream& in, struct vty& terminal, bool check_only = false,
             const std::string& where = "");

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_LINE_SESSION_H
