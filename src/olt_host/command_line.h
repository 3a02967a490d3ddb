// The program's command line: which job to do, on which files, how to show it.
#ifndef OLT_HOST_COMMAND_LINE_H
#define OLT_HOST_COMMAND_LINE_H

#include <optional>
#include <string>

#include "confirmation/result_writer.h"
#include "platform/log_sink.h"

namespace olt_host {

enum class Job { kConfirm, kConsole };

struct CommandLine {
  Job job = Job::kConfirm;
  std::string catalogue;
  std::string reports;  // may be empty for the console
  OutputFormat format = OutputFormat::kTable;
  bool summary_only = false;
  LogSettings log;
};

// What the arguments ask for, or the status with which to exit at once, the help,
// version or usage message having been written.
struct ParsedCommandLine {
  std::optional<CommandLine> command_line;
  int exit_status = 0;
};

ParsedCommandLine ParseCommandLine(int argc, const char* const* argv);

// The mask for a list of levels such as "0,1,13", or "all"; nothing when the
// text is neither.
std::optional<unsigned int> ParseLogLevels(const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_COMMAND_LINE_H
