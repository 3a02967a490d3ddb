#include "confirmation/progress_bar.h"

#include <algorithm>
#include <string>
#include <utility>

namespace olt_host {

namespace {

constexpr std::chrono::milliseconds kShortWork{700};
constexpr std::chrono::milliseconds kRedraw{100};
constexpr std::uint64_t kBarWidth = 50;

}  // namespace

ProgressBar::ProgressBar(std::ostream& out, bool is_terminal, std::uint64_t total, Clock clock)
    : _out(out),
      _is_terminal(is_terminal),
      _total(total),
      _clock(std::move(clock)),
      _next(_clock() + kShortWork) {}

ProgressBar::~ProgressBar() {
  if (_drawn) {
    _out << "\r\x1b[K" << std::flush;
  }
}

void ProgressBar::Show(std::uint64_t done) {
  if (!_is_terminal || _total == 0) {
    return;
  }
  const auto now = _clock();
  if (now < _next) {
    return;
  }
  _next = now + kRedraw;
  _drawn = true;
  // What is worked on may have grown meanwhile.
  const auto filled = static_cast<std::size_t>(kBarWidth * std::min(done, _total) / _total);
  _out << "\r[" << std::string(filled, '#') << std::string(kBarWidth - filled, ' ') << "] " << done
       << "/" << _total << _unit << std::flush;
}

}  // namespace olt_host
