// The lamp total of a real profile.
#include "table_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kLanLamp = 1031;
constexpr unsigned short kType = 70;

class RealTableLampTotalTest : public TableTest {
 protected:
  // Key value 7, type 70, 1 + 4 lamps; 9 ports that are no lamps.
  void PutFiveLamps() {
    OnuAbilityProfile profile = With(MakeRealProfile(7, kType), kFePorts, 9);
    table.Put(With(With(profile, kPowerLamp, 1), kLanLamp, 4));
    ForgetSetUp();
  }

  OpenTable<OnuRealAbilityTable> table;
};

TEST_F(RealTableLampTotalTest, ByKeyValueSumsTheLampCodes) {
  PutFiveLamps();
  EXPECT_EQ(5U, table.GetLampTotalNum(7U));
  EXPECT_TRUE(host.ClaimLog(4, "key_ability_value:7, totalnum:5"));
  ExpectLockedOnce(table);
}

TEST_F(RealTableLampTotalTest, ByTypeSumsTheLampCodes) {
  PutFiveLamps();
  EXPECT_EQ(5U, table.GetLampTotalNum(kType));
  EXPECT_TRUE(host.ClaimLog(4, "onu_type:70, totalnum:5"));
  ExpectLockedOnce(table);
}

TEST_F(RealTableLampTotalTest, OnlyTheLowEightBitsOfALampCountAreSummed) {
  table.Put(With(MakeRealProfile(7, kType), kPowerLamp, 0x1234));
  EXPECT_EQ(0x34U, table.GetLampTotalNum(7U));
  EXPECT_EQ(0x34U, table.GetLampTotalNum(kType));
}

TEST_F(RealTableLampTotalTest, UnknownKeyValueAndTypeHaveNoLamps) {
  EXPECT_EQ(0U, table.GetLampTotalNum(0xFFFFFFFFU));
  ExpectLog({Log(4, "key_ability_value:-1, totalnum:0")});
  ExpectLockedOnce(table);
  EXPECT_EQ(0U, table.GetLampTotalNum(static_cast<unsigned short>(65535)));
  ExpectLog({Log(4, "onu_type:65535, totalnum:0")});
  ExpectLockedOnce(table);
}

TEST_F(RealTableLampTotalTest, NewestProfileOfAnySourceAnswers) {
  table.Put(With(MakeRealProfile(7, kType, kDefault), kPowerLamp, 1));
  table.Put(With(MakeRealProfile(7, kType, kExternal), kPowerLamp, 2));
  table.Put(With(MakeRealProfile(8, 80, kDefault), kPowerLamp, 3));
  ForgetSetUp();
  EXPECT_EQ(2U, table.GetLampTotalNum(7U));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:8, ability_value_2:7"),
                                  Log(4, "ability_value_1:7, ability_value_2:7"),
                                  Log(4, "key_ability_value:7, totalnum:2")}),
            host.TakeLog({4}));
  EXPECT_EQ(2U, table.GetLampTotalNum(kType));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:80, ability_value_2:70"),
                                  Log(4, "ability_value_1:70, ability_value_2:70"),
                                  Log(4, "onu_type:70, totalnum:2")}),
            host.TakeLog({4}));
}

TEST_F(RealTableLampTotalTest, ProfileWithoutLampsHasNone) {
  table.Put(MakeRealProfile(7, kType));
  EXPECT_EQ(0U, table.GetLampTotalNum(7U));
  EXPECT_TRUE(host.ClaimLog(4, "key_ability_value:7, totalnum:0"));
}

// A profile without a type counts as type 0, its default value.
TEST_F(RealTableLampTotalTest, TypeZeroFindsAProfileWithoutType) {
  table.Put(With(MakeProfile(kReal), kPowerLamp, 3));
  EXPECT_EQ(3U, table.GetLampTotalNum(static_cast<unsigned short>(0)));
}

TEST_F(RealTableLampTotalTest, LaterKeyCodeIsNotSeen) {
  PutFiveLamps();
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  EXPECT_EQ(5U, table.GetLampTotalNum(7U));
  EXPECT_EQ(0U, table.GetLampTotalNum(70U));
}

}  // namespace
}  // namespace table_test
