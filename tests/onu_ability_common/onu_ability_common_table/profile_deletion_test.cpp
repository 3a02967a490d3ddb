// Del of one code and the count that it leaves.
#include "profile_expectations.h"

namespace {

class ProfileDeletionTest : public LibraryTest {
 protected:
  ProfileDeletionTest() {
    DefineUsualCodes();
    profile = MakeProfile(kReal);
    host.ForgetLog();
  }

  OnuAbilityProfile profile;
};

// Meant, and visible in the serialised form and in listings.
TEST_F(ProfileDeletionTest, CountStaysOneTooHighWithoutLanAndDataUniAbilities) {
  profile.Add(kPotsPorts, 2);
  profile.Add(kPowerLamp, 1);

  profile.Del(kPotsPorts);

  EXPECT_EQ(ContentOf(profile), (Content{{kPowerLamp, NumberEntry(1)}}));
  EXPECT_EQ(profile._common_ability_num, 2U);
}

TEST_F(ProfileDeletionTest, NextInsertionRefreshesTheCount) {
  profile.Add(kPotsPorts, 2);
  profile.Del(kPotsPorts);
  EXPECT_EQ(profile._common_ability_num, 1U);

  profile.Add(kTypeName, std::string("SFU-4"));
  EXPECT_EQ(profile._common_ability_num, 1U);

  profile.Add(kPotsPorts, 2);
  EXPECT_EQ(profile._common_ability_num, 2U);
}

TEST_F(ProfileDeletionTest, DerivedEntryThatIsWrittenRefreshesTheCount) {
  profile.Add(kFePorts, 4);
  profile.Add(kPotsPorts, 2);
  EXPECT_EQ(profile._common_ability_num, 4U);

  profile.Del(kPotsPorts);

  EXPECT_EQ(profile._common_ability_num, 3U);
}

TEST_F(ProfileDeletionTest, HeldCodeIsErasedAndTheTotalsDerived) {
  profile.Add(kFePorts, 4);
  profile.Add(kGePorts, 1);
  host.ForgetLog();

  profile.Del(kFePorts);

  EXPECT_EQ(ContentOf(profile), (Content{{kAllLan, NumberEntry(1)},
                                         {kGePorts, NumberEntry(1)},
                                         {kDataUnis, NumberEntry(1)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileDeletionTest, LastLanPortLeavesTheOldTotalsBehind) {
  profile.Add(kFePorts, 4);

  profile.Del(kFePorts);

  EXPECT_EQ(ContentOf(profile), (Content{{kAllLan, NumberEntry(4)}, {kDataUnis, NumberEntry(4)}}));
  EXPECT_EQ(profile._common_ability_num, 3U);
}

TEST_F(ProfileDeletionTest, DerivedTotalComesBackAtOnce) {
  profile.Add(kFePorts, 4);

  profile.Del(kAllLan);

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(4));
}

TEST_F(ProfileDeletionTest, AbsentCodeChangesAndDerivesNothing) {
  profile.UpdateInit(kFePorts, 4);
  profile._common_ability_num = 40;
  host.ForgetLog();

  profile.Del(kPotsPorts);

  EXPECT_EQ(ContentOf(profile), (Content{{kFePorts, NumberEntry(4)}}));
  EXPECT_EQ(profile._common_ability_num, 40U);
  EXPECT_EQ(Derivations(host.TakeLog()), 0);
}

TEST_F(ProfileDeletionTest, UnregisteredCodeIsErasedToo) {
  profile.UpdateInit(77, 5);

  profile.Del(77);

  EXPECT_EQ(ContentOf(profile), Content{});
}

TEST_F(ProfileDeletionTest, LogsItsTraces) {
  profile.Add(kPotsPorts, 2);
  host.ForgetLog();

  profile.Del(kPotsPorts);

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Del"), 1U);
  EXPECT_EQ(EndTraces(log, "Del"), 1U);
}

}  // namespace
