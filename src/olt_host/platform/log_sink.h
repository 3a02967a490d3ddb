// Where the host's log lines go: the lines of the library, which arrive through
// ulogPrintf, and the host's own. One text line each:
//
//   2026-11-21 13:20:11.123 level 0 module 19 find null! func:Get,line:12
//
// Safe from any thread. Before OpenLog the lines of levels 0 and 13 go to
// standard error.
#ifndef OLT_HOST_PLATFORM_LOG_SINK_H
#define OLT_HOST_PLATFORM_LOG_SINK_H

#include <string>

namespace olt_host {

struct LogSettings {
  // Lines are added to this file; empty is standard error.
  std::string file;
  // Bit n is level n. By default what an operator needs: rejected input (0),
  // null pointers and profiles that cannot be packed or unpacked (13).
  unsigned int mask = (1U << 0) | (1U << 13);
};

// Directs all further lines, and tells the library which levels are listened
// to, so that the others cost nothing. Call it at start-up, before other threads
// log. Throws std::runtime_error, the log as it was, when the file cannot be
// opened.
void OpenLog(const LogSettings& settings);

// A line of the host itself, as module 0.
void LogHostLine(unsigned int level, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_LOG_SINK_H
