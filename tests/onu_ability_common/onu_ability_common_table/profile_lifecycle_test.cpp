// Construction, Init, Clear, assignment and copying of an ability profile.
#include <type_traits>
#include <utility>

#include "profile_expectations.h"

namespace {

class ProfileLifecycleTest : public LibraryTest {
 protected:
  // A profile none of whose members has the value that a fresh one has.
  OnuAbilityProfile MakeFilledProfile(int type) {
    OnuAbilityProfile profile = MakeProfile(type, 1);
    profile.UpdateInit(kPotsPorts, 2);
    profile._id = 21;
    profile._bind_count = 3;
    profile._flag_match_type = MatchType(2);
    profile._common_ability_num = 1;
    profile._age_count = 4;
    for (unsigned char& byte : profile._reserved) byte = 0x5A;
    return profile;
  }

  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
};

TEST_F(ProfileLifecycleTest, ConstructsEmptyAndZeroed) {
  const OnuAbilityProfile profile;

  EXPECT_EQ(MembersOf(profile), std::make_tuple(static_cast<unsigned short>(0), 0U, 0, 0, 0, 0U, 0U,
                                                0U, std::string(16, '\0')));
  EXPECT_TRUE(profile._common_ability.empty());
  EXPECT_EQ(profile._key_ability_code, 1085);
}

TEST_F(ProfileLifecycleTest, ConstructionTakesTheKeyCodeOfTheRegistry) {
  codes.SetKeyAbilityCode(1099);

  EXPECT_EQ(OnuAbilityProfile()._key_ability_code, 1099);
}

TEST_F(ProfileLifecycleTest, KeyCodeOfAnEarlierProfileIsStaleUntilInit) {
  OnuAbilityProfile profile;
  codes.SetKeyAbilityCode(1099);
  EXPECT_EQ(profile._key_ability_code, 1085);

  profile.Init(ProfileType(1), ProfileSource(0), MatchType(0));

  EXPECT_EQ(profile._key_ability_code, 1099);
}

TEST_F(ProfileLifecycleTest, ConstructionAndReleaseAreTraced) {
  {
    const OnuAbilityProfile profile;
    EXPECT_EQ(host.TakeLog(), std::vector<LogLine>{Log(10, "OnuAbilityProfile start!\r\n")});
  }
  EXPECT_EQ(host.TakeLog(), std::vector<LogLine>{Log(10, "release OnuAbilityProfile!")});
}

TEST_F(ProfileLifecycleTest, IsReleasedThroughItsVirtualDestructor) {
  static_assert(std::has_virtual_destructor_v<OnuAbilityProfile>);
  static_assert(std::is_same_v<decltype(std::declval<OnuAbilityProfile&>().IsExist(1)), bool>);
  static_assert(
      std::is_same_v<decltype(std::declval<const OnuAbilityProfile&>().GetSize()), unsigned int>);

  OnuAbilityProfile* profile = new ConfirmOnuType(1, 2);
  host.ForgetLog();
  delete profile;

  EXPECT_TRUE(host.ClaimLog(10, "release OnuAbilityProfile!"));
}

TEST_F(ProfileLifecycleTest, InitMakesARealProfile) {
  OnuAbilityProfile profile = MakeFilledProfile(kMatch);

  profile.Init(ProfileType(1), ProfileSource(1), MatchType(2));

  EXPECT_EQ(profile._profile_type, 1);
  EXPECT_EQ(profile._profile_source, 1);
  EXPECT_EQ(profile._flag_match_type, 2);
  EXPECT_EQ(profile._ability_default_value, 0U);
  EXPECT_EQ(profile._id, 0);
}

TEST_F(ProfileLifecycleTest, InitOfTypeZeroBehavesLikeTypeOne) {
  OnuAbilityProfile profile = MakeFilledProfile(kMatch);

  profile.Init(ProfileType(0), ProfileSource(0), MatchType(0));

  EXPECT_EQ(profile._profile_type, 0);
  EXPECT_EQ(profile._ability_default_value, 0U);
  EXPECT_EQ(profile._id, 0);
  EXPECT_TRUE(profile._common_ability.empty());
}

TEST_F(ProfileLifecycleTest, InitMakesAMatchProfile) {
  OnuAbilityProfile profile;

  profile.Init(ProfileType(2), ProfileSource(1), MatchType(1));

  EXPECT_EQ(profile._profile_type, 2);
  EXPECT_EQ(profile._profile_source, 1);
  EXPECT_EQ(profile._flag_match_type, 1);
  EXPECT_EQ(profile._ability_default_value, 0xFFFFFFFFU);
  EXPECT_EQ(profile._id, 0xFFFF);
}

TEST_F(ProfileLifecycleTest, InitEmptiesAndZeroesCountAndAge) {
  OnuAbilityProfile profile = MakeFilledProfile(kReal);

  profile.Init(ProfileType(1), ProfileSource(0), MatchType(0));

  EXPECT_TRUE(profile._common_ability.empty());
  EXPECT_EQ(profile._common_ability_num, 0U);
  EXPECT_EQ(profile._age_count, 0U);
}

// Meant: the ONUs stay bound whatever the profile is made into.
TEST_F(ProfileLifecycleTest, InitKeepsTheBindCount) {
  OnuAbilityProfile profile = MakeFilledProfile(kReal);

  profile.Init(ProfileType(2), ProfileSource(0), MatchType(0));

  EXPECT_EQ(profile._bind_count, 3U);
  EXPECT_EQ(profile._reserved[15], 0x5A);
}

TEST_F(ProfileLifecycleTest, InitLogsWhatItSet) {
  OnuAbilityProfile profile;
  host.ForgetLog();

  profile.Init(ProfileType(1), ProfileSource(1), MatchType(2));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{Log(
                4, "profile_type:1, profile_source:1, flag_match_type:2, ability_init_value:0")});

