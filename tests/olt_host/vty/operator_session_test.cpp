// The library's commands typed by an operator on the host: the bytes that the
// terminal shows, from the prompt to the table and back.
#include <gtest/gtest.h>

#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

void Define(unsigned short code, const std::string& name, unsigned short value_type,
            unsigned short lamp = 0) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  info.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = value_type;
  info.ability_attr[ONU_ABILITY_ATTR_LAMP] = lamp;
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

// One process a test, as CTest starts them: the registries and tables are the
// process's.
class VtyOperatorSession : public ::testing::Test {
 protected:
  void SetUp() override {
    OnuAbilityTableManager::GetInstance()->Init();
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_PORT_TYPE, "PORT_TYPE");
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    Define(1020, "POTS_PORTS", 2);
    Define(1030, "POWER_LAMP", 2, 1);
    Define(1080, "REPORT_TYPE", 2);
    Define(1081, "REAL_TYPE", 2);
    Define(1082, "VENDOR_ID", 3);
    Define(1083, "TYPE_NAME", 3);
    Define(1085, "KEY_VALUE", 2);
    ASSERT_EQ(0, onu_ability_service_cbb_cli_init());
  }

  std::vector<OnuAbilityProfile> RealProfiles() {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(ONU_ABILITY_PROFILE_TYPE_REAL,
                                                  ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
    return profiles;
  }

  // Key 5, real type 1001, two telephone ports, in the table of real profiles.
  void AddProfile() {
    screen.Type(
        "add onu_ability_profile key 5 profile_type 1 reporttype 1001 realtype 1001 "
        "vendorid ZKWM onu_type_name \"GE 4\"");
    screen.Type("set onu_ability_profile key 5 1020 2 1030 3");
    EXPECT_EQ("add ability profile successfully,key_ability_value:5\r\n",
              screen.Type("apply onu_ability_profile key 5"));
  }

  Screen screen;
};

TEST_F(VtyOperatorSession, TheModuleIsInstalledWithItsSixteenCommands) {
  EXPECT_EQ(16U, CommandTable::Instance().Commands(26).size());
  ASSERT_EQ(1U, CommandTable::Instance().modules().size());
  EXPECT_EQ("onu_ability", CommandTable::Instance().modules()[0].name);
}

TEST_F(VtyOperatorSession, BuildsSetsAndAppliesAProfile) {
  EXPECT_EQ("onu ability item set ok!key_ability_value:5\r\n",
            screen.Type("add onu_ability_profile key 5 profile_type 1 reporttype 1001 realtype "
                        "1001 vendorid ZKWM onu_type_name \"GE 4\""));
  EXPECT_EQ("set onu_ability_profile ok!\r\n", screen.Type("set onu_a key 5 1020 2"));
  EXPECT_EQ("add ability profile successfully,key_ability_value:5\r\n",
            screen.Type("apply onu_ability_profile key 5"));
  ASSERT_EQ(1U, RealProfiles().size());
  OnuAbilityProfile profile = RealProfiles()[0];
  EXPECT_EQ(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, profile._profile_source);
  EXPECT_EQ(1001U, profile._common_ability[1081].ability_ushort_value);
  EXPECT_EQ("ZKWM", profile._common_ability[1082].ability_string_value);
  EXPECT_EQ("GE 4", profile._common_ability[1083].ability_string_value);
  EXPECT_EQ(2U, profile._common_ability[1020].ability_ushort_value);
}

TEST_F(VtyOperatorSession, RefusesAnotherKeyThanThePendingOne) {
  AddProfile();
  EXPECT_EQ("key_ability_value invalid,invalid key_ability_value:7, valid key_ability_value:5\r\n",
            screen.Type("set onu_ability_profile key 7 1020 1"));
  EXPECT_TRUE(screen.last().ok());
  EXPECT_EQ(
      "key_ability_value is not exist!invalid key_ability_value:7,valid key_ability_value:5\r\n"
      "% Command failed: 0x80000002 (invalid parameter)\r\n",
      screen.Type("apply onu_ability_profile key 7"));
}

TEST_F(VtyOperatorSession, ReportsAProfileThatTheTableRefuses) {
  AddProfile();
  EXPECT_EQ(
      "ONU_ABILITY_INSTANCE_TABLE_MGR.Add failed\r\n"
      "% Command failed: 0x80000003 (operation refused)\r\n",
      screen.Type("apply onu_ability_profile key 5"));
}

