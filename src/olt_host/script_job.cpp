#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "commands/host_context.h"
#include "commands/live_onus.h"
#include "exit_status.h"
#include "jobs.h"
#include "session/line_session.h"
#include "standard_output.h"
#include "startup.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

// Errors name the file where there are several.
int RunFile(const std::string& file, const std::string& where, struct vty& terminal,
            bool check_only) {
  if (file == "-") return RunLines(std::cin, terminal, check_only, where);
  errno = 0;
  std::ifstream lines(file);
  if (!lines || lines.peek() == std::ifstream::traits_type::eof()) {
    // Reading sets errno for a folder, which opens like a file.
    if (errno != 0) throw std::runtime_error(file + " cannot be read: " + std::strerror(errno));
  }
  return RunLines(lines, terminal, check_only, where);
}

int RunCommands(const std::vector<std::string>& commands, struct vty& terminal, bool check_only) {
  std::string text;
  for (const std::string& command : commands) text += command + "\n";
  std::istringstream lines(text);
  return RunLines(lines, terminal, check_only);
}

}  // namespace

int RunScriptJob(const CommandLine& command_line) {
  if (command_line.commands.empty() && command_line.command_files.empty()) {
    throw std::runtime_error("nothing to run; expected -c COMMAND or -f FILE");
  }
  const auto library = StartHost(command_line);
  if (Host().population != nullptr && !command_line.check_only) {
    for (const OnuReport& report : Host().population->Onus()) ConfirmLiveOnu(report);
  }
  struct vty terminal(kCommandNode, [](const char* bytes, std::size_t length) {
    return std::fwrite(bytes, 1, length, stdout) == length;
  });
  terminal.settings().origin = "run";
  int failed = RunCommands(command_line.commands, terminal, command_line.check_only);
  for (const std::string& file : command_line.command_files) {
    const std::string where = command_line.command_files.size() > 1 ? file + " " : "";
    failed = RunFile(file, where, terminal, command_line.check_only) | failed;
  }
  FlushStandardOutput();
  return failed == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
