// What the host learns at the end: the type name, the real type and the
// reported type.
#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeResultsTest : public ConfirmOnuTypeTest {
 protected:
  void Perform() { EXPECT_EQ(onu_.Perform(), ONU_ABILITY_RET_OK); }

  ConfirmOnuType onu_{kPlace, kOnu};
};

// --- The type name.

TEST_F(ConfirmOnuTypeResultsTest, TypeNameComesFromTheRealProfileOfTheKeyValue) {
  AddToTable(Pattern(700, 601));
  OnuAbilityProfile real = MakeRealProfile(700, 999);
  real.Add(1083, std::string("HOME-1"));
  AddToTable(real);
  OnuAbilityProfile same_real_type = MakeRealProfile(701, 601);
  same_real_type.Add(1083, std::string("OTHER"));
  AddToTable(same_real_type);
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_EQ(Text(onu_, 1083), "HOME-1");
  EXPECT_EQ(Text(Hooks().handed_over.back(), 1083), "HOME-1");
}

TEST_F(ConfirmOnuTypeResultsTest, TypeNameReplacesTheDeviceNameOfAnUnrecognisedOnu) {
  OnuAbilityProfile real = MakeRealProfile(700, 601);
  real.Add(1083, std::string("HOME-1"));
  AddToTable(real);
  Hooks().onu.reported_type = 700;
  Hooks().onu.device_name = "DEVICE";
  Perform();
  EXPECT_EQ(Text(Hooks().handed_over.at(0), 1083), "DEVICE");
  EXPECT_EQ(Text(Hooks().handed_over.at(1), 1083), "HOME-1");
}

// No name is the empty name, not the "NULL" that a lookup leaves behind.
TEST_F(ConfirmOnuTypeResultsTest, MissingTypeNameIsLoggedAndEmptiesTheDeviceName) {
  Hooks().onu.reported_type = 700;
  Hooks().onu.device_name = "DEVICE";
  Perform();
  EXPECT_TRUE(host.ClaimLog(4, "get onu type name failed!_key_ability_value:700, ret:0x80000004"));
  ASSERT_TRUE(Holds(onu_, 1083));
  EXPECT_EQ(Text(onu_, 1083), "");
}

TEST_F(ConfirmOnuTypeResultsTest, RealProfileWithoutTypeNameGivesNone) {
  AddToTable(Pattern(700, 601));
  AddToTable(MakeRealProfile(700, 601));
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_TRUE(host.ClaimLog(4, "get onu type name failed!_key_ability_value:700, ret:0x80000003"));
  EXPECT_FALSE(Holds(onu_, 1083));
}

// With the reported type as the key, the translated type is the key that counts.
TEST_F(ConfirmOnuTypeResultsTest, KeyValueIsReadAgainAfterTheTranslation) {
  OnuAbilityProfile real = MakeRealProfile(700, 601);
  real.UpdateInit(1002, 1U);
  real.UpdateInit(1023, 1U);
  real.Add(1083, std::string("BEFORE"));
  AddToTable(real);
  OnuAbilityProfile common = MakeRealProfile(762, 602);
  common.Add(1083, std::string("AFTER"));
  AddToTable(common);
  AddToTable(Pattern(700, 601));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(1080);
  Hooks().onu.reported_type = 700;
  Hooks().onu.settings[2] = 2;
  Perform();
  EXPECT_EQ(onu_._key_ability_value, 762U);
  EXPECT_EQ(Text(onu_, 1083), "AFTER");
}

// --- The real type.

TEST_F(ConfirmOnuTypeResultsTest, RealTypeOfTheMatchProfileIsTold) {
  OnuAbilityProfile pattern = Pattern(700, 601);
  pattern.Update(1081, 0x00020259U);
  AddToTable(pattern);
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_EQ(LastArgument(4), 0x0259U);
}

TEST_F(ConfirmOnuTypeResultsTest, MissingRealTypeIsToldAsTheDefaultValue) {
  OnuAbilityProfile pattern = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  pattern.Add(700U);
  AddToTable(pattern);
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_EQ(LastArgument(4), 0xFFFFU);
}

TEST_F(ConfirmOnuTypeResultsTest, MissingRealTypeFollowsTheProfilesOwnDefaultValue) {
  OnuAbilityProfile pattern = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  pattern.Add(700U);
  pattern._ability_default_value = 0x00010007U;
  AddToTable(pattern);
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_EQ(LastArgument(4), 7U);
}

// --- The reported type.

TEST_F(ConfirmOnuTypeResultsTest, LowHalfOfTheReportedTypeIsTold) {
  Hooks().onu.reported_type = 0x00012345U;
  Perform();
  EXPECT_EQ(LastArgument(5), 0x2345U);
  EXPECT_EQ(onu_._report_type, 0x00012345U);
  EXPECT_EQ(onu_._key_ability_value, 0x00012345U);
}

TEST_F(ConfirmOnuTypeResultsTest, MatchProfileWithoutReportTypeIsToldAsAllOnes) {
  AddToTable(MakeMatchProfile(700, 601));
  Hooks().onu.reported_type = 700;
  Perform();
  EXPECT_EQ(LastArgument(5), 0xFFFFU);
}

TEST_F(ConfirmOnuTypeResultsTest, HandsOverTheReportAndThenTheRecognisedProfile) {
  OnuAbilityProfile pattern = Pattern(700, 601);
  pattern.Add(1020, 9U);
  AddToTable(pattern);
  Hooks().onu.reported_type = 700;
  Hooks().onu.values[1020] = 2;
  Perform();
  ASSERT_EQ(Hooks().handed_over.size(), 2U);
  EXPECT_EQ(Number(Hooks().handed_over[0], 1020), 2U);
  EXPECT_EQ(Number(Hooks().handed_over[1], 1020), 9U);
}

// The result of a confirmation is a copy: the match profile in the table stays.
TEST_F(ConfirmOnuTypeResultsTest, MatchProfileInTheTableIsNotChanged) {
  OnuAbilityProfile real = MakeRealProfile(700, 601);
  real.Add(1083, std::string("HOME-1"));
  real.UpdateInit(1002, 1U);
  real.UpdateInit(1023, 1U);
  AddToTable(real);
  AddToTable(Pattern(700, 601));
  Hooks().onu.reported_type = 700;
  Hooks().onu.settings[2] = 2;
  Perform();
  EXPECT_EQ(LastArgument(5), 762U);
  const std::vector<OnuAbilityProfile> table = TableOf(ONU_ABILITY_PROFILE_TYPE_MATCH);
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(Number(table[0], 1080), 700U);
  EXPECT_FALSE(Holds(table[0], 1083));
}

}  // namespace
