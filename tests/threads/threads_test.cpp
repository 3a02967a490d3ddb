// Many threads in the library at once. As a test: two seconds. By hand, and under the
// thread sanitizer (scripts/check_threads.sh), for as long as one likes:
//
//   threads_test --seconds 60
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "catalogue.h"
#include "storm.h"
#include "thread_safe_host.h"

namespace {

StormReport Storm(std::chrono::milliseconds time) {
  LoadCatalogue();
  StormReport report = RunStorm(time);
  StopAnswering();
  if (LocksHeld() != 0 || WrongUnlocks() != 0) {
    report.violations.emplace_back("a lock is still held, or was given back by another thread");
  }
  if (LinesAnswered() == 0) {
    report.violations.emplace_back("no line was answered with questions");
  }
  return report;
}

TEST(ManyThreads, SeeWhatWasAddedAndNothingHalfDone) {
  const StormReport report = Storm(std::chrono::seconds(2));
  EXPECT_EQ(std::vector<std::string>(), report.violations);
  std::cout << report.summary;
}

int RunByHand(long seconds) {
  if (seconds <= 0) {
    std::cerr << "expected --seconds and a number from 1 on\n";
    return 2;
  }
  const StormReport report = Storm(std::chrono::seconds(seconds));
  for (const std::string& violation : report.violations) {
    std::cout << "violated: " << violation << "\n";
  }
  std::cout << report.summary << report.steps << " steps in " << seconds << " s, " << LinesLogged()
            << " lines logged, " << LinesAnswered()
            << " of them answered with questions: " << report.violations.size() << " violations\n";
  return report.violations.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (argc == 3 && std::strcmp(argv[1], "--seconds") == 0) {
    return RunByHand(std::strtol(argv[2], nullptr, 10));
  }
  return RUN_ALL_TESTS();
}
