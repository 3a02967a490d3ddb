// The commands on the common types and the key ability code, and the one that
// does nothing.
#include "command_fixture.h"

namespace {

class CommandSettingTest : public CommandTest {
 protected:
  static const OnuAbilityGlobalVar& Settings() { return *OnuAbilityGlobalVar::GetInstance(); }
};

// --- The common types.

TEST_F(CommandSettingTest, SetCommonTypeSfu) {
  EXPECT_EQ(Run(cl_set_onu_common_type_cmd, {"sfu", "900"}), 0U);
  EXPECT_EQ(output, "set onu common type ok!common_type:900\r\n");
  EXPECT_EQ(Settings()._sfu_common_type, 900U);
  EXPECT_EQ(Settings()._hgu_common_type, 762U);
}

TEST_F(CommandSettingTest, SetCommonTypeHgu) {
  EXPECT_EQ(Run(cl_set_onu_common_type_cmd, {"hgu", "901"}), 0U);
  EXPECT_EQ(output, "set onu common type ok!common_type:901\r\n");
  EXPECT_EQ(Settings()._sfu_common_type, 857U);
  EXPECT_EQ(Settings()._hgu_common_type, 901U);
}

TEST_F(CommandSettingTest, SetCommonTypeOfAnyOtherWordSetsTheHguType) {
  EXPECT_EQ(Run(cl_set_onu_common_type_cmd, {"xyz", "3"}), 0U);
  EXPECT_EQ(output, "set onu common type ok!common_type:3\r\n");
  EXPECT_EQ(Settings()._sfu_common_type, 857U);
  EXPECT_EQ(Settings()._hgu_common_type, 3U);
  EXPECT_EQ(Run(cl_set_onu_common_type_cmd, {"SFU", "4"}), 0U);
  EXPECT_EQ(Settings()._hgu_common_type, 4U);
}

TEST_F(CommandSettingTest, ShowCommonTypeAlignsBothTypes) {
  EXPECT_EQ(Run(cl_get_onu_common_type_cmd, {}), 0U);
  EXPECT_EQ(output,
            "common_sfu_type:       857\r\n"
            "common_hgu_type:       762\r\n");
}

TEST_F(CommandSettingTest, ShowCommonTypeShowsWhatWasSet) {
  Run(cl_set_onu_common_type_cmd, {"sfu", "65535"});
  Run(cl_set_onu_common_type_cmd, {"hgu", "0"});
  EXPECT_EQ(Run(cl_get_onu_common_type_cmd, {}), 0U);
  EXPECT_EQ(output,
            "common_sfu_type:     65535\r\n"
            "common_hgu_type:         0\r\n");
}

// --- The key ability code.

TEST_F(CommandSettingTest, SetKeyAbilityCodePrintsItsName) {
  DefineUsualCodes();
  EXPECT_EQ(Run(cl_set_key_ability_code_cmd, {"1081"}), 0U);
  EXPECT_EQ(output, "set key_ability_code ok!key_ability_code:1081, ability_name:REAL_TYPE\r\n");
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 1081U);
}

TEST_F(CommandSettingTest, SetKeyAbilityCodeDoesNotAskForARegisteredCode) {
  EXPECT_EQ(Run(cl_set_key_ability_code_cmd, {"5000"}), 0U);
  EXPECT_EQ(output, "set key_ability_code ok!key_ability_code:5000, ability_name:NULL\r\n");
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 5000U);
}

TEST_F(CommandSettingTest, SetKeyAbilityCodeCutsTheCodeTo16Bits) {
  Run(cl_set_key_ability_code_cmd, {"66617"});  // 65536 + 1081
  EXPECT_EQ(output, "set key_ability_code ok!key_ability_code:1081, ability_name:NULL\r\n");
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 1081U);
}

TEST_F(CommandSettingTest, ShowKeyAbilityCodeAlignsCodeAndName) {
  DefineUsualCodes();
  EXPECT_EQ(Run(cl_get_key_ability_code_cmd, {}), 0U);
  EXPECT_EQ(output,
            "key_ability_code:      1085\r\n"
            "ability_name:  KEY_VALUE\r\n");
}

TEST_F(CommandSettingTest, ShowKeyAbilityCodeDoesNotCutALongName) {
  DefineUsualCodes();
  Run(cl_set_key_ability_code_cmd, {"65533"});
  Run(cl_get_key_ability_code_cmd, {});
  EXPECT_EQ(output,
            "key_ability_code:     65533\r\n"
            "ability_name: DATA_UNI_TOTAL\r\n");
}

TEST_F(CommandSettingTest, ShowKeyAbilityCodeOfAnUnknownCodeSaysNull) {
  EXPECT_EQ(Run(cl_get_key_ability_code_cmd, {}), 0U);
  EXPECT_EQ(output,
            "key_ability_code:      1085\r\n"
            "ability_name:       NULL\r\n");
}

// --- test ability

TEST_F(CommandSettingTest, TestAbilityDoesNothing) {
  EXPECT_EQ(Run(cl_test_onu_ability_cmd, {}), 0U);
  EXPECT_EQ(output, "");
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

}  // namespace
