// Add of the key ability value, under the profile's own key ability code.
#include "profile_expectations.h"

namespace {

class ProfileAddKeyValueTest : public LibraryTest {
 protected:
  ProfileAddKeyValueTest() {
    DefineUsualCodes();
    real = MakeProfile(kReal);
    match = MakeProfile(kMatch);
    host.ForgetLog();
  }

  OnuAbilityProfile real;
  OnuAbilityProfile match;
};

TEST_F(ProfileAddKeyValueTest, StoresANumberUnderTheKeyCodeDerivesAndCounts) {
  real.UpdateInit(kFePorts, 4);
  host.ForgetLog();

  real.Add(501U);

  EXPECT_EQ(ContentOf(real), (Content{{kAllLan, NumberEntry(4)},
                                      {kFePorts, NumberEntry(4)},
                                      {kKeyValue, NumberEntry(501)},
                                      {kDataUnis, NumberEntry(4)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
  EXPECT_EQ(real._common_ability_num, 4U);
}

TEST_F(ProfileAddKeyValueTest, SetsTheCountWhenNothingIsDerived) {
  real.Add(501U);
  EXPECT_EQ(real._common_ability_num, 1U);
}

TEST_F(ProfileAddKeyValueTest, LogsThatTheKeyCodeIsAbsentAndAsksForNoRegistration) {
  real.Add(501U);

  EXPECT_EQ(Head(host.TakeLogWithoutTraces(), 2),
            (std::vector<LogLine>{NameAsked(1085, "KEY_VALUE"), NotHeld(1085, "KEY_VALUE")}));
}

TEST_F(ProfileAddKeyValueTest, UsesTheProfilesOwnKeyCodeAndNotTheRegistrys) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);

  real.Add(501U);

  EXPECT_EQ(ContentOf(real), (Content{{kKeyValue, NumberEntry(501)}}));
}

TEST_F(ProfileAddKeyValueTest, StoresUnderAKeyCodeThatIsNotRegistered) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(60000);
  OnuAbilityProfile profile = MakeProfile(kReal);

  profile.Add(501U);

  EXPECT_EQ(ContentOf(profile), (Content{{60000, NumberEntry(501)}}));
  EXPECT_EQ(profile._common_ability_num, 1U);
}

TEST_F(ProfileAddKeyValueTest, DefaultValueIsNotStored) {
  real.Add(0U);
  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1085, "KEY_VALUE"), NotHeld(1085, "KEY_VALUE"),
                                  NameAsked(1085, "KEY_VALUE"),
                                  Log(4,
                                      "ability value is equal to default value,profile type:1, "
                                      "key_ability_code:1085, ability_name:KEY_VALUE, "
                                      "key_ability_value:0, default value:0")}));

  match.Add(kWildcard);
  EXPECT_EQ(ContentOf(match), Content{});
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4,
                                     "ability value is equal to default value,profile type:2, "
                                     "key_ability_code:1085, ability_name:KEY_VALUE, "
                                     "key_ability_value:-1, default value:-1")});
}

TEST_F(ProfileAddKeyValueTest, MatchProfileStoresZero) {
  match.Add(0U);
  EXPECT_EQ(ContentOf(match), (Content{{kKeyValue, NumberEntry(0)}}));
}

TEST_F(ProfileAddKeyValueTest, HeldKeyValueIsUpdatedWithoutTheDefaultRule) {
  real.Add(501U);
  host.ForgetLog();

  real.Add(0U);
  EXPECT_EQ(ContentOf(real), (Content{{kKeyValue, NumberEntry(0)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);

  real.Add(kWildcard);
  EXPECT_EQ(ContentOf(real), (Content{{kKeyValue, NumberEntry(0)}}));
}

TEST_F(ProfileAddKeyValueTest, KeyValueHeldAsAStringIsRefusedByTheUpdate) {
  real.UpdateInit(kKeyValue, std::string("K"));
  host.ForgetLog();

  real.Add(501U);

  EXPECT_EQ(ContentOf(real), (Content{{kKeyValue, {3, 0, "K"}}}));
  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{Log(0, "value_type invalid!value_type:3")});
}

TEST_F(ProfileAddKeyValueTest, OnlyACompletedAddLogsItsEnd) {
  real.Add(501U);
  EXPECT_EQ(EndTraces(host.TakeLog(), "Add"), 1U);

  match.Add(kWildcard);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 1U);
  EXPECT_EQ(EndTraces(log, "Add"), 0U);
}

}  // namespace
