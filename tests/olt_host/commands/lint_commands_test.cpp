// lint catalogue, on the small fixture and after an operator's change.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "command_session.h"
#include "commands/host_commands.h"

namespace olt_host_test {
namespace {

// The text with every line break and what indents the next line as one blank.
std::string Unwrapped(const std::string& text) {
  return std::regex_replace(text, std::regex("[\\r\\n]+ *"), " ");
}

class LintCommands : public testing::Test {
 protected:
  CommandSession _session{{olt_host::InstallLintCommands}};
};

TEST_F(LintCommands, CountsNotesOfASoundCatalogue) {
  const std::string text = _session.Type("lint catalogue");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "No errors, no warnings in 13 codes, 3 real profiles, 3 match profiles, 7\r\n"
            "  reports.\r\n"
            "\r\n"
            "Notes, which good catalogues have, too:\r\n"
            "  dropped-value     1  zeros, which are not stored\r\n"
            "\r\n"
            "\"lint catalogue all\" lists everything.\r\n");
}

TEST_F(LintCommands, ListsNotes) {
  const std::string text = _session.Type("lint catalogue all");
  ExpectFitsScreen(text);
  // Each finding begins with its file, so where its line wraps is up to the path
  // of the checkout.
  EXPECT_NE(Unwrapped(text).find("note: real profile 1001 [dropped-value]"), std::string::npos)
      << text;
}

TEST_F(LintCommands, FindsWhatAnOperatorMade) {
  _session.Type(
      "add onu_ability_profile key 1001 profile_type 2 reporttype 1001 realtype 1001 vendorid null "
      "onu_type_name null");
  _session.Type("apply onu_ability_profile key 1001");
  const auto json = _session.TypeJson("lint catalogue json");
  EXPECT_EQ(json["summary"]["match_profiles"], 4);
  EXPECT_EQ(json["summary"]["errors"], 2);  // takes everything, and 1001 is dead by that
  EXPECT_EQ(json["findings"][0]["source"], "operator");
  EXPECT_EQ(json["findings"][0]["file"], nullptr);
  EXPECT_EQ(json["match_profiles"][0]["reached_by_abilities"], false);
}

TEST_F(LintCommands, IsForReadOnlyOperators) {
  _session.terminal().settings().access = olt_host::Access::kReadOnly;
  _session.Type("lint catalogue");
  EXPECT_TRUE(_session.last().ok());
}

}  // namespace
}  // namespace olt_host_test
