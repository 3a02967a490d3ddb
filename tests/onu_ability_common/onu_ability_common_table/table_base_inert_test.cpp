// The operations that a table without a kind of its own only has in name.
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseInertTest : public TableTest {
 protected:
  void SetUp() override {
    TableTest::SetUp();
    table.Put(With(MakeRealProfile(7, 70, kExternal), kPowerLamp, 2));
    ForgetSetUp();
  }

  // Nothing stored changed, no lock taken.
  void ExpectUntouched() {
    ASSERT_EQ(1U, table.profiles().size());
    EXPECT_EQ(0U, table.profiles()[0]._bind_count);
    EXPECT_EQ(3U, table.profiles()[0]._common_ability.size());
    EXPECT_TRUE(host.mutex_calls().empty());
  }

  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseInertTest, AddStoresNothing) {
  OnuAbilityProfile profile = MakeRealProfile(8, 80);
  host.ForgetLog();
  EXPECT_EQ(kOk, table.OnuAbilityTableBase::Add(profile));
  ExpectLog({Log(10, "OnuAbilityTableBase::Add!")});
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_NONE, profile._flag_match_type);
  ExpectUntouched();
}

TEST_F(TableBaseInertTest, DelOfAProfileDeletesNothing) {
  const OnuAbilityProfile profile = table.profiles()[0];
  host.ForgetLog();
  EXPECT_EQ(kOk, table.Del(profile));
  ExpectLog({Log(10, "OnuAbilityTableBase::Del profile!")});
  ExpectUntouched();
}

TEST_F(TableBaseInertTest, DelByKeyValueDeletesNothing) {
  EXPECT_EQ(kOk, table.Del(kExternal, 7U));
  ExpectLog({Log(10, "OnuAbilityTableBase::Del profile!")});
  ExpectUntouched();
}

TEST_F(TableBaseInertTest, MatchAnswersYesAndLeavesTheProfile) {
  OnuAbilityProfile profile = MakeMatchProfile(9, 90);
  host.ForgetLog();
  EXPECT_EQ(1U, table.operator==(profile));
  ExpectLog({Log(10, "OnuAbilityTableBase::operator==!")});
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_NONE, profile._flag_match_type);
  EXPECT_EQ(9U, NumberOf(profile, kKeyValue));
  ExpectUntouched();
}

TEST_F(TableBaseInertTest, LampTotalsAreZero) {
  EXPECT_EQ(0U, table.GetLampTotalNum(7U));
  ExpectLog({Log(10, "OnuAbilityTableBase::GetLampTotalNum start!")});
  EXPECT_EQ(0U, table.GetLampTotalNum(static_cast<unsigned short>(70)));
  ExpectLog({Log(10, "OnuAbilityTableBase::GetLampTotalNum start!")});
  ExpectUntouched();
}

TEST_F(TableBaseInertTest, BindCountsLogNothingAtAll) {
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
  ExpectUntouched();
}

}  // namespace
}  // namespace table_test
