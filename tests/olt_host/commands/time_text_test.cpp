#include "commands/time_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace olt_host {
namespace {

using namespace std::chrono_literals;

class TimeText : public testing::Test {
 protected:
  // Two hours east of Greenwich.
  TimeText() {
    setenv("TZ", "TEST-2", 1);
    tzset();
  }
  ~TimeText() override {
    unsetenv("TZ");
    tzset();
  }

  // 2026-11-21 23:00:05.007 in Greenwich.
  const std::chrono::system_clock::time_point time_{1795302005007ms};
};

TEST_F(TimeText, IsLocalForTheEye) {
  EXPECT_EQ(LocalTimeText(time_), "2026-11-22 01:00:05");
  EXPECT_EQ(LocalTimeTextWithMilliseconds(time_), "2026-11-22 01:00:05.007");
}

TEST_F(TimeText, IsUniversalForPrograms) {
  EXPECT_EQ(UtcTimeText(time_), "2026-11-21T23:00:05.007Z");
}

TEST_F(TimeText, DurationsHaveTheTwoLargestUnits) {
  EXPECT_EQ(DurationText(0s), "0s");
  EXPECT_EQ(DurationText(59s), "59s");
  EXPECT_EQ(DurationText(60s), "1m 00s");
  EXPECT_EQ(DurationText(3599s), "59m 59s");
  EXPECT_EQ(DurationText(3600s), "1h 00m");
  EXPECT_EQ(DurationText(24h - 1s), "23h 59m");
  EXPECT_EQ(DurationText(24h), "1d 00h");
  EXPECT_EQ(DurationText(24h * 400), "400d 00h");
}

}  // namespace
}  // namespace olt_host
