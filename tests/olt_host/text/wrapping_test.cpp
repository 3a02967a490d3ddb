// Long texts broken into lines that fit a screen.
#include <gtest/gtest.h>

#include <sstream>

#include "text/columns.h"
#include "text/wrapping.h"

namespace olt_host {
namespace {

TEST(Wrapping, AShortTextStaysOnItsLine) {
  EXPECT_EQ("head text\r\n", Wrap("head ", "text", 5, 20));
  EXPECT_EQ("head\r\n", Wrap("head  ", "", 6, 20));
  EXPECT_EQ("\r\n", Wrap("", "", 0, 20));
}

TEST(Wrapping, BreaksAtBlanksBelowTheText) {
  EXPECT_EQ(
      "key  a text that\r\n"
      "     is somewhat\r\n"
      "     longer\r\n",
      Wrap("key  ", "a text that is somewhat longer", 5, 18));
}

TEST(Wrapping, KeepsItemsThatEndInASemicolonWhole) {
  EXPECT_EQ(
      "<0-2>  0:from the start;\r\n"
      "       1:by an operator;2:all\r\n",
      Wrap("<0-2>  ", "0:from the start;1:by an operator;2:all", 7, 31));
}

TEST(Wrapping, BreaksItemsThatFitNoLineAtBlanks) {
  EXPECT_EQ(
      "x 1:one two\r\n"
      "  three;2:x\r\n",
      Wrap("x ", "1:one two three;2:x", 2, 13));
}

TEST(Wrapping, DropsBlanksWhereItBreaks) {
  EXPECT_EQ(
      "  first item;\r\n"
      "  second item\r\n",
      Wrap("  ", "first item; second item", 2, 17));
}

TEST(Wrapping, CutsWordsThatAreLongerThanALine) {
  EXPECT_EQ(
      "k abcdefgh\r\n"
      "  ijklmnop\r\n"
      "  qr s\r\n",
      Wrap("k ", "abcdefghijklmnopqr s", 2, 11));
}

TEST(Wrapping, CountsCharactersNotBytes) {
  std::string umlauts;
  for (int i = 0; i < 12; ++i) umlauts += "\xc3\xbc";
  EXPECT_EQ("  " + umlauts.substr(0, 16) + "\r\n  " + umlauts.substr(16) + "\r\n",
            Wrap("  ", umlauts, 2, 11));
}

TEST(Wrapping, ANarrowScreenGetsLinesThatAreTooWide) {
  for (const std::size_t columns : {0U, 1U, 2U, 5U}) {
    EXPECT_EQ("  a long\r\n  word\r\n", Wrap("  ", "a long word", 2, columns));
  }
}

TEST(Wrapping, NoLineIsWiderThanTheScreen) {
  for (std::size_t length = 0; length < 400; length += 7) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
      text += i * i % 23 == 0 ? ' ' : i * i % 41 == 3 ? ';' : 'x';
    }
    for (std::size_t indent = 0; indent < 40; indent += 13) {
      std::istringstream lines(Wrap(std::string(indent, ' '), text, indent));
      for (std::string line; std::getline(lines, line);) {
        ASSERT_EQ('\r', line.back());
        EXPECT_LE(DisplayWidth(line) - 1, 79U) << line;
      }
    }
  }
}

TEST(Wrapping, LinesAboveTakeNoColumns) {
  for (const std::size_t length : {77U, 78U, 79U}) {
    const std::string heading(length, 'x');
    EXPECT_EQ("\r\n" + heading + "\r\n", Wrap("\r\n", heading, 0));
    EXPECT_EQ("above\r\n\r\n" + heading + "\r\n", Wrap("above\r\n\r\n", heading, 0));
  }
  EXPECT_EQ("above\r\nHead: 12\r\n", Wrap("above\r\nHead: ", "12", 2, 10));
}

TEST(Wrapping, OfWordsBreaksAtBlanksAlone) {
  const std::string text = std::string(40, 'a') + "; " + std::string(30, 'b') + "  \n cc";
  EXPECT_EQ("head " + std::string(40, 'a') + "; " + std::string(30, 'b') + "\n  cc\n",
            WrapWords("head ", text, 2));
  EXPECT_EQ("head\n", WrapWords("head ", "", 2));
  EXPECT_EQ("1234 " + std::string(70, 'a') + "\n     b123\n",
            WrapWords("1234 ", std::string(70, 'a') + " b123"));
}

TEST(Wrapping, OfWordsCutsALongOneBetweenCharacters) {
  std::string word;
  for (int i = 0; i < 100; ++i) word += "\xc3\xb6";
  const std::string text = WrapWords("  ", word, 4);
  EXPECT_EQ(2U + 2 * 77 + 1, text.find("    \xc3\xb6"));
}

}  // namespace
}  // namespace olt_host
