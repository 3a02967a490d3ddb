// Tests that fail in every way that a test can; reports.sh holds what is said of them.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

TEST(Bad, Passes) { std::puts("nobody asks what a test that passes prints"); }

TEST(Bad, Fails) {
  std::puts("said before the failure");
  ADD_FAILURE() << "this is the failure";
}

TEST(Bad, Crashes) {
  std::puts("said before the crash");
  std::fflush(stdout);
  std::abort();
}

TEST(Bad, EndsTheProcess) { std::exit(0); }

TEST(Bad, EndsTheProcessWithAStatus) { std::exit(7); }

TEST(Bad, Skips) { GTEST_SKIP() << "not here"; }

TEST(Bad, PassesAfterTheOthers) {}

// Passes, and the process that it leaves behind ends with it.
TEST(BadProcess, StaysBehind) {
  if (fork() == 0) {
    for (;;) {
      pause();
    }
  }
}

TEST(BadProcess, Hangs) {
  if (fork() >= 0) {
    for (;;) {
      pause();
    }
  }
}

class OneProcessATest : public ::testing::TestWithParam<int> {
 protected:
  static int tests_seen;
};

int OneProcessATest::tests_seen = 0;

TEST_P(OneProcessATest, SeesNothingOfTheOthers) { EXPECT_EQ(1, ++tests_seen); }

INSTANTIATE_TEST_SUITE_P(Ten, OneProcessATest, ::testing::Range(0, 10));
