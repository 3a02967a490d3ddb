// IsEqual: one ability of a profile against a value, without wildcards.
#include "profile_expectations.h"

namespace {

class ProfileValueComparisonTest : public LibraryTest {
 protected:
  // Both hold 2 POTS ports and the type name SFU-4; the match profile is external.
  ProfileValueComparisonTest() {
    DefineUsualCodes();
    for (OnuAbilityProfile* profile : {&real, &match}) {
      profile->UpdateInit(kPotsPorts, 2);
      profile->UpdateInit(kTypeName, std::string("SFU-4"));
    }
    host.ForgetLog();
  }

  OnuAbilityProfile real = MakeProfile(kReal, 0);
  OnuAbilityProfile match = MakeProfile(kMatch, 1);
};

// --- A whole value

TEST_F(ProfileValueComparisonTest, NumberValuesCompareTheirNumbersOnly) {
  EXPECT_EQ(real.IsEqual(kPotsPorts, Value(2, 2, "other")), 1U);
  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{NameAsked(1020, "POTS_PORTS"),
                            Log(9,
                                "get ok!ability_code:1020, ability_name:POTS_PORTS, value_type:2, "
                                "ability_int_value:2, ability_string_value:"),
                            Log(4, "ability_value_1:2, ability_value_2:2")}));

  EXPECT_EQ(real.IsEqual(kPotsPorts, Value(2, 3)), 0U);
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4, "ability_value_1:2, ability_value_2:3")});
}

TEST_F(ProfileValueComparisonTest, StringValuesCompareTheirStringsOnly) {
  EXPECT_EQ(real.IsEqual(kTypeName, Value(3, 12345, "SFU-4")), 1U);
  EXPECT_EQ(real.IsEqual(kTypeName, Value(3, 0, "SFU-")), 0U);
  EXPECT_EQ(real.IsEqual(kTypeName, Value(3, 0, std::string("SFU-4\0", 6))), 0U);

  EXPECT_EQ(host.TakeLog({4})[1], Log(4, "ability_value_1:SFU-4, ability_value_2:SFU-"));
}

TEST_F(ProfileValueComparisonTest, WholeValuesKnowNoWildcard) {
  EXPECT_EQ(match.IsEqual(kPotsPorts, Value(2, kWildcard)), 0U);
  EXPECT_EQ(match.IsEqual(kTypeName, Value(3, 0, "")), 0U);
}

TEST_F(ProfileValueComparisonTest, ValuesOfDifferentTypesDiffer) {
  EXPECT_EQ(real.IsEqual(kPotsPorts, Value(3, 2)), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(),
            Log(0, "value_type is not equal!value_type_1:2, value_type_2:3"));

  EXPECT_EQ(real.IsEqual(kTypeName, Value(2, 0, "SFU-4")), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(),
            Log(0, "value_type is not equal!value_type_1:3, value_type_2:2"));
}

TEST_F(ProfileValueComparisonTest, ValuesOfAnyOtherTypeDifferEvenWhenEqual) {
  real._common_ability[kPotsPorts] = Value(1, 2, "x");

  EXPECT_EQ(real.IsEqual(kPotsPorts, Value(1, 2, "x")), 0U);

  EXPECT_EQ(EndTraces(host.TakeLog(), "IsEqual"), 1U);
}

TEST_F(ProfileValueComparisonTest, AbsentCodeComparesAsTheDefaultNumber) {
  EXPECT_EQ(real.IsEqual(kFePorts, Value(2, 0)), 1U);
  EXPECT_EQ(real.IsEqual(kFePorts, Value(2, 1)), 0U);
  EXPECT_EQ(match.IsEqual(kFePorts, Value(2, kWildcard)), 1U);
  EXPECT_EQ(match.IsEqual(kFePorts, Value(2, 0)), 0U);
  EXPECT_EQ(match.IsEqual(kVendorId, Value(3, kWildcard)), 0U);
  EXPECT_EQ(host.TakeLog({0}),
            std::vector<LogLine>{Log(0, "value_type is not equal!value_type_1:2, value_type_2:3")});
}

// --- A number

TEST_F(ProfileValueComparisonTest, NumberComparesTheHeldNumber) {
  EXPECT_EQ(real.IsEqual(kPotsPorts, 2), 1U);
  EXPECT_EQ(real.IsEqual(kPotsPorts, 3), 0U);
  EXPECT_EQ(host.TakeLog({4}),
            (std::vector<LogLine>{Log(4, "ability_value_1:2, ability_value_2:2"),
                                  Log(4, "ability_value_1:2, ability_value_2:3")}));
  EXPECT_EQ(match.IsEqual(kPotsPorts, kWildcard), 0U) << "no wildcard here";
}

TEST_F(ProfileValueComparisonTest, NumberAgainstAStringCodeIsInvalid) {
  EXPECT_EQ(real.IsEqual(kTypeName, 0), 0U);

  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(0, "value_type invalid!value_type:3"));
}

