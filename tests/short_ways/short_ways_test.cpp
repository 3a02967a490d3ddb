// The library with its short ways open against the library with walks only, on random
// operation sequences. Log masks change during a sequence, so that short ways are
// taken, left and taken again.
//
// As a test: a bounded number of sequences, the same in every run. By hand, for as
// long as one likes:
//
//   short_ways_test --seeds 10000 [--from 1]
//
// There are two groups, because the library trusts its code registry only until it
// has handed the records out for direct change, once in a process: sequences that
// never ask for them, and sequences that do.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "sequence.h"

namespace {

constexpr std::uint64_t kSequencesOfOneTest = SEQUENCES_OF_ONE_TEST;

class ShortWaysAndWalks : public ::testing::TestWithParam<unsigned int> {
 protected:
  void ExpectSame(bool records_handed_out) {
    const std::uint64_t first = GetParam() * kSequencesOfOneTest;
    for (std::uint64_t seed = first; seed < first + kSequencesOfOneTest; ++seed) {
      ASSERT_EQ("", RunSequence(seed, records_handed_out));
    }
  }
};

class TrustedRegistry : public ShortWaysAndWalks {};
class RecordsHandedOut : public ShortWaysAndWalks {};

TEST_P(TrustedRegistry, ShortWaysAndWalksAgree) { ExpectSame(false); }
TEST_P(RecordsHandedOut, ShortWaysAndWalksAgree) { ExpectSame(true); }

INSTANTIATE_TEST_SUITE_P(Block, TrustedRegistry, ::testing::Range(0U, 5U));
INSTANTIATE_TEST_SUITE_P(Block, RecordsHandedOut, ::testing::Range(0U, 3U));

// A differing sequence is reported and counted; the run goes on.
int RunByHand(std::uint64_t from, std::uint64_t count) {
  std::uint64_t failures = 0;
  for (std::uint64_t seed = from; seed < from + count && failures < 10; ++seed) {
    for (const bool records_handed_out : {false, true}) {
      const std::string report = RunSequence(seed, records_handed_out);
      if (!report.empty()) {
        ++failures;
        std::cout << report << std::endl;
      }
    }
  }
  std::cout << "sequences from seed " << from << ", at most " << count
            << " of each group: " << failures << " differ" << std::endl;
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  std::uint64_t from = 1;
  std::uint64_t count = 0;
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::strcmp(argv[i], "--seeds") == 0) {
      count = std::strtoull(argv[i + 1], nullptr, 10);
    } else if (std::strcmp(argv[i], "--from") == 0) {
      from = std::strtoull(argv[i + 1], nullptr, 10);
    }
  }
  return count == 0 ? RUN_ALL_TESTS() : RunByHand(from, count);
}
