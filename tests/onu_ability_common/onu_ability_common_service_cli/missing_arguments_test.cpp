// A framework that passes fewer arguments than the syntax asks for does not
// bring the process down: a missing argument is the empty text.
#include "command_fixture.h"

namespace {

struct ShortCommand {
  cmd_element* command;
  std::vector<std::string> arguments;
  const char* name;
};

class CommandMissingArgumentTest : public CommandOnTablesTest,
                                   public ::testing::WithParamInterface<ShortCommand> {};

// Every shorter list, with and without a pending profile.
TEST_P(CommandMissingArgumentTest, IsTheEmptyText) {
  for (const bool pending : {false, true}) {
    if (pending) {
      Run(cl_add_onutype_capa_table_cmd, {"5", "1", "600", "601", "ZKWM", "HOME-1"});
    }
    std::vector<std::string> arguments = GetParam().arguments;
    while (!arguments.empty()) {
      arguments.pop_back();
      const unsigned int result = Run(*GetParam().command, arguments);
      if (GetParam().command != &cl_apply_add_onutype_capa_table_cmd || !pending) {
        EXPECT_EQ(result, 0U) << arguments.size() << " arguments";
      } else {
        EXPECT_EQ(result, ONU_ABILITY_RET_INVALID_PARAM);
      }
      host.ForgetLog();
    }
  }
}

const ShortCommand kShortCommands[] = {
    {&cl_show_onu_ability_table_cmd, {"match", "2", "1", "real_type", "601"}, "ShowTable"},
    {&cl_add_onutype_capa_table_cmd, {"5", "1", "600", "601", "ZKWM", "HOME-1"}, "AddProfile"},
    {&cl_set_onutype_capa_table_cmd, {"key", "5", "1020", "2", "1010", "4"}, "SetProfile"},
    {&cl_apply_add_onutype_capa_table_cmd, {"5"}, "ApplyProfile"},
    {&cl_show_onu_ability_table_by_manual_cmd, {"1"}, "ShowTableByManual"},
    {&cl_del_onutype_capa_table_cmd, {"5", "1", "0"}, "DelProfile"},
    {&cl_show_onu_ability_code_info_cmd, {"1010"}, "ShowAbilityCode"},
    {&cl_set_onu_ability_code_info_cmd, {"2000", "NEW_CODE", "1", "3", "4", "7"}, "SetAbilityCode"},
    {&cl_del_onu_ability_code_info_cmd, {"1010"}, "DelAbilityCode"},
    {&cl_update_uint_ability_value_cmd, {"5", "1", "0", "1020", "4"}, "UpdateNumber"},
    {&cl_update_string_ability_value_cmd, {"5", "1", "0", "1083", "HOME-1"}, "UpdateString"},
    {&cl_set_onu_common_type_cmd, {"sfu", "900"}, "SetCommonType"},
    {&cl_set_key_ability_code_cmd, {"1081"}, "SetKeyAbilityCode"},
};

std::string NameOf(const ::testing::TestParamInfo<ShortCommand>& command) {
  return command.param.name;
}

INSTANTIATE_TEST_SUITE_P(EachCommand, CommandMissingArgumentTest,
                         ::testing::ValuesIn(kShortCommands), NameOf);

class CommandShortArgumentsTest : public CommandOnTablesTest {};

TEST_F(CommandShortArgumentsTest, MissingKeyReadsAs0) {
  Run(cl_add_onutype_capa_table_cmd, {"5", "1", "600", "601", "ZKWM", "HOME-1"});
  EXPECT_EQ(Run(cl_apply_add_onutype_capa_table_cmd, {}), ONU_ABILITY_RET_INVALID_PARAM);
  EXPECT_EQ(output,
            "key_ability_value is not exist!invalid key_ability_value:0,"
            "valid key_ability_value:5\r\n");
}

// Four arguments already ask for one real type.
TEST_F(CommandShortArgumentsTest, MissingRealTypeReadsAs0) {
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"match", "2", "1", "real_type"}), 0U);
  EXPECT_EQ(output, "GetOnuAllAbilityValue failed!onu_real_type:0\r\n\r\n");
}

}  // namespace
