// Standard output as a terminal, for jobs that print what commands print.
#ifndef OLT_HOST_STANDARD_OUTPUT_H
#define OLT_HOST_STANDARD_OUTPUT_H

#include <functional>

#include "vty/terminal.h"

namespace olt_host {

// Throws std::runtime_error when what std::cout or stdout was given cannot be written.
void FlushStandardOutput();

// Calls `write` with a terminal that is standard output, with plain line breaks. Throws
// std::runtime_error when it cannot be written.
void WriteToStandardOutput(const std::function<void(struct vty& terminal)>& write);

}  // namespace olt_host

#endif  // OLT_HOST_STANDARD_OUTPUT_H
