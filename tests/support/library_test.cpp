#include <algorithm>
#include <iterator>

#include "recording_host.h"

namespace {

unsigned int tests_started = 0;

// A function of its own because FAIL() returns, which a constructor cannot; a
// fatal failure in the constructor keeps the test's body from running.
void RefuseSecondTest() {
  if (++tests_started > 1) {
    FAIL() << "a second test in one process would find the leftovers of the first: run the tests "
              "with ctest or with --separate-processes";
  }
}

bool IsSevere(const LogLine& line) { return line.level == 0 || line.level == 13; }

}  // namespace

LibraryTest::LibraryTest() { RefuseSecondTest(); }

void LibraryTest::TearDown() {
  EXPECT_EQ(0U, host.locks_held()) << "a mutex is still locked";
  EXPECT_EQ(0U, host.blocks_in_use()) << "a block of bep_callocEx was not released";
  std::vector<LogLine> stray;
  std::copy_if(host.log_.begin(), host.log_.end(), std::back_inserter(stray), IsSevere);
  EXPECT_EQ(std::vector<LogLine>(), stray) << "lines that the test did not expect";
}
