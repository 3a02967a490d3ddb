// A bar when the work is more than it was thought to be; see also the tests of the writers.
#include "confirmation/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace olt_host_test {
namespace {

TEST(ProgressBarOfGrownWork, IsFullWhenMoreIsDoneThanWasToBe) {
  std::ostringstream out;
  std::chrono::steady_clock::time_point now;
  {
    olt_host::ProgressBar bar(out, true, 10, [&now] { return now; });
    now += std::chrono::seconds(1);
    bar.Show(12);
  }
  EXPECT_EQ(out.str(), "\r[" + std::string(50, '#') + "] 12/10\r\x1b[K");
}

}  // namespace
}  // namespace olt_host_test
