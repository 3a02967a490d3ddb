// Output on its way through the filters behind '|'.
#include <gtest/gtest.h>

#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 15;

int calls = 0;
std::string output;

int Print(cmd_element*, struct vty* terminal, int, char**) {
  ++calls;
  terminal->Write(output.data(), output.size());
  return 0;
}

// The same bytes, one at a time.
int PrintSlowly(cmd_element*, struct vty* terminal, int, char**) {
  for (const char c : output) terminal->Write(&c, 1);
  return 0;
}

cmd_element print_cmd = {"print", Print, ""};
cmd_element slowly_cmd = {"slowly", PrintSlowly, ""};
cmd_element say_cmd = {"say <string>",
                       [](cmd_element*, struct vty* terminal, int, char** argv) {
                         vty_out(terminal, "%s\r\n", argv[0]);
                         return 0;
                       },
                       ""};

class VtyFilter : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element* element : {&print_cmd, &slowly_cmd, &say_cmd}) {
      install_element(kNode, element);
    }
    calls = 0;
    output = "one apple\r\ntwo pears\r\nthree Apples\r\nfour | five\r\n";
  }

  void ExpectRefused(const std::string& line, std::size_t column, const std::string& message) {
    calls = 0;
    ExecuteLine(screen.terminal(), kNode, line, {false, ""});
    EXPECT_EQ(line + "\r\n" + std::string(column, ' ') + "^\r\n% " + message + "\r\n",
              screen.Take());
    EXPECT_EQ(0, calls) << line;
  }

  Screen screen{kNode};
};

TEST_F(VtyFilter, IncludePrintsMatchingLines) {
  EXPECT_EQ("one apple\r\n", screen.Type("print | include apple"));
  EXPECT_EQ("", screen.Type("print | include cherry"));
  EXPECT_TRUE(screen.last().ok());
}

TEST_F(VtyFilter, ExcludePrintsTheOthers) {
  EXPECT_EQ("two pears\r\nthree Apples\r\nfour | five\r\n", screen.Type("print | exclude apple"));
}

TEST_F(VtyFilter, BeginPrintsFromTheFirstMatchOn) {
  EXPECT_EQ("three Apples\r\nfour | five\r\n", screen.Type("print | begin App"));
}

TEST_F(VtyFilter, CountPrintsTheNumberOfMatchingLines) {
  EXPECT_EQ("2\r\n", screen.Type("print | count pple"));
  EXPECT_EQ("0\r\n", screen.Type("print | count cherry"));
}

TEST_F(VtyFilter, FiltersFollowEachOther) {
  EXPECT_EQ("three Apples\r\n", screen.Type("print | include pple | exclude one"));
  EXPECT_EQ("1\r\n", screen.Type("print | begin two | include e | exclude p | count five"));
  EXPECT_EQ("2\r\n", screen.Type("print | count pple | include 2"));
}

TEST_F(VtyFilter, NamesMayBeAbbreviated) {
  EXPECT_EQ("1\r\n", screen.Type("print | i apple | c o"));
  EXPECT_EQ("four | five\r\n", screen.Type("pr | e p"));
}

TEST_F(VtyFilter, TextIsAllWordsUpToTheNextFilter) {
  EXPECT_EQ("two pears\r\n", screen.Type("print | include two pears | exclude apple"));
  EXPECT_EQ("", screen.Type("print | include two  pears"));
  EXPECT_EQ("four | five\r\n", screen.Type("print | include \"four | five\""));
  EXPECT_EQ("four | five\r\n", screen.Type("print | include four \"|\" five"));
}

TEST_F(VtyFilter, TextIsPlain) {
  output = "a.c\r\nabc\r\n[x]*\r\n";
  EXPECT_EQ("a.c\r\n", screen.Type("print | include a.c"));
  EXPECT_EQ("[x]*\r\n", screen.Type("print | include [x]*"));
}

TEST_F(VtyFilter, AQuotedBarIsAWordOfTheCommand) {
  EXPECT_EQ("|\r\n", screen.Type("say \"|\""));
  EXPECT_EQ("a|b\r\n", screen.Type("say a|b"));
  EXPECT_EQ("|\r\n", screen.Type("say \"|\" | include \"|\""));
}

TEST_F(VtyFilter, LinesAreWholeHoweverTheyAreWritten) {
  EXPECT_EQ("one apple\r\n", screen.Type("slowly | include apple"));
  output = "no break at the end";
  EXPECT_EQ("no break at the end\r\n", screen.Type("print | include break"));
  output = "one\ntwo\r\n\r\nthree";
  EXPECT_EQ("one\r\ntwo\r\n\r\nthree\r\n", screen.Type("print | exclude x"));
  EXPECT_EQ("one\r\ntwo\r\n\r\nthree\r\n", screen.Type("slowly | exclude x"));
}

