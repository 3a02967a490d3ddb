// When short ways are open: only while nobody listens to a level of the lines that
// they leave out. A profile changed behind the index tells which way was taken: its old
// value is found by the index, its new one by a walk.
#include "short_way_fixture.h"

namespace table_test {
namespace {

using Levels = std::vector<unsigned int>;

class ShortWayGatesTest : public ShortWayTest {
 protected:
  // The levels that alone make `takes_short_way` false.
  template <typename TakesShortWay>
  Levels LevelsThatClose(TakesShortWay takes_short_way) {
    Levels levels;
    for (unsigned int level = 0; level < 32; ++level) {
      onu_ability_set_log_level_mask(1U << level);
      if (!takes_short_way()) {
        levels.push_back(level);
      }
    }
    ListenAsInProduction();
    EXPECT_TRUE(takes_short_way());
    host.ForgetLog();
    return levels;
  }

  template <typename TakesShortWay>
  void ExpectClosedWhileWalking(TakesShortWay takes_short_way) {
    SetWalksOnly(true);
    EXPECT_FALSE(takes_short_way());
    onu_ability_set_log_level_mask(0);
    EXPECT_FALSE(takes_short_way());
    SetWalksOnly(false);
    EXPECT_TRUE(takes_short_way());
    host.ForgetLog();
  }
};

class RealShortWayGatesTest : public ShortWayGatesTest {
 protected:
  void SetUp() override {
    ShortWayGatesTest::SetUp();
    AddAll(table, {With(MakeRealProfile(7, 70, kExternal), kPowerLamp, 1)});
    table.GetLampTotalNum(7U);
    table.profiles()[0].UpdateInit(kKeyValue, 9);
    table.profiles()[0].UpdateInit(kRealType, 90);
  }

  IndexedTable<OnuRealAbilityTable> table;
};

TEST_F(RealShortWayGatesTest, ByKeyValue) {
  const auto by_index = [this] { return table.IsExist(kAll, 7U) != 0; };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(RealShortWayGatesTest, ByRealType) {
  OnuAbilityProfile profile;
  const auto by_index = [&] {
    return table.Get(kAll, static_cast<unsigned short>(70), profile) == kOk;
  };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(RealShortWayGatesTest, AllByKeyValue) {
  std::vector<OnuAbilityProfile> profiles;
  const auto by_index = [&] { return table.Get(kAll, 7U, profiles) == kOk; };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(RealShortWayGatesTest, EqualityOfAValue) {
  const auto by_index = [this] { return table.IsEqual(kAll, kKeyValue, 7) != 0; };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(RealShortWayGatesTest, BindingByKeyValue) {
  const auto by_index = [this] { return table.AddBindCount(7) == kOk; };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(RealShortWayGatesTest, DuplicateOfAnAddedProfile) {
  const auto by_index = [this] {
    OnuAbilityProfile added = MakeRealProfile(7, 70, kExternal);
    const bool refused = table.Add(added) != kOk;
    if (!refused) {
      // Behind the index as well: what it says of the key 7 stays.
      table.profiles().pop_back();
      const std::vector<OnuAbilityProfile> kept = table.profiles();
      table.Restore({MakeRealProfile(7, 70, kExternal)});
      table.profiles() = kept;
    }
    return refused;
  };
  EXPECT_EQ((Levels{4, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

// The sum is kept, whatever its profile became; the way to the profile is open.
TEST_F(RealShortWayGatesTest, LampTotal) {
  table.profiles()[0].UpdateInit(kKeyValue, 7);
  table.profiles()[0].UpdateInit(kPowerLamp, 5);
  const auto by_index = [this] { return table.GetLampTotalNum(7U) == 1; };
  EXPECT_EQ((Levels{6, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

class MatchShortWayGatesTest : public ShortWayGatesTest {
 protected:
  void SetUp() override {
    ShortWayGatesTest::SetUp();
    AddAll(table, {With(Holding(kFePorts, 4), kKeyValue, 7)});
    FitsByIndex();
    table.profiles()[0].UpdateInit(kFePorts, 5);
  }

  bool FitsByIndex() {
    OnuAbilityProfile report = Holding(kFePorts, 4);
    return table.operator==(report) != 0;
  }

  IndexedTable<OnuMatchAbilityTable> table;
};

TEST_F(MatchShortWayGatesTest, ByPattern) {
  const auto by_index = [this] { return FitsByIndex(); };
  EXPECT_EQ((Levels{4, 5, 6, 9, 10}), LevelsThatClose(by_index));
  ExpectClosedWhileWalking(by_index);
}

TEST_F(MatchShortWayGatesTest, ReportOfAnUnknownCodeWalks) {
  OnuAbilityProfile report = With(Holding(kFePorts, 4), 2000, 1);
  EXPECT_EQ(0U, table.operator==(report));
  EXPECT_TRUE(FitsByIndex());
}

// Reading the confirm type would add it to the record: the walk does so, once.
TEST_F(MatchShortWayGatesTest, ReportOfACodeThatLacksItsConfirmTypeWalksOnce) {
  ONU_ABILITY_CODE_ATTR_INFO bare;
  bare.ability_code = 900;
  bare.ability_name = "BARE";
  bare.ability_attr.clear();
  codes.Update(bare);
  const OnuAbilityProfile report = With(Holding(kFePorts, 4), 900, 1);
  OnuAbilityProfile first = report;
  EXPECT_EQ(0U, table.operator==(first));
  OnuAbilityProfile second = report;
  EXPECT_EQ(1U, table.operator==(second));
}

TEST_F(MatchShortWayGatesTest, TableThatKeepsNoIndexWalks) {
  OpenTable<OnuMatchAbilityTable> walked;
  AddAll(walked, {Holding(kFePorts, 4)});
  OnuAbilityProfile report = Holding(kFePorts, 4);
  EXPECT_EQ(1U, walked.operator==(report));
  walked.profiles()[0].UpdateInit(kFePorts, 5);
  report = Holding(kFePorts, 4);
  EXPECT_EQ(0U, walked.operator==(report));
}

}  // namespace
}  // namespace table_test
