// The constructs of syntax strings, and what is refused at which place.
#include <gtest/gtest.h>

#include "vty/grammar.h"
#include "vty/syntax.h"

namespace olt_host {
namespace {

Syntax Parse(const std::string& text, const std::string& doc = "") {
  Syntax syntax = ParseSyntax(text, doc);
  EXPECT_EQ("", syntax.error) << text;
  return syntax;
}

// The only item behind the keyword "x".
SyntaxNode ParseItem(const std::string& text) {
  const Syntax syntax = Parse("x " + text);
  return syntax.items.size() == 2 ? syntax.items[1] : SyntaxNode();
}

void ExpectRefused(const std::string& text, const std::string& error, std::size_t column) {
  const Syntax syntax = ParseSyntax(text, "");
  EXPECT_EQ(error, syntax.error) << text;
  EXPECT_EQ(column, syntax.error_column) << text;
  EXPECT_TRUE(syntax.items.empty()) << text;
}

TEST(VtySyntax, KeywordsAreNoArguments) {
  const Syntax syntax = Parse("show key_ability-code.2");
  ASSERT_EQ(2U, syntax.items.size());
  EXPECT_EQ(SyntaxNode::kToken, syntax.items[1].kind);
  EXPECT_EQ(TokenKind::kKeyword, syntax.items[1].token.kind);
  EXPECT_EQ("key_ability-code.2", syntax.items[1].token.text);
  EXPECT_FALSE(syntax.items[1].token.is_argument);
}

TEST(VtySyntax, ValueIsANumberOf32Bits) {
  const Token token = ParseItem("<value>").token;
  EXPECT_EQ(TokenKind::kNumber, token.kind);
  EXPECT_TRUE(token.is_argument);
  EXPECT_EQ(0U, token.low);
  EXPECT_EQ(4294967295U, token.high);
  EXPECT_FALSE(token.takes_name);
}

TEST(VtySyntax, OnuTypeCodeIsANumberOf16Bits) {
  const Token token = ParseItem("<onutype_code>").token;
  EXPECT_EQ(TokenKind::kNumber, token.kind);
  EXPECT_EQ(0U, token.low);
  EXPECT_EQ(65535U, token.high);
}

TEST(VtySyntax, RangeHasBothEnds) {
  const Token token = ParseItem("<1-4294967295>").token;
  EXPECT_EQ(TokenKind::kNumber, token.kind);
  EXPECT_EQ(1U, token.low);
  EXPECT_EQ(4294967295U, token.high);
}

TEST(VtySyntax, StringIsAnyWord) {
  const Token token = ParseItem("<string>").token;
  EXPECT_EQ(TokenKind::kString, token.kind);
  EXPECT_TRUE(token.is_argument);
}

TEST(VtySyntax, ChoiceOffersKeywordsAsArguments) {
  const SyntaxNode choice = ParseItem("[match|real]");
  ASSERT_EQ(SyntaxNode::kChoice, choice.kind);
  ASSERT_EQ(2U, choice.children.size());
  EXPECT_EQ("match", choice.children[0].token.text);
  EXPECT_EQ("real", choice.children[1].token.text);
  EXPECT_TRUE(choice.children[1].token.is_argument);
}

TEST(VtySyntax, ChoiceOffersValuesBesideKeywords) {
  const SyntaxNode text = ParseItem("[<string>|null]");
  ASSERT_EQ(2U, text.children.size());
  EXPECT_EQ(TokenKind::kString, text.children[0].token.kind);
  EXPECT_EQ(TokenKind::kKeyword, text.children[1].token.kind);
  const SyntaxNode number = ParseItem("[<0-65535>|null]");
  ASSERT_EQ(2U, number.children.size());
  EXPECT_EQ(65535U, number.children[0].token.high);
}

TEST(VtySyntax, BracketedKeywordIsAnArgument) {
  const SyntaxNode choice = ParseItem("[key]");
  ASSERT_EQ(1U, choice.children.size());
  EXPECT_TRUE(choice.children[0].token.is_argument);
}

TEST(VtySyntax, GroupHasItemsAndRepetitions) {
  const SyntaxNode group = ParseItem("{<value> [<0-65535>|null]}*8");
  ASSERT_EQ(SyntaxNode::kGroup, group.kind);
  EXPECT_EQ(8U, group.repeat);
  ASSERT_EQ(2U, group.children.size());
  EXPECT_EQ(SyntaxNode::kChoice, group.children[1].kind);
}

TEST(VtySyntax, GroupsMayBeNested) {
  const SyntaxNode group = ParseItem("{a {b}*2 }*1");
  ASSERT_EQ(2U, group.children.size());
  EXPECT_EQ(2U, group.children[1].repeat);
}

TEST(VtySyntax, BlanksAtTheEndsDoNotMatter) { EXPECT_EQ(2U, Parse(" add x ").items.size()); }

TEST(VtySyntax, HelpLinesBelongToTokensInOrder) {
  const Syntax syntax =
      Parse("show [match|real] {<0-2>}*1", "show it\r\nthe match \r\nthe real\r\n0:none\r\n");
  EXPECT_EQ("show it", syntax.items[0].token.help);
  EXPECT_EQ("the match", syntax.items[1].children[0].token.help);
  EXPECT_EQ("the real", syntax.items[1].children[1].token.help);
  EXPECT_EQ("0:none", syntax.items[2].children[0].token.help);
}

TEST(VtySyntax, MissingHelpLinesAreEmpty) {
  EXPECT_EQ("", Parse("show it", "show").items[1].token.help);
}

TEST(VtySyntax, ValueTakesANameWhereItsHelpSaysSo) {
  const std::string doc = "show\r\ncode\r\nability code value or name\r\n";
  EXPECT_TRUE(Parse("show code <value>", doc).items[2].token.takes_name);
  EXPECT_FALSE(Parse("show code <0-9>", doc).items[2].token.takes_name);
  EXPECT_FALSE(Parse("show <value> code", doc).items[1].token.takes_name);
}

TEST(VtySyntax, RefusesWhatDoesNotBeginWithAKeyword) {
  ExpectRefused("", "a command begins with a keyword", 0);
  ExpectRefused("  <value>", "a command begins with a keyword", 2);
  ExpectRefused("[a|b] c", "a command begins with a keyword", 0);
}

TEST(VtySyntax, RefusesUnknownPlaceholders) {
  const std::string error = "<value>, <string>, <onutype_code> or a range <low-high> was expected";
  ExpectRefused("show <name>", error, 5);
  ExpectRefused("show <5-2>", error, 5);
  ExpectRefused("show <1-4294967296>", error, 5);
  ExpectRefused("show <1-2-3>", error, 5);
  ExpectRefused("show <-1-2>", error, 5);
  ExpectRefused("show <>", error, 5);
  ExpectRefused("show x <value", "this < is not closed", 7);
}

TEST(VtySyntax, RefusesBrokenChoices) {
  ExpectRefused("show [a|b", "this [ is not closed", 5);
  ExpectRefused("show [a b]", "| or ] was expected", 7);
  ExpectRefused("show []", "a keyword or a value was expected", 6);
  ExpectRefused("show [a|]", "a keyword or a value was expected", 8);
  ExpectRefused("show [a|b|a]", "offered twice", 10);
  ExpectRefused("show [{a}*1]", "a keyword or a value was expected", 6);
}

TEST(VtySyntax, RefusesBrokenGroups) {
  ExpectRefused("show {a", "this { is not closed", 5);
  ExpectRefused("show { }*2", "an empty group", 5);
  ExpectRefused("show {a}", "a group ends in }*n", 8);
  ExpectRefused("show {a}*", "a group is repeated 1 to 64 times", 9);
  ExpectRefused("show {a}*0", "a group is repeated 1 to 64 times", 9);
  ExpectRefused("show {a}*65", "a group is repeated 1 to 64 times", 9);
  ExpectRefused("x {a {b {c {d {e}*1}*1}*1}*1}*1", "groups are nested too deeply", 14);
}

TEST(VtySyntax, RefusesStrayCharacters) {
  ExpectRefused("show }", "a keyword or a value was expected", 5);
  ExpectRefused("show a|b", "items stand between blanks", 6);
  ExpectRefused("show <value>x", "items stand between blanks", 12);
  ExpectRefused("show (a)", "a keyword or a value was expected", 5);
}

TEST(VtyGrammar, WritesGroupsOut) {
  // x, and twice the pair: five tokens in all.
  EXPECT_EQ(5U, BuildGrammar(Parse("x {<value> <string>}*2")).vertices.size());
}

TEST(VtyGrammar, RefusesToWriteOutTooMuch) {
  EXPECT_TRUE(BuildGrammar(Parse("x {a {b {c}*64}*64}*64")).vertices.empty());
}

}  // namespace
}  // namespace olt_host
