// The sixteen command records: syntax and handler of each.
#include "command_fixture.h"

namespace {

class CommandSyntaxTest : public CommandTest {
 protected:
  static void ExpectCommand(const cmd_element& command, const char* syntax,
                            int (*handler)(cmd_element*, vty*, int, char**)) {
    EXPECT_STREQ(command.string, syntax);
    EXPECT_EQ(command.func, handler) << syntax;
  }
};

TEST_F(CommandSyntaxTest, ShowTable) {
  ExpectCommand(cl_show_onu_ability_table_cmd,
                "show onucapa_table [match|real] <0-2> flag <0-1> {[real_type] <value>}*1",
                &cl_show_onu_ability_table_cmd_fun);
}

// The blank at the end is part of it.
TEST_F(CommandSyntaxTest, AddProfile) {
  ExpectCommand(cl_add_onutype_capa_table_cmd,
                "add onu_ability_profile key <value> profile_type <1-2> reporttype "
                "<onutype_code> realtype <onutype_code> vendorid [<string>|null] "
                "onu_type_name [<string>|null] ",
                &cl_add_onutype_capa_table_func);
}

TEST_F(CommandSyntaxTest, SetProfile) {
  ExpectCommand(cl_set_onutype_capa_table_cmd,
                "set onu_ability_profile [key] <value> {<value> [<0-65535>|null]}*8",
                &cl_set_onutype_capa_table_func);
}

TEST_F(CommandSyntaxTest, ApplyProfile) {
  ExpectCommand(cl_apply_add_onutype_capa_table_cmd, "apply onu_ability_profile key <value>",
                &cl_apply_add_onutype_capa_table_func);
}

TEST_F(CommandSyntaxTest, ShowTableByManual) {
  ExpectCommand(cl_show_onu_ability_table_by_manual_cmd,
                "show onucapa_table_by_manual_cmd flag <0-1>",
                &cl_show_onu_ability_table_by_manual_fun);
}

TEST_F(CommandSyntaxTest, DelProfile) {
  ExpectCommand(cl_del_onutype_capa_table_cmd,
                "del onu_ability_profile key <value> profile_type <1-2> profile_source <0-1>",
                &cl_del_onutype_capa_table_func);
}

TEST_F(CommandSyntaxTest, ShowAbilityCode) {
  ExpectCommand(cl_show_onu_ability_code_info_cmd, "show ability code {<value>}*1",
                &cl_show_onu_ability_code_info_fun);
}

TEST_F(CommandSyntaxTest, SetAbilityCode) {
  ExpectCommand(cl_set_onu_ability_code_info_cmd,
                "set ability_code <value> name <string> {<value> <value>}*8",
                &cl_set_onu_ability_code_info_fun);
}

TEST_F(CommandSyntaxTest, DelAbilityCode) {
  ExpectCommand(cl_del_onu_ability_code_info_cmd, "del ability code <value>",
                &cl_del_onu_ability_code_info_fun);
}

TEST_F(CommandSyntaxTest, UpdateNumber) {
  ExpectCommand(cl_update_uint_ability_value_cmd,
                "update onu_ability_profile key <value> profile_type <1-2> profile_source <0-1> "
                "ability_code <value> uint_ability_value <value>",
                &cl_update_uint_ability_value_func);
}

TEST_F(CommandSyntaxTest, UpdateString) {
  ExpectCommand(cl_update_string_ability_value_cmd,
                "update onu_ability_profile id <value> profile_type <1-2> profile_source <0-1> "
                "ability_code <value> string_ability_value <string>",
                &cl_update_string_ability_value_func);
}

TEST_F(CommandSyntaxTest, SetCommonType) {
  ExpectCommand(cl_set_onu_common_type_cmd, "set onu_common_type [sfu|hgu] <value>",
                &cl_set_onu_common_type_fun);
}

TEST_F(CommandSyntaxTest, ShowCommonType) {
  ExpectCommand(cl_get_onu_common_type_cmd, "show onu_common_type", &cl_get_onu_common_type_fun);
}

TEST_F(CommandSyntaxTest, SetKeyAbilityCode) {
  ExpectCommand(cl_set_key_ability_code_cmd, "set key_ability_code <value>",
                &cl_set_key_ability_code_fun);
}

TEST_F(CommandSyntaxTest, ShowKeyAbilityCode) {
  ExpectCommand(cl_get_key_ability_code_cmd, "show key_ability_code", &cl_get_key_ability_code_fun);
}

TEST_F(CommandSyntaxTest, TestAbility) {
  ExpectCommand(cl_test_onu_ability_cmd, "test ability", &cl_test_onu_ability_fun);
}

}  // namespace
