// A bar on a terminal that shows how far long work has come. Stays silent where
// nobody looks, and while the work is short.
#ifndef OLT_HOST_CONFIRMATION_PROGRESS_BAR_H
#define OLT_HOST_CONFIRMATION_PROGRESS_BAR_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

namespace olt_host {

class ProgressBar {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  // For `total` steps. Writes to `out` only when that is a terminal.
  ProgressBar(std::ostream& out, bool is_terminal, std::uint64_t total,
              Clock clock = std::chrono::steady_clock::now);
  // Wipes the bar away.
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Shown behind the numbers: " MB". Steps alone without it.
  void SetUnit(std::string unit) { _unit = std::move(unit); }

  // `done` steps are behind.
  void Show(std::uint64_t done);

 private:
  std::ostream& _out;
  bool _is_terminal;
  std::uint64_t _total;
  Clock _clock;
  std::string _unit;
  std::chrono::steady_clock::time_point _next;  // not drawn again before
  bool _drawn = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_PROGRESS_BAR_H
