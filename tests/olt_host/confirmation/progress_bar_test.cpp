// The bar that shows how far long work has come.
#include "confirmation/progress_bar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

namespace olt_host_test {
namespace {

class ProgressBarTest : public testing::Test {
 protected:
  olt_host::ProgressBar::Clock Clock() {
    return [this] { return _now; };
  }
  void Wait(int milliseconds) { _now += std::chrono::milliseconds(milliseconds); }

  std::ostringstream _out;
  std::chrono::steady_clock::time_point _now;
};

TEST_F(ProgressBarTest, IsSilentWhereThereIsNoTerminal) {
  {
    olt_host::ProgressBar bar(_out, false, 10, Clock());
    Wait(10000);
    bar.Show(5);
  }
  EXPECT_EQ(_out.str(), "");
}

TEST_F(ProgressBarTest, IsSilentWhileTheWorkIsShort) {
  {
    olt_host::ProgressBar bar(_out, true, 10, Clock());
    Wait(600);
    bar.Show(9);
  }
  EXPECT_EQ(_out.str(), "");
}

TEST_F(ProgressBarTest, ShowsHowFarItIsAndWipesItselfAway) {
  {
    olt_host::ProgressBar bar(_out, true, 10, Clock());
    Wait(800);
    bar.Show(5);
    bar.Show(6);  // too soon to draw again
  }
  EXPECT_EQ(_out.str(), "\r[" + std::string(25, '#') + std::string(25, ' ') + "] 5/10\r\x1b[K");
}

TEST_F(ProgressBarTest, CountsMoreThanAMachineOfThirtyTwoBitsCounts) {
  {
    olt_host::ProgressBar bar(_out, true, 6'000'000'000, Clock());
    Wait(800);
    bar.Show(3'000'000'000);
  }
  EXPECT_EQ(_out.str(), "\r[" + std::string(25, '#') + std::string(25, ' ') +
                            "] 3000000000/6000000000\r\x1b[K");
}

// As a file that is written while it is read.
TEST_F(ProgressBarTest, IsFullWhenMoreIsDoneThanWasToBe) {
  {
    olt_host::ProgressBar bar(_out, true, 10, Clock());
    Wait(800);
    bar.Show(12);
  }
  EXPECT_EQ(_out.str(), "\r[" + std::string(50, '#') + "] 12/10\r\x1b[K");
}

}  // namespace
}  // namespace olt_host_test