  profile.Init(ProfileType(2), ProfileSource(0), MatchType(1));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{Log(
                4, "profile_type:2, profile_source:0, flag_match_type:1, ability_init_value:-1")});
}

TEST_F(ProfileLifecycleTest, InitRefusesProfileTypeThree) {
  OnuAbilityProfile profile = MakeFilledProfile(kMatch);
  const auto members = MembersOf(profile);
  const Content content = ContentOf(profile);
  codes.SetKeyAbilityCode(1099);
  host.ForgetLog();

  profile.Init(ProfileType(3), ProfileSource(0), MatchType(0));

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{Log(0, "profile_type invalid!profile_type:3")});
  EXPECT_EQ(MembersOf(profile), members);
  EXPECT_EQ(ContentOf(profile), content);
  EXPECT_EQ(profile._key_ability_code, 1085);
}

TEST_F(ProfileLifecycleTest, InitRefusesNegativeProfileType) {
  OnuAbilityProfile profile = MakeFilledProfile(kReal);
  const auto members = MembersOf(profile);
  const Content content = ContentOf(profile);
  codes.SetKeyAbilityCode(1099);
  host.ForgetLog();

  profile.Init(ProfileType(-1), ProfileSource(0), MatchType(0));

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{Log(0, "profile_type invalid!profile_type:-1")});
  EXPECT_EQ(MembersOf(profile), members);
  EXPECT_EQ(ContentOf(profile), content);
  EXPECT_EQ(profile._key_ability_code, 1085);
}

TEST_F(ProfileLifecycleTest, ClearGivesAMatchProfileTheIdFfffAndARealOneZero) {
  OnuAbilityProfile match = MakeFilledProfile(kMatch);
  OnuAbilityProfile real = MakeFilledProfile(kReal);

  match.Clear();
  real.Clear();

  EXPECT_EQ(match._id, 0xFFFF);
  EXPECT_EQ(real._id, 0);
}

TEST_F(ProfileLifecycleTest, ClearTakesTheIdFromTheLowHalfOfTheDefaultValue) {
  OnuAbilityProfile profile = MakeFilledProfile(kReal);
  profile._ability_default_value = 0x12345678;

  profile.Clear();

  EXPECT_EQ(profile._id, 0x5678);
}

