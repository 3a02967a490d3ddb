// Lines that two commands could both mean, found before anybody types one.
#include <gtest/gtest.h>

#include <random>

#include "onu_ability_common_service_cli.h"
#include "vty/command_conflicts.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 12;

int Nothing(cmd_element*, struct vty*, int, char**) { return 0; }

std::string Both(const std::string& one, const std::string& other) {
  return LineOfBoth(BuildGrammar(ParseSyntax(one, "")), BuildGrammar(ParseSyntax(other, "")));
}

TEST(VtyCommandConflicts, TheSameKeywordsAreTheSameLine) {
  EXPECT_EQ("show log", Both("show log", "show log"));
  EXPECT_EQ("show log", Both("show [log|mask]", "show [x|log]"));
}

TEST(VtyCommandConflicts, DifferentKeywordsAreNot) {
  EXPECT_EQ("", Both("show log", "show version"));
  EXPECT_EQ("", Both("show log", "show log mask"));
  EXPECT_EQ("", Both("show table", "show table_by_hand"));
}

TEST(VtyCommandConflicts, RangesConflictWhereTheyOverlap) {
  EXPECT_EQ("set 9", Both("set <0-9>", "set <9-20>"));
  EXPECT_EQ("set 10", Both("set <value>", "set <10-10>"));
  EXPECT_EQ("set 0", Both("set <value>", "set <onutype_code>"));
  EXPECT_EQ("", Both("set <0-9>", "set <10-20>"));
  EXPECT_EQ("", Both("set <70000-80000>", "set <onutype_code>"));
}

TEST(VtyCommandConflicts, StringsTakeEveryWord) {
  EXPECT_EQ("set \"x\"", Both("set <string>", "set <string>"));
  EXPECT_EQ("set 3", Both("set <string>", "set <3-4>"));
  EXPECT_EQ("set 3", Both("set <3-4>", "set <string>"));
}

TEST(VtyCommandConflicts, KeywordsAndValuesNeverSurviveTheSameWord) {
  EXPECT_EQ("", Both("set name", "set <string>"));
  EXPECT_EQ("", Both("set [null]", "set <value>"));
  EXPECT_EQ("set \"x\"", Both("set [<string>|null]", "set <string>"));
}

TEST(VtyCommandConflicts, OptionalGroupsMayBeLeftOutOrRepeated) {
  EXPECT_EQ("show log", Both("show log {<1-9>}*1", "show log"));
  EXPECT_EQ("show log 1", Both("show log {<1-9>}*1", "show log <value>"));
  EXPECT_EQ("set 1 1 1", Both("set {<1-9>}*3", "set <1-9> <1-9> <1-9>"));
  EXPECT_EQ("", Both("set {<1-9>}*3", "set <1-9> <1-9> <1-9> <1-9>"));
  EXPECT_EQ("", Both("set {<1-9> <1-9>}*4", "set <1-9> {<1-9> <1-9>}*4"));
}

TEST(VtyCommandConflicts, TwoValuesThatTakeNamesShareThem) {
  const Grammar low = BuildGrammar(ParseSyntax("show <value>", "show\ncode or name\n"));
  const Grammar any = BuildGrammar(ParseSyntax("show <value>", "show\ncode\n"));
  EXPECT_EQ("show 0", LineOfBoth(low, any));
  EXPECT_EQ("show 0", LineOfBoth(low, low));
}

TEST(VtyCommandConflicts, LargeGrammarsAreComparedQuickly) {
  const std::string many = "set {a {b <value>}*60}*60";
  EXPECT_EQ("", Both(many + " end", many + " fin"));
}

