#include <stdexcept>

#include "commands/explanation_output.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "exit_status.h"
#include "jobs.h"
#include "standard_output.h"
#include "startup.h"
#include "vty/json_output.h"

namespace olt_host {

int RunExplainJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const ExplainOptions& options = command_line.explain;
  const OnuReport* report = Host().population->Find(options.place, options.onu);
  if (report == nullptr) {
    throw std::runtime_error(command_line.reports + ": " + UnknownOnu(options.place, options.onu));
  }
  const Explanation explanation = ExplainLiveOnu(*report);
  WriteToStandardOutput([&](struct vty& terminal) {
    if (options.json) {
      WriteJson(terminal, ExplanationJson(explanation));
    } else {
      WriteExplanation(terminal, explanation, options.all);
    }
  });
  return kExitOk;
}

}  // namespace olt_host
