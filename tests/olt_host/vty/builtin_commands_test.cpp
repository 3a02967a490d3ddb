// The commands of the command line itself.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "text/columns.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 18;

int Nothing(cmd_element*, struct vty*, int, char**) { return 0; }

cmd_element commands[] = {
    {"set port <1-4> speed <value> ", Nothing, "set a port\nthe port\nits number\nSPEED\nMbit/s\n"},
    {"show port", Nothing, "show\nthe ports\n"},
    {"update profile key <value> profile_type <1-2> profile_source <0-1> code <value> number "
     "<value>",
     Nothing, nullptr},
};

const char* const kOwnCommands =
    "  list\r\n"
    "  find <string>\r\n"
    "  help\r\n"
    "  exit\r\n"
    "  quit\r\n"
    "  terminal length <0-512>\r\n"
    "  exec-timeout <0-35791> {<0-59>}*1\r\n"
    "  show history {[json]}*1\r\n";

class VtyBuiltin : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element& element : commands) install_element(kNode, &element);
    InstallBuiltinCommands(kNode);
  }

  Screen screen{kNode};
};

TEST_F(VtyBuiltin, ListNamesEveryCommandWithItsSyntax) {
  EXPECT_EQ(
      std::string("  set port <1-4> speed <value>\r\n"
                  "  show port\r\n"
                  "  update profile key <value> profile_type <1-2> profile_source <0-1> code\r\n"
                  "      <value> number <value>\r\n") +
          kOwnCommands,
      screen.Type("list"));
}

TEST_F(VtyBuiltin, AreInstalledOnceANode) {
  const std::size_t before = CommandTable::Instance().Commands(kNode).size();
  InstallBuiltinCommands(kNode);
  EXPECT_EQ(before, CommandTable::Instance().Commands(kNode).size());
  EXPECT_TRUE(CommandTable::Instance().refusals().empty());
  InstallBuiltinCommands(kNode + 1);
  Screen other(kNode + 1);
  EXPECT_EQ(kOwnCommands, other.Type("list"));
}

TEST_F(VtyBuiltin, EveryTokenHasAHelpLine) {
  for (const Command& command : CommandTable::Instance().Commands(kNode)) {
    if (command.element >= commands && command.element < commands + 3) continue;
    for (const GrammarVertex& vertex : command.grammar.vertices) {
      EXPECT_NE("", vertex.token.help) << command.element->string << ": " << vertex.token.text;
    }
  }
}

TEST_F(VtyBuiltin, FindLooksIntoTheSyntax) {
  EXPECT_EQ(
      "  set port <1-4> speed <value>\r\n"
      "        set      set a port\r\n"
      "        port     the port\r\n"
      "        <1-4>    its number\r\n"
      "        speed    SPEED\r\n"
      "        <value>  Mbit/s\r\n",
      screen.Type("find \"port <1\""));
}

TEST_F(VtyBuiltin, FindLooksIntoTheHelpInCapitalsOrNot) {
  EXPECT_EQ(screen.Type("find mbit"), screen.Type("find MBIT"));
  EXPECT_NE(std::string::npos, screen.Type("find mbit").find("Mbit/s"));
  EXPECT_EQ(
      "  show port\r\n"
      "        show  show\r\n"
      "        port  the ports\r\n",
      screen.Type("find ports"));
}

TEST_F(VtyBuiltin, FindShowsThePlaceInALongHelpLine) {
  static const std::string doc =
      "types\n" + std::string(300, 'a') + "Needle" + std::string(300, 'b') + "\n";
  static cmd_element types_cmd = {"types <value>", Nothing, doc.c_str()};
  install_element(kNode, &types_cmd);
  const std::string text = screen.Type("find needle");
  EXPECT_NE(std::string::npos, text.find("Needle")) << text;
  EXPECT_LT(text.size(), 200U);
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(DisplayWidth(line), 80U);
}

TEST_F(VtyBuiltin, FindSaysWhenThereIsNothing) {
  EXPECT_EQ("% No command mentions \"cherry\"\r\n", screen.Type("find cherry"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
}

TEST_F(VtyBuiltin, HelpExplainsAndListsOnAScreenOf80Columns) {
  const std::string text = screen.Type("help");
  EXPECT_NE(std::string::npos, text.find("Keywords may be abbreviated"));
  EXPECT_NE(std::string::npos, text.find("| include TEXT"));
  EXPECT_NE(std::string::npos, text.find(kOwnCommands));
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    ASSERT_FALSE(line.empty());
    EXPECT_EQ('\r', line.back()) << line;
    EXPECT_LE(line.size() - 1, 80U) << line;
  }
}

TEST_F(VtyBuiltin, ExitAndQuitEndTheSession) {
  EXPECT_EQ("", screen.Type("exit"));
  EXPECT_FALSE(screen.terminal().alive());
  Screen other(kNode);
  other.Type("q");
  EXPECT_FALSE(other.terminal().alive());
}

TEST_F(VtyBuiltin, TerminalLengthSetsTheScreen) {
  EXPECT_EQ("", screen.Type("terminal length 40"));
  EXPECT_EQ(40U, screen.terminal().settings().screen_length);
  screen.Type("ter len 0");
  EXPECT_EQ(0U, screen.terminal().settings().screen_length);
  EXPECT_NE("", screen.Type("terminal length 513"));
  EXPECT_EQ(0U, screen.terminal().settings().screen_length);
}

TEST_F(VtyBuiltin, ExecTimeoutTakesMinutesAndSeconds) {
  const std::chrono::seconds& timeout = screen.terminal().settings().exec_timeout;
  EXPECT_EQ(std::chrono::minutes(10), timeout);
  screen.Type("exec-timeout 5");
  EXPECT_EQ(std::chrono::seconds(300), timeout);
  screen.Type("exec-timeout 1 30");
  EXPECT_EQ(std::chrono::seconds(90), timeout);
  screen.Type("exec-timeout 0 0");
  EXPECT_EQ(std::chrono::seconds(0), timeout);
  screen.Type("exec-timeout 35791 59");
  EXPECT_EQ(std::chrono::seconds(35791 * 60 + 59), timeout);
  EXPECT_NE("", screen.Type("exec-timeout 1 60"));
}

TEST_F(VtyBuiltin, ShowHistoryNumbersTheLines) {
  screen.terminal().settings().history = {"show port", "set\tport \x1b"};
  EXPECT_EQ(
      "    1  show port\r\n"
      "    2  set port ?\r\n",
      screen.Type("show history"));
  EXPECT_EQ((nlohmann::json{{"history", {"show port", "set\tport \x1b"}}}),
            nlohmann::json::parse(screen.Type("show history json")));
}

TEST_F(VtyBuiltin, AnEmptyHistoryIsAnEmptyList) {
  EXPECT_EQ("", screen.Type("show history"));
  EXPECT_EQ(nlohmann::json::array(),
            nlohmann::json::parse(screen.Type("show history json"))["history"]);
}

}  // namespace
}  // namespace olt_host
