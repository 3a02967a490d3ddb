// Filling a profile with one entry for every registered code.
#include "profile_expectations.h"

namespace {

class ProfileFillByTypeTest : public LibraryTest {
 protected:
  ProfileFillByTypeTest() {
    RegisterAttributes();
    host.ForgetLog();
  }

  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records = OnuAbilityCodeInfo::GetInstance()->Get();
  OnuAbilityProfile real = MakeProfile(kReal);
  OnuAbilityProfile match = MakeProfile(kMatch);
};

TEST_F(ProfileFillByTypeTest, TypeMatchTakesTheCodesWithBitTwoOfTheConfirmType) {
  DefineCode(100, "NEVER", {{1, 0}});
  DefineCode(101, "COMPARED", {{1, 1}});
  DefineCode(102, "ASKED", {{1, 2}});
  DefineCode(103, "BOTH", {{1, 3}});
  DefineCode(104, "OTHER_BITS", {{1, 0xFFFD}});
  DefineCode(105, "ALL_BITS", {{1, 0xFFFF}});

  match.Add(ProfileType(kMatch), kWildcard);

  EXPECT_EQ(ContentOf(match), (Content{{102, NumberEntry(kWildcard)},
                                       {103, NumberEntry(kWildcard)},
                                       {105, NumberEntry(kWildcard)}}));
}

TEST_F(ProfileFillByTypeTest, TypeRealTakesEveryCodeAndStoresZeroThoughItIsTheDefault) {
  DefineUsualCodes();
  host.ForgetLog();

  real.Add(ProfileType(kReal), 0U);

  Content expected;
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    const bool text = record.ability_attr.at(ONU_ABILITY_ATTR_VALUE_TYPE) == 3;
    expected[record.ability_code] = text ? Entry{3, kWildcard, ""} : NumberEntry(0);
  }
  EXPECT_GE(expected.size(), 15U);
  EXPECT_EQ(ContentOf(real), expected);
}

TEST_F(ProfileFillByTypeTest, ArgumentDecidesAndNotTheTypeOfTheProfile) {
  DefineCode(100, "NEVER");
  DefineCode(102, "ASKED", {{1, 2}});

  real.Add(ProfileType(kMatch), 6U);
  EXPECT_EQ(ContentOf(real), (Content{{102, NumberEntry(6)}}));

  match.Add(ProfileType(kReal), 6U);
  EXPECT_EQ(ContentOf(match), (Content{{100, NumberEntry(6)}, {102, NumberEntry(6)}}));
}

TEST_F(ProfileFillByTypeTest, AnyOtherTypeTakesEveryCode) {
  DefineCode(100, "NEVER");

  real.Add(ProfileType(3), 6U);
  EXPECT_EQ(ContentOf(real), (Content{{100, NumberEntry(6)}}));

  match.Add(ProfileType(0), 6U);
  EXPECT_EQ(ContentOf(match), (Content{{100, NumberEntry(6)}}));
}

TEST_F(ProfileFillByTypeTest, HeldCodesAreLeftAlone) {
  DefineCode(100, "HELD");
  DefineCode(101, "NEW");
  real.UpdateInit(100, std::string("x"));

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real), (Content{{100, {3, 0, "x"}}, {101, NumberEntry(6)}}));
}

TEST_F(ProfileFillByTypeTest, StringCodesGetAnEmptyStringBesideTheUnsetNumber) {
  DefineCode(100, "TEXT", {{5, 3}});

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real), (Content{{100, {3, kWildcard, ""}}}));
}

TEST_F(ProfileFillByTypeTest, AnyOtherValueTypeIsKeptAsTheTag) {
  DefineCode(100, "ONE", {{5, 1}});
  DefineCode(101, "SEVEN", {{5, 7}});

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real), (Content{{100, {1, kWildcard, ""}}, {101, {7, kWildcard, ""}}}));
}

TEST_F(ProfileFillByTypeTest, ValueTypeThatCannotBeReadBecomesTheTag) {
  DefineCode(100, "UNTYPED");
  records[0].ability_attr.clear();
  OnuAbilityAttrInfo::GetInstance()->Del(ONU_ABILITY_ATTR_VALUE_TYPE);
  host.ForgetLog();

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real), (Content{{100, {65535, kWildcard, ""}}}));
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id do not exist,ability_attr_id:5"));
  host.ForgetLog();
}

TEST_F(ProfileFillByTypeTest, AbsentConfirmTypeEntersTheRecordAsZeroAndSkipsTheCode) {
  DefineCode(100, "OLD", {{1, 2}});
  records[0].ability_attr.erase(ONU_ABILITY_ATTR_CONFIRM_TYPE);

  match.Add(ProfileType(kMatch), 6U);

  EXPECT_EQ(ContentOf(match), Content{});
  ASSERT_EQ(records[0].ability_attr.count(ONU_ABILITY_ATTR_CONFIRM_TYPE), 1U);
  EXPECT_EQ(records[0].ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE], 0);
}

TEST_F(ProfileFillByTypeTest, ConfirmTypeIsReadFromTheRecordWhetherOrNotItIsRegistered) {
  DefineCode(100, "ASKED", {{1, 2}});
  records[0].ability_attr.erase(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  OnuAbilityAttrInfo::GetInstance()->Del(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  records[0].ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = 2;
  host.ForgetLog();

  match.Add(ProfileType(kMatch), 6U);

  EXPECT_EQ(ContentOf(match), (Content{{100, NumberEntry(6)}}));
}

TEST_F(ProfileFillByTypeTest, WalksTheRegistryInItsOwnOrder) {
  DefineCode(200, "FIRST");
  DefineCode(100, "SECOND");
  host.ForgetLog();

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(host.TakeLog({1}),
            (std::vector<LogLine>{NotHeld(200, "FIRST"), NotHeld(100, "SECOND")}));
}

// Meant: only a derived entry that is written refreshes the count.
TEST_F(ProfileFillByTypeTest, CountStaysStaleWhenNothingIsDerived) {
  DefineCode(100, "A");
  DefineCode(101, "B");

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real).size(), 2U);
  EXPECT_EQ(real._common_ability_num, 0U);
}

TEST_F(ProfileFillByTypeTest, DerivesOnceAtTheEnd) {
  DefineCode(kFePorts, "FE_PORTS", {{4, 3}});
  DefineCode(kGePorts, "GE_PORTS", {{4, 3}});
  host.ForgetLog();

  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(Derivations(host.TakeLog()), 1);
  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(12));
  EXPECT_EQ(ContentOf(real)[kDataUnis], NumberEntry(12));
  EXPECT_EQ(real._common_ability_num, 4U);
}

TEST_F(ProfileFillByTypeTest, EmptyRegistryOnlyDerives) {
  real.Add(ProfileType(kReal), 6U);

  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileFillByTypeTest, LogsItsTraces) {
  DefineCode(100, "A");
  host.ForgetLog();

  real.Add(ProfileType(kReal), 6U);

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 1U);
  EXPECT_EQ(EndTraces(log, "Add"), 1U);
}

}  // namespace
