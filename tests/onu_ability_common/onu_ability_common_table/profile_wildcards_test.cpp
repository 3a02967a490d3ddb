// Comparing two numbers or two strings with wildcards.
#include "profile_expectations.h"

namespace {

class ProfileWildcardsTest : public LibraryTest {
 protected:
  ProfileWildcardsTest() { host.ForgetLog(); }

  unsigned int Match(unsigned int value_1, unsigned int value_2) {
    return profile.IsAmbiguousMatch(value_1, value_2);
  }
  unsigned int Match(const std::string& string_1, const std::string& string_2) {
    return profile.IsAmbiguousMatch(string_1, string_2);
  }

  const OnuAbilityProfile profile;
};

TEST_F(ProfileWildcardsTest, NumberMatchesItselfAndTheWildcardOnEitherSide) {
  EXPECT_EQ(Match(kWildcard, 5), 1U);
  EXPECT_EQ(Match(5, kWildcard), 1U);
  EXPECT_EQ(Match(kWildcard, kWildcard), 1U);
  EXPECT_EQ(Match(5, 5), 1U);
  EXPECT_EQ(Match(5, 6), 0U);
}

TEST_F(ProfileWildcardsTest, NoOtherNumberIsAWildcard) {
  EXPECT_EQ(Match(0, 5), 0U);
  EXPECT_EQ(Match(5, 0), 0U);
  EXPECT_EQ(Match(0xFFFF, 5), 0U);
  EXPECT_EQ(Match(5, 0xFFFFFFFEU), 0U);
}

TEST_F(ProfileWildcardsTest, EmptyStringMatchesAnyOnEitherSide) {
  EXPECT_EQ(Match("", "ABC"), 1U);
  EXPECT_EQ(Match("ABC", ""), 1U);
  EXPECT_EQ(Match("", ""), 1U);
}

TEST_F(ProfileWildcardsTest, StringsMatchByLengthAndBytes) {
  EXPECT_EQ(Match("AB", "AB"), 1U);
  EXPECT_EQ(Match("AB", "ABC"), 0U);
  EXPECT_EQ(Match("ABC", "AB"), 0U);
  EXPECT_EQ(Match("AB", "ab"), 0U);
  EXPECT_EQ(Match(std::string("A\0B", 3), std::string("A\0C", 3)), 0U);
  EXPECT_EQ(Match(std::string("A\0B", 3), std::string("A\0B", 3)), 1U);
  EXPECT_EQ(Match(std::string("\0", 1), "A"), 0U) << "a NUL is not the empty string";
}

TEST_F(ProfileWildcardsTest, BothValuesAreLogged) {
  Match(5, kWildcard);
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(5, "value_1:5, value_2:-1")});

  Match("AB", "");
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(5, "string_1:AB, string_2:")});
}

// Meant: the end trace marks the outcome 0.
TEST_F(ProfileWildcardsTest, OnlyAMismatchLogsItsEnd) {
  Match(5, 5);
  Match(kWildcard, 5);
  Match("AB", "AB");
  Match("", "AB");
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "IsAmbiguousMatch"), 4U);
  EXPECT_EQ(EndTraces(log, "IsAmbiguousMatch"), 0U);

  Match(5, 6);
  Match("AB", "ABC");
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "IsAmbiguousMatch"), 2U);
  EXPECT_EQ(EndTraces(log, "IsAmbiguousMatch"), 2U);
}

}  // namespace
