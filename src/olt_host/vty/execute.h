// Runs one line of an operator: cuts it into words, finds its command, calls
// the handler, and tells the operator on the terminal what was wrong.
//
// An error shows its place: the line, a caret under it, then "% Unknown
// command" or another line that starts with "% ".
#ifndef OLT_HOST_VTY_EXECUTE_H
#define OLT_HOST_VTY_EXECUTE_H

#include <string>

#include "vty/terminal.h"

namespace olt_host {

// How the line looks on the operator's screen.
struct LineEcho {
  // True when it stands there already, behind a prompt that is `before`; false
  // when an error has to show it, behind `before`.
  bool on_screen = false;
  std::string before = "  ";
};

struct CommandResult {
  enum Kind { kDone, kBlank, kRefused, kFailed } kind = kBlank;
  unsigned int status = 0;  // of kFailed: what the handler returned

  bool ok() const { return kind == kDone || kind == kBlank; }
};

// A line without a word is kBlank, one that means no command kRefused; nothing
// is run then. kFailed: the handler returned something else than 0.
CommandResult ExecuteLine(struct vty& terminal, unsigned int node, const std::string& line,
                          const LineEcho& echo = LineEcho());

}  // namespace olt_host

#endif  // OLT_HOST_VTY_EXECUTE_H