TEST_F(VtyOperatorSession, SaysNothingWithoutAPendingProfile) {
  EXPECT_EQ("", screen.Type("set onu_ability_profile key 5 1020 1"));
  EXPECT_EQ("", screen.Type("apply onu_ability_profile key 5"));
  EXPECT_EQ("\r\n", screen.Type("show onucapa_table_by_manual_cmd flag 1"));
}

// The listing of AddProfile's profile; `cells` are the lines of its abilities.
std::string Listing(const std::string& cells) {
  return "********************************************\r\n"
         "id:                    30001                         \r\n"
         "onu_sn:000000000000\r\n"
         "reporttype:            1001                          \r\n"
         "vendor id:             ZKWM                          \r\n"
         "ability profile name:                                \r\n"
         "default value:         0                             \r\n"
         "flag_match_type:       2                             \r\n"
         "profile_type:          1                             \r\n"
         "profile_source:        1                             \r\n"
         "data uni total num:    0                             \r\n"
         "total lamp num:        3                             \r\n"
         "bind count:            0                             \r\n"
         "age_count:             0                             \r\n"
         "size:                  128                           \r\n"
         "common_ability_num:    7                             \r\n"
         "--------------common ability----------------\r\n"
         "ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n" +
         cells + "\r\n********************************************\r\n\r\n\r\n";
}

const char* const kCells =
    "POTS_PORTS  \t0x2       \tPOWER_LAMP  \t0x0003  \tREPORT_TYPE \t0x3e9     \t\r\n"
    "REAL_TYPE   \t0x3e9     \tVENDOR_ID   \tZKWM    \tTYPE_NAME   \tGE 4    \t\r\n"
    "KEY_VALUE   \t0x5       \t";

TEST_F(VtyOperatorSession, ListsATable) {
  EXPECT_EQ("\r\n", screen.Type("show onucapa_table real 2 flag 1"));
  AddProfile();
  EXPECT_EQ(Listing(kCells) + "\r\n", screen.Type("show onucapa_table real 2 flag 1"));
  EXPECT_EQ("\r\n", screen.Type("show onucapa_table match 2 flag 1"));
  EXPECT_EQ("\r\n", screen.Type("show onucapa_table real 0 flag 1"));
}

TEST_F(VtyOperatorSession, ListsOneRealType) {
  AddProfile();
  EXPECT_EQ(Listing(kCells) + "\r\n", screen.Type("show onucapa_table r 1 f 0 r 1001"));
  EXPECT_EQ("GetOnuAllAbilityValue failed!onu_real_type:7\r\n\r\n",
            screen.Type("show onucapa_table real 1 flag 0 real_type 7"));
}

TEST_F(VtyOperatorSession, ListsThePendingProfile) {
  AddProfile();
  EXPECT_EQ(Listing(kCells) + "\r\n", screen.Type("show onucapa_table_by_manual_cmd flag 0"));
}

TEST_F(VtyOperatorSession, UpdatesANumberAndAString) {
  AddProfile();
  EXPECT_EQ("Add ability value ok!\r\n",
            screen.Type("update onu_ability_profile key 5 profile_type 1 profile_source 1 "
                        "ability_code 1020 uint_ability_value 4"));
  EXPECT_EQ("Add ability value ok!\r\n",
            screen.Type("update onu_ability_profile id 5 profile_type 1 profile_source 1 "
                        "ability_code 1083 string_ability_value \"two words\""));
  OnuAbilityProfile profile = RealProfiles().at(0);
  EXPECT_EQ(4U, profile._common_ability[1020].ability_ushort_value);
  EXPECT_EQ("two words", profile._common_ability[1083].ability_string_value);
  EXPECT_EQ("Add ability value failed!\r\n",
            screen.Type("u o k 6 profile_t 1 profile_s 1 a 1020 u 4"));
  EXPECT_EQ("Add ability value failed!\r\n",
            screen.Type("u o i 6 profile_t 1 profile_s 1 a 1083 s x"));
}

TEST_F(VtyOperatorSession, DeletesAProfile) {
  AddProfile();
  EXPECT_EQ("ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n",
            screen.Type("del onu_ability_profile key 5 profile_type 1 profile_source 1"));
  EXPECT_TRUE(RealProfiles().empty());
}

// One record of the code listing with the attributes 3, 4 and 5.
std::string CodeListing(const std::string& name, int code, int lamp, int value_type) {
  const std::string stars(40, '*');
  return "\r\n" + stars + "\r\nability_name:" + name + "\r\nability_code:" + std::to_string(code) +
         "\r\nability_attr_id:3\r\nability_attr_name:LAMP\r\nability_attr_value:" +
         std::to_string(lamp) +
         "\r\nability_attr_id:4\r\nability_attr_name:PORT_TYPE\r\nability_attr_value:0"
         "\r\nability_attr_id:5\r\nability_attr_name:VALUE_TYPE\r\nability_attr_value:" +
         std::to_string(value_type) + "\r\n\r\n" + stars + "\r\n\r\n";
}

