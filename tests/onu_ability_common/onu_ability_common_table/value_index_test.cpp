// Where the numbers of one code are: the positions of numbers, and the chains from
// the newest profile with a number to the oldest.
#include "short_way_fixture.h"
#include "support/random_numbers.h"

namespace table_test {
namespace {

class NumberPositionsTest : public LibraryTest {
 protected:
  NumberPositions positions;
};

TEST_F(NumberPositionsTest, FindsNothingBeforeAnythingIsStored) {
  EXPECT_EQ(kNoPosition, positions.Find(0));
  EXPECT_EQ(kNoPosition, positions.Find(1));
  EXPECT_EQ(kNoPosition, positions.Find(0xFFFFFFFF));
}

TEST_F(NumberPositionsTest, ZeroAndTheWildcardAreNumbersLikeAnyOther) {
  EXPECT_EQ(kNoPosition, positions.Replace(0, 5));
  EXPECT_EQ(5U, positions.Find(0));
  EXPECT_EQ(kNoPosition, positions.Find(0xFFFFFFFF));
  EXPECT_EQ(kNoPosition, positions.Replace(0xFFFFFFFF, 0));
  EXPECT_EQ(0U, positions.Find(0xFFFFFFFF));
  EXPECT_EQ(5U, positions.Find(0));
}

TEST_F(NumberPositionsTest, ReplacingAnswersThePositionBefore) {
  EXPECT_EQ(kNoPosition, positions.Replace(7, 1));
  EXPECT_EQ(1U, positions.Replace(7, 2));
  EXPECT_EQ(2U, positions.Replace(7, 9));
  EXPECT_EQ(9U, positions.Find(7));
}

TEST_F(NumberPositionsTest, OneNumberReplacedOverAndOverHidesNoOther) {
  positions.Replace(1, 100);
  for (unsigned int position = 0; position < 1000; ++position) {
    positions.Replace(2, position);
  }
  EXPECT_EQ(100U, positions.Find(1));
  EXPECT_EQ(999U, positions.Find(2));
  EXPECT_EQ(kNoPosition, positions.Find(3));
}

// Neighbours, whose places touch and wrap around at the end of the block.
TEST_F(NumberPositionsTest, EveryNumberOfARowIsFoundAtEverySize) {
  for (const unsigned int first : {0U, 1U, 70U, 0xFFFFFF80U}) {
    positions.Clear();
    for (unsigned int count = 0; count < 300; ++count) {
      EXPECT_EQ(kNoPosition, positions.Find(first + count));
      EXPECT_EQ(kNoPosition, positions.Replace(first + count, count));
      for (unsigned int stored = 0; stored <= count; ++stored) {
        ASSERT_EQ(stored, positions.Find(first + stored)) << first << " and " << count;
      }
    }
  }
}

TEST_F(NumberPositionsTest, RandomNumbersStayApartWhileTheyGrow) {
  RandomNumbers random(1);
  std::map<unsigned int, unsigned int> expected;
  for (unsigned int position = 0; position < 20000; ++position) {
    const auto number = static_cast<unsigned int>(random.Next());
    const auto [entry, added] = expected.try_emplace(number, kNoPosition);
    ASSERT_EQ(entry->second, positions.Replace(number, position));
    entry->second = position;
  }
  for (const auto& [number, position] : expected) {
    ASSERT_EQ(position, positions.Find(number));
    ASSERT_EQ(expected.count(number + 1) != 0, positions.Find(number + 1) != kNoPosition);
  }
}

TEST_F(NumberPositionsTest, ClearedItStartsAnew) {
  for (unsigned int number = 0; number < 100; ++number) {
    positions.Replace(number, number);
  }
  positions.Clear();
  EXPECT_EQ(kNoPosition, positions.Find(50));
  EXPECT_EQ(kNoPosition, positions.Replace(50, 3));
  EXPECT_EQ(3U, positions.Find(50));
  EXPECT_EQ(kNoPosition, positions.Find(51));
}

class ValueIndexTest : public LibraryTest {
 protected:
  ValueIndex index{kFePorts};

  // From the newest to the oldest.
  std::vector<unsigned int> Chain(unsigned int number) const {
    std::vector<unsigned int> chain;
    for (unsigned int position = index.Newest(number); position != kNoPosition;
         position = index.Older(position)) {
      chain.push_back(position);
    }
    return chain;
  }
};

using Positions = std::vector<unsigned int>;

TEST_F(ValueIndexTest, HoldsNoNumberAtFirst) {
  EXPECT_EQ(kFePorts, index.code());
  EXPECT_EQ(kNoPosition, index.Newest(0));
  EXPECT_TRUE(index.Irregular().empty());
}

TEST_F(ValueIndexTest, ChainsLeadFromTheNewestProfileToTheOldest) {
  for (const unsigned int number : {4U, 0U, 4U, 0xFFFFFFFFU, 0U, 4U, 8U}) {
    index.Append(Holding(kFePorts, number));
  }
  EXPECT_EQ((Positions{5, 2, 0}), Chain(4));
  EXPECT_EQ((Positions{4, 1}), Chain(0));
  EXPECT_EQ((Positions{3}), Chain(0xFFFFFFFF));
  EXPECT_EQ((Positions{6}), Chain(8));
  EXPECT_EQ(Positions(), Chain(5));
  EXPECT_TRUE(index.Irregular().empty());
}

TEST_F(ValueIndexTest, ProfilesWithoutTheCodeOrWithAnotherTagAreListedOldestFirst) {
  index.Append(Holding(kFePorts, 4));
  index.Append(Holding(kGePorts, 4));
  index.Append(Holding(kFePorts, 4));
  index.Append(Holding(kFePorts, "4"));
  index.Append(HoldingUnknownTag(kFePorts));
  index.Append(Holding(kFePorts, 4));
  EXPECT_EQ((Positions{1, 3, 4}), index.Irregular());
  EXPECT_EQ((Positions{5, 2, 0}), Chain(4));
}

// A string and an unset entry carry a number, too: the default value.
TEST_F(ValueIndexTest, NumberBesideAnotherTagIsNotIndexed) {
  index.Append(Holding(kFePorts, "text"));
  OnuAbilityProfile pending = MakeProfile(kMatch);
  pending._common_ability.try_emplace(kFePorts);
  index.Append(pending);
  EXPECT_EQ(Positions(), Chain(0xFFFFFFFF));
  EXPECT_EQ((Positions{0, 1}), index.Irregular());
}

TEST_F(ValueIndexTest, ChainsStayWholeOverThousandsOfProfiles) {
  for (unsigned int position = 0; position < 5000; ++position) {
    index.Append(Holding(kFePorts, position % 1000));
  }
  for (unsigned int number = 0; number < 1000; ++number) {
    ASSERT_EQ((Positions{4000 + number, 3000 + number, 2000 + number, 1000 + number, number}),
              Chain(number));
  }
}

TEST_F(ValueIndexTest, ClearedItCountsPositionsFromZeroAgain) {
  index.Append(Holding(kFePorts, 4));
  index.Append(Holding(kGePorts, 4));
  index.Clear();
  EXPECT_EQ(kNoPosition, index.Newest(4));
  EXPECT_TRUE(index.Irregular().empty());
  index.Append(Holding(kFePorts, 4));
  EXPECT_EQ((Positions{0}), Chain(4));
}

}  // namespace
}  // namespace table_test
