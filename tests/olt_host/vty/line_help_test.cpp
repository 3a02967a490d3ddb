// The answer to '?'.
#include <gtest/gtest.h>

#include <sstream>

#include "onu_ability_common_service_cli.h"
#include "text/columns.h"
#include "vty/command_table.h"
#include "vty/line_help.h"
#include "vty/screen.h"
#include "vty/value_hints.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 17;

int Nothing(cmd_element*, struct vty*, int, char**) { return 0; }

// What '?' shows behind `text`.
std::string Help(unsigned int node, const std::string& text) {
  std::string error;
  const std::string help = RenderHelp(HelpFor(node, text, &error));
  return help + error;
}

cmd_element commands[] = {
    {"show version {[json]}*1", Nothing, "show\nthe version\nas JSON\n"},
    {"show port <1-40>", Nothing, "show\na port\nport number\n"},
    {"set port <1-40> [on|off]", Nothing, "set a port\nthe port\nport number\nswitch it on\n"},
    {"set name [<string>|null]", Nothing, "set a name\nthe name\nany text\nno name\n"},
};

class VtyLineHelp : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element& command : commands) install_element(kNode, &command);
  }

  static void Expect(const std::string& text, const std::string& help) {
    EXPECT_EQ(help, Help(kNode, text)) << "\"" << text << "?\"";
  }

  static void Know(std::size_t count) {
    ValueHints::Instance().Offer("<1-40>", "port number", [count] {
      std::vector<ValueHint> hints;
      for (std::size_t i = 1; i <= count; ++i) {
        hints.push_back({std::to_string(i), i == 1 ? "uplink" : ""});
      }
      return hints;
    });
  }
};

TEST_F(VtyLineHelp, ShowsWhatALineMayBeginWith) {
  Expect("",
         "  show  show\r\n"
         "  set   set a port; set a name\r\n");
  Expect("  ", Help(kNode, ""));
}

TEST_F(VtyLineHelp, ShowsTheKeywordsThatTheWordBegins) {
  Expect("sh", "  show  show\r\n");
  Expect("show", "  show  show\r\n");
  Expect("set n", "  name  the name\r\n");
}

TEST_F(VtyLineHelp, ShowsWhatMayFollow) {
  Expect("show ",
         "  version  the version\r\n"
         "  port     a port\r\n");
  Expect("se po 3 ",
         "  on   switch it on\r\n"
         "  off\r\n");
}

TEST_F(VtyLineHelp, MarksWhereTheLineMayEnd) {
  Expect("show version ",
         "  json  as JSON\r\n"
         "  |     filter or save the output\r\n"
         "  <cr>\r\n");
  Expect("show port 3 ",
         "  |     filter or save the output\r\n"
         "  <cr>\r\n");
  Expect("show version", "  version  the version\r\n");
}

TEST_F(VtyLineHelp, ShowsValuesThatTheWordMayBecome) {
  Expect("show port 3", "  <1-40>  port number\r\n");
  Expect("show port 03", "  <1-40>  port number\r\n");
  Expect("set name n",
         "  <string>  any text\r\n"
         "  null      no name\r\n");
  Expect("set name \"n\"", "  <string>  any text\r\n");
}

TEST_F(VtyLineHelp, ADigitMayBeginALargerNumber) {
  static cmd_element far_cmd = {"far <300-310>", Nothing, "far\nfar away\n"};
  install_element(kNode, &far_cmd);
  Expect("far 3", "  <300-310>  far away\r\n");
  Expect("far 30", "  <300-310>  far away\r\n");
  Expect("far 4", "Number out of range: 4 is not in <300-310>");
  Expect("far 311", "Number out of range: 311 is not in <300-310>");
}

