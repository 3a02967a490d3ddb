// Sessions from a pipe or a file of commands, and the console's own commands.
#include <gtest/gtest.h>

#include <sstream>

#include "session/console_commands.h"
#include "session/line_session.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 40;

int Say(cmd_element*, struct vty* terminal, int, char** argv) {
  vty_out(terminal, "%s\r\n", argv[0]);
  return 0;
}

int Fail(cmd_element*, struct vty*, int, char**) { return 2; }

cmd_element say_cmd = {"say <string> ", Say, ""};
cmd_element fail_cmd = {"fail", Fail, ""};

class ConsoleLines : public ::testing::Test {
 protected:
  void SetUp() override {
    install_element(kNode, &say_cmd);
    install_element(kNode, &fail_cmd);
    InstallConsoleCommands(kNode);
  }

  // Runs a session of these lines; its exit status.
  int Run(const std::string& lines) {
    std::istringstream in(lines);
    return RunLines(in, screen.terminal());
  }

  Screen screen{kNode};
};

TEST_F(ConsoleLines, RunsEveryLine) {
  EXPECT_EQ(0, Run("say one\nsay \"two three\"\n"));
  EXPECT_EQ("one\r\ntwo three\r\n", screen.Take());
}

TEST_F(ConsoleLines, IgnoresBlankLinesAndRemarks) {
  EXPECT_EQ(0, Run("\n   \n! say no\n  ! say no\n\t\nsay yes\n"));
  EXPECT_EQ("yes\r\n", screen.Take());
}

TEST_F(ConsoleLines, TakesALastLineWithoutABreakAndLinesWithCrLf) {
  EXPECT_EQ(0, Run("say one\r\n\r\nsay two"));
  EXPECT_EQ("one\r\ntwo\r\n", screen.Take());
}

TEST_F(ConsoleLines, NamesTheLineOfAnErrorAndGoesOn) {
  EXPECT_EQ(1, Run("say one\n\nsya two\nsay three\n"));
  EXPECT_EQ(
      "one\r\n"
      "line 3: sya two\r\n"
      "        ^\r\n"
      "% Unknown command\r\n"
      "three\r\n",
      screen.Take());
}

TEST_F(ConsoleLines, NamesTheLineOfAFailedCommand) {
  EXPECT_EQ(1, Run("! remark\nfail\nsay on\n"));
  EXPECT_EQ(
      "line 2: fail\r\n"
      "% Command failed: 0x00000002\r\n"
      "on\r\n",
      screen.Take());
}

TEST_F(ConsoleLines, EndsAtExitAndQuit) {
  EXPECT_EQ(0, Run("say one\nexit\nsay two\n"));
  EXPECT_EQ("one\r\n", screen.Take());
  Screen other(kNode);
  std::istringstream in("say one\nq\nsya two\n");
  EXPECT_EQ(0, RunLines(in, other.terminal()));
  EXPECT_EQ("one\r\n", other.Take());
}

TEST_F(ConsoleLines, AnErrorBeforeExitStillCounts) { EXPECT_EQ(1, Run("nonsense\nexit\n")); }

TEST_F(ConsoleLines, EndsWhenTheOtherEndIsGone) {
  struct vty gone(kNode, [](const char*, std::size_t) { return false; });
  std::istringstream in("say one\nsay two\n");
  EXPECT_EQ(0, RunLines(in, gone));
  std::string rest;
  std::getline(in, rest);
  EXPECT_EQ("say two", rest) << "a line was run although nobody can read its answer";
}

TEST_F(ConsoleLines, ListNamesEveryCommandWithItsSyntax) {
  EXPECT_EQ(0, Run("list\n"));
  EXPECT_EQ("  say <string>\r\n  fail\r\n  list\r\n  help\r\n  exit\r\n  quit\r\n", screen.Take());
}

cmd_element long_cmd = {
    "update profile key <value> profile_type <1-2> profile_source <0-1> code <value> number "
    "<value>",
    Fail, ""};

TEST_F(ConsoleLines, ListBreaksLinesThatTheScreenDoesNotHold) {
  install_element(kNode + 1, &long_cmd);
  Screen other(kNode + 1);
  InstallConsoleCommands(kNode + 1);
  EXPECT_EQ(
      "  update profile key <value> profile_type <1-2> profile_source <0-1> code\r\n"
      "      <value> number <value>\r\n"
      "  list\r\n  help\r\n  exit\r\n  quit\r\n",
      other.Type("list"));
}

TEST_F(ConsoleLines, HelpExplainsAndLists) {
  EXPECT_EQ(0, Run("help\n"));
  const std::string text = screen.Take();
  EXPECT_NE(std::string::npos, text.find("Keywords may be abbreviated"));
  EXPECT_NE(std::string::npos, text.find("  quit\r\n"));
  EXPECT_EQ(std::string::npos, text.find("\n\n")) << "a line without its CR";
}

TEST_F(ConsoleLines, TheConsolesCommandsAreInstalledOnce) {
  const std::size_t before = CommandTable::Instance().Commands(kNode).size();
  InstallConsoleCommands(kNode);
  EXPECT_EQ(before, CommandTable::Instance().Commands(kNode).size());
}

TEST_F(ConsoleLines, SurvivesBinaryNoise) {
  std::string noise;
  for (int i = 0; i < 4096; ++i) noise += static_cast<char>((i * 37 + i / 256) & 0xFF);
  EXPECT_EQ(1, Run(noise));
  for (const char c : screen.Take()) EXPECT_TRUE(c != '\x1b' && c != '\0');
}

}  // namespace
}  // namespace olt_host
