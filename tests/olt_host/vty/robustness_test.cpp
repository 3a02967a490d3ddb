// Lines that nobody types on purpose: noise, and far too much of anything.
#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "onu_ability_common_service_cli.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/completion.h"
#include "vty/line_help.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr std::size_t kMegabyte = 1U << 20U;

class VtyRobustness : public ::testing::Test {
 protected:
  // The library's grammar and the command line's own commands; nothing of the
  // library is changed.
  void SetUp() override {
    onu_ability_service_cbb_cli_install_element();
    while (CommandTable::Instance().Commands(node).empty()) ASSERT_LT(++node, 1000U);
    InstallBuiltinCommands(node);
    screen = std::make_unique<Screen>(node);
  }

  // Everything that is done with a line or its beginning, short of running it.
  void Try(const std::string& line) {
    CheckLine(screen->terminal(), node, line, {false, "line 1: "});
    CheckLine(screen->terminal(), node, line, {true, "olt> "});
    const std::string said = screen->Take();
    for (const char c : said) {
      const auto byte = static_cast<unsigned char>(c);
      ASSERT_TRUE(byte >= 0x20 || c == '\r' || c == '\n') << "a control character came back";
      ASSERT_NE(0x7F, byte);
    }
    ASSERT_LT(said.size(), 2000U);
    Complete(node, line);
    RenderHelp(HelpFor(node, line, nullptr));
  }

  unsigned int node = 0;
  std::unique_ptr<Screen> screen;
};

TEST_F(VtyRobustness, NoiseIsRefused) {
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<std::size_t> length(0, 200);
  for (unsigned int seed = 1; seed <= 3000; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string line(length(random), '\0');
    for (char& c : line) c = static_cast<char>(byte(random));
    Try(line);
  }
}

TEST_F(VtyRobustness, PiecesOfLinesInAnyOrderAreTakenOrRefused) {
  static const std::vector<std::string> pieces = {"show ",
                                                  "onucapa_table",
                                                  " ",
                                                  "|",
                                                  " | ",
                                                  "include ",
                                                  "save ",
                                                  "\"",
                                                  "\\",
                                                  "!",
                                                  "set ",
                                                  "key ",
                                                  "json",
                                                  "5 ",
                                                  "null ",
                                                  "\t",
                                                  "a",
                                                  "real ",
                                                  "match ",
                                                  "99999 ",
                                                  "onu_ability_profile ",
                                                  "x",
                                                  "| s",
                                                  "flag ",
                                                  "\xc3\xbc",
                                                  "\xc3"};
  std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
  std::uniform_int_distribution<int> count(1, 25);
  for (unsigned int seed = 1; seed <= 5000; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string line;
    for (int n = count(random); n > 0; --n) line += pieces[piece(random)];
    Try(line);
  }
}

TEST_F(VtyRobustness, AMegabyteIsAnsweredAtOnce) {
  std::vector<std::string> lines = {std::string(kMegabyte, 'x'),
                                    std::string(kMegabyte, '"'),
                                    std::string(kMegabyte, '|'),
                                    std::string(kMegabyte, ' '),
                                    std::string(kMegabyte, '\0'),
                                    "find " + std::string(kMegabyte, 'y'),
                                    "set key_ability_code " + std::string(kMegabyte, '9'),
                                    "list | include " + std::string(kMegabyte, 'z')};
  for (const char* piece : {"a ", "| ", "\" \" ", "list | ", "\xc3\xbc "}) {
    std::string line = "list | include ";
    while (line.size() < kMegabyte) line += piece;
    lines.push_back(line);
    lines.push_back(line.substr(15));
  }
  for (const std::string& line : lines) {
    // The time of this process, whoever else is busy; a tenth of a second in a usual
    // build, more under sanitizers, minutes where something is quadratic.
    const std::clock_t start = std::clock();
    CheckLine(screen->terminal(), node, line, {false, "line 1: "});
    EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC) << line.substr(0, 40);
    EXPECT_LT(screen->Take().size(), 2000U);
    Complete(node, line);
    RenderHelp(HelpFor(node, line, nullptr));
  }
}

TEST_F(VtyRobustness, AHandlerGetsAWordOfAMegabyte) {
  const std::string text = screen->Type("find " + std::string(kMegabyte, 'y') + "q");
  EXPECT_EQ(CommandResult::kFailed, screen->last().kind);
}

}  // namespace
}  // namespace olt_host
