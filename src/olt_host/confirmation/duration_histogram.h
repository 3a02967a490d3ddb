// Durations counted by classes, with their sum and the longest.
#ifndef OLT_HOST_CONFIRMATION_DURATION_HISTOGRAM_H
#define OLT_HOST_CONFIRMATION_DURATION_HISTOGRAM_H

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace olt_host {

class DurationHistogram {
 public:
  using Duration = std::chrono::nanoseconds;

  // The longest duration of each class, ascending. Longer ones are in a class of their own
  // behind them.
  static constexpr std::array<Duration, 12> kLimits = {
      std::chrono::microseconds(10),  std::chrono::microseconds(25),
      std::chrono::microseconds(50),  std::chrono::microseconds(100),
      std::chrono::microseconds(250), std::chrono::microseconds(500),
      std::chrono::milliseconds(1),   std::chrono::microseconds(2500),
      std::chrono::milliseconds(5),   std::chrono::milliseconds(10),
      std::chrono::milliseconds(100), std::chrono::seconds(1)};

  void Count(Duration duration);

  const std::array<std::uint64_t, kLimits.size() + 1>& classes() const { return _classes; }
  std::uint64_t count() const { return _count; }
  Duration sum() const { return _sum; }
  Duration longest() const { return _longest; }

 private:
  std::array<std::uint64_t, kLimits.size() + 1> _classes{};
  std::uint64_t _count = 0;
  Duration _sum{0};
  Duration _longest{0};
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_DURATION_HISTOGRAM_H
