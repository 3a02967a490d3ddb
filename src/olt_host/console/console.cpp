#include "console/console.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

#include "console/console_commands.h"
#include "console/editor_session.h"
#include "console/line_session.h"
#include "vty/terminal.h"

namespace olt_host {

int RunConsole(unsigned int node) {
  InstallConsoleCommands(node);
  struct vty terminal(node, [](const char* bytes, std::size_t length) {
    return std::fwrite(bytes, 1, length, stdout) == length;
  });
  int result = 0;
  if (isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0) {
    RunEditor(terminal);
  } else {
    result = RunLines(std::cin, terminal);
  }
  const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
  return written ? result : 1;
}

}  // namespace olt_host
