// Asking whether a real profile exists, by key ability value or by real type.
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class QueryExistenceTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }
};

TEST_F(QueryExistenceTest, WithoutRealProfilesNothingIsFound) {
  char name[8] = "before";
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(70));
  EXPECT_EQ(0x80000002U, onu_ability_search_by_real_type(70));
  EXPECT_EQ(0U, onu_ability_get_onu_ability_value_by_key_value(7, 1010));
  EXPECT_EQ(0x80000004U, onu_ability_get_onu_type_name_by_key_value(7, name, sizeof(name)));
  EXPECT_EQ(0x80000004U, onu_ability_get_onu_type_name_by_realtype(70, name, sizeof(name)));
  EXPECT_STREQ("before", name);
}

TEST_F(QueryExistenceTest, KeyValuesOfBothSourcesExist) {
  AddToTable(MakeRealProfile(7, 70, 0));
  AddToTable(MakeRealProfile(8, 80, 1));
  EXPECT_EQ(1U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_EQ(1U, onu_ability_key_ability_value_is_exist(8));
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(9));
}

TEST_F(QueryExistenceTest, KeyValuesHaveThirtyTwoBits) {
  AddToTable(MakeRealProfile(0x10007, 70));
  EXPECT_EQ(1U, onu_ability_key_ability_value_is_exist(0x10007));
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
}

TEST_F(QueryExistenceTest, RealTypesOfBothSourcesAreFound) {
  AddToTable(MakeRealProfile(7, 70, 0));
  AddToTable(MakeRealProfile(8, 80, 1));
  EXPECT_EQ(0U, onu_ability_search_by_real_type(70));
  EXPECT_EQ(0U, onu_ability_search_by_real_type(80));
}

TEST_F(QueryExistenceTest, UnknownRealTypeIsLogged) {
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(65535));
  const std::vector<LogLine> log = host.TakeLogWithoutTraces();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(Log(1, "this onu real type is not exist!onu_real_type:65535"), log.back());
}

TEST_F(QueryExistenceTest, MatchProfilesDoNotCount) {
  AddToTable(MakeMatchProfile(7, 70));
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(70));
}

// A profile without a type counts as type 0, its default value.
TEST_F(QueryExistenceTest, RealTypeZeroIsFoundInAProfileWithoutType) {
  AddToTable(MakeRealProfile(7, 70));
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(0));
  AddToTable(MakeProfile(1));
  EXPECT_EQ(0U, onu_ability_search_by_real_type(0));
}

// All sources of the real table are asked.
TEST_F(QueryExistenceTest, ManagerIsAskedAboutRealProfilesOfAllSources) {
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_TRUE(host.ClaimLog(
      4, "key_ability_value do not exist!profile_type:1, profile_source:2, key_ability_value:7"));
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(70));
  EXPECT_TRUE(host.ClaimLog(4,
                            "ability_value is not equal!profile_type:1, profile_source:2,"
                            "ability_code:1081, ability_name:REAL_TYPE, ability_value:70"));
}

TEST_F(QueryExistenceTest, ModuleIdIsTheHosts) { EXPECT_EQ(19U, onu_ability_get_module_id()); }

}  // namespace
