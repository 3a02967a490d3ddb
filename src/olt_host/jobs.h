// The jobs of the program: what each subcommand does.
#ifndef OLT_HOST_JOBS_H
#define OLT_HOST_JOBS_H

#include "command_line.h"

namespace olt_host {

// Reads and checks every file, starts the library, does the job. Returns the
// exit status; throws std::runtime_error with a message for the user when an
// input cannot be used or the output cannot be written.
int RunJob(const CommandLine& command_line);

}  // namespace olt_host

#endif  // OLT_HOST_JOBS_H
