// The newest profile of a table that a whole report fits, and the profiles that lack the
// key code, to which a comparison leaves an entry.
#include "short_way_fixture.h"

namespace table_test {
namespace {

using Profiles = std::vector<OnuAbilityProfile>;
using Report = std::map<unsigned short, ONU_ABILITY_COMMON_ABILITY_VALUE>;

class PatternIndexTest : public LibraryTest {
 protected:
  void Append(const OnuAbilityProfile& profile) {
    profiles.push_back(profile);
    index.Append(profile);
  }

  // The newest profile that fits; `says` tells whether one would say that it fits
  // nothing.
  unsigned int Newest(const Report& report) {
    std::vector<PatternIndex::Compared> compared;
    for (const auto& [code, value] : report) {
      compared.push_back({code, &value});
    }
    says = index.Prepare(profiles, kKeyValue, compared);
    return index.Newest(compared);
  }

  std::vector<unsigned int> HoldersOf(unsigned short code) const {
    std::vector<unsigned int> holders;
    for (unsigned int position = 0; position < profiles.size(); ++position) {
      if (profiles[position]._common_ability.count(code) != 0) {
        holders.push_back(position);
      }
    }
    return holders;
  }

  // As a table does to those from `oldest` on that lack the code.
  void AddPendingEntries(unsigned short code, unsigned int oldest) {
    const std::vector<unsigned int> lacking = index.Lacking(profiles, code);
    for (const unsigned int position : lacking) {
      if (position >= oldest) {
        profiles[position]._common_ability.try_emplace(code);
      }
    }
    index.Forget(code);
  }