TEST_F(VtyLineHelp, SaysWhatIsWrongWithTheLine) {
  Expect("frob", "Unknown command");
  Expect("show frob ", "Unknown command: expected version, port");
  Expect("s v", "Ambiguous command: \"s\" may be show, set");
  Expect("show port 41", "Number out of range: 41 is not in <1-40>");
  Expect("show port x ", "Not a number: \"x\", expected <1-40>");
  Expect("show version json x ", "Too many arguments");
  Expect("set name \"x", "Missing closing quote");
}

TEST_F(VtyLineHelp, SaysWhereTheLineIsWrong) {
  std::string error;
  std::size_t column = 0;
  EXPECT_TRUE(HelpFor(kNode, "  show port 41", &error, &column).empty());
  EXPECT_EQ(12U, column);
  EXPECT_TRUE(HelpFor(kNode, "show version | frob ", &error, &column).empty());
  EXPECT_EQ(15U, column);
  EXPECT_FALSE(HelpFor(kNode, "show ", &error, &column).empty());
  EXPECT_EQ(0U, column);
}

TEST_F(VtyLineHelp, HasNothingToSayInARemark) {
  Expect("!", "");
  Expect("  ! show ", "");
}

TEST_F(VtyLineHelp, TheErrorIsOptional) {
  EXPECT_TRUE(HelpFor(kNode, "frob", nullptr).empty());
  std::string error = "old";
  EXPECT_FALSE(HelpFor(kNode, "show", &error).empty());
  EXPECT_EQ("", error);
}

TEST_F(VtyLineHelp, ListsTheValuesThatTheHostKnows) {
  Know(3);
  Expect("show port ",
         "  <1-40>  port number\r\n"
         "    1     uplink\r\n"
         "    2\r\n"
         "    3\r\n");
  Expect("set port 2",
         "  <1-40>  port number\r\n"
         "    2\r\n");
}

TEST_F(VtyLineHelp, ListsTwentyOfManyValues) {
  Know(40);
  const std::string help = Help(kNode, "show port ");
  EXPECT_NE(std::string::npos, help.find("\r\n    20\r\n"));
  EXPECT_EQ(std::string::npos, help.find("\r\n    21\r\n"));
  EXPECT_NE(std::string::npos, help.find("\r\n    ... and 20 more\r\n"));
}

TEST_F(VtyLineHelp, KnowsTheFilters) {
  Expect("show version | ",
         "  include  print only the lines that hold TEXT\r\n"
         "  exclude  print only the lines that do not hold TEXT\r\n"
         "  begin    print from the first line on that holds TEXT\r\n"
         "  section  print the sections that hold TEXT\r\n"
         "  count    print the number of lines that hold TEXT\r\n"
         "  save     write the output to a new file\r\n");
  Expect("show version | s",
         "  section  print the sections that hold TEXT\r\n"
         "  save     write the output to a new file\r\n");
  Expect("show version |", "  |  filter or save the output\r\n");
  Expect("show version | inc ", "  TEXT  a word, \"a text\", or all words up to the next |\r\n");
  Expect("show version | inc x ",
         "  TEXT  a word, \"a text\", or all words up to the next |\r\n"
         "  |     filter or save the output\r\n"
         "  <cr>\r\n");
  Expect("show version | save ", "  FILE  the file, which must not be there yet\r\n");
  Expect("show version | save f ", "  <cr>\r\n");
  Expect("show version | save f | ", "Nothing is left to filter behind save");
  Expect("show version | frob ",
         "Unknown filter: expected include, exclude, begin, section, count, save");
  Expect("show | ", "Command incomplete: expected version, port");
}

TEST(VtyRenderHelp, ATokenThatIsTooLongHasALineOfItsOwn) {
  const std::string token(40, 't');
  EXPECT_EQ("  " + token + "\r\n         its help\r\n  short  help\r\n",
            RenderHelp({{token, "its help"}, {"short", "help"}}));
}

TEST(VtyRenderHelp, ShowsNoControlCharacters) {
  EXPECT_EQ("  a?b  c?d\r\n", RenderHelp({{"a\x1b"
                                           "b",
                                           "c\x07"
                                           "d"}}));
}

