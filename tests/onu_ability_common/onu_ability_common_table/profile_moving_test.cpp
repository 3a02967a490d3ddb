// Moving a profile: what goes along, what the target keeps, what is left behind.
#include <type_traits>
#include <utility>

#include "profile_expectations.h"

namespace {

constexpr unsigned short kOtherKey = 1099;

class ProfileMovingTest : public LibraryTest {
 protected:
  // A profile none of whose members has the value that a fresh one has.
  OnuAbilityProfile MakeFilledProfile(unsigned short key_code = kOtherKey) {
    OnuAbilityProfile profile = MakeProfile(2, 1);
    profile.UpdateInit(kPotsPorts, 2);
    profile.UpdateInit(1083, "NAME");
    profile._id = 21;
    profile._bind_count = 3;
    profile._flag_match_type = MatchType(2);
    profile._common_ability_num = 7;
    profile._age_count = 4;
    profile._key_ability_code = key_code;
    for (unsigned char& byte : profile._reserved) byte = 0x5A;
    return profile;
  }

  // A target with abilities of its own, which must go.
  OnuAbilityProfile MakeTarget() {
    OnuAbilityProfile target = MakeProfile(1, 0);
    target.UpdateInit(1010, 8);
    return target;
  }

  static void ExpectFilledAbilities(const OnuAbilityProfile& profile) {
    ASSERT_EQ(2U, profile._common_ability.size());
    EXPECT_EQ(2U, profile._common_ability.at(kPotsPorts).ability_ushort_value);
    EXPECT_EQ("NAME", profile._common_ability.at(1083).ability_string_value);
  }
};

TEST_F(ProfileMovingTest, ConstructorTakesEveryMember) {
  OnuAbilityProfile source = MakeFilledProfile();
  const OnuAbilityProfile moved = std::move(source);
  EXPECT_EQ(MembersOf(MakeFilledProfile()), MembersOf(moved));
  EXPECT_EQ(kOtherKey, moved._key_ability_code);
  ExpectFilledAbilities(moved);
}

TEST_F(ProfileMovingTest, AssignmentTakesEveryMemberButTheKeyCode) {
  OnuAbilityProfile source = MakeFilledProfile();
  OnuAbilityProfile target = MakeTarget();
  target = std::move(source);
  EXPECT_EQ(MembersOf(MakeFilledProfile()), MembersOf(target));
  EXPECT_EQ(1085, target._key_ability_code);
  ExpectFilledAbilities(target);
}

TEST_F(ProfileMovingTest, SourceIsLeftWithoutAbilitiesAndMayBeUsedAgain) {
  OnuAbilityProfile first = MakeFilledProfile();
  const OnuAbilityProfile moved = std::move(first);
  OnuAbilityProfile second = MakeFilledProfile();
  OnuAbilityProfile target = MakeTarget();
  target = std::move(second);
  // What is left behind is the question here.
  // NOLINTNEXTLINE(bugprone-use-after-move)
  for (OnuAbilityProfile* source : {&first, &second}) {
    EXPECT_TRUE(source->_common_ability.empty());
    EXPECT_EQ(kOtherKey, source->_key_ability_code);
    source->UpdateInit(1010, 5);
    EXPECT_EQ(5U, source->_common_ability.at(1010).ability_ushort_value);
  }
  ExpectFilledAbilities(moved);
  ExpectFilledAbilities(target);
}

TEST_F(ProfileMovingTest, AssignmentToItselfChangesNothing) {
  OnuAbilityProfile profile = MakeFilledProfile();
  OnuAbilityProfile& same = profile;
  profile = std::move(same);
  EXPECT_EQ(MembersOf(MakeFilledProfile()), MembersOf(profile));
  ExpectFilledAbilities(profile);
}

TEST_F(ProfileMovingTest, SaysNothing) {
  OnuAbilityProfile source = MakeFilledProfile();
  OnuAbilityProfile target = MakeTarget();
  host.ForgetLog();
  OnuAbilityProfile moved = std::move(source);
  target = std::move(moved);
  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(ProfileMovingTest, CannotFailSoThatVectorsMove) {
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<OnuAbilityProfile>);
  EXPECT_TRUE(std::is_nothrow_move_assignable_v<OnuAbilityProfile>);
}

class ProfileVectorTest : public ProfileMovingTest {
 protected:
  // Key codes 1, 2, 3 and ids 11, 12, 13; room for no more.
  void SetUp() override {
    profiles.reserve(3);
    for (unsigned short i = 1; i <= 3; ++i) {
      profiles.push_back(MakeFilledProfile(i));
      profiles.back()._id = static_cast<unsigned short>(10 + i);
    }
    host.ForgetLog();
  }

  void ExpectIdsAndKeys(const std::vector<std::pair<int, int>>& expected) {
    std::vector<std::pair<int, int>> held;
    held.reserve(profiles.size());
    for (const OnuAbilityProfile& profile : profiles) {
      held.emplace_back(profile._id, profile._key_ability_code);
      ExpectFilledAbilities(profile);
    }
    EXPECT_EQ(expected, held);
  }

  unsigned int Releases() {
    unsigned int releases = 0;
    for (const LogLine& line : host.TakeLog()) {
      EXPECT_EQ(Log(10, "release OnuAbilityProfile!"), line);
      ++releases;
    }
    return releases;
  }

  std::vector<OnuAbilityProfile> profiles;
};

// In a new block each profile keeps its key code; what stood in the old is released.
TEST_F(ProfileVectorTest, GrowthKeepsEachKeyCodeAndReleasesTheOldPlaces) {
  profiles.reserve(10);
  ExpectIdsAndKeys({{11, 1}, {12, 2}, {13, 3}});
  EXPECT_EQ(3U, Releases());
}

// The rest moves down into places that keep theirs, and the last place is released.
TEST_F(ProfileVectorTest, ErasureMovesProfilesIntoPlacesThatKeepTheirKeyCodes) {
  profiles.erase(profiles.begin());
  ExpectIdsAndKeys({{12, 1}, {13, 2}});
  EXPECT_EQ(1U, Releases());
}

TEST_F(ProfileVectorTest, InsertionMovesProfilesIntoPlacesThatKeepTheirKeyCodes) {
  profiles.pop_back();
  OnuAbilityProfile fresh = MakeFilledProfile(9);
  fresh._id = 19;
  profiles.insert(profiles.begin(), fresh);
  // The last one was moved into a place that was none before.
  ExpectIdsAndKeys({{19, 1}, {11, 2}, {12, 2}});
}

}  // namespace