TEST_F(ProfileValueComparisonTest, NumberAgainstAnAbsentCodeEqualsExactlyTheDefault) {
  EXPECT_EQ(real.IsEqual(kFePorts, 0), 1U);
  EXPECT_EQ(real.IsEqual(kFePorts, 1), 0U);
  EXPECT_EQ(match.IsEqual(kFePorts, kWildcard), 1U);
  EXPECT_EQ(match.IsEqual(kFePorts, 0), 0U);
}

// --- A number and a source

TEST_F(ProfileValueComparisonTest, SourceTwoMatchesAProfileOfAnySource) {
  EXPECT_EQ(real.IsEqual(ProfileSource(2), kPotsPorts, 2), 1U);
  EXPECT_EQ(match.IsEqual(ProfileSource(2), kPotsPorts, 2), 1U);
}

TEST_F(ProfileValueComparisonTest, SourceZeroDoesNotMatchAnExternalProfile) {
  EXPECT_EQ(match.IsEqual(ProfileSource(0), kPotsPorts, 2), 0U);
  EXPECT_EQ(match.IsEqual(ProfileSource(1), kPotsPorts, 2), 1U);
  EXPECT_EQ(real.IsEqual(ProfileSource(0), kPotsPorts, 2), 1U);
  EXPECT_EQ(real.IsEqual(ProfileSource(1), kPotsPorts, 2), 0U);
}

TEST_F(ProfileValueComparisonTest, SourceDoesNotHelpAnotherNumber) {
  EXPECT_EQ(real.IsEqual(ProfileSource(2), kPotsPorts, 3), 0U);
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4, "ability_value_1:2, ability_value_2:3")});

  EXPECT_EQ(real.IsEqual(ProfileSource(2), kTypeName, 0), 0U);
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:3"));
  EXPECT_EQ(real.IsEqual(ProfileSource(2), kFePorts, 0), 1U) << "absent: the default number";
}

// --- A string

TEST_F(ProfileValueComparisonTest, StringComparesTheHeldString) {
  EXPECT_EQ(real.IsEqual(kTypeName, std::string("SFU-4")), 1U);
  EXPECT_EQ(real.IsEqual(kTypeName, std::string("SFU-44")), 0U);
  EXPECT_EQ(real.IsEqual(kTypeName, std::string()), 0U) << "no wildcard here";
  EXPECT_EQ(host.TakeLog({4}),
            (std::vector<LogLine>{Log(4, "ability_value_1:SFU-4, ability_value_2:SFU-4"),
                                  Log(4, "ability_value_1:SFU-4, ability_value_2:SFU-44"),
                                  Log(4, "ability_value_1:SFU-4, ability_value_2:")}));
}

TEST_F(ProfileValueComparisonTest, StringAgainstANumberOrAnAbsentCodeIsInvalid) {
  EXPECT_EQ(real.IsEqual(kPotsPorts, std::string("2")), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(0, "value_type invalid!value_type:2"));

  EXPECT_EQ(real.IsEqual(kVendorId, std::string()), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(0, "value_type invalid!value_type:2"));
}

// --- Traces. Meant: the end trace marks the outcome 0.

TEST_F(ProfileValueComparisonTest, EqualValuesLogNoEnd) {
  real.IsEqual(kPotsPorts, Value(2, 2));
  real.IsEqual(kTypeName, Value(3, 0, "SFU-4"));
  real.IsEqual(kPotsPorts, 2);
  real.IsEqual(ProfileSource(2), kPotsPorts, 2);
  real.IsEqual(kTypeName, std::string("SFU-4"));

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "IsEqual"), 5U);
  EXPECT_EQ(EndTraces(log, "IsEqual"), 0U);
}

TEST_F(ProfileValueComparisonTest, UnequalValuesLogTheirEnd) {
  real.IsEqual(kPotsPorts, Value(2, 3));
  real.IsEqual(kTypeName, Value(3, 0, "x"));
  real.IsEqual(kPotsPorts, 3);
  real.IsEqual(ProfileSource(2), kPotsPorts, 3);
  real.IsEqual(ProfileSource(1), kPotsPorts, 2);
  real.IsEqual(kTypeName, std::string("x"));

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "IsEqual"), 6U);
  EXPECT_EQ(EndTraces(log, "IsEqual"), 6U);
}

TEST_F(ProfileValueComparisonTest, ComparingAnAbsentCodeInsertsNothing) {
  const Content before = ContentOf(real);

  real.IsEqual(kFePorts, Value(2, 0));
  real.IsEqual(kFePorts, 0);
  real.IsEqual(ProfileSource(2), kFePorts, 0);
  real.IsEqual(kFePorts, std::string("x"));

  EXPECT_EQ(ContentOf(real), before);
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:2"));
}

}  // namespace