// --- The library's commands

class VtyLibraryHelp : public ::testing::Test {
 protected:
  void SetUp() override {
    onu_ability_service_cbb_cli_install_element();
    while (CommandTable::Instance().Commands(node).empty()) ASSERT_LT(++node, 1000U);
  }

  void Expect(const std::string& text, const std::string& help) const {
    EXPECT_EQ(help, Help(node, text)) << "\"" << text << "?\"";
  }

  unsigned int node = 0;
};

TEST_F(VtyLibraryHelp, FirstWords) {
  Expect("",
         "  show    show onucapa_table; show onucapa_table_by_manual_cmd;\r\n"
         "          show ability code; show onu common type; show key_ability_code\r\n"
         "  add     add onu_ability_profile\r\n"
         "  set     set onu_ability_profile; set ability code; set onu common type;\r\n"
         "          set key_ability_code\r\n"
         "  apply   apply onu_ability_profile\r\n"
         "  del     delete onu_ability_profile; delete ability code\r\n"
         "  update  update onu_ability_profile\r\n"
         "  test    test ability\r\n");
}

TEST_F(VtyLibraryHelp, SecondWords) {
  Expect("show ",
         "  onucapa_table                onu capability table\r\n"
         "  onucapa_table_by_manual_cmd  onucapa_table_by_manual_cmd\r\n"
         "  ability                      ability code\r\n"
         "  onu_common_type              onu common type\r\n"
         "  key_ability_code             key_ability_code\r\n");
  Expect("update onu_ability_profile ",
         "  key  key_ability_value\r\n"
         "  id   profile index\r\n");
}

TEST_F(VtyLibraryHelp, ShowOnucapaTable) {
  Expect("show onucapa_table ",
         "  match  match -- match table of onu ability;\r\n"
         "  real   real -- real table of onu ability\r\n");
  Expect("show onucapa_table match ",
         "  <0-2>  0:table items which are added at init time;\r\n"
         "         1:table items which are added by cmd manually;2:all table items\r\n");
  Expect("show onucapa_table match 2 flag 1 ",
         "  real_type\r\n"
         "  |          filter or save the output\r\n"
         "  <cr>\r\n");
}

TEST_F(VtyLibraryHelp, SetOnuAbilityProfile) {
  Expect("set onu_ability_profile ", "  key  key_ability_value\r\n");
  Expect("set onu_ability_profile key 5 1010 ",
         "  <0-65535>  0-254:num of the capa\r\n"
         "  null       null:don't care num of the capa\r\n");
  Expect("set onu_ability_profile key 5 1010 4 ",
         "  <value>  ability code\r\n"
         "  |        filter or save the output\r\n"
         "  <cr>\r\n");
}

TEST_F(VtyLibraryHelp, AddOnuAbilityProfile) {
  Expect("add onu_ability_profile key 5 profile_type ",
         "  <1-2>  1:onu_real_profile;2:onu_match_profile\r\n");
  Expect("add onu_ability_profile key 5 profile_type 1 reporttype 1 realtype 1 vendorid ",
         "  <string>  VENDORID,such as:ZKWM\r\n"
         "  null      null:don't care vendorid\r\n");
}

TEST_F(VtyLibraryHelp, TheLongListOfTypesFitsTheScreen) {
  const std::string help = Help(node, "add onu_ability_profile key 5 profile_type 1 reporttype ");
  EXPECT_EQ("  <onutype_code>  762:HGU-COMMON;", help.substr(0, 33));
  std::istringstream lines(help);
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_LE(DisplayWidth(line) - 1, 79U) << line;
    if (count > 0) {
      EXPECT_EQ(std::string(18, ' '), line.substr(0, 18));
    }
    if (lines.peek() != EOF) {
      EXPECT_EQ(';', line[line.size() - 2]) << line;
    }
  }
  EXPECT_GT(count, 10U);
}

}  // namespace
}  // namespace olt_host
