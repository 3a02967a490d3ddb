// Writing a profile and reading it back.
#include "profile_expectations.h"
#include "profile_serialisation_items.h"

namespace {

class ProfileSerialisationRoundTripTest : public LibraryTest {
 protected:
  ProfileSerialisationRoundTripTest() {
    DefineUsualCodes();
    host.ForgetLog();
  }

  void WriteAndRead() {
    Variant buffer;
    profile.Serialize(buffer);
    host.ForgetLog();
    copy.UnSerialize(buffer);
  }

  OnuAbilityProfile profile = MakeProfile(kReal, 1);
  OnuAbilityProfile copy;
};

TEST_F(ProfileSerialisationRoundTripTest, EmptyProfileComesBack) {
  profile._id = 21;
  profile._bind_count = 3;

  WriteAndRead();

  EXPECT_EQ(MembersOf(copy), MembersOf(profile));
  EXPECT_EQ(ContentOf(copy), Content{});
}

TEST_F(ProfileSerialisationRoundTripTest, StringsComeBackAndTheSizeIgnoresThem) {
  profile.Add(kTypeName, std::string(70000, 'x'));
  profile.Add(kProfileName, std::string("A"));
  profile.Add(kVendorId, std::string("ABCD"));

  WriteAndRead();

  EXPECT_EQ(MembersOf(copy), MembersOf(profile));
  EXPECT_EQ(ContentOf(copy), ContentOf(profile));
  EXPECT_EQ(profile.GetSize(), 30U + 14U * 3U);
  EXPECT_EQ(copy.GetSize(), 72U);
}

TEST_F(ProfileSerialisationRoundTripTest, RealProfileWithDerivedTotalsComesBack) {
  profile.Add(501U);
  profile.Add(kFePorts, 4);
  profile.Add(kWifiUni, 2);
  profile.Add(kTypeName, std::string("SFU-4"));

  WriteAndRead();

  EXPECT_EQ(MembersOf(copy), MembersOf(profile));
  EXPECT_EQ(ContentOf(copy), ContentOf(profile));
  EXPECT_EQ(ContentOf(copy)[kDataUnis], NumberEntry(6));
}

TEST_F(ProfileSerialisationRoundTripTest, MatchProfileComesBack) {
  profile = MakeProfile(kMatch);
  profile.Add(501U);
  profile.Add(kPotsPorts, 0);
  profile.Add(kVendorId, std::string("ABCD"));

  WriteAndRead();

  EXPECT_EQ(MembersOf(copy), MembersOf(profile));
  EXPECT_EQ(ContentOf(copy), ContentOf(profile));
}

TEST_F(ProfileSerialisationRoundTripTest, StoredDefaultsAreLostAndStillCounted) {
  profile.Add(kPotsPorts, 5);
  profile.Add(kPotsPorts, 0);
  profile.Add(kPowerLamp, 1);

  WriteAndRead();

  EXPECT_EQ(ContentOf(copy), (Content{{kPowerLamp, NumberEntry(1)}}));
  EXPECT_EQ(copy._common_ability_num, 2U);
}

TEST_F(ProfileSerialisationRoundTripTest, StaleCountMakesTheReaderRunOutOfRecords) {
  profile.Add(kPotsPorts, 2);
  profile.Add(kPowerLamp, 1);
  profile.Del(kPotsPorts);
  EXPECT_EQ(profile._common_ability_num, 2U);

  WriteAndRead();

  EXPECT_EQ(host.TakeLog({13}), std::vector<LogLine>{Log(13, "unpack ability_code failed\r\n")});
  EXPECT_EQ(ContentOf(copy), (Content{{kPowerLamp, NumberEntry(1)}}));
  EXPECT_EQ(copy._common_ability_num, 1U);
}

TEST_F(ProfileSerialisationRoundTripTest, TwoProfilesShareABuffer) {
  profile.Add(kPotsPorts, 2);
  OnuAbilityProfile second = MakeProfile(kMatch);
  second.Add(kTypeName, std::string("SFU-4"));
  Variant buffer;
  profile.Serialize(buffer);
  second.Serialize(buffer);

  OnuAbilityProfile second_copy;
  copy.UnSerialize(buffer);
  second_copy.UnSerialize(buffer);

  EXPECT_EQ(ContentOf(copy), ContentOf(profile));
  EXPECT_EQ(MembersOf(second_copy), MembersOf(second));
  EXPECT_EQ(ContentOf(second_copy), ContentOf(second));
  EXPECT_EQ(ItemsLeft(buffer), 0U);
}

}  // namespace
