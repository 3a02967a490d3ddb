// The index of a table as a whole: which codes it serves, how it follows what happens
// to the profiles, and the lamp totals that it keeps.
#include "onu_ability_common_table/ability_code_index.h"
#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kAllLan = 1001;
constexpr unsigned short kDataUniTotal = 65533;

class ProfileIndexTest : public TableTest {
 protected:
  void Append(const OnuAbilityProfile& profile) {
    profiles.push_back(profile);
    index.Append(profile);
  }

  std::vector<OnuAbilityProfile> profiles;
  ProfileIndex index{kKeyValue};
};

TEST_F(ProfileIndexTest, ServesTheKeyCodeAndTheRealTypeOnly) {
  ASSERT_NE(nullptr, index.Of(kKeyValue));
  ASSERT_NE(nullptr, index.Of(kRealType));
  EXPECT_EQ(kKeyValue, index.Of(kKeyValue)->code());
  EXPECT_EQ(kRealType, index.Of(kRealType)->code());
  EXPECT_EQ(nullptr, index.Of(kFePorts));
  EXPECT_EQ(nullptr, index.Of(0));
}

TEST_F(ProfileIndexTest, TheRealTypeMayBeTheKeyCode) {
  ProfileIndex by_type(kRealType);
  by_type.Append(MakeRealProfile(7, 70));
  EXPECT_EQ(0U, by_type.Of(kRealType)->Newest(70));
  EXPECT_EQ(nullptr, by_type.Of(kKeyValue));
}

TEST_F(ProfileIndexTest, AppendedProfilesAreFoundByBoth) {
  Append(MakeRealProfile(7, 70));
  Append(MakeRealProfile(8, 70));
  EXPECT_EQ(0U, index.Of(kKeyValue)->Newest(7));
  EXPECT_EQ(1U, index.Of(kKeyValue)->Newest(8));
  EXPECT_EQ(1U, index.Of(kRealType)->Newest(70));
  EXPECT_EQ(0U, index.Of(kRealType)->Older(1));
}

TEST_F(ProfileIndexTest, RebuiltItKnowsTheGivenProfilesOnly) {
  Append(MakeRealProfile(7, 70));
  Append(MakeRealProfile(8, 80));
  index.Rebuild({MakeRealProfile(9, 90)});
  EXPECT_EQ(kNoPosition, index.Of(kKeyValue)->Newest(7));
  EXPECT_EQ(kNoPosition, index.Of(kRealType)->Newest(80));
  EXPECT_EQ(0U, index.Of(kKeyValue)->Newest(9));
  EXPECT_EQ(0U, index.Of(kRealType)->Newest(90));
}

TEST_F(ProfileIndexTest, NotedKeyValueIsFoundAtItsNewPlace) {
  Append(MakeRealProfile(7, 70));
  Append(MakeRealProfile(8, 80));
  profiles[0].UpdateInit(kKeyValue, 5);
  index.NoteValue(profiles, 0, kKeyValue);
  EXPECT_EQ(kNoPosition, index.Of(kKeyValue)->Newest(7));
  EXPECT_EQ(0U, index.Of(kKeyValue)->Newest(5));
  EXPECT_EQ(1U, index.Of(kKeyValue)->Newest(8));
}

TEST_F(ProfileIndexTest, NotedRealTypeIsFoundAtItsNewPlace) {
  Append(MakeRealProfile(7, 70));
  profiles[0].UpdateInit(kRealType, 50);
  index.NoteValue(profiles, 0, kRealType);
  EXPECT_EQ(kNoPosition, index.Of(kRealType)->Newest(70));
  EXPECT_EQ(0U, index.Of(kRealType)->Newest(50));
}

// Any filling may change the derived counts, and the key code may be one of them.
TEST_F(ProfileIndexTest, NotedPortsRefreshAKeyThatIsADerivedCount) {
  for (const unsigned short derived : {kAllLan, kDataUniTotal}) {
    ProfileIndex by_count(derived);
    profiles = {Holding(derived, 4)};
    by_count.Append(profiles[0]);
    profiles[0].UpdateInit(derived, 9);
    by_count.NoteValue(profiles, 0, kFePorts);
    EXPECT_EQ(kNoPosition, by_count.Of(derived)->Newest(4)) << derived;
    EXPECT_EQ(0U, by_count.Of(derived)->Newest(9)) << derived;
  }
}

