// Where the host's log lines go: the lines of the library, which arrive through
// ulogPrintf, and the host's own. One text line each:
//
//   2026-11-21 13:20:11.123 level 0 module 19 find null! func:Get,line:12
//
// There are two places: a stream (standard error or a file), for which the program's
// arguments choose the levels, and the ring of recent lines, which operators look at
// with "show log". Each has a mask of its own, because a stream on an operator's
// terminal has to keep quiet unless asked for, while the ring disturbs nobody. The
// library is told to speak on every level that either of them listens to.
//
// Safe from any thread. Before OpenLog the lines of levels 0 and 13 go to
// standard error and into the ring.
#ifndef OLT_HOST_PLATFORM_LOG_SINK_H
#define OLT_HOST_PLATFORM_LOG_SINK_H

#include <string>

#include "platform/log_ring.h"

namespace olt_host {

// By default what an operator needs: rejected input (0), null pointers and
// profiles that cannot be packed or unpacked (13).
constexpr unsigned int kDefaultLogMask = (1U << 0) | (1U << 13);

struct LogSettings {
  // Lines are added to this file; empty is standard error.
  std::string file;
  // The levels for the stream, bit n is level n. 0: it stays quiet for good.
  unsigned int mask = kDefaultLogMask;
  // The levels for the ring.
  unsigned int ring_mask = kDefaultLogMask;
};

// Directs all further lines, and tells the library which levels are listened
// to, so that the others cost nothing. What the ring holds stays. Call it at
// start-up, before other threads log. Throws std::runtime_error, the log as it was,
// when the file cannot be opened.
void OpenLog(const LogSettings& settings);

// Changes the levels while the host runs: of the ring, and of the stream as well
// unless it was opened with the mask 0. Such a stream was not asked for, and the
// operator's own screen may be what it would write on.
void SetLogMask(unsigned int mask);

// As opened and changed since.
LogSettings CurrentLogSettings();

// Of the process, never emptied.
const LogRing& RecentLogLines();

// A line of the host itself, as module 0.
void LogHostLine(unsigned int level, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_LOG_SINK_H
