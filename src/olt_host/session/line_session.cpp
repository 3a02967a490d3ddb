#include "session/line_session.h"

#include "vty/execute.h"

namespace olt_host {

bool IsRemark(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string::npos || line[first] == '!';
}

int RunLines(std::istream& in, struct vty& terminal) {
  bool all_ok = true;
  std::string line;
  for (unsigned long number = 1; terminal.alive() && std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();  // a file with CRLF
    if (IsRemark(line)) continue;
    const LineEcho echo{false, "line " + std::to_string(number) + ": "};
    all_ok = ExecuteLine(terminal, terminal.node(), line, echo).ok() && all_ok;
  }
  return all_ok ? 0 : 1;
}

}  // namespace olt_host
