#include "jobs.h"

#include <stdexcept>

#include "transport/transports.h"

namespace olt_host {

int RunJob(const CommandLine& command_line) {
  switch (command_line.job) {
    case Job::kConfirm:
      return RunConfirmJob(command_line);
    case Job::kConsole:
    case Job::kServe:
      return RunOperatorJob(command_line);
    case Job::kRun:
      return RunScriptJob(command_line);
    case Job::kAttach:
      return AttachToSocket(command_line.attach_socket);
    case Job::kPassword:
      return RunPasswordJob(command_line);
    case Job::kLint:
      return RunLintJob(command_line);
    case Job::kExplain:
      return RunExplainJob(command_line);
    case Job::kUnknown:
      return RunUnknownJob(command_line);
    case Job::kCapture:
      return RunCaptureJob(command_line);
    case Job::kReplay:
      return RunReplayJob(command_line);
    case Job::kTypes:
      return RunTypesJob(command_line);
    case Job::kGenerate:
      return RunGenerateJob(command_line);
    case Job::kCompare:
      return RunCompareJob(command_line);
    case Job::kDiff:
      return RunDiffJob(command_line);
    case Job::kMerge:
      return RunMergeJob(command_line);
  }
  throw std::logic_error("a job that nobody does");
}

}  // namespace olt_host
