// Which profiles fit which value of one code.
#include "short_way_fixture.h"
#include "support/random_numbers.h"

namespace table_test {
namespace {

using Positions = std::vector<unsigned int>;

class PatternColumnTest : public LibraryTest {
 protected:
  void Append(const OnuAbilityProfile& profile) { column.Append(profile, kFePorts, size++); }

  // Every position of the table, so far.
  PositionBits All() const {
    PositionBits bits((size + 63) / 64, ~std::uint64_t{0});
    if (size % 64 != 0) {
      bits.back() = (std::uint64_t{1} << (size % 64)) - 1;
    }
    return bits;
  }

  static Positions PositionsIn(const PositionBits& bits) {
    Positions positions;
    for (unsigned int position = 0; position < 64 * bits.size(); ++position) {
      if ((bits[position / 64] >> (position % 64) & 1U) != 0) {
        positions.push_back(position);
      }
    }
    return positions;
  }

  Positions Fitting(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
    PositionBits bits = All();
    const bool any_left = column.Intersect(value, bits);
    Positions positions = PositionsIn(bits);
    EXPECT_EQ(!positions.empty(), any_left);
    return positions;
  }

  PatternColumn column;
  unsigned int size = 0;
};

TEST_F(PatternColumnTest, ProfilesWithoutTheCodeFitEveryValue) {
  Append(Holding(kGePorts, 4));
  Append(MakeProfile(kMatch));
  for (const auto& value : {Number(4), Number(0), Number(0xFFFFFFFF), Text("text"), Text("")}) {
    EXPECT_EQ((Positions{0, 1}), Fitting(value));
  }
}

TEST_F(PatternColumnTest, NumberFitsItselfAndTheWildcard) {
  Append(Holding(kFePorts, 4));
  Append(Holding(kFePorts, 0));
  Append(Holding(kFePorts, 0xFFFFFFFF));
  Append(Holding(kFePorts, 4));
  EXPECT_EQ((Positions{0, 2, 3}), Fitting(Number(4)));
  EXPECT_EQ((Positions{1, 2}), Fitting(Number(0)));
  EXPECT_EQ((Positions{2}), Fitting(Number(5)));
}

TEST_F(PatternColumnTest, ReportedWildcardFitsEveryNumber) {
  Append(Holding(kFePorts, 4));
  Append(Holding(kFePorts, 0xFFFFFFFF));
  Append(Holding(kFePorts, "text"));
  EXPECT_EQ((Positions{0, 1}), Fitting(Text("other")));
  EXPECT_EQ((Positions{0, 1, 2}), Fitting(Text("text")));
}

TEST_F(PatternColumnTest, TextFitsItselfAndTheEmptyOne) {
  Append(Holding(kFePorts, "abc"));
  Append(Holding(kFePorts, ""));
  Append(Holding(kFePorts, "abcd"));
  EXPECT_EQ((Positions{0, 1}), Fitting(Text("abc", 0)));
  EXPECT_EQ((Positions{1, 2}), Fitting(Text("abcd", 0)));
  EXPECT_EQ((Positions{1}), Fitting(Text("ab", 0)));
}

TEST_F(PatternColumnTest, ReportedEmptyTextFitsEveryText) {
  Append(Holding(kFePorts, "abc"));
  Append(Holding(kFePorts, ""));
  Append(Holding(kFePorts, 4));
  EXPECT_EQ((Positions{0, 1}), Fitting(Text("", 5)));
}

// A value is compared by the stored one's tag: a number carries an empty text, too.
TEST_F(PatternColumnTest, ReportedNumberFitsEveryTextAndAReportedTextItsNumber) {
  Append(Holding(kFePorts, "abc"));
  Append(Holding(kFePorts, 4));
  EXPECT_EQ((Positions{0}), Fitting(Number(5)));
  EXPECT_EQ((Positions{1}), Fitting(Text("xyz", 4)));
}

TEST_F(PatternColumnTest, UnknownTagFitsNothingAndIsTold) {
  Append(Holding(kFePorts, 4));
  EXPECT_FALSE(column.HasUnknownTag());
  Append(HoldingUnknownTag(kFePorts));
  EXPECT_TRUE(column.HasUnknownTag());
  for (const auto& value : {Number(4), Number(0xFFFFFFFF), Text("")}) {
    EXPECT_EQ((Positions{0}), Fitting(value));
  }
}

TEST_F(PatternColumnTest, UnsetEntryIsAnUnknownTag) {
  OnuAbilityProfile pending = MakeProfile(kMatch);
  pending._common_ability.try_emplace(kFePorts);
  Append(pending);
  EXPECT_TRUE(column.HasUnknownTag());
  EXPECT_EQ(Positions(), Fitting(Number(0xFFFFFFFF)));
}

TEST_F(PatternColumnTest, ValueThatNobodyNamesLeavesNothing) {
  Append(Holding(kFePorts, 4));
  Append(Holding(kFePorts, "abc"));
  EXPECT_EQ(Positions(), Fitting(Text("abcd", 5)));
}

TEST_F(PatternColumnTest, IntersectionLeavesOnlyWhatWasThere) {
  for (int i = 0; i < 6; ++i) {
    Append(Holding(kFePorts, 4));
  }
  PositionBits bits = {0x2A};
  EXPECT_TRUE(column.Intersect(Number(4), bits));
  EXPECT_EQ((PositionBits{0x2A}), bits);
  EXPECT_FALSE(column.Intersect(Number(5), bits));
  EXPECT_EQ((PositionBits{0}), bits);
}

TEST_F(PatternColumnTest, CountsThoseThatNameTheValueAndThoseThatFitAny) {
  for (const unsigned int number : {4U, 4U, 5U, 4U}) {
    Append(Holding(kFePorts, number));
  }
  Append(Holding(kGePorts, 4));
  Append(Holding(kFePorts, "abc"));
  EXPECT_EQ(4U, column.CountFitting(Text("other", 4)));
  EXPECT_EQ(2U, column.CountFitting(Text("abc", 6)));
  EXPECT_EQ(1U, column.CountFitting(Text("other", 6)));
}

// Asking must not change a column, and it grows on after it was asked.
TEST_F(PatternColumnTest, GrowsOnAfterItWasAsked) {
  for (unsigned int position = 0; position < 200; ++position) {
    Append(Holding(kFePorts, position % 2));
    Positions even;
    for (unsigned int before = 0; before <= position; before += 2) {
      even.push_back(before);
    }
    ASSERT_EQ(even, Fitting(Text("other", 0))) << position;
  }
}

// A value named at every n-th place: listed where it is rare, bits where it is not,
// and turned from a list to bits where it becomes frequent later.
class PatternColumnSizeTest : public PatternColumnTest,
                              public ::testing::WithParamInterface<unsigned int> {};

TEST_P(PatternColumnSizeTest, RareAndFrequentValuesAreFoundAtEveryPlace) {
  const unsigned int profiles = GetParam();
  for (unsigned int position = 0; position < profiles; ++position) {
    const bool is_rare = position % 61 == 0;
    const bool is_late = position >= profiles / 2;
    Append(is_rare ? Holding(kFePorts, 61) : Holding(kFePorts, is_late ? 2 : 1));
  }
  Positions expected[3];
  for (unsigned int position = 0; position < profiles; ++position) {
    expected[position % 61 == 0 ? 0 : (position >= profiles / 2 ? 2 : 1)].push_back(position);
  }
  EXPECT_EQ(expected[0], Fitting(Text("other", 61)));
  EXPECT_EQ(expected[1], Fitting(Text("other", 1)));
  EXPECT_EQ(expected[2], Fitting(Text("other", 2)));
}

// Held against what a profile itself answers to a report.
TEST_P(PatternColumnSizeTest, FitsWhatTheProfilesThemselvesFit) {
  RandomNumbers random(GetParam());
  std::vector<OnuAbilityProfile> profiles;
  DefineUsualCodes();
  onu_ability_set_log_level_mask(0);
  for (unsigned int position = 0; position < GetParam(); ++position) {
    // Now and then a new value; the same ones again, or none.
    const unsigned int number = random.OneIn(40) ? position : random.Below(4);
    OnuAbilityProfile profile = random.OneIn(4)   ? MakeProfile(kMatch)
                                : random.OneIn(3) ? Holding(kFePorts, "t" + std::to_string(number))
                                                  : Holding(kFePorts, number);
    if (random.OneIn(20)) {
      profile = random.OneIn(2) ? Holding(kFePorts, 0xFFFFFFFF) : Holding(kFePorts, "");
    }
    Append(profile);
    profiles.push_back(profile);
  }
  for (const auto& value : {Number(0), Number(3), Number(0xFFFFFFFF), Number(GetParam() - 1),
                            Text("t1"), Text("t2", 2), Text("", 3), Text("none", 77)}) {
    OnuAbilityProfile report = MakeProfile(kMatch);
    report._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
    report._common_ability[kFePorts] = value;
    Positions expected;
    for (unsigned int position = 0; position < profiles.size(); ++position) {
      if (profiles[position] == report) {
        expected.push_back(position);
      }
    }
    EXPECT_EQ(expected, Fitting(value))
        << value.ability_ushort_value << " '" << value.ability_string_value << "'";
  }
  host.ForgetLog();
}

INSTANTIATE_TEST_SUITE_P(WordBorders, PatternColumnSizeTest,
                         ::testing::Values(1, 2, 63, 64, 65, 127, 128, 129, 1000, 4095, 4096, 4097,
                                           5000));

}  // namespace
}  // namespace table_test
