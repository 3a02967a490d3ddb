// The help text of every command, a line a token.
#include <regex>

#include "command_fixture.h"

namespace {

class CommandHelpTest : public CommandTest {
 protected:
  // Every line with its line break, the last one included.
  static std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
      text += line + "\r\n";
    }
    return text;
  }

  static std::vector<std::string> Split(const std::string& text, const std::string& separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos;
         end = text.find(separator, start)) {
      parts.push_back(text.substr(start, end - start));
      start = end + separator.size();
    }
    parts.push_back(text.substr(start));
    return parts;
  }
};

// The source line names all three sources; how it words source 0 is free.
TEST_F(CommandHelpTest, ShowTable) {
  std::vector<std::string> lines = Split(cl_show_onu_ability_table_cmd.doc, "\r\n");
  ASSERT_EQ(lines.size(), 8U);
  const std::vector<std::string> sources = Split(lines[4], ";");
  ASSERT_GE(sources.size(), 3U);
  EXPECT_TRUE(std::regex_match(sources[0], std::regex("0[^0-9].+"))) << sources[0];
  EXPECT_TRUE(std::regex_match(sources[1],
                               std::regex("1[^0-9]+table items which are added by cmd manually")))
      << sources[1];
  EXPECT_TRUE(std::regex_match(sources[2], std::regex("2[^0-9]+all table items"))) << sources[2];
  lines[4] = "sources";
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "show onucapa_table", "onu capability table ",
                       "match -- match table of onu ability;", "real -- real table of onu ability",
                       "sources", "flag:whether show default ability value?",
                       "0:don't show default value;1:show default value", ""}));
}

// Which ONU types are listed belongs to the installation.
TEST_F(CommandHelpTest, AddProfile) {
  std::vector<std::string> lines = Split(cl_add_onutype_capa_table_cmd.doc, "\r\n");
  ASSERT_EQ(lines.size(), 15U);
  EXPECT_TRUE(std::regex_match(lines[7], std::regex("([0-9]+:[^:;]+;)+"))) << lines[7];
  EXPECT_EQ(lines[7], lines[9]);
  lines[7] = lines[9] = "types";
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "add onu_ability_profile", "onu_ability_profile", "key ability value",
                       "key ability value",
                       "onu ability profile type(onu_real_profile or onu_match_profile)",
                       "1:onu_real_profile;2:onu_match_profile", "onu_reporttype", "types",
                       "onu_realtype", "types", "vendorid", "VENDORID,such as:ZKWM",
                       "null:don't care vendorid", "onu type name", ""}));
}

TEST_F(CommandHelpTest, SetProfile) {
  EXPECT_EQ(cl_set_onutype_capa_table_cmd.doc,
            Lines({"set onu_ability_profile", "onu_ability_profile", "key_ability_value",
                   "key ability value", "ability code", "0-254:num of the capa",
                   "null:don't care num of the capa"}));
}

TEST_F(CommandHelpTest, ApplyProfile) {
  EXPECT_EQ(cl_apply_add_onutype_capa_table_cmd.doc,
            Lines({"apply onu_ability_profile", "onu_ability_profile", "key ability value",
                   "key ability value"}));
}

TEST_F(CommandHelpTest, ShowTableByManual) {
  EXPECT_EQ(cl_show_onu_ability_table_by_manual_cmd.doc,
            Lines({"show onucapa_table_by_manual_cmd", "onucapa_table_by_manual_cmd",
                   "flag:whether show default ability value?",
                   "0:don't show default value;1:show default value"}));
}

// The one text without a line break at its end.
TEST_F(CommandHelpTest, DelProfile) {
  EXPECT_EQ(
      cl_del_onutype_capa_table_cmd.doc,
      Lines({"delete onu_ability_profile", "onu_ability_profile", "key ability value",
             "key ability value", "onu ability profile type(onu_match_table or onu_real_table)",
             "1:onu_real_profile;2:onu_match_profile", "profile source(from default or extenal)"}) +
          "0:from default;1:from external");
}

TEST_F(CommandHelpTest, ShowAbilityCode) {
  EXPECT_EQ(
      cl_show_onu_ability_code_info_cmd.doc,
      Lines({"show ability code", "ability code", "ability code", "ability code value or name"}));
}

TEST_F(CommandHelpTest, SetAbilityCode) {
  EXPECT_EQ(cl_set_onu_ability_code_info_cmd.doc,
            Lines({"set ability code", "ability code", "ability code value", "ability name",
                   "ability name string", "ability attribute id", "ability attribute value"}));
}

TEST_F(CommandHelpTest, DelAbilityCode) {
  EXPECT_EQ(cl_del_onu_ability_code_info_cmd.doc,
            Lines({"delete ability code", "ability code", "ability code", "ability code value"}));
}

TEST_F(CommandHelpTest, UpdateNumber) {
  EXPECT_EQ(cl_update_uint_ability_value_cmd.doc,
            Lines({"update onu_ability_profile", "onu_ability_profile", "key_ability_value",
                   "key_ability_value", "profile_type", "1:onu_real_profile;2:onu_match_profile",
                   "profile_source", "0:profile added by default;1:profile added by external",
                   "ability code", "ability code", "unsigned short ability value",
                   "unsigned short ability value"}));
}

TEST_F(CommandHelpTest, UpdateString) {
  EXPECT_EQ(
      cl_update_string_ability_value_cmd.doc,
      Lines({"update onu_ability_profile", "onu_ability_profile", "profile index", "profile index",
             "profile_type", "1:onu_real_profile;2:onu_match_profile", "profile_source",
             "0:profile added by default;1:profile added by external", "ability code",
             "ability code", "string ability value", "string ability value"}));
}

TEST_F(CommandHelpTest, SetCommonType) {
  EXPECT_EQ(cl_set_onu_common_type_cmd.doc,
            Lines({"set onu common type", "onu common type", "sfu", "hgu", "onu type code"}));
}

TEST_F(CommandHelpTest, ShowCommonType) {
  EXPECT_EQ(cl_get_onu_common_type_cmd.doc, Lines({"show onu common type", "onu common type"}));
}

TEST_F(CommandHelpTest, SetKeyAbilityCode) {
  EXPECT_EQ(cl_set_key_ability_code_cmd.doc,
            Lines({"set key_ability_code", "key_ability_code", "key ability code"}));
}

TEST_F(CommandHelpTest, ShowKeyAbilityCode) {
  EXPECT_EQ(cl_get_key_ability_code_cmd.doc, Lines({"show key_ability_code", "key_ability_code"}));
}

TEST_F(CommandHelpTest, TestAbility) {
  EXPECT_EQ(cl_test_onu_ability_cmd.doc, Lines({"test ability", "ability"}));
}

}  // namespace
