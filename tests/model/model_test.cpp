// The library against its model on random operation sequences.
//
// As a test: a bounded number of sequences, the same in every run. By hand, for
// as long as one likes:
//
//   model_test --seeds 10000 [--from 1]
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

#include "sequence.h"

namespace {

constexpr std::uint64_t kSequencesOfOneTest = SEQUENCES_OF_ONE_TEST;

class LibraryAndModel : public ::testing::TestWithParam<unsigned int> {};

TEST_P(LibraryAndModel, AgreeOnRandomSequences) {
  const std::uint64_t first = GetParam() * kSequencesOfOneTest;
  for (std::uint64_t seed = first; seed < first + kSequencesOfOneTest; ++seed) {
    ASSERT_EQ("", RunSequence(seed));
  }
}

INSTANTIATE_TEST_SUITE_P(Block, LibraryAndModel, ::testing::Range(0U, 8U));

// A differing sequence is reported and counted; the run goes on.
int RunByHand(std::uint64_t from, std::uint64_t count) {
  std::uint64_t failures = 0;
  for (std::uint64_t seed = from; seed < from + count && failures < 10; ++seed) {
    const std::string report = RunSequence(seed);
    if (!report.empty()) {
      ++failures;
      std::cout << report << std::endl;
    }
  }
  std::cout << "sequences from seed " << from << ", at most " << count << ": " << failures
            << " differ" << std::endl;
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
