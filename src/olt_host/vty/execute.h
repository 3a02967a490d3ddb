// Runs one line of an operator: cuts it into words and filters, finds its
// command, looks whether the operator may run it, calls the handler, and tells
// the operator on the terminal what was wrong.
//
// An error shows its place: the line, a caret under it, then "% Unknown
// command" or another line that starts with "% ". When the line asks a host's
// `show` command for JSON, the error is a JSON document instead:
//
//   {"error": {"message": "Unknown command", "column": 5}}
//
// Columns count characters from 1; what a handler refuses has none.
#ifndef OLT_HOST_VTY_EXECUTE_H
#define OLT_HOST_VTY_EXECUTE_H

#include <functional>
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

// A line without a word, or with a remark ("! text") only, is kBlank. One that
// means no command, that the operator may not run, or whose output has no file to
// go to, is kRefused; nothing is run then. kFailed: the handler refused, or returned
// something else than 0, or threw a std::exception, or the output could not be saved.
CommandResult ExecuteLine(struct vty& terminal, unsigned int node, const std::string& line,
                          const LineEcho& echo = LineEcho());

// Says of the line what ExecuteLine would refuse, and runs nothing. A file to
// save to is not looked for: it may come or go until the line is run.
CommandResult CheckLine(struct vty& terminal, unsigned int node, const std::string& line,
                        const LineEcho& echo = LineEcho());

// What the host does around every command that is run. Either may be empty. What
// they write is not filtered; `after` is called whatever became of the command, and
// what it refuses is shown behind what the handler refused.
struct CommandObserver {
  std::function<void(struct vty&)> before;
  // `may_change`: whether only operators with full access may run the command.
  std::function<void(struct vty&, bool may_change)> after;
};
// Replaces the observer. On the command thread, or before it serves.
void ObserveCommands(CommandObserver observer);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_EXECUTE_H