TEST_F(ProfileLifecycleTest, ClearKeepsEveryOtherMember) {
  OnuAbilityProfile profile = MakeFilledProfile(kMatch);
  codes.SetKeyAbilityCode(1099);

  profile.Clear();

  EXPECT_TRUE(profile._common_ability.empty());
  EXPECT_EQ(MembersOf(profile), std::make_tuple(static_cast<unsigned short>(0xFFFF), 3U, 2, 2, 1,
                                                0xFFFFFFFFU, 0U, 4U, std::string(16, '\x5A')));
  EXPECT_EQ(profile._key_ability_code, 1085);
}

TEST_F(ProfileLifecycleTest, InitAndClearLogStartAndEnd) {
  OnuAbilityProfile profile;
  host.ForgetLog();

  profile.Init(ProfileType(1), ProfileSource(0), MatchType(0));
  profile.Clear();
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Init"), 1U);
  EXPECT_EQ(EndTraces(log, "Init"), 1U);
  EXPECT_EQ(StartTraces(log, "Clear"), 1U);
  EXPECT_EQ(EndTraces(log, "Clear"), 1U);

  profile.Init(ProfileType(3), ProfileSource(0), MatchType(0));
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Init"), 1U);
  EXPECT_EQ(EndTraces(log, "Init"), 0U) << "a refusal returns after its message";
}

TEST_F(ProfileLifecycleTest, AssignmentCopiesMembersAndAbilities) {
  const OnuAbilityProfile source = MakeFilledProfile(kMatch);
  OnuAbilityProfile target = MakeProfile(kReal);
  target.UpdateInit(kFePorts, 4);

  OnuAbilityProfile& result = (target = source);

  EXPECT_EQ(&result, &target);
  EXPECT_EQ(MembersOf(target), MembersOf(source));
  EXPECT_EQ(ContentOf(target), (Content{{kPotsPorts, NumberEntry(2)}}));
}

TEST_F(ProfileLifecycleTest, AssignmentCopiesAStaleCountAsItStands) {
  OnuAbilityProfile source = MakeFilledProfile(kReal);
  source._common_ability_num = 9;
  OnuAbilityProfile target;

  target = source;

  EXPECT_EQ(target._common_ability_num, 9U);
}

// Meant: a profile goes on reading the key value under the code it was made for.
TEST_F(ProfileLifecycleTest, AssignmentKeepsTheKeyCodeOfTheTarget) {
  codes.SetKeyAbilityCode(5);
  const OnuAbilityProfile source = MakeFilledProfile(kReal);
  codes.SetKeyAbilityCode(7);
  OnuAbilityProfile target;

  target = source;

  EXPECT_EQ(target._key_ability_code, 7);
  EXPECT_EQ(source._key_ability_code, 5);
}

TEST_F(ProfileLifecycleTest, AssignmentToItselfKeepsTheAbilities) {
  OnuAbilityProfile profile = MakeFilledProfile(kReal);
  const auto members = MembersOf(profile);
  const OnuAbilityProfile& same = profile;

  profile = same;

  EXPECT_EQ(MembersOf(profile), members);
  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(2)}}));
}

TEST_F(ProfileLifecycleTest, CopyConstructionTakesTheKeyCodeOver) {
  codes.SetKeyAbilityCode(5);
  const OnuAbilityProfile source = MakeFilledProfile(kReal);
  codes.SetKeyAbilityCode(7);
  host.ForgetLog();

  const OnuAbilityProfile copy(source);

  EXPECT_EQ(copy._key_ability_code, 5);
  EXPECT_EQ(MembersOf(copy), MembersOf(source));
  EXPECT_EQ(ContentOf(copy), ContentOf(source));
  EXPECT_TRUE(host.TakeLog().empty()) << "the implicit copy constructor logs nothing";
}

TEST_F(ProfileLifecycleTest, ErasingFromAVectorLeavesTheKeyCodesInTheirPlaces) {
  std::vector<OnuAbilityProfile> profiles;
  profiles.reserve(2);
  codes.SetKeyAbilityCode(5);
  profiles.push_back(MakeProfile(kReal));
  codes.SetKeyAbilityCode(7);
  profiles.push_back(MakeFilledProfile(kReal));

  profiles.erase(profiles.begin());

  EXPECT_EQ(profiles[0]._id, 21);
  EXPECT_EQ(profiles[0]._key_ability_code, 5);
}

}  // namespace
