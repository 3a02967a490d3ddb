// The lamp totals that a table keeps follow everything that they depend on.
#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr unsigned short kAllLan = 1001;
constexpr unsigned short kLanLamp = 1031;

class RealTableKeptLampTotalTest : public ShortWayTest {
 protected:
  // Keys 7 and 8: 1 + 4 and 2 lamps. Both totals have been asked.
  void SetUp() override {
    ShortWayTest::SetUp();
    AddAll(Real(), {With(With(MakeRealProfile(7, 70), kPowerLamp, 1), kLanLamp, 4),
                    With(MakeRealProfile(8, 80), kPowerLamp, 2)});
    ExpectTotals(5, 2);
    ExpectTotals(5, 2);
    ForgetSetUp();
  }

  void ExpectTotals(unsigned int of_7, unsigned int of_8) {
    EXPECT_EQ(of_7, Real().GetLampTotalNum(7U));
    EXPECT_EQ(of_7, Real().GetLampTotalNum(static_cast<unsigned short>(70)));
    EXPECT_EQ(of_8, Real().GetLampTotalNum(8U));
    EXPECT_EQ(of_8, Real().GetLampTotalNum(static_cast<unsigned short>(80)));
  }
};

TEST_F(RealTableKeptLampTotalTest, LampAttributeOfACode) {
  DefineCode(kPowerLamp, "POWER_LAMP", {{kLamp, 0}});
  ExpectTotals(4, 0);
  DefineCode(kRealType, "REAL_TYPE", {{kLamp, 1}});
  ExpectTotals(74, 80);
  DefineCode(kPowerLamp, "POWER_LAMP", {{kLamp, 9}});
  DefineCode(kRealType, "REAL_TYPE", {{kLamp, 0}});
  ExpectTotals(5, 2);
}

TEST_F(RealTableKeptLampTotalTest, ValueAddedToAStoredProfile) {
  EXPECT_EQ(kOk, Real().Add(kDefault, 8U, kLanLamp, 6U));
  ExpectTotals(5, 8);
  EXPECT_EQ(kOk, Real().Add(kDefault, 7U, kPowerLamp, 3U));
  ExpectTotals(7, 8);
  EXPECT_EQ(kOk, Real().Add(kDefault, 7U, kFePorts, 3U));
  ExpectTotals(7, 8);
}

TEST_F(RealTableKeptLampTotalTest, DerivedCountThatCountsAsLamps) {
  DefineCode(kAllLan, "ALL_LAN", {{kLamp, 1}});
  ExpectTotals(5, 2);
  EXPECT_EQ(kOk, Real().Add(kDefault, 8U, kFePorts, 4U));
  ExpectTotals(5, 6);
}

TEST_F(RealTableKeptLampTotalTest, ProfileDeletedBeforeAnother) {
  EXPECT_EQ(kOk, Real().Del(kDefault, 7U));
  ExpectTotals(0, 2);
}

TEST_F(RealTableKeptLampTotalTest, ProfilesPutBackOrDeletedAll) {
  Real().Restore(
      {With(MakeRealProfile(8, 80), kPowerLamp, 30), With(MakeRealProfile(7, 70), kPowerLamp, 40)});
  ExpectTotals(40, 30);
  Real().DelAll(kDefault);
  ExpectTotals(0, 0);
}

TEST_F(RealTableKeptLampTotalTest, NewerProfileWithTheSameKey) {
  AddAll(Real(), {With(MakeRealProfile(7, 70), kPowerLamp, 9)});
  ExpectTotals(9, 2);
}

TEST_F(RealTableKeptLampTotalTest, RecordsPutBack) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> kept;
  onu_ability_get_all_ability_attr_info(kept);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> without_lamps = kept;
  for (ONU_ABILITY_CODE_ATTR_INFO& record : without_lamps) {
    record.ability_attr[kLamp] = 0;
  }
  codes.Restore(without_lamps);
  ExpectTotals(0, 0);
  codes.Restore(kept);
  ExpectTotals(5, 2);
}

// An unknown code counts whatever it holds, and every question says that it is unknown.
TEST_F(RealTableKeptLampTotalTest, UnknownCodesAreSaidAtEveryQuestion) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  records.erase(std::remove_if(records.begin(), records.end(),
                               [](const auto& record) {
                                 return record.ability_code == kRealType ||
                                        record.ability_code == kLanLamp;
                               }),
                records.end());
  codes.Restore(records);
  const LogLine lamp = Log(1, "find ability_code null!ability_code:1031");
  const LogLine type = Log(1, "find ability_code null!ability_code:1081");
  for (int question = 0; question < 3; ++question) {
    EXPECT_EQ(75U, Real().GetLampTotalNum(7U));
    EXPECT_EQ((std::vector<LogLine>{lamp, type}), host.TakeLog());
    EXPECT_EQ(82U, Real().GetLampTotalNum(8U));
    EXPECT_EQ((std::vector<LogLine>{type}), host.TakeLog());
  }
  DefineCode(kRealType, "REAL_TYPE");
  DefineCode(kLanLamp, "LAN_LAMP", {{kLamp, 1}});
  host.ForgetLog();
  ExpectTotals(5, 2);
  ExpectTotals(5, 2);
  EXPECT_TRUE(host.TakeLog().empty());
}

// Without the attribute every code counts, and every question says that it is missing.
TEST_F(RealTableKeptLampTotalTest, AttributeUnregisteredAndRegisteredAgain) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> kept;
  onu_ability_get_all_ability_attr_info(kept);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> bare = kept;
  for (ONU_ABILITY_CODE_ATTR_INFO& record : bare) {
    record.ability_attr.erase(kLamp);
  }
  codes.Restore(bare);
  OnuAbilityAttrInfo::GetInstance()->Del(kLamp);
  host.ForgetLog();
  const LogLine invalid = Log(1, "ability_attr_code is invalid!ability_attr_code:3");
  const LogLine missing = Log(0, "ability_attr_id do not exist,ability_attr_id:3");
  for (int question = 0; question < 2; ++question) {
    EXPECT_EQ(90U, Real().GetLampTotalNum(8U));  // 2 lamps, type 80, key 8
    EXPECT_EQ((std::vector<LogLine>{invalid, missing, invalid, missing, invalid, missing}),
              host.TakeLog());
  }
  // Registered again each code acquires it: none counts.
  OnuAbilityAttrInfo::GetInstance()->Add(kLamp, "LAMP");
  ExpectTotals(0, 0);
  ExpectTotals(0, 0);
  codes.Restore(kept);
  ExpectTotals(5, 2);
}

// The records may hold an attribute that nobody registers any more.
TEST_F(RealTableKeptLampTotalTest, RecordsThatHoldAnAttributeWhichIsNotRegistered) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> kept;
  onu_ability_get_all_ability_attr_info(kept);
  codes.Restore({});
  OnuAbilityAttrInfo::GetInstance()->Del(kLamp);
  codes.Restore(kept);
  for (int question = 0; question < 2; ++question) {
    host.ForgetLog();
    EXPECT_EQ(90U, Real().GetLampTotalNum(8U));
    EXPECT_EQ(6U, host.TakeLog().size());
  }
}

TEST_F(RealTableKeptLampTotalTest, RegistryThatIsEmptied) {
  codes.Restore({});
  host.ForgetLog();
  EXPECT_EQ(90U, Real().GetLampTotalNum(8U));
  EXPECT_EQ(3U, host.TakeLog().size());
}

}  // namespace
}  // namespace table_test