TEST_F(VtyOperatorSession, ListsCodesByNumberAndByName) {
  EXPECT_EQ(CodeListing("POWER_LAMP", 1030, 1, 2), screen.Type("show ability code 1030"));
  EXPECT_EQ(CodeListing("POWER_LAMP", 1030, 1, 2), screen.Type("show ability code power"));
  EXPECT_EQ(CodeListing("REPORT_TYPE", 1080, 0, 2) + CodeListing("REAL_TYPE", 1081, 0, 2) +
                CodeListing("TYPE_NAME", 1083, 0, 3),
            screen.Type("show ability code Type"));
  EXPECT_EQ("", screen.Type("show ability code 9"));
}

TEST_F(VtyOperatorSession, ListsAllCodes) {
  const std::string text = screen.Type("sh ab co");
  const std::string signs(40, '#');
  const std::string head = "\r\n" + signs + "\r\n_vec_ability_attr:7\r\n" +
                           CodeListing("POTS_PORTS", 1020, 0, 2) +
                           CodeListing("POWER_LAMP", 1030, 1, 2);
  EXPECT_EQ(head, text.substr(0, head.size()));
  const std::string tail = CodeListing("KEY_VALUE", 1085, 0, 2) + signs + "\r\n";
  ASSERT_GT(text.size(), tail.size());
  EXPECT_EQ(tail, text.substr(text.size() - tail.size()));
}

TEST_F(VtyOperatorSession, DefinesAndDeletesACode) {
  EXPECT_EQ("set ability code ok!\r\n",
            screen.Type("set ability_code 1031 name LAN_LAMP 3 1 77 5"));
  EXPECT_EQ(CodeListing("LAN_LAMP", 1031, 1, 2), screen.Type("show ability code 1031"));
  EXPECT_EQ("del ability code ok!\r\n", screen.Type("del ability code 1031"));
  EXPECT_EQ("", screen.Type("show ability code 1031"));
  AddProfile();
  EXPECT_EQ("del ability code failed!\r\n", screen.Type("del ability code 1020"));
}

TEST_F(VtyOperatorSession, ShowsAndSetsTheCommonTypes) {
  EXPECT_EQ("common_sfu_type:       857\r\ncommon_hgu_type:       762\r\n",
            screen.Type("show onu_common_type"));
  EXPECT_EQ("set onu common type ok!common_type:900\r\n",
            screen.Type("set onu_common_type sfu 900"));
  EXPECT_EQ("set onu common type ok!common_type:901\r\n",
            screen.Type("set onu_common_type hgu 901"));
  EXPECT_EQ("common_sfu_type:       900\r\ncommon_hgu_type:       901\r\n",
            screen.Type("show onu_common_type"));
}

TEST_F(VtyOperatorSession, ShowsAndSetsTheKeyAbilityCode) {
  EXPECT_EQ("key_ability_code:      1085\r\nability_name:  KEY_VALUE\r\n",
            screen.Type("show key_ability_code"));
  EXPECT_EQ("set key_ability_code ok!key_ability_code:1081, ability_name:REAL_TYPE\r\n",
            screen.Type("set key_ability_code 1081"));
  EXPECT_EQ("set key_ability_code ok!key_ability_code:9, ability_name:NULL\r\n",
            screen.Type("set key_ability_code 9"));
  EXPECT_EQ("key_ability_code:         9\r\nability_name:       NULL\r\n",
            screen.Type("show key_ability_code"));
}

TEST_F(VtyOperatorSession, TestsNothing) { EXPECT_EQ("", screen.Type("test ability")); }

TEST_F(VtyOperatorSession, AMistypedLineChangesNothing) {
  AddProfile();
  screen.Type("del onu_ability_profile key 5 profile_type 1 profile_source 2");
  screen.Type("del ability code POTS_PORTS");
  screen.Type("set onu_common_type sfu x");
  EXPECT_EQ(1U, RealProfiles().size());
  EXPECT_EQ(CodeListing("POTS_PORTS", 1020, 0, 2), screen.Type("show ability code 1020"));
  EXPECT_EQ("common_sfu_type:       857\r\ncommon_hgu_type:       762\r\n",
            screen.Type("show onu_common_type"));
}

}  // namespace
}  // namespace olt_host