TEST_F(VtyFilter, UnknownFiltersRunNothing) {
  ExpectRefused("print | frob x", 8,
                "Unknown filter: expected include, exclude, begin, section, count, save");
  ExpectRefused("print | Include x", 8,
                "Unknown filter: expected include, exclude, begin, section, count, save");
  ExpectRefused("print | \"include\" x", 8,
                "Unknown filter: expected include, exclude, begin, section, count, save");
  ExpectRefused("print | include x | | count y", 20,
                "Unknown filter: expected include, exclude, begin, section, count, save");
}

TEST_F(VtyFilter, AmbiguousFiltersRunNothing) {
  ExpectRefused("print | s x", 8, "Ambiguous filter: \"s\" may be section, save");
}

TEST_F(VtyFilter, IncompleteFiltersRunNothing) {
  ExpectRefused("print |", 8,
                "Command incomplete: expected include, exclude, begin, section, count, save");
  ExpectRefused("print | include", 16, "Command incomplete: expected TEXT");
  ExpectRefused("print | include | count x", 16, "Command incomplete: expected TEXT");
  ExpectRefused("print | include \"\"", 16, "Empty text");
  ExpectRefused("print | save", 13, "Command incomplete: expected FILE");
  ExpectRefused("print | save | count x", 13, "Command incomplete: expected FILE");
  ExpectRefused("print | save \"\"", 13, "Empty file name");
  ExpectRefused("print | include \"x", 16, "Missing closing quote");
}

TEST_F(VtyFilter, NothingFollowsSave) {
  ExpectRefused("print | save x | count y", 15, "Nothing is left to filter behind save");
  ExpectRefused("print | save x y", 15, "Too many arguments");
}

TEST_F(VtyFilter, TheCommandIsLookedAtFirst) {
  ExpectRefused("frob | frob", 0, "Unknown command");
  ExpectRefused("| include x", 0, "Unknown command");
  ExpectRefused("say | include x", 4, "Command incomplete: expected <string>");
  ExpectRefused("print x | frob", 6, "Too many arguments");
}

TEST_F(VtyFilter, FiltersHaveALimit) {
  std::string line = "print";
  for (int i = 0; i < 8; ++i) line += " | i o";
  EXPECT_EQ("one apple\r\ntwo pears\r\nfour | five\r\n", screen.Type(line));
  ExpectRefused(line + " | count x", line.size() + 1, "More than 8 filters");
}

TEST_F(VtyFilter, AnotherCommandIsNotFiltered) {
  screen.Type("print | include apple");
  EXPECT_EQ(output, screen.Type("print"));
}

TEST_F(VtyFilter, AGoneClientEndsTheOutput) {
  std::string seen;
  struct vty terminal(kNode, [&seen](const char* bytes, std::size_t length) {
    seen.append(bytes, length);
    return false;
  });
  EXPECT_TRUE(ExecuteLine(terminal, kNode, "print | include e").ok());
  EXPECT_FALSE(terminal.alive());
  EXPECT_EQ("one apple", seen);
}

// --- section

using VtySection = VtyFilter;

TEST_F(VtySection, KeepsTheDeeperLinesBehindAMatch) {
  output =
      "port 1\r\n  speed 10\r\n  duplex full\r\nport 2\r\n  speed 100\r\n\r\n  stray\r\nend\r\n";
  EXPECT_EQ("port 1\r\n  speed 10\r\n  duplex full\r\n", screen.Type("print | section port 1"));
  EXPECT_EQ("port 2\r\n  speed 100\r\n", screen.Type("print | section port 2"));
  EXPECT_EQ("  speed 10\r\n  speed 100\r\n", screen.Type("print | section speed"));
}

TEST_F(VtySection, AMatchWithinASectionDoesNotShortenIt) {
  output = "port a\r\n  port b\r\n    deep\r\n  speed\r\nother\r\n";
  EXPECT_EQ("port a\r\n  port b\r\n    deep\r\n  speed\r\n", screen.Type("print | section port"));
}

TEST_F(VtySection, KeepsTheWholeBlockBetweenLinesOfStars) {
  const std::string stars = std::string(44, '*') + "\r\n";
  const std::string one = stars + "id: 1\r\n  vendor: A\r\n\r\nend of 1\r\n" + stars;
  const std::string two = stars + "id: 2\r\n  vendor: B\r\n" + stars;
  output = "vendor list\r\n  all\r\n" + one + "\r\n\r\n" + two + "\r\nvendor tail\r\n";
  EXPECT_EQ(one, screen.Type("print | section vendor: A"));
  EXPECT_EQ(two, screen.Type("print | section id: 2"));
  EXPECT_EQ("vendor list\r\n  all\r\n" + one + two + "vendor tail\r\n",
            screen.Type("print | section vendor"));
  EXPECT_EQ("", screen.Type("print | section id: 3"));
}

TEST_F(VtySection, AnOpenBlockIsNone) {
  output = "********\r\nhead\r\n  deep\r\ntail\r\n";
  EXPECT_EQ("head\r\n  deep\r\n", screen.Type("print | section head"));
}

TEST_F(VtySection, FewStarsAreText) {
  output = "***\r\n a\r\n***\r\nb\r\n";
  EXPECT_EQ(" a\r\n", screen.Type("print | section a"));
}

}  // namespace
}  // namespace olt_host
