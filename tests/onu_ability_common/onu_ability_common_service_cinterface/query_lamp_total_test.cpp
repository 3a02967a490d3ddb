// Asking for the lamp total of an ONU type.
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

constexpr auto kReal = ONU_ABILITY_PROFILE_TYPE_REAL;

class QueryLampTotalTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    host.ForgetLog();
  }

  void AddProfile(unsigned int power_lamps, unsigned int lan_lamps, int source) {
    OnuAbilityProfile profile = MakeRealProfile(7, 70, source);
    profile.UpdateInit(1010, 9);
    profile.UpdateInit(1030, power_lamps);
    profile.UpdateInit(1031, lan_lamps);
    AddToTable(profile);
    host.ForgetLog();
  }
};

TEST_F(QueryLampTotalTest, LampsOfTheNewestProfileAreSummed) {
  InitTables();
  AddProfile(1, 4, 0);
  EXPECT_EQ(5U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_TRUE(host.ClaimLog(4, "onu_type:70, totalnum:5"));
  EXPECT_EQ(5U, onu_ability_get_onu_lamp_total_num_by_key_ability(7));
  EXPECT_TRUE(host.ClaimLog(4, "key_ability_value:7, totalnum:5"));
  AddProfile(0x1201, 2, 1);
  EXPECT_EQ(3U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_EQ(3U, onu_ability_get_onu_lamp_total_num_by_key_ability(7));
}

TEST_F(QueryLampTotalTest, UnknownTypeAndKeyValueHaveNone) {
  InitTables();
  AddProfile(1, 4, 0);
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(7));
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num_by_key_ability(70));
}

// The table is taken straight from the manager's map: no line of the manager.
TEST_F(QueryLampTotalTest, ManagerIsPassedBy) {
  InitTables();
  AddProfile(1, 4, 0);
  EXPECT_EQ(5U, onu_ability_get_onu_lamp_total_num(70));
  for (const LogLine& line : host.TakeLog()) {
    EXPECT_EQ(std::string::npos, line.text.find("OnuAbilityTableManager")) << line;
    EXPECT_EQ(std::string::npos, line.text.find("profile_type")) << line;
  }
}

TEST_F(QueryLampTotalTest, BeforeTheTablesExistBothTotalsAreZeroAndLogged) {
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num_by_key_ability(7));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
}

// Meant: asking leaves an empty entry in the manager's map, which is no table.
TEST_F(QueryLampTotalTest, AskingByTypeBeforeInitLeavesANullEntry) {
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  ASSERT_EQ(1U, tables.size());
  ASSERT_EQ(1U, tables.count(kReal));
  EXPECT_EQ(nullptr, tables.at(kReal));
}

TEST_F(QueryLampTotalTest, AskingByKeyValueBeforeInitLeavesANullEntry) {
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num_by_key_ability(7));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  ASSERT_EQ(1U, tables.size());
  ASSERT_EQ(1U, tables.count(kReal));
  EXPECT_EQ(nullptr, tables.at(kReal));
}

TEST_F(QueryLampTotalTest, NullEntryLeavesTheOtherQueriesWithoutTable) {
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  EXPECT_EQ(0U, onu_ability_key_ability_value_is_exist(7));
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!"));
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(70));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  InitTables();
  AddProfile(1, 4, 0);
  EXPECT_EQ(5U, onu_ability_get_onu_lamp_total_num(70));
}

}  // namespace
