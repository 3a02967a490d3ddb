// What an operator reads when a line cannot be run, and what handlers get.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 7;

// What the handlers below were called with, and what they return.
struct Calls {
  int count = 0;
  std::vector<std::string> arguments;
  cmd_element* element = nullptr;
  int result = 0;
} calls;

int Record(cmd_element* element, struct vty* terminal, int argc, char** argv) {
  ++calls.count;
  calls.element = element;
  calls.arguments.assign(argv, argv + argc);
  EXPECT_EQ(nullptr, argv[argc]);
  vty_out(terminal, "ran\r\n");
  return calls.result;
}

cmd_element set_cmd = {"set port <1-4> [on|off]", Record, ""};
cmd_element name_cmd = {"set name <string>", Record, ""};
cmd_element show_cmd = {"show port", Record, ""};
cmd_element power_cmd = {"show power", Record, ""};

class VtyExecute : public ::testing::Test {
 protected:
  void SetUp() override {
    calls = Calls();
    for (cmd_element* element : {&set_cmd, &name_cmd, &show_cmd, &power_cmd}) {
      install_element(kNode, element);
    }
  }

  Screen screen{kNode};
};

TEST_F(VtyExecute, CallsTheHandlerWithItsArguments) {
  EXPECT_EQ("ran\r\n", screen.Type("se p 3 of"));
  EXPECT_EQ((std::vector<std::string>{"3", "off"}), calls.arguments);
  EXPECT_EQ(&set_cmd, calls.element);
  EXPECT_EQ(CommandResult::kDone, screen.last().kind);
}

TEST_F(VtyExecute, IgnoresBlankLines) {
  EXPECT_EQ("", screen.Type("   "));
  EXPECT_EQ(CommandResult::kBlank, screen.last().kind);
  EXPECT_TRUE(screen.last().ok());
}

TEST_F(VtyExecute, MarksUnknownCommands) {
  EXPECT_EQ(
      "     ^\r\n"
      "% Unknown command\r\n",
      screen.Type("frobnicate"));
  EXPECT_EQ(
      "          ^\r\n"
      "% Unknown command: expected port, power\r\n",
      screen.Type("show it"));
  EXPECT_EQ(CommandResult::kRefused, screen.last().kind);
  EXPECT_FALSE(screen.last().ok());
  EXPECT_EQ(0, calls.count);
}

TEST_F(VtyExecute, MarksTheEndOfIncompleteCommands) {
  EXPECT_EQ(
      "               ^\r\n"
      "% Command incomplete: expected <1-4>\r\n",
      screen.Type("set  port"));
}

TEST_F(VtyExecute, NamesWhatAnAmbiguousWordMayBe) {
  EXPECT_EQ(
      "          ^\r\n"
      "% Ambiguous command: \"po\" may be port, power\r\n",
      screen.Type("show po"));
  EXPECT_EQ(0, calls.count);
}

TEST_F(VtyExecute, NamesAllCandidatesOfAnAmbiguousWord) {
  static std::deque<std::pair<std::string, cmd_element>> many;
  std::string names;
  for (char c = 'a'; c <= 'l'; ++c) {
    many.emplace_back(std::string("pick o") + c, cmd_element{nullptr, Record, ""});
    many.back().second.string = many.back().first.c_str();
    install_element(kNode, &many.back().second);
    names += std::string(c == 'a' ? "" : ", ") + "o" + c;
  }
  ExecuteLine(screen.terminal(), kNode, "pick o", {false, ""});
  EXPECT_EQ("pick o\r\n     ^\r\n% Ambiguous command: \"o\" may be " + names + "\r\n",
            screen.Take());
  ExecuteLine(screen.terminal(), kNode, "pick x", {false, ""});
  EXPECT_EQ(
      "pick x\r\n     ^\r\n"
      "% Unknown command: expected oa, ob, oc, od, oe, of, og, oh, ...\r\n",
      screen.Take());
}

TEST_F(VtyExecute, NamesTheRangeOfANumber) {
  EXPECT_EQ(
      "              ^\r\n"
      "% Number out of range: 5 is not in <1-4>\r\n",
      screen.Type("set port 5 on"));
  EXPECT_EQ(
      "              ^\r\n"
      "% Not a number: \"x\", expected <1-4>\r\n",
      screen.Type("set port x on"));
}

TEST_F(VtyExecute, MarksTheFirstWordTooMany) {
  EXPECT_EQ(
      "               ^\r\n"
      "% Too many arguments\r\n",
      screen.Type("show port 1 2"));
}

TEST_F(VtyExecute, MarksUnreadableLines) {
  EXPECT_EQ(
      "              ^\r\n"
      "% Missing closing quote\r\n",
      screen.Type("set name \"abc"));
}

TEST_F(VtyExecute, ShowsALineThatIsNotOnTheScreen) {
  ExecuteLine(screen.terminal(), kNode, "show it", {false, "line 12: "});
  EXPECT_EQ(
      "line 12: show it\r\n"
      "              ^\r\n"
      "% Unknown command: expected port, power\r\n",
      screen.Take());
}

TEST_F(VtyExecute, CountsCharactersNotBytesForTheCaret) {
  EXPECT_EQ(
      "                  ^\r\n"
      "% Too many arguments\r\n",
      screen.Type("set name m\xc3\xbcx x"));
}

