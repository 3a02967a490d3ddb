// What a table keeps of single values, and of the ids that it gives out.
#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kProfiles = 16;

class EntryColumnTest : public TableTest {
 protected:
  void SetUp() override {
    TableTest::SetUp();
    for (unsigned short i = 0; i < kProfiles; ++i) {
      profiles.push_back(With(With(MakeRealProfile(i, i), kFePorts, 100 + i), kVendorId, Name(i)));
    }
    for (const auto& profile : profiles) {
      index.Append(profile);
    }
  }

  static std::string Name(unsigned int i) { return "N" + std::to_string(i); }

  // An eighth of the profiles has to be asked before a column is made.
  void MakeColumns() {
    for (unsigned int i = 0; i < kProfiles; ++i) {
      index.Number(profiles, i, kFePorts);
      index.String(profiles, i, kVendorId);
    }
  }

  std::vector<OnuAbilityProfile> profiles;
  ProfileIndex index{kKeyValue};
};

TEST_F(EntryColumnTest, SaysNothingBeforeItWasAskedForAnEighthOfTheProfiles) {
  EXPECT_EQ(KeptNumber::kNone, index.Number(profiles, 3, kFePorts));
  MakeColumns();
  for (unsigned int i = 0; i < kProfiles; ++i) {
    EXPECT_EQ(100 + i, index.Number(profiles, i, kFePorts));
    ASSERT_NE(KeptString::kNone, index.String(profiles, i, kVendorId));
    EXPECT_EQ(Name(i), *index.String(profiles, i, kVendorId));
  }
}

TEST_F(EntryColumnTest, SaysNothingOfTheOtherTag) {
  for (unsigned int i = 0; i < 2 * kProfiles; ++i) {
    EXPECT_EQ(KeptNumber::kNone, index.Number(profiles, 1, kVendorId));
    EXPECT_EQ(KeptString::kNone, index.String(profiles, 1, kFePorts));
  }
}

TEST_F(EntryColumnTest, SaysNothingOfTheNumberThatStandsForNothing) {
  profiles[2] = With(profiles[2], kFePorts, KeptNumber::kNone);
  MakeColumns();
  EXPECT_EQ(KeptNumber::kNone, index.Number(profiles, 2, kFePorts));
  EXPECT_EQ(103U, index.Number(profiles, 3, kFePorts));
}

TEST_F(EntryColumnTest, IsNotMadeForACodeThatFewHold) {
  profiles[0] = With(profiles[0], kGePorts, 7);
  for (unsigned int i = 0; i < 2 * kProfiles; ++i) {
    EXPECT_EQ(KeptNumber::kNone, index.Number(profiles, 0, kGePorts));
  }
}

TEST_F(EntryColumnTest, KnowsAppendedProfiles) {
  MakeColumns();
  profiles.push_back(With(MakeRealProfile(99, 99), kFePorts, 5));
  index.Append(profiles.back());
  EXPECT_EQ(5U, index.Number(profiles, kProfiles, kFePorts));
  EXPECT_EQ(KeptString::kNone, index.String(profiles, kProfiles, kVendorId));
}

TEST_F(EntryColumnTest, FollowsANotedValueAndTheCountsThatComeWithIt) {
  for (auto& profile : profiles) {
    profile = With(profile, ONU_ABILITY_CODE_ALL_LAN, 1);
  }
  MakeColumns();
  for (unsigned int i = 0; i < kProfiles; ++i) {
    index.Number(profiles, i, ONU_ABILITY_CODE_ALL_LAN);
  }
  ASSERT_EQ(1U, index.Number(profiles, 4, ONU_ABILITY_CODE_ALL_LAN));
  profiles[4]._common_ability[kFePorts].ability_ushort_value = 8;
  profiles[4]._common_ability[ONU_ABILITY_CODE_ALL_LAN].ability_ushort_value = 9;
  index.NoteValue(profiles, 4, kFePorts);
  EXPECT_EQ(8U, index.Number(profiles, 4, kFePorts));
  EXPECT_EQ(9U, index.Number(profiles, 4, ONU_ABILITY_CODE_ALL_LAN));
}

TEST_F(EntryColumnTest, IsForgottenWhenTheProfilesAreOthers) {
  MakeColumns();
  profiles.erase(profiles.begin());
  index.Rebuild(profiles);
  MakeColumns();
  EXPECT_EQ(101U, index.Number(profiles, 0, kFePorts));
  EXPECT_EQ(Name(1), *index.String(profiles, 0, kVendorId));
}

TEST(NewIdsTest, GivesTheLowestThatIsNotTaken) {
  NewIds ids;
  EXPECT_EQ(30001, ids.Lowest());
  ids.Take(30001);
  ids.Take(30003);
  EXPECT_EQ(30002, ids.Lowest());
  ids.Take(30002);
  EXPECT_EQ(30004, ids.Lowest());
  ids.Take(5);
  ids.Take(65534);
  EXPECT_EQ(30004, ids.Lowest());
}

TEST(NewIdsTest, HasNoneWhenAllAreTaken) {
  NewIds ids;
  for (unsigned int id = NewIds::kFirst; id <= NewIds::kLast; ++id) {
    EXPECT_EQ(id, ids.Lowest());
    ids.Take(static_cast<unsigned short>(id));
  }
  EXPECT_EQ(ONU_ABILITY_INVALID_ID, ids.Lowest());
}

TEST_F(ShortWayTest, IdsOfTheOtherSourceDoNotBlockOneAndThoseOfDeletedAreFreeAgain) {
  for (unsigned short key = 1; key <= 3; ++key) {
    OnuAbilityProfile profile = MakeRealProfile(key, key);
    ASSERT_EQ(kOk, manager.Add(profile));
    EXPECT_EQ(30000 + key, profile._id);
  }
  manager.Del(ONU_ABILITY_PROFILE_SOURCE_DEFAULT, kReal, 2);
  unsigned short id = 0;
  manager.Get(kReal, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, id);
  EXPECT_EQ(30002, id);
  manager.Get(kReal, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, id);
  EXPECT_EQ(30001, id);
}

}  // namespace
}  // namespace table_test
