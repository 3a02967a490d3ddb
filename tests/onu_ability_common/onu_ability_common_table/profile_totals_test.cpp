// The sum over an attribute and the size figure of a profile.
#include "profile_expectations.h"

namespace {

class ProfileTotalsTest : public LibraryTest {
 protected:
  ProfileTotalsTest() {
    DefineUsualCodes();
    profile = MakeProfile(kReal);
    host.ForgetLog();
  }

  unsigned int Total(int attribute) {
    host.ForgetLog();
    return profile.GetTotalNum(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute));
  }

  OnuAbilityProfile profile;
};

TEST_F(ProfileTotalsTest, EmptyProfileHasNoLamps) {
  EXPECT_EQ(Total(3), 0U);
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

TEST_F(ProfileTotalsTest, LampTotalAddsTheLowEightBits) {
  profile.UpdateInit(kPowerLamp, 0x1234);
  EXPECT_EQ(Total(3), 0x34U);
}

TEST_F(ProfileTotalsTest, TotalOfAnotherAttributeAddsTheWholeNumber) {
  DefineCode(2000, "BOTH", {{3, 1}, {4, 9}});
  profile.UpdateInit(2000, 0x1234);

  EXPECT_EQ(Total(3), 0x34U);
  EXPECT_EQ(Total(4), 0x1234U);
}

TEST_F(ProfileTotalsTest, AttributeValueMarksACodeAndIsNoWeight) {
  DefineCode(2000, "FIVE_LAMPS", {{3, 5}});
  profile.UpdateInit(2000, 2);

  EXPECT_EQ(Total(3), 2U);
}

TEST_F(ProfileTotalsTest, LampTotalLooksAtTheWholeNumberForZeroAndAddsOnlyItsLowBits) {
  profile.UpdateInit(kPowerLamp, 0x100);
  profile.UpdateInit(1031, 0x203);

  EXPECT_EQ(Total(3), 3U);
}

TEST_F(ProfileTotalsTest, WildcardIsAddedLikeAnyNumber) {
  profile.UpdateInit(kPowerLamp, 0xFFFFFFFFU);
  EXPECT_EQ(Total(3), 0xFFU);

  profile.UpdateInit(kFePorts, 0xFFFFFFFFU);
  profile.UpdateInit(kGePorts, 3);
  EXPECT_EQ(Total(4), 2U) << "the sum has 32 bits";
}

TEST_F(ProfileTotalsTest, SkipsOtherTagsThanNumber) {
  profile._common_ability[kPowerLamp] = Value(3, 4, "four");
  profile._common_ability[1031] = Value(0, 5);

  EXPECT_EQ(Total(3), 0U);
}

TEST_F(ProfileTotalsTest, CountsACodeWhoseAttributeCannotBeRead) {
  // An unknown code reads as attribute value 65535, which is not 0.
  profile.UpdateInit(77, 6);

  EXPECT_EQ(Total(3), 6U);
}

TEST_F(ProfileTotalsTest, LogsEveryAbilityInCodeOrder) {
  profile.UpdateInit(kTypeName, std::string("SFU-4"));
  profile.UpdateInit(kPowerLamp, 0x1234);
  profile.UpdateInit(kPotsPorts, 2);

  Total(3);

  EXPECT_EQ(host.TakeLog({6}),
            (std::vector<LogLine>{Log(6,
                                      "ability_attr_id:3, ability_attr_value:0, ability_code:1020, "
                                      "ability_value_type:2, ability_value:0x0002"),
                                  Log(6,
                                      "ability_attr_id:3, ability_attr_value:1, ability_code:1030, "
                                      "ability_value_type:2, ability_value:0x1234"),
                                  Log(6,
                                      "ability_attr_id:3, ability_attr_value:0, ability_code:1083, "
                                      "ability_value_type:3, ability_value:0x0000")}));
}

TEST_F(ProfileTotalsTest, EveryAttributeReadComesBeforeItsLine) {
  profile.UpdateInit(kPowerLamp, 2);

  Total(3);

  const std::vector<LogLine> log = host.TakeLog({6, 9});
  ASSERT_GE(log.size(), 2U);
  EXPECT_EQ(log.back().level, 6U);
  EXPECT_EQ(log[log.size() - 2],
            Log(9,
                "ability_code is equal!ability_code:1030, ability_name:POWER_LAMP, "
                "ability_attr_id:3, ability_attr_name:LAMP, ability_attr_value:1"));
}

TEST_F(ProfileTotalsTest, SizeOfAnEmptyProfileIsThirty) { EXPECT_EQ(profile.GetSize(), 30U); }

// Meant: the figure follows neither the header nor the strings.
TEST_F(ProfileTotalsTest, SizeOfThreeAbilitiesIsSeventyTwoWhateverTheStringLengths) {
  profile.UpdateInit(kPotsPorts, 2);
  profile.UpdateInit(kTypeName, std::string(500, 'x'));
  profile.UpdateInit(kProfileName, std::string());

  EXPECT_EQ(profile.GetSize(), 72U);
}

TEST_F(ProfileTotalsTest, SizeCountsTheAbilitiesAndNotTheCachedCount) {
  profile.UpdateInit(kPotsPorts, 2);
  profile._common_ability_num = 9;

  EXPECT_EQ(profile.GetSize(), 44U);
}

TEST_F(ProfileTotalsTest, BothFiguresLogStartAndEnd) {
  Total(3);
  profile.GetSize();

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "GetTotalNum"), 1U);
  EXPECT_EQ(EndTraces(log, "GetTotalNum"), 1U);
  EXPECT_EQ(StartTraces(log, "GetSize"), 1U);
  EXPECT_EQ(EndTraces(log, "GetSize"), 1U);
}

}  // namespace