TEST_F(VtyExecute, NeverSendsTheOperatorsControlCharactersBack) {
  ExecuteLine(screen.terminal(), kNode, "show\t\x1b[2J", {false, "  "});
  EXPECT_EQ(
      "  show ?[2J\r\n"
      "       ^\r\n"
      "% Control character\r\n",
      screen.Take());
}

TEST_F(VtyExecute, CutsLongLinesAroundThePlace) {
  const std::string text = screen.Type("set name " + std::string(100, 'a') + " oops and more");
  const std::size_t end = text.find("\r\n");
  ASSERT_NE(std::string::npos, end);
  EXPECT_LE(end, 80U);
  EXPECT_EQ("  ...aaa", text.substr(0, 8));
  const std::size_t caret = text.find('^', end + 2) - (end + 2);
  EXPECT_EQ("oops", text.substr(caret, 4));
}

TEST_F(VtyExecute, CutsNothingThatIsNoLongerThanTheMarkOfACut) {
  for (const std::size_t more : {1U, 20U, 22U, 23U}) {
    const std::string word(more, 'b');
    const std::string text = screen.Type("set name " + std::string(100, 'a') + " " + word);
    EXPECT_NE(std::string::npos, text.find("a " + word + "\r\n")) << text;
    EXPECT_LE(text.find("\r\n"), 80U);
  }
  EXPECT_NE(std::string::npos,
            screen.Type("set name " + std::string(100, 'a') + " " + std::string(24, 'b'))
                .find(" " + std::string(20, 'b') + "...\r\n"));
}

TEST_F(VtyExecute, AnswersALineOfAMegabyteBriefly) {
  const std::string text = screen.Type(std::string(1 << 20, 'x'));
  EXPECT_LT(text.size(), 200U);
  EXPECT_NE(std::string::npos, text.find("% Unknown command\r\n"));
}

TEST_F(VtyExecute, CutsLongWordsInMessages) {
  const std::string text = screen.Type("set port " + std::string(60, '9') + " on");
  EXPECT_NE(std::string::npos,
            text.find("% Number out of range: " + std::string(40, '9') + " is not in <1-4>\r\n"));
}

TEST_F(VtyExecute, ReportsAFailedHandler) {
  calls.result = INT_MIN + 3;
  EXPECT_EQ("ran\r\n% Command failed: 0x80000003 (operation refused)\r\n",
            screen.Type("show port"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
  EXPECT_EQ(0x80000003U, screen.last().status);
}

TEST_F(VtyExecute, ExplainsTheKnownResults) {
  const std::vector<std::pair<int, std::string>> results = {
      {INT_MIN + 1, "0x80000001 (missing pointer or callback)"},
      {INT_MIN + 2, "0x80000002 (invalid parameter)"},
      {INT_MIN + 4, "0x80000004 (not found)"},
      {-1, "0xffffffff"},
      {1, "0x00000001"}};
  for (const auto& [result, text] : results) {
    calls.result = result;
    EXPECT_EQ("ran\r\n% Command failed: " + text + "\r\n", screen.Type("show port"));
  }
}

TEST_F(VtyExecute, ShowsTheFailedLineThatIsNotOnTheScreen) {
  calls.result = INT_MIN + 2;
  ExecuteLine(screen.terminal(), kNode, "show port", {false, "line 3: "});
  EXPECT_EQ(
      "ran\r\n"
      "line 3: show port\r\n"
      "% Command failed: 0x80000002 (invalid parameter)\r\n",
      screen.Take());
}

TEST_F(VtyExecute, OtherNodesHaveOtherCommands) {
  Screen other(kNode + 1);
  EXPECT_EQ(
      "     ^\r\n"
      "% Unknown command\r\n",
      other.Type("show port"));
  EXPECT_EQ(0, calls.count);
}

TEST(VtyTerminal, FormatsFullyWhateverTheLength) {
  Screen screen;
  for (const std::size_t length : {0U, 1U, 511U, 512U, 513U, 100000U}) {
    const std::string text(length, 'y');
    EXPECT_EQ(static_cast<int>(length) + 2, vty_out(&screen.terminal(), "%s%d", text.c_str(), 42));
    EXPECT_EQ(text + "42", screen.Take());
  }
}

TEST(VtyTerminal, SwallowsOutputOnceTheOtherEndIsGone) {
  int writes = 0;
  struct vty terminal(1, [&writes](const char*, std::size_t) { return ++writes < 2; });
  EXPECT_TRUE(terminal.alive());
  vty_out(&terminal, "one");
  EXPECT_TRUE(terminal.alive());
  vty_out(&terminal, "two");
  EXPECT_FALSE(terminal.alive());
  vty_out(&terminal, "three");
  EXPECT_EQ(2, writes);
}

TEST(VtyTerminal, SwallowsOutputOnceClosed) {
  Screen screen;
  screen.terminal().Close();
  vty_out(&screen.terminal(), "late");
  EXPECT_EQ("", screen.Take());
  EXPECT_FALSE(screen.terminal().alive());
}

TEST(VtyTerminal, RefusesANullTerminal) { EXPECT_EQ(-1, vty_out(nullptr, "%d", 1)); }

}  // namespace
}  // namespace olt_host
