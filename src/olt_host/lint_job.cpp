#include "commands/host_context.h"
#include "commands/text_table.h"
#include "exit_status.h"
#include "jobs.h"
#include "recognition/catalogue_lint.h"
#include "recognition/lint_json.h"
#include "recognition/lint_text.h"
#include "standard_output.h"
#include "startup.h"
#include "vty/json_output.h"

namespace olt_host {

int RunLintJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const LintResult result = LintCatalogue(Host().catalogue.catalogue, Host().population.get());
  WriteToStandardOutput([&](struct vty& terminal) {
    if (command_line.lint.json) {
      WriteJson(terminal, LintJson(result));
    } else {
      WriteLines(terminal, LintText(result, command_line.lint.all, "--all lists everything."));
    }
  });
  return result.Gravest() == Severity::kNote ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
