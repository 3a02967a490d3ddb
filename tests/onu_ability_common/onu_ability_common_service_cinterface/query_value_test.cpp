// Asking for the number value of a code by key ability value.
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class QueryValueTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }

  void AddProfile(unsigned int key, unsigned int ports, int source) {
    OnuAbilityProfile profile = MakeRealProfile(key, 70, source);
    profile.UpdateInit(1010, ports);
    profile.UpdateInit(1083, "NAME");
    AddToTable(profile);
    host.ForgetLog();
  }
};

TEST_F(QueryValueTest, ValueOfTheNewestProfileOfAnySourceIsReturned) {
  AddProfile(7, 4, 0);
  EXPECT_EQ(4U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
  AddProfile(7, 8, 1);
  EXPECT_EQ(8U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
}

TEST_F(QueryValueTest, SuccessLogsNoFailure) {
  AddProfile(7, 4, 0);
  EXPECT_EQ(4U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog({0, 1}));
}

// The label says real_type; the number is the key value, as meant.
TEST_F(QueryValueTest, UnknownKeyValueIsLoggedUnderTheLabelRealType) {
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(70000, 1010));
  const std::vector<LogLine> log = host.TakeLogWithoutTraces();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(Log(1, "get ability value failed!real_type:70000, ability_code:1010, ret:0x80000004"),
            log.back());
}

TEST_F(QueryValueTest, AbsentCodeAndStringAreFailures) {
  AddProfile(7, 4, 0);
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1020));
  EXPECT_TRUE(
      host.ClaimLog(1, "get ability value failed!real_type:7, ability_code:1020, ret:0x80000003"));
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1083));
  EXPECT_TRUE(
      host.ClaimLog(1, "get ability value failed!real_type:7, ability_code:1083, ret:0x80000003"));
  EXPECT_TRUE(host.ClaimLog(
      0, "value type is not ushort!ability_code:1083, ability_name:TYPE_NAME, value_type:3"));
}

// Meant: only the log tells a stored 0 from a failure.
TEST_F(QueryValueTest, StoredZeroLooksLikeAFailureToTheCaller) {
  AddProfile(7, 0, 0);
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog({1}));
}

TEST_F(QueryValueTest, MatchProfilesAreNotAsked) {
  OnuAbilityProfile profile = MakeMatchProfile(7, 70);
  profile.UpdateInit(1010, 4);
  AddToTable(profile);
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
}

class QueryBeforeInitTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    host.ForgetLog();
  }
};

TEST_F(QueryBeforeInitTest, NothingIsFound) {
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(70));
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
  EXPECT_TRUE(
      host.ClaimLog(1, "get ability value failed!real_type:7, ability_code:1010, ret:0x80000002"));
}

}  // namespace
