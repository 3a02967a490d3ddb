// The services of a host whose own log and command line are not there: it logs to
// standard error what is logged without being asked for, and has no terminal.
#include <cstdarg>
#include <cstdio>

#include "platform/log_sink.h"
#include "ulog.h"
#include "vty.h"

void ulogPrintf(unsigned int /*module_id*/, unsigned int level, const char* format, ...) {
  if (((olt_host::kDefaultLogMask >> level) & 1U) == 0) return;
  std::va_list arguments;
  va_start(arguments, format);
  static_cast<void>(std::vfprintf(stderr, format, arguments));
  va_end(arguments);
}

int vty_out(struct vty* /*vty*/, const char* /*format*/, ...) { return 0; }
int install_element(unsigned int /*node*/, struct cmd_element* /*element*/) { return 0; }
int cl_install_module(const char* /*name*/, int (* /*install*/)(), int (* /*showrun*/)()) {
  return 0;
}

namespace olt_host {
void LogHostLine(unsigned int /*level*/, const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
}
}  // namespace olt_host