TEST(VtyCommandConflicts, InstallationQuotesBothCommandsAndSuchALine) {
  static cmd_element first = {"set port <1-4> {fast}*1", Nothing, ""};
  static cmd_element second = {"set port <value>", Nothing, ""};
  static cmd_element third = {"set port <value> slow", Nothing, ""};
  CommandTable table;
  EXPECT_EQ("", table.Install(kNode, &first));
  EXPECT_EQ(
      "a line could mean two commands: set port 1\n"
      "  \"set port <1-4> {fast}*1\"\n"
      "  \"set port <value>\"",
      table.Install(kNode, &second));
  EXPECT_EQ(1U, table.Commands(kNode).size());
  EXPECT_EQ("", table.Install(kNode, &third));
  EXPECT_EQ("", table.Install(kNode + 1, &second));
}

TEST(VtyCommandConflicts, TheLibrarysSixteenCommandsHaveNone) {
  ASSERT_EQ(0, onu_ability_service_cbb_cli_install_element());
  unsigned int node = 0;
  while (CommandTable::Instance().Commands(node).empty()) ASSERT_LT(++node, 1000U);
  const std::vector<Command>& commands = CommandTable::Instance().Commands(node);
  EXPECT_TRUE(CommandTable::Instance().refusals().empty());
  ASSERT_EQ(16U, commands.size());
  for (const Command& one : commands) {
    for (const Command& other : commands) {
      if (&one == &other) continue;
      EXPECT_EQ("", LineOfBoth(one.grammar, other.grammar)) << one.element->string << "\n"
                                                            << other.element->string;
    }
  }
}

// --- Against the matcher itself, on random pairs of commands.

class RandomSyntax {
 public:
  explicit RandomSyntax(unsigned int seed) : random_(seed) {}

  std::string Command() {
    std::string text = "go";
    for (unsigned int items = Below(3); items > 0; --items) text += " " + Item();
    return text;
  }

 private:
  unsigned int Below(unsigned int limit) {
    return std::uniform_int_distribution<unsigned int>(0, limit - 1)(random_);
  }

  std::string Token() {
    static const std::vector<std::string> tokens = {"a", "ab", "b", "<0-4>", "<3-9>", "<string>"};
    return tokens[Below(static_cast<unsigned int>(tokens.size()))];
  }

  std::string Item() {
    switch (Below(4)) {
      case 0: {
        const std::string one = Token();
        const std::string other = Token();
        return one == other ? "[" + one + "]" : "[" + one + "|" + other + "]";
      }
      case 1:
        return "{" + Token() + "}*" + std::to_string(1 + Below(2));
      default:
        return Token();
    }
  }

  std::mt19937 random_;
};

// Whether the matcher calls the line, of so many words, or one with up to `most` more
// words ambiguous as a whole.
bool SomeLineMeansBoth(const CommandSet& commands, const std::string& line, std::size_t words,
                       std::size_t most) {
  const Match match = commands.Match(line);
  if (match.word < words) return false;  // no line begins like this
  if (match.outcome == MatchOutcome::kAmbiguous) return true;
  if (most == 0) return false;
  for (const char* word : {"a", "ab", "b", "0", "3", "9", "x", "\"a\""}) {
    if (SomeLineMeansBoth(commands, line + " " + word, words + 1, most - 1)) return true;
  }
  return false;
}

TEST(VtyCommandConflicts, AgreeWithTheMatcherOnRandomCommands) {
  unsigned int conflicts = 0;
  for (unsigned int seed = 1; seed <= 400; ++seed) {
    RandomSyntax random(seed);
    const std::string one = random.Command();
    const std::string other = random.Command();
    const CommandSet commands({one, other});
    const std::string line = Both(one, other);
    EXPECT_EQ(!line.empty(), SomeLineMeansBoth(commands, "go", 1, 4))
        << "seed " << seed << ": " << one << " / " << other << ": " << line;
    if (line.empty()) continue;
    ++conflicts;
    EXPECT_EQ(MatchOutcome::kAmbiguous, commands.Match(line).outcome) << line;
  }
  EXPECT_GT(conflicts, 20U);
}

}  // namespace
}  // namespace olt_host
