#include "confirmation/duration_histogram.h"

#include <algorithm>

namespace olt_host {

void DurationHistogram::Count(Duration duration) {
  const auto limit = std::lower_bound(kLimits.begin(), kLimits.end(), duration);
  ++_classes[static_cast<std::size_t>(limit - kLimits.begin())];
  ++_count;
  _sum += duration;
  _longest = std::max(_longest, duration);
}

}  // namespace olt_host
