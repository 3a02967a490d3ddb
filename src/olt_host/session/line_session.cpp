#include "session/line_session.h"

#include "vty/execute.h"

namespace olt_host {
namespace {

// Reads a line without its break, but no more of it than two bytes beyond the limit, one
// for a CR; the rest is passed over. False at the end.
bool ReadLine(std::istream& in, std::string& line) {
  line.clear();
  char c = 0;
  if (!in.get(c)) return false;
  for (; in && c != '\n'; in.get(c)) {
    if (line.size() <= kLongestLine + 1) line += c;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();  // a file with CRLF
  return true;
}

}  // namespace

int RunLines(std::istream& in, struct vty& terminal, bool check_only, const std::string& where) {
  bool all_ok = true;
  std::string line;
  for (unsigned long number = 1; terminal.alive() && ReadLine(in, line); ++number) {
    const LineEcho echo{false, where + "line " + std::to_string(number) + ": "};
    if (line.size() > kLongestLine) {
      vty_out(&terminal, "%s%% Line too long: the limit is %zu bytes\r\n", echo.before.c_str(),
              kLongestLine);
      all_ok = false;
      continue;
    }
    const CommandResult result = check_only ? CheckLine(terminal, terminal.node(), line, echo)
                                            : ExecuteLine(terminal, terminal.node(), line, echo);
    all_ok = result.ok() && all_ok;
  }
  return all_ok && !in.bad() ? 0 : 1;
}

}  // namespace olt_host
