// Capturing and replaying as operators and jobs are told of it.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_CAPTURE_OUTPUT_H
#define OLT_HOST_COMMANDS_CAPTURE_OUTPUT_H

#include <string>

#include "commands/onu_listing.h"
#include "recognition/replay.h"
#include "vty/terminal.h"

namespace olt_host {

// Captures `onus`, of Host().population, to `file` and says so. Throws std::runtime_error
// when it cannot be written.
void WriteCapture(struct vty& terminal, const OnuReports& onus, const std::string& file,
                  bool replace);

void WriteReplay(struct vty& terminal, const ReplayResult& result);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_CAPTURE_OUTPUT_H
