// The jobs of the program: what each subcommand does. Each returns the exit
// status, and throws std::runtime_error with a message for the user when an input
// cannot be used or the output cannot be written.
#ifndef OLT_HOST_JOBS_H
#define OLT_HOST_JOBS_H

#include "command_line.h"
#include "confirmation/confirmation_result.h"

namespace olt_host {

// Whichever the command line asks for.
int RunJob(const CommandLine& command_line);

int RunConfirmJob(const CommandLine& command_line);   // confirm
int RunOperatorJob(const CommandLine& command_line);  // console and serve
int RunScriptJob(const CommandLine& command_line);    // run
int RunPasswordJob(const CommandLine& command_line);  // password
int RunLintJob(const CommandLine& command_line);      // lint
int RunExplainJob(const CommandLine& command_line);   // explain
int RunUnknownJob(const CommandLine& command_line);   // unknown
int RunCaptureJob(const CommandLine& command_line);   // capture
int RunReplayJob(const CommandLine& command_line);    // replay
int RunTypesJob(const CommandLine& command_line);     // types
int RunGenerateJob(const CommandLine& command_line);  // generate
int RunCompareJob(const CommandLine& command_line);   // compare
int RunDiffJob(const CommandLine& command_line);      // diff
int RunMergeJob(const CommandLine& command_line);     // merge

// confirm and diff, of JSON lines.
int RunNetworkConfirmJob(const CommandLine& command_line);
int RunNetworkDiffJob(const CommandLine& command_line);

// Confirms the live ONUs of Host(), writes the results and keeps them there.
// REQUIRES: the host is started, with reports.
ConfirmationSummary ConfirmPopulation(OutputFormat format, bool summary_only);

}  // namespace olt_host

#endif  // OLT_HOST_JOBS_H
