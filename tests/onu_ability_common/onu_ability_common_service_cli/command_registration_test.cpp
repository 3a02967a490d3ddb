// How the commands reach the host's command framework.
#include "command_fixture.h"
#include "onu_ability_common_reg_extern_func.h"

namespace {

class CommandRegistrationTest : public CommandTest {};

TEST_F(CommandRegistrationTest, RegistersTheModuleWithItsTwoFunctions) {
  EXPECT_EQ(onu_ability_service_cbb_cli_init(), 0);
  ASSERT_EQ(host.modules().size(), 1U);
  EXPECT_EQ(host.modules()[0].name, "onu_ability");
  EXPECT_EQ(host.modules()[0].install, &onu_ability_service_cbb_cli_install_element);
  EXPECT_EQ(host.modules()[0].showrun, &onu_ability_service_cbb_cli_showrun);
}

TEST_F(CommandRegistrationTest, LeavesTheInstallationToTheFramework) {
  onu_ability_service_cbb_cli_init();
  EXPECT_TRUE(host.elements().empty());
}

TEST_F(CommandRegistrationTest, InstallsTheSixteenCommandsInOrder) {
  EXPECT_EQ(onu_ability_service_cbb_cli_install_element(), 0);
  const std::vector<cmd_element*> expected = {
      &cl_show_onu_ability_table_cmd,
      &cl_add_onutype_capa_table_cmd,
      &cl_set_onutype_capa_table_cmd,
      &cl_apply_add_onutype_capa_table_cmd,
      &cl_show_onu_ability_table_by_manual_cmd,
      &cl_del_onutype_capa_table_cmd,
      &cl_show_onu_ability_code_info_cmd,
      &cl_set_onu_ability_code_info_cmd,
      &cl_del_onu_ability_code_info_cmd,
      &cl_update_uint_ability_value_cmd,
      &cl_update_string_ability_value_cmd,
      &cl_set_onu_common_type_cmd,
      &cl_get_onu_common_type_cmd,
      &cl_set_key_ability_code_cmd,
      &cl_get_key_ability_code_cmd,
      &cl_test_onu_ability_cmd,
  };
  std::vector<cmd_element*> installed;
  for (const RecordingHost::InstalledElement& element : host.elements()) {
    EXPECT_EQ(element.node, 26U);
    installed.push_back(element.element);
  }
  EXPECT_EQ(installed, expected);
}

TEST_F(CommandRegistrationTest, InstallsUnderTheNodeThatTheHostSet) {
  OnuAbilityRegExternFunc::GetInstance()->SetCmdNode(77);
  onu_ability_service_cbb_cli_install_element();
  ASSERT_EQ(host.elements().size(), 16U);
  for (const RecordingHost::InstalledElement& element : host.elements()) {
    EXPECT_EQ(element.node, 77U);
  }
}

TEST_F(CommandRegistrationTest, RunningConfigurationHasNothingOfTheLibrary) {
  EXPECT_EQ(onu_ability_service_cbb_cli_showrun(), 0);
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

}  // namespace
