// How a line is cut into words.
#include <gtest/gtest.h>

#include "vty/lexer.h"

namespace olt_host {
namespace {

std::vector<std::string> Texts(const std::string& line) {
  const LexedLine lexed = LexLine(line);
  EXPECT_EQ("", lexed.error) << line;
  std::vector<std::string> texts;
  for (const Word& word : lexed.words) texts.push_back(word.text);
  return texts;
}

void ExpectError(const std::string& line, const std::string& error, std::size_t column) {
  const LexedLine lexed = LexLine(line);
  EXPECT_EQ(error, lexed.error) << line;
  EXPECT_EQ(column, lexed.error_column) << line;
}

using Words = std::vector<std::string>;

TEST(VtyLexer, CutsAtBlanksAndTabs) {
  EXPECT_EQ((Words{"show", "ability", "code"}), Texts("  show ability\t code  "));
}

TEST(VtyLexer, FindsNoWordInABlankLine) {
  EXPECT_EQ(Words{}, Texts(""));
  EXPECT_EQ(Words{}, Texts(" \t "));
}

TEST(VtyLexer, KeepsThePlaceOfEachWord) {
  const LexedLine lexed = LexLine(" ab \"c d\" e");
  ASSERT_EQ(3U, lexed.words.size());
  EXPECT_EQ(1U, lexed.words[0].column);
  EXPECT_EQ(3U, lexed.words[0].end);
  EXPECT_EQ(4U, lexed.words[1].column);
  EXPECT_EQ(9U, lexed.words[1].end);
  EXPECT_EQ(10U, lexed.words[2].column);
  EXPECT_FALSE(lexed.words[0].quoted);
  EXPECT_TRUE(lexed.words[1].quoted);
}

TEST(VtyLexer, KeepsBlanksInsideQuotes) {
  EXPECT_EQ((Words{"name", "GE  PORTS", "x"}), Texts("name \"GE  PORTS\" x"));
}

TEST(VtyLexer, ReadsAnEmptyQuotedWord) { EXPECT_EQ((Words{"a", ""}), Texts("a \"\"")); }

TEST(VtyLexer, ReadsEscapedQuotesAndBackslashes) {
  EXPECT_EQ(Words{"say \"hi\" \\ there"}, Texts(R"("say \"hi\" \\ there")"));
}

TEST(VtyLexer, KeepsBackslashesOutsideQuotes) { EXPECT_EQ(Words{"a\\b"}, Texts("a\\b")); }

TEST(VtyLexer, KeepsBytesAboveAscii) { EXPECT_EQ(Words{"m\xc3\xbcx"}, Texts("m\xc3\xbcx")); }

TEST(VtyLexer, RefusesAMissingClosingQuoteAtItsOpening) {
  ExpectError("set \"ab", "Missing closing quote", 4);
  ExpectError("\"ab\\\"", "Missing closing quote", 0);
}

TEST(VtyLexer, RefusesOtherEscapes) {
  ExpectError("\"a\\n\"", "Only \\\" and \\\\ are escapes", 2);
  ExpectError("\"a\\", "Only \\\" and \\\\ are escapes", 2);
}

TEST(VtyLexer, RefusesTextThatTouchesAQuotedWord) {
  ExpectError("\"ab\"c", "Blank expected after the closing quote", 4);
  ExpectError("ab\"c\"", "Quote inside a word", 2);
}

TEST(VtyLexer, RefusesControlCharacters) {
  ExpectError("ab\x1b[2J", "Control character", 2);
  ExpectError(std::string("ab \"c\0d\"", 8), "Control character", 5);
  ExpectError("\x7f", "Control character", 0);
}

TEST(VtyLexer, ReadsALineOfAMegabyte) {
  EXPECT_EQ(Words{std::string(1 << 20, 'x')}, Texts(std::string(1 << 20, 'x')));
}

}  // namespace
}  // namespace olt_host
