// Calls the handler of a command that was found: between the observer's calls,
// with its output on the way through the line's filters.
#ifndef OLT_HOST_VTY_HANDLER_CALL_H
#define OLT_HOST_VTY_HANDLER_CALL_H

#include <string>

#include "vty/output_file.h"
#include "vty/parsed_line.h"
#include "vty/terminal.h"

namespace olt_host {

struct HandlerResult {
  unsigned int status = 0;
  // What the handler refused, threw, or the observer refused behind it; empty when
  // nobody did.
  std::string refusal;
};

// `file` takes the output when it was created, else the terminal does.
// REQUIRES: the line has no error.
HandlerResult CallHandler(struct vty& terminal, const ParsedLine& line, OutputFile& file);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_HANDLER_CALL_H
