// Which command a line means, and with which arguments.
#include <gtest/gtest.h>

#include "vty/screen.h"

namespace olt_host {
namespace {

using Texts = std::vector<std::string>;

void ExpectArguments(const CommandSet& commands, const std::string& line, const Texts& arguments) {
  const Match match = commands.Match(line);
  EXPECT_EQ(MatchOutcome::kMatched, match.outcome) << line;
  EXPECT_EQ(arguments, match.arguments) << line;
}

void ExpectRefused(const CommandSet& commands, const std::string& line, MatchOutcome outcome,
                   std::size_t word, const Texts& expected) {
  const Match match = commands.Match(line);
  EXPECT_EQ(outcome, match.outcome) << line;
  EXPECT_EQ(word, match.word) << line;
  EXPECT_EQ(expected, match.expected) << line;
  EXPECT_EQ(nullptr, match.command) << line;
}

TEST(VtyMatcher, KeywordsGiveNoArguments) {
  ExpectArguments(CommandSet({"show version"}), "show version", {});
}

TEST(VtyMatcher, ValuesAndChoicesGiveOneArgumentEach) {
  ExpectArguments(CommandSet({"set [key] <value> at <0-9> as <string> [on|off]"}),
                  "set key 17 at 3 as 007 off", {"key", "17", "3", "007", "off"});
}

TEST(VtyMatcher, AbbreviatedChoicesArriveInFull) {
  ExpectArguments(CommandSet({"show [match|real] [<0-9>|null]"}), "sh r n", {"real", "null"});
}

TEST(VtyMatcher, StringsAreNeverTakenForAbbreviations) {
  const CommandSet commands({"name [<string>|null]"});
  ExpectArguments(commands, "name nul", {"nul"});
  ExpectArguments(commands, "name null", {"null"});
}

TEST(VtyMatcher, QuotedWordsAreNeverKeywords) {
  const CommandSet commands({"show version", "show as <string>"});
  ExpectRefused(commands, "show \"version\"", MatchOutcome::kUnknown, 1, {"version", "as"});
  ExpectArguments(commands, "show as \"version\"", {"version"});
}

TEST(VtyMatcher, WholeKeywordBeatsALongerOne) {
  const CommandSet commands({"show table", "show table_by_hand"});
  const Match match = commands.Match("show table");
  ASSERT_EQ(MatchOutcome::kMatched, match.outcome);
  EXPECT_STREQ("show table", match.command->element->string);
}

TEST(VtyMatcher, AbbreviationOfTwoKeywordsIsAmbiguousWhateverFollows) {
  const CommandSet commands({"show table [a|b]", "show table_by_hand flag"});
  ExpectRefused(commands, "show tab flag", MatchOutcome::kAmbiguous, 1, {"table", "table_by_hand"});
}

TEST(VtyMatcher, OneKeywordOfSeveralCommandsIsNotAmbiguous) {
  const CommandSet commands({"update key <value>", "update id <value>"});
  ExpectArguments(commands, "u i 4", {"4"});
}

TEST(VtyMatcher, LineOfTwoCommandsIsAmbiguous) {
  const CommandSet commands({"set <value>", "set <0-9>"});
  ExpectRefused(commands, "set 5", MatchOutcome::kAmbiguous, 2, {"set <value>", "set <0-9>"});
  ExpectArguments(commands, "set 10", {"10"});
}

TEST(VtyMatcher, TwoCommandsOfTheSameSyntaxAreAmbiguous) {
  ExpectRefused(CommandSet({"go", "go"}), "go", MatchOutcome::kAmbiguous, 1, {"go", "go"});
}

TEST(VtyMatcher, AmbiguityNamesEachCommandOnce) {
  ExpectRefused(CommandSet({"go <3-9>", "go [<string>|<3-9>]"}), "go 3", MatchOutcome::kAmbiguous,
                2, {"go <3-9>", "go [<string>|<3-9>]"});
}

TEST(VtyMatcher, TellsWhetherTheLastWordIsAKeyword) {
  const CommandSet commands({"show code <value>", "show log {[json]}*1", "show name <string>"});
  EXPECT_TRUE(commands.Match("show log json").ends_in_keyword);
  EXPECT_TRUE(commands.Match("show log").ends_in_keyword);
  EXPECT_FALSE(commands.Match("show code 5").ends_in_keyword);
  EXPECT_FALSE(commands.Match("show name json").ends_in_keyword);
}

TEST(VtyMatcher, GroupsRepeatFromNoneToTheirNumber) {
  const CommandSet commands({"set <value> {<value> [<0-9>|null]}*3"});
  ExpectArguments(commands, "set 1", {"1"});
  ExpectArguments(commands, "set 1 2 3", {"1", "2", "3"});
  ExpectArguments(commands, "set 1 2 3 4 null 6 7", {"1", "2", "3", "4", "null", "6", "7"});
  ExpectRefused(commands, "set 1 2 3 4 5 6 7 8 9", MatchOutcome::kTooMany, 8, {});
  ExpectRefused(commands, "set 1 2", MatchOutcome::kIncomplete, 3, {"<0-9>", "null"});
}

TEST(VtyMatcher, ItemsBehindAGroupFollowAnyRepetition) {
  const CommandSet commands({"set {<value>}*2 end {fast}*1"});
  ExpectArguments(commands, "set end", {});
  ExpectArguments(commands, "set 1 2 end fast", {"1", "2"});
  ExpectRefused(commands, "set 1 2 3", MatchOutcome::kUnknown, 3, {"end"});
}

TEST(VtyMatcher, NestedGroupsRepeat) {
  const CommandSet commands({"set {on {<0-9>}*2}*2"});
  ExpectArguments(commands, "set on 1 on 2 3", {"1", "2", "3"});
  ExpectRefused(commands, "set on 1 2 on on", MatchOutcome::kNotANumber, 5, {"<0-9>"});
}

TEST(VtyMatcher, SameLineReadInTwoWaysByOneCommandIsFine) {
  ExpectArguments(CommandSet({"set {<value>}*2 {<value>}*2"}), "set 1 2 3", {"1", "2", "3"});
}

TEST(VtyMatcher, UnknownWordsTellWhatIsKnown) {
  const CommandSet commands({"show version", "show log", "set x"});
  ExpectRefused(commands, "frobnicate", MatchOutcome::kUnknown, 0, {"show", "set"});
  ExpectRefused(commands, "show it", MatchOutcome::kUnknown, 1, {"version", "log"});
  ExpectRefused(commands, "Show log", MatchOutcome::kUnknown, 0, {"show", "set"});
}

TEST(VtyMatcher, NumbersStayInTheirRange) {
  const CommandSet commands({"set <1-2>"});
  ExpectArguments(commands, "set 1", {"1"});
  ExpectArguments(commands, "set 002", {"002"});
  ExpectRefused(commands, "set 0", MatchOutcome::kOutOfRange, 1, {"<1-2>"});
  ExpectRefused(commands, "set 3", MatchOutcome::kOutOfRange, 1, {"<1-2>"});
}

TEST(VtyMatcher, ValuesEndAt32Bits) {
  const CommandSet commands({"set <value>"});
  ExpectArguments(commands, "set 4294967295", {"4294967295"});
  ExpectRefused(commands, "set 4294967296", MatchOutcome::kOutOfRange, 1, {"<value>"});
  ExpectRefused(commands, "set 99999999999999999999", MatchOutcome::kOutOfRange, 1, {"<value>"});
}

TEST(VtyMatcher, OnuTypeCodesEndAt16Bits) {
  const CommandSet commands({"set <onutype_code>"});
  ExpectArguments(commands, "set 65535", {"65535"});
  ExpectRefused(commands, "set 65536", MatchOutcome::kOutOfRange, 1, {"<onutype_code>"});
}

TEST(VtyMatcher, OnlyDigitsMakeANumber) {
  const CommandSet commands({"set <value>"});
  for (const char* word : {"-1", "+1", "0x10", "1.5", "12a", "abc", "\"\""}) {
    ExpectRefused(commands, std::string("set ") + word, MatchOutcome::kNotANumber, 1, {"<value>"});
  }
}

TEST(VtyMatcher, NeitherNumberNorKeywordIsUnknown) {
  ExpectRefused(CommandSet({"set [<0-9>|null]"}), "set x", MatchOutcome::kUnknown, 1,
                {"<0-9>", "null"});
}

TEST(VtyMatcher, TooManyWordsAreRefusedAtTheFirst) {
  ExpectRefused(CommandSet({"show log"}), "show log a b", MatchOutcome::kTooMany, 2, {});
}

TEST(VtyMatcher, WithoutCommandsEveryWordIsUnknown) {
  ExpectRefused(CommandSet({}), "show", MatchOutcome::kUnknown, 0, {});
}

TEST(VtyMatcher, ShortLinesAreIncomplete) {
  ExpectRefused(CommandSet({"show log", "show version"}), "show", MatchOutcome::kIncomplete, 1,
                {"log", "version"});
}

}  // namespace
}  // namespace olt_host
