// Lines from a pipe or a file of commands.
#include "session/line_session.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 40;

int SayArgument(cmd_element*, struct vty* terminal, int, char** argv) {
  vty_out(terminal, "%s\r\n", argv[0]);
  return 0;
}

int Fail(cmd_element*, struct vty*, int, char**) { return 2; }

cmd_element say_cmd = {"say <string>", SayArgument, ""};
cmd_element fail_cmd = {"fail", Fail, ""};

class CommandLines : public ::testing::Test {
 protected:
  void SetUp() override {
    install_element(kNode, &say_cmd);
    install_element(kNode, &fail_cmd);
    InstallBuiltinCommands(kNode);
  }

  int Run(const std::string& lines, bool check_only = false) {
    std::istringstream in(lines);
    return RunLines(in, screen.terminal(), check_only);
  }

  Screen screen{kNode};
};

TEST_F(CommandLines, AreAllRun) {
  EXPECT_EQ(0, Run("say one\nsay \"two three\"\n"));
  EXPECT_EQ("one\r\ntwo three\r\n", screen.Take());
}

TEST_F(CommandLines, MayBeBlankOrRemarks) {
  EXPECT_EQ(0, Run("\n   \n! say no\n  ! say no\n\t\nsay yes\n"));
  EXPECT_EQ("yes\r\n", screen.Take());
}

TEST_F(CommandLines, MayEndInCrLfAndTheLastWithoutABreak) {
  EXPECT_EQ(0, Run("say one\r\n\r\nsay two"));
  EXPECT_EQ("one\r\ntwo\r\n", screen.Take());
}

TEST_F(CommandLines, AnErrorNamesItsLineAndTheNextOnesAreRun) {
  EXPECT_EQ(1, Run("say one\n\nsya two\nsay three\n"));
  EXPECT_EQ(
      "one\r\n"
      "line 3: sya two\r\n"
      "        ^\r\n"
      "% Unknown command\r\n"
      "three\r\n",
      screen.Take());
}

TEST_F(CommandLines, AFailedCommandNamesItsLine) {
  EXPECT_EQ(1, Run("! remark\nfail\nsay on\n"));
  const std::string text = screen.Take();
  EXPECT_EQ(0U, text.find("line 2: fail\r\n")) << text;
  EXPECT_NE(std::string::npos, text.find("\r\non\r\n")) << text;
}

TEST_F(CommandLines, EndAtExit) {
  EXPECT_EQ(0, Run("say one\nexit\nsay two\n"));
  EXPECT_EQ("one\r\n", screen.Take());
}

TEST_F(CommandLines, AnErrorBeforeExitStillCounts) { EXPECT_EQ(1, Run("nonsense\nexit\n")); }

TEST_F(CommandLines, EndWhenTheOtherEndIsGone) {
  struct vty gone(kNode, [](const char*, std::size_t) { return false; });
  std::istringstream in("say one\nsay two\n");
  EXPECT_EQ(0, RunLines(in, gone));
  std::string rest;
  std::getline(in, rest);
  EXPECT_EQ("say two", rest) << "a line was run although nobody can read its answer";
}

TEST_F(CommandLines, AreOnlyCheckedWhenAsked) {
  EXPECT_EQ(0, Run("say one\nfail\nexit\n", true));
  EXPECT_EQ("", screen.Take());
  EXPECT_EQ(1, Run("say one\nexit\nsya two\n", true));
  EXPECT_EQ("line 3: sya two\r\n        ^\r\n% Unknown command\r\n", screen.Take());
}

TEST_F(CommandLines, BeyondTheLimitAreRefusedWhole) {
  const std::string most = "say " + std::string(kLongestLine - 4, 'x');
  EXPECT_EQ(0, Run(most + "\r\n"));
  EXPECT_EQ(kLongestLine - 4 + 2, screen.Take().size());
  EXPECT_EQ(1, Run("\n" + most + "x\nsay on\n"));
  EXPECT_EQ("line 2: % Line too long: the limit is 4096 bytes\r\non\r\n", screen.Take());
  EXPECT_EQ(1, Run(std::string(1 << 20, 'x')));
  EXPECT_EQ("line 1: % Line too long: the limit is 4096 bytes\r\n", screen.Take());
}

TEST_F(CommandLines, ThatCannotBeReadToTheEndAreAFailure) {
  std::ifstream folder("/");
  EXPECT_EQ(1, RunLines(folder, screen.terminal()));
}

TEST_F(CommandLines, SurviveBinaryNoise) {
  std::string noise;
  for (int i = 0; i < 4096; ++i) noise += static_cast<char>((i * 37 + i / 256) & 0xFF);
  EXPECT_EQ(1, Run(noise));
  for (const char c : screen.Take()) EXPECT_TRUE(c != '\x1b' && c != '\0');
}

}  // namespace
}  // namespace olt_host