// The columns of a code are made anew after a value of it, or a derived count.
TEST_F(ProfileIndexTest, NotedValueReachesThePatterns) {
  for (const unsigned short code : {kPotsPorts, kAllLan, kDataUniTotal}) {
    profiles = {Holding(code, 4), Holding(code, 5)};
    index.Rebuild(profiles);
    const ONU_ABILITY_COMMON_ABILITY_VALUE four = Number(4);
    std::vector<PatternIndex::Compared> report = {{code, &four}};
    index.Patterns().Prepare(profiles, kKeyValue, report);
    EXPECT_EQ(0U, index.Patterns().Newest(report)) << code;

    profiles[1].UpdateInit(code, 4);
    index.NoteValue(profiles, 1, code == kPotsPorts ? kPotsPorts : kFePorts);
    index.Patterns().Prepare(profiles, kKeyValue, report);
    EXPECT_EQ(1U, index.Patterns().Newest(report)) << code;
  }
}

// A total that is still the old one after its profile was changed in silence was
// kept; one that is the new one was summed again.
class KeptLampTotalTest : public ProfileIndexTest {
 protected:
  void SetUp() override {
    ProfileIndexTest::SetUp();
    Append(With(MakeRealProfile(7, 70), kPowerLamp, 1));
    Append(With(MakeRealProfile(8, 80), kPowerLamp, 2));
    ListenAsInProduction();
    // Whatever the registry's records still lack they acquire now.
    index.LampTotal(profiles[0], 0);
    index.LampTotal(profiles[1], 1);
    ForgetSetUp();
  }

  void ChangeInSilence() {
    for (OnuAbilityProfile& profile : profiles) {
      profile.UpdateInit(kPowerLamp, 40);
    }
  }
  unsigned int Total(unsigned int position) {
    return index.LampTotal(profiles[position], position);
  }
};

TEST_F(KeptLampTotalTest, IsKeptForEachProfile) {
  ChangeInSilence();
  EXPECT_EQ(1U, Total(0));
  EXPECT_EQ(2U, Total(1));
  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(KeptLampTotalTest, IsSummedAgainForTheProfileWhoseValueIsNoted) {
  ChangeInSilence();
  index.NoteValue(profiles, 0, kPowerLamp);
  EXPECT_EQ(40U, Total(0));
  EXPECT_EQ(2U, Total(1));
}

TEST_F(KeptLampTotalTest, IsSummedAgainAfterARebuild) {
  ChangeInSilence();
  index.Rebuild(profiles);
  EXPECT_EQ(40U, Total(0));
  EXPECT_EQ(40U, Total(1));
}

TEST_F(KeptLampTotalTest, IsSummedAgainOnceAfterAnyChangeOfACode) {
  ChangeInSilence();
  DefineCode(2000, "NEW");
  EXPECT_EQ(40U, Total(0));
  profiles[0].UpdateInit(kPowerLamp, 50);
  EXPECT_EQ(40U, Total(0));
}

TEST_F(KeptLampTotalTest, IsNotKeptOnceTheRecordsWereHandedOut) {
  OnuAbilityCodeInfo::GetInstance()->Get();
  EXPECT_EQ(1U, Total(0));
  ChangeInSilence();
  EXPECT_EQ(40U, Total(0));
}

TEST_F(KeptLampTotalTest, OfAnUnknownCodeIsNotKeptAndSaysSoEachTime) {
  Append(With(MakeRealProfile(9, 90), 2000, 4));
  ForgetSetUp();
  const LogLine unknown = Log(1, "find ability_code null!ability_code:2000");
  EXPECT_EQ(4U, Total(2));
  EXPECT_EQ(4U, Total(2));
  EXPECT_EQ((std::vector<LogLine>{unknown, unknown}), host.TakeLog());
}

// The first sum adds the attribute to the record, which is a change of the registry.
TEST_F(KeptLampTotalTest, IsKeptAfterTheSumThatGaveACodeItsAttribute) {
  ONU_ABILITY_CODE_ATTR_INFO bare;
  bare.ability_code = 2000;
  bare.ability_name = "BARE";
  bare.ability_attr.clear();
  OnuAbilityCodeInfo::GetInstance()->Update(bare);
  Append(With(With(MakeRealProfile(9, 90), kPowerLamp, 3), 2000, 4));
  EXPECT_EQ(3U, Total(2));
  EXPECT_EQ(3U, Total(2));
  ChangeInSilence();
  EXPECT_EQ(3U, Total(2));
}

}  // namespace
}  // namespace table_test
