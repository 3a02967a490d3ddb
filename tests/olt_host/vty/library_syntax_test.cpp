// The library's sixteen commands as the host's grammar reads them: how an
// operator may type each, which arguments its handler gets, what is refused.
// The handlers are replaced, so that nothing but the grammar is seen.
#include <gtest/gtest.h>

#include <deque>

#include "onu_ability_common_service_cli.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

using Texts = std::vector<std::string>;
constexpr unsigned int kNode = 26;

const cmd_element* called = nullptr;
Texts arguments;

int Record(cmd_element* element, struct vty*, int argc, char** argv) {
  called = element;
  arguments.assign(argv, argv + argc);
  return 0;
}

const std::vector<const cmd_element*>& LibraryCommands() {
  static const std::vector<const cmd_element*> commands = {
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
  return commands;
}

class VtyLibrarySyntax : public ::testing::Test {
 protected:
  void SetUp() override {
    // Copies that live as long as the table that points to them.
    static std::deque<cmd_element> copies;
    if (copies.empty()) {
      for (const cmd_element* command : LibraryCommands()) {
        copies.push_back(cmd_element{command->string, Record, command->doc});
        ASSERT_EQ(0, install_element(kNode, &copies.back())) << command->string;
      }
    }
  }

  // The line runs `command` with these arguments.
  void ExpectRuns(const cmd_element& command, const std::string& line, const Texts& expected) {
    called = nullptr;
    EXPECT_EQ("", screen.Type(line)) << line;
    ASSERT_NE(nullptr, called) << line;
    EXPECT_STREQ(command.string, called->string) << line;
    EXPECT_EQ(expected, arguments) << line;
  }

  // The line runs nothing: the caret stands under byte `column`, then `message`.
  void ExpectRefused(const std::string& line, std::size_t column, const std::string& message) {
    called = nullptr;
    const LineEcho unseen{false, ""};
    ExecuteLine(screen.terminal(), kNode, line, unseen);
    EXPECT_EQ(line + "\r\n" + std::string(column, ' ') + "^\r\n% " + message + "\r\n",
              screen.Take());
    EXPECT_EQ(nullptr, called) << line;
  }

  Screen screen{kNode};
};

TEST_F(VtyLibrarySyntax, AllSixteenAreRead) {
  EXPECT_EQ(16U, CommandTable::Instance().Commands(kNode).size());
  EXPECT_TRUE(CommandTable::Instance().refusals().empty());
}

TEST_F(VtyLibrarySyntax, FirstWords) {
  ExpectRefused("frob", 0, "Unknown command");
  ExpectRefused("show", 5,
                "Command incomplete: expected onucapa_table, onucapa_table_by_manual_cmd, ability, "
                "onu_common_type, key_ability_code");
  ExpectRefused("a onu_ability_profile", 0, "Ambiguous command: \"a\" may be add, apply");
}

TEST_F(VtyLibrarySyntax, ShowOnucapaTable) {
  const cmd_element& command = cl_show_onu_ability_table_cmd;
  ExpectRuns(command, "show onucapa_table match 0 flag 1", {"match", "0", "1"});
  ExpectRuns(command, "show onucapa_table real 2 flag 0 real_type 1001",
             {"real", "2", "0", "real_type", "1001"});
  ExpectRuns(command, "sh onucapa_table r 2 f 0 r 7", {"real", "2", "0", "real_type", "7"});
  ExpectRefused("show onucapa match 0 flag 1", 5,
                "Ambiguous command: \"onucapa\" may be onucapa_table, onucapa_table_by_manual_cmd");
  ExpectRefused("show onucapa_table both 0 flag 1", 19, "Unknown command: expected match, real");
  ExpectRefused("show onucapa_table match 3 flag 1", 25, "Number out of range: 3 is not in <0-2>");
  ExpectRefused("show onucapa_table match 0 flag 2", 32, "Number out of range: 2 is not in <0-1>");
  ExpectRefused("show onucapa_table match 0 flag", 32, "Command incomplete: expected <0-1>");
  ExpectRefused("show onucapa_table match 0 flag 1 real_type", 44,
                "Command incomplete: expected <value>");
  ExpectRefused("show onucapa_table match 0 flag 1 real_type x", 44,
                "Not a number: \"x\", expected <value>");
  ExpectRefused("show onucapa_table match 0 flag 1 real_type 1 real_type 2", 46,
                "Too many arguments");
}

TEST_F(VtyLibrarySyntax, AddOnuAbilityProfile) {
  const cmd_element& command = cl_add_onutype_capa_table_cmd;
  ExpectRuns(command,
             "add onu_ability_profile key 5 profile_type 1 reporttype 1001 realtype 65535 vendorid "
             "ZKWM onu_type_name \"GE 4 WIFI\"",
             {"5", "1", "1001", "65535", "ZKWM", "GE 4 WIFI"});
  ExpectRuns(command, "ad o k 4294967295 p 2 rep 0 rea 0 v null o null",
             {"4294967295", "2", "0", "0", "null", "null"});
  ExpectRefused("add onu_ability_profile key 5 profile_type 3", 43,
                "Number out of range: 3 is not in <1-2>");
  ExpectRefused("add onu_ability_profile key 5 profile_type 1 reporttype 65536", 56,
                "Number out of range: 65536 is not in <0-65535>");
  ExpectRefused("add onu_ability_profile key 5 profile_type 1 reporttype x", 56,
                "Not a number: \"x\", expected <onutype_code>");
  ExpectRefused("add onu_ability_profile key 5 profile_type 1 realtype 1", 45,
                "Unknown command: expected reporttype");
  ExpectRefused("add o k 5 p 1 rep 1 rea 1 v A onu_type_name", 44,
                "Command incomplete: expected <string>, null");
  ExpectRefused("add o k 5 p 1 rep 1 rea 1 v A o B C", 34, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, SetOnuAbilityProfile) {
  const cmd_element& command = cl_set_onutype_capa_table_cmd;
  ExpectRuns(command, "set onu_ability_profile key 5", {"key", "5"});
  ExpectRuns(command, "set onu_a k 5 1010 4 1011 null", {"key", "5", "1010", "4", "1011", "null"});
  ExpectRuns(command, "set onu_ability_profile key 5 1 1 2 2 3 3 4 4 5 5 6 6 7 7 8 65535",
             {"key", "5", "1", "1", "2", "2", "3", "3", "4", "4", "5", "5", "6", "6", "7", "7", "8",
              "65535"});
  ExpectRefused("set onu_ability_profile key 5 1 1 2 2 3 3 4 4 5 5 6 6 7 7 8 8 9 9", 62,
                "Too many arguments");
  ExpectRefused("set onu_ability_profile key 5 1010 65536", 35,
                "Number out of range: 65536 is not in <0-65535>");
  ExpectRefused("set onu_ability_profile key 5 1010", 35,
                "Command incomplete: expected <0-65535>, null");
  ExpectRefused("set onu_ability_profile key 5 1010 none", 35,
                "Unknown command: expected <0-65535>, null");
  ExpectRefused("set onu_ability_profile 5", 24, "Unknown command: expected key");
  ExpectRefused("set onu key 5", 4,
                "Ambiguous command: \"onu\" may be onu_ability_profile, onu_common_type");
}

TEST_F(VtyLibrarySyntax, ApplyOnuAbilityProfile) {
  const cmd_element& command = cl_apply_add_onutype_capa_table_cmd;
  ExpectRuns(command, "apply onu_ability_profile key 5", {"5"});
  ExpectRuns(command, "ap o k 5", {"5"});
  ExpectRefused("apply onu_ability_profile key", 30, "Command incomplete: expected <value>");
  ExpectRefused("apply onu_ability_profile key 4294967296", 30,
                "Number out of range: 4294967296 is not in <0-4294967295>");
  ExpectRefused("apply onu_ability_profile key 5 6", 32, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, ShowOnucapaTableByManualCmd) {
  const cmd_element& command = cl_show_onu_ability_table_by_manual_cmd;
  ExpectRuns(command, "show onucapa_table_by_manual_cmd flag 1", {"1"});
  ExpectRuns(command, "sh onucapa_table_ f 0", {"0"});
  ExpectRefused("show onucapa_table_by_manual_cmd flag 2", 38,
                "Number out of range: 2 is not in <0-1>");
  ExpectRefused("show onucapa_table_by_manual_cmd", 33, "Command incomplete: expected flag");
  ExpectRefused("show onucapa_table_by_manual_cmd flag 1 1", 40, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, DelOnuAbilityProfile) {
  const cmd_element& command = cl_del_onutype_capa_table_cmd;
  ExpectRuns(command, "del onu_ability_profile key 5 profile_type 2 profile_source 1",
             {"5", "2", "1"});
  ExpectRuns(command, "d o k 5 profile_t 1 profile_s 0", {"5", "1", "0"});
  ExpectRefused("del onu_ability_profile key 5 profile_type 0 profile_source 1", 43,
                "Number out of range: 0 is not in <1-2>");
  ExpectRefused("del onu_ability_profile key 5 profile_type 1 profile_source 2", 60,
                "Number out of range: 2 is not in <0-1>");
  ExpectRefused("del onu_ability_profile key 5 profile_type 1", 45,
                "Command incomplete: expected profile_source");
  ExpectRefused("del onu_ability_profile key 5 profile_type 1 profile_source 1 now", 62,
                "Too many arguments");
}

TEST_F(VtyLibrarySyntax, ShowAbilityCode) {
  const cmd_element& command = cl_show_onu_ability_code_info_cmd;
  ExpectRuns(command, "show ability code", {});
  ExpectRuns(command, "sh ab co 1010", {"1010"});
  ExpectRefused("show ability", 13, "Command incomplete: expected code");
  ExpectRefused("show ability code 4294967296", 18,
                "Number out of range: 4294967296 is not in <0-4294967295>");
  ExpectRefused("show ability code 1 2", 20, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, ShowAbilityCodeTakesANameToo) {
  const cmd_element& command = cl_show_onu_ability_code_info_cmd;
  ExpectRuns(command, "show ability code GE_PORTS", {"GE_PORTS"});
  ExpectRuns(command, "show ability code lan", {"lan"});
  ExpectRuns(command, "show ability code 10GE", {"10GE"});
  ExpectRuns(command, "show ability code \"GE PORTS\"", {"GE PORTS"});
  ExpectRefused("show ability code \"\"", 18, "Not a number: \"\", expected <value>");
}

TEST_F(VtyLibrarySyntax, NoOtherCommandTakesANameForANumber) {
  ExpectRefused("del ability code GE_PORTS", 17, "Not a number: \"GE_PORTS\", expected <value>");
  ExpectRefused("set key_ability_code GE_PORTS", 21,
                "Not a number: \"GE_PORTS\", expected <value>");
  ExpectRefused("set ability_code GE_PORTS name X", 17,
                "Not a number: \"GE_PORTS\", expected <value>");
}

TEST_F(VtyLibrarySyntax, SetAbilityCode) {
  const cmd_element& command = cl_set_onu_ability_code_info_cmd;
  ExpectRuns(command, "set ability_code 1010 name FE_PORTS", {"1010", "FE_PORTS"});
  ExpectRuns(command, "set a 1010 n \"FE PORTS\" 4 3 5 2",
             {"1010", "FE PORTS", "4", "3", "5", "2"});
  ExpectRuns(
      command, "set ability_code 1 name 2 1 1 2 2 3 3 4 4 5 5 6 6 7 7 8 8",
      {"1", "2", "1", "1", "2", "2", "3", "3", "4", "4", "5", "5", "6", "6", "7", "7", "8", "8"});
  ExpectRefused("set ability_code 1 name 2 1 1 2 2 3 3 4 4 5 5 6 6 7 7 8 8 9 9", 58,
                "Too many arguments");
  ExpectRefused("set ability_code 1010 name FE_PORTS 4", 38,
                "Command incomplete: expected <value>");
  ExpectRefused("set ability_code 1010 FE_PORTS", 22, "Unknown command: expected name");
}

TEST_F(VtyLibrarySyntax, DelAbilityCode) {
  const cmd_element& command = cl_del_onu_ability_code_info_cmd;
  ExpectRuns(command, "del ability code 1010", {"1010"});
  ExpectRuns(command, "d a c 1010", {"1010"});
  ExpectRefused("del ability code", 17, "Command incomplete: expected <value>");
  ExpectRefused("del ability code -1", 17, "Not a number: \"-1\", expected <value>");
  ExpectRefused("del ability code 1 2", 19, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, UpdateNumber) {
  const cmd_element& command = cl_update_uint_ability_value_cmd;
  ExpectRuns(command,
             "update onu_ability_profile key 5 profile_type 1 profile_source 1 ability_code 1010 "
             "uint_ability_value 8",
             {"5", "1", "1", "1010", "8"});
  ExpectRuns(command, "u o k 5 profile_t 1 profile_s 1 a 1010 u 8", {"5", "1", "1", "1010", "8"});
  ExpectRefused("update onu_ability_profile key 5 profile_type 1 profile_source 2", 63,
                "Number out of range: 2 is not in <0-1>");
  ExpectRefused("u o k 5 profile_t 1 profile_s 1 a 1010 string_ability_value x", 39,
                "Unknown command: expected uint_ability_value");
  ExpectRefused("u o k 5 profile_t 1 profile_s 1 a 1010 u", 41,
                "Command incomplete: expected <value>");
  ExpectRefused("u o k 5 profile_t 1 profile_s 1 a 1010 u 8 9", 43, "Too many arguments");
  ExpectRefused("update onu_ability_profile", 27, "Command incomplete: expected key, id");
}

TEST_F(VtyLibrarySyntax, UpdateString) {
  const cmd_element& command = cl_update_string_ability_value_cmd;
  ExpectRuns(command,
             "update onu_ability_profile id 5 profile_type 2 profile_source 0 ability_code 1083 "
             "string_ability_value \"GE 4\"",
             {"5", "2", "0", "1083", "GE 4"});
  ExpectRuns(command, "u o i 5 profile_t 2 profile_s 0 a 1083 s 12", {"5", "2", "0", "1083", "12"});
  ExpectRefused("u o i 5 profile_t 2 profile_s 0 a 1083 u 8", 39,
                "Unknown command: expected string_ability_value");
  ExpectRefused("u o i 5 profile_t 2 profile_s 0 a 1083 s", 41,
                "Command incomplete: expected <string>");
  ExpectRefused("u o i 5 profile_t 2 profile_s 0 a 1083 s a b", 43, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, SetOnuCommonType) {
  const cmd_element& command = cl_set_onu_common_type_cmd;
  ExpectRuns(command, "set onu_common_type sfu 857", {"sfu", "857"});
  ExpectRuns(command, "set onu_c h 762", {"hgu", "762"});
  ExpectRefused("set onu_common_type xyz 3", 20, "Unknown command: expected sfu, hgu");
  ExpectRefused("set onu_common_type sfu", 24, "Command incomplete: expected <value>");
  ExpectRefused("set onu_common_type sfu 1 2", 26, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, ShowOnuCommonType) {
  const cmd_element& command = cl_get_onu_common_type_cmd;
  ExpectRuns(command, "show onu_common_type", {});
  ExpectRuns(command, "sh onu_", {});
  ExpectRefused("show onu", 5,
                "Ambiguous command: \"onu\" may be onucapa_table, onucapa_table_by_manual_cmd, "
                "onu_common_type");
  ExpectRefused("show onu_common_type sfu", 21, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, SetKeyAbilityCode) {
  const cmd_element& command = cl_set_key_ability_code_cmd;
  ExpectRuns(command, "set key_ability_code 1085", {"1085"});
  ExpectRuns(command, "se k 1081", {"1081"});
  ExpectRefused("set key_ability_code", 21, "Command incomplete: expected <value>");
  ExpectRefused("set key_ability_code 1 2", 23, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, ShowKeyAbilityCode) {
  const cmd_element& command = cl_get_key_ability_code_cmd;
  ExpectRuns(command, "show key_ability_code", {});
  ExpectRuns(command, "sh key", {});
  ExpectRefused("show key_ability_code 1085", 22, "Too many arguments");
}

TEST_F(VtyLibrarySyntax, TestAbility) {
  const cmd_element& command = cl_test_onu_ability_cmd;
  ExpectRuns(command, "test ability", {});
  ExpectRuns(command, "t a", {});
  ExpectRefused("test", 5, "Command incomplete: expected ability");
  ExpectRefused("test ability code", 13, "Too many arguments");
}

}  // namespace
}  // namespace olt_host