  Profiles profiles;
  PatternIndex index;
  bool says = false;
};

using Positions = std::vector<unsigned int>;

TEST_F(PatternIndexTest, EmptyTableHasNone) {
  EXPECT_EQ(kNoPosition, Newest({}));
  EXPECT_EQ(kNoPosition, Newest({{kFePorts, Number(4)}}));
  EXPECT_FALSE(says);
}

TEST_F(PatternIndexTest, OfSeveralThatFitTheNewestIsFound) {
  for (const unsigned int number : {4U, 5U, 4U, 6U}) {
    Append(Holding(kFePorts, number));
  }
  EXPECT_EQ(2U, Newest({{kFePorts, Number(4)}}));
  EXPECT_EQ(1U, Newest({{kFePorts, Number(5)}}));
  EXPECT_EQ(3U, Newest({{kFePorts, Number(0xFFFFFFFF)}}));
  EXPECT_EQ(kNoPosition, Newest({{kFePorts, Number(7)}}));
}

TEST_F(PatternIndexTest, EveryComparedCodeMustFit) {
  Append(With(Holding(kFePorts, 4), kPotsPorts, 1));
  Append(With(Holding(kFePorts, 5), kPotsPorts, 1));
  Append(With(Holding(kFePorts, 4), kPotsPorts, 2));
  EXPECT_EQ(0U, Newest({{kFePorts, Number(4)}, {kPotsPorts, Number(1)}}));
  EXPECT_EQ(1U, Newest({{kFePorts, Number(5)}, {kPotsPorts, Number(1)}}));
  EXPECT_EQ(2U, Newest({{kFePorts, Number(4)}, {kPotsPorts, Number(2)}}));
  EXPECT_EQ(kNoPosition, Newest({{kFePorts, Number(5)}, {kPotsPorts, Number(2)}}));
}

// Each of four codes alone leaves something, all of them nothing, in whatever order.
TEST_F(PatternIndexTest, WhatEachCodeLeavesMayHaveNothingInCommon) {
  for (const unsigned short wrong : {kFePorts, kGePorts, kPotsPorts, kVendorId}) {
    OnuAbilityProfile profile = MakeProfile(kMatch);
    for (const unsigned short code : {kFePorts, kGePorts, kPotsPorts, kVendorId}) {
      profile.UpdateInit(code, code == wrong ? 9U : 1U);
    }
    Append(profile);
  }
  Report report = {{kFePorts, Number(1)}, {kGePorts, Number(1)}, {kPotsPorts, Number(1)}};
  EXPECT_EQ(3U, Newest(report));
  report[kVendorId] = Number(1);
  EXPECT_EQ(kNoPosition, Newest(report));
}

TEST_F(PatternIndexTest, NothingComparedFitsTheNewest) {
  Append(Holding(kFePorts, 4));
  Append(HoldingUnknownTag(kFePorts));
  EXPECT_EQ(1U, Newest({}));
  EXPECT_FALSE(says);
}

TEST_F(PatternIndexTest, ProfileThatFitsNothingIsToldWhenItsCodeIsCompared) {
  Append(Holding(kFePorts, 4));
  Append(HoldingUnknownTag(kFePorts));
  Newest({{kPotsPorts, Number(4)}});
  EXPECT_FALSE(says);
  Newest({{kFePorts, Number(4)}});
  EXPECT_TRUE(says);
}

// The entry that a comparison adds before it compares has an unknown tag.
TEST_F(PatternIndexTest, ComparedKeyCodeIsToldWhereAProfileLacksIt) {
  Append(Holding(kKeyValue, 7));
  Newest({{kKeyValue, Number(7)}});
  EXPECT_FALSE(says);
  Append(Holding(kFePorts, 4));
  Newest({{kKeyValue, Number(7)}});
  EXPECT_TRUE(says);
  Newest({{kFePorts, Number(7)}});
  EXPECT_FALSE(says);
}

TEST_F(PatternIndexTest, ProfilesJoinTheColumnsThatAreThere) {
  Append(Holding(kFePorts, 4));
  EXPECT_EQ(0U, Newest({{kFePorts, Number(4)}}));
  Append(Holding(kFePorts, 4));
  Append(Holding(kFePorts, 5));
  EXPECT_EQ(1U, Newest({{kFePorts, Number(4)}}));
  EXPECT_EQ(2U, Newest({{kFePorts, Number(5)}}));
  Append(MakeProfile(kMatch));
  EXPECT_EQ(3U, Newest({{kFePorts, Number(4)}}));
  Append(HoldingUnknownTag(kFePorts));
  EXPECT_EQ(3U, Newest({{kFePorts, Number(4)}}));
  EXPECT_TRUE(says);
}

// What was read before answers until it is forgotten.
TEST_F(PatternIndexTest, ForgottenColumnIsMadeAnewAndNoOther) {
  Append(With(Holding(kFePorts, 4), kPotsPorts, 4));
  EXPECT_EQ(0U, Newest({{kFePorts, Number(4)}, {kPotsPorts, Number(4)}}));
  profiles[0].UpdateInit(kFePorts, 5);
  profiles[0].UpdateInit(kPotsPorts, 5);
  EXPECT_EQ(0U, Newest({{kFePorts, Number(4)}, {kPotsPorts, Number(4)}}));
  index.Forget(kFePorts);
  EXPECT_EQ(0U, Newest({{kFePorts, Number(5)}, {kPotsPorts, Number(4)}}));
}

TEST_F(PatternIndexTest, ClearedItIsTheOneOfAnEmptyTable) {
  Append(Holding(kFePorts, 4));
  Append(Holding(kFePorts, 4));
  Newest({{kFePorts, Number(4)}});
  index.Clear();
  profiles.clear();
  EXPECT_EQ(kNoPosition, Newest({{kFePorts, Number(4)}}));
  Append(Holding(kFePorts, 4));
  EXPECT_EQ(0U, Newest({{kFePorts, Number(4)}}));
  EXPECT_EQ(0U, Newest({}));
  AddPendingEntries(kKeyValue, 0);
  EXPECT_EQ((Positions{0}), HoldersOf(kKeyValue));
}

class PatternIndexSizeTest : public PatternIndexTest,
                             public ::testing::WithParamInterface<unsigned int> {};

// Also that no place behind the last profile is ever found.
TEST_P(PatternIndexSizeTest, EveryProfileIsFoundByItsOwnNumber) {
  const unsigned int size = GetParam();
  for (unsigned int position = 0; position < size; ++position) {
    Append(Holding(kFePorts, 10 + position));
  }
  EXPECT_EQ(size - 1, Newest({}));
  EXPECT_EQ(size - 1, Newest({{kFePorts, Number(0xFFFFFFFF)}}));
  EXPECT_EQ(size - 1, Newest({{kPotsPorts, Number(4)}}));
  for (unsigned int position = 0; position < size; position += 1 + size / 200) {
    ASSERT_EQ(position, Newest({{kFePorts, Number(10 + position)}}));
  }
  EXPECT_EQ(size - 1, Newest({{kFePorts, Number(10 + size - 1)}}));
  EXPECT_EQ(kNoPosition, Newest({{kFePorts, Number(10 + size)}}));
}

INSTANTIATE_TEST_SUITE_P(WordBorders, PatternIndexSizeTest,
                         ::testing::Values(1, 63, 64, 65, 128, 4095, 4096, 4097));

class PatternIndexPendingTest : public PatternIndexTest {
 protected:
  // Those at 1, 3 and 4 lack the key code.
  void SetUp() override {
    for (const bool has_key : {true, false, true, false, false}) {
      Append(has_key ? With(Holding(kFePorts, 4), kKeyValue, 7) : Holding(kFePorts, 4));
    }
  }
};

TEST_F(PatternIndexPendingTest, EntriesGoToThoseFromTheHitOn) {
  AddPendingEntries(kKeyValue, 3);
  EXPECT_EQ((Positions{0, 2, 3, 4}), HoldersOf(kKeyValue));
  AddPendingEntries(kKeyValue, 2);
  EXPECT_EQ((Positions{0, 2, 3, 4}), HoldersOf(kKeyValue));
  AddPendingEntries(kKeyValue, 0);
  EXPECT_EQ((Positions{0, 1, 2, 3, 4}), HoldersOf(kKeyValue));
}

TEST_F(PatternIndexPendingTest, LackingAreListedFromTheOldest) {
  EXPECT_EQ((Positions{1, 3, 4}), index.Lacking(profiles, kKeyValue));
  EXPECT_EQ((Positions{0, 1, 2, 3, 4}), index.Lacking(profiles, kRealType));
  EXPECT_EQ(Positions(), index.Lacking(profiles, kFePorts));
}

TEST_F(PatternIndexPendingTest, EntriesShowInTheColumnOfTheKeyCode) {
  Append(With(Holding(kFePorts, 4), kKeyValue, 7));
  Newest({{kKeyValue, Number(7)}});
  AddPendingEntries(kKeyValue, 0);
  EXPECT_EQ(5U, Newest({{kKeyValue, Number(7)}}));
  EXPECT_TRUE(says);
  // Before, each that lacked the code fitted every value.
  EXPECT_EQ(kNoPosition, Newest({{kKeyValue, Number(8)}}));
}

TEST_F(PatternIndexPendingTest, ProfileAppendedLaterGetsOneToo) {
  AddPendingEntries(kKeyValue, 4);
  Append(Holding(kFePorts, 4));
  Append(With(Holding(kFePorts, 4), kKeyValue, 7));
  AddPendingEntries(kKeyValue, 5);
  EXPECT_EQ((Positions{0, 2, 4, 5, 6}), HoldersOf(kKeyValue));
}

TEST_F(PatternIndexPendingTest, AnotherKeyCodeIsLackedByOthers) {
  AddPendingEntries(kKeyValue, 4);
  profiles[2].UpdateInit(kRealType, 70);
  AddPendingEntries(kRealType, 1);
  EXPECT_EQ((Positions{1, 2, 3, 4}), HoldersOf(kRealType));
  EXPECT_EQ(70U, NumberOf(profiles[2], kRealType));
  AddPendingEntries(kKeyValue, 3);
  EXPECT_EQ((Positions{0, 2, 3, 4}), HoldersOf(kKeyValue));
}

// After a walk, or a new value: who lacks the code is looked for again.
TEST_F(PatternIndexPendingTest, EntriesOfAForgottenCodeAreNoLongerMissed) {
  Newest({{kKeyValue, Number(7)}});
  for (OnuAbilityProfile& profile : profiles) {
    profile.UpdateInit(kKeyValue, 8);
  }
  Newest({{kKeyValue, Number(7)}});
  EXPECT_TRUE(says);
  index.Forget(kKeyValue);
  EXPECT_EQ(4U, Newest({{kKeyValue, Number(8)}}));
  EXPECT_FALSE(says);
}

}  // namespace
}  // namespace table_test
