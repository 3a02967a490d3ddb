// The most recent log lines, for an operator to look at: the newest thousand.
//
// A line that only repeats the one before is counted there instead of kept again,
// because one listing can cause hundreds of the same line, and these would push out
// what was worth keeping. Texts are cut, so that the ring's memory has a bound.
//
// Safe from any thread.
#ifndef OLT_HOST_PLATFORM_LOG_RING_H
#define OLT_HOST_PLATFORM_LOG_RING_H

#include <chrono>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace olt_host {

struct LogLine {
  std::chrono::system_clock::time_point when;  // it came, the last time
  unsigned int level = 0;
  unsigned int module_id = 0;
  std::string text;
  unsigned int times = 1;  // it came one after the other
};

class LogRing {
 public:
  static constexpr std::size_t kLines = 1000;
  static constexpr std::size_t kTextBytes = 500;

  void Add(LogLine line);

  // The newest `count` lines, or as many as there are, the oldest of them first.
  std::vector<LogLine> Newest(std::size_t count) const;

 private:
  mutable std::mutex _mutex;
  std::deque<LogLine> _lines;
};

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_LOG_RING_H
