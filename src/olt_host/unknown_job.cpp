#include "commands/text_table.h"
#include "commands/unknown_output.h"
#include "exit_status.h"
#include "jobs.h"
#include "standard_output.h"
#include "startup.h"
#include "vty/json_output.h"

namespace olt_host {

int RunUnknownJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const UnknownOptions& options = command_line.unknown;
  WriteToStandardOutput([&](struct vty& terminal) {
    if (options.json) {
      WriteJson(terminal, UnknownOnusJson());
    } else if (options.entries) {
      WriteLines(terminal, UnknownEntries());
    } else {
      WriteUnknownOnus(terminal, options.all, "--all shows them");
    }
  });
  return kExitOk;
}

}  // namespace olt_host
