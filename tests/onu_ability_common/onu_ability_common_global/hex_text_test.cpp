// filter_nohexchar and char_to_hex, with the lines that they write to standard
// output (a console write adds the newline).
#include <cstring>
#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "support/recording_host.h"

namespace {

using Bytes = std::vector<unsigned char>;

class HexTextTest : public LibraryTest {
 protected:
  // Runs char_to_hex over a destination filled with 0xEE, `room` bytes long.
  unsigned int Convert(const std::string& text, unsigned short dst_len, size_t room) {
    source_ = text;
    source_.push_back('\0');
    bytes_.assign(room, 0xEE);
    testing::internal::CaptureStdout();
    const unsigned int status = char_to_hex(bytes_.data(), source_.data(), dst_len);
    console_ = testing::internal::GetCapturedStdout();
    return status;
  }

  std::string Filtered(std::string text) {
    EXPECT_EQ(0U, filter_nohexchar(text.data()));
    text.resize(strlen(text.data()));
    return text;
  }

  std::string source_;   // after the conversion, with its terminator
  Bytes bytes_;          // the destination after the conversion
  std::string console_;  // what the conversion wrote to standard output
};

TEST_F(HexTextTest, FilterOf0x1GDash2fLeaves012f) { EXPECT_EQ("012f", Filtered("0x1G-2f")); }

TEST_F(HexTextTest, FilterKeepsEveryHexDigit) {
  EXPECT_EQ("0123456789abcdefABCDEF", Filtered("0123456789abcdefABCDEF"));
}

TEST_F(HexTextTest, FilterRemovesNeighboursOfTheDigitRanges) {
  EXPECT_EQ("09AFaf", Filtered("/0 9:@A FG`a fg"));
}

TEST_F(HexTextTest, FilterRemovesRunsOfBadCharacters) {
  EXPECT_EQ("a1", Filtered("xyzza\xff\xffg g1---"));
  EXPECT_EQ("", Filtered("ghijk"));
  EXPECT_EQ("", Filtered(""));
}

TEST_F(HexTextTest, FilterOfNullWritesAConsoleLine) {
  testing::internal::CaptureStdout();
  const unsigned int status = filter_nohexchar(nullptr);
  EXPECT_EQ("input parm 'str_src' is NULL\r\n", testing::internal::GetCapturedStdout());
  EXPECT_EQ(0x80000002U, status);
}

TEST_F(HexTextTest, FilterCountsTheLengthIn16Bits) {
  // 65536 characters count as none.
  EXPECT_EQ(std::string(65536, 'G'), Filtered(std::string(65536, 'G')));
  EXPECT_EQ("", Filtered(std::string(65535, 'G')));
}

TEST_F(HexTextTest, A1B2IntoTwoBytes) {
  EXPECT_EQ(0U, Convert("A1B2", 2, 3));
  EXPECT_EQ(Bytes({0xA1, 0xB2, 0xEE}), bytes_);
  EXPECT_EQ("", console_);
}

TEST_F(HexTextTest, A1B2IntoOneByteFailsWithTheByteZeroed) {
  EXPECT_EQ(0x80000002U, Convert("A1B2", 1, 3));
  EXPECT_EQ("src_len is greater than dst_len !\r\n", console_);
  EXPECT_EQ(Bytes({0x00, 0xEE, 0xEE}), bytes_);
}

TEST_F(HexTextTest, OddDigitLeavesALowNibbleOf0) {
  EXPECT_EQ(0U, Convert("abc", 2, 3));
  EXPECT_EQ(Bytes({0xAB, 0xC0, 0xEE}), bytes_);
}

TEST_F(HexTextTest, SizeTestRoundsDownSoThatAnOddDigitWritesOneByteMore) {
  EXPECT_EQ(0U, Convert("abc", 1, 3));
  EXPECT_EQ(Bytes({0xAB, 0xC0, 0xEE}), bytes_);
  EXPECT_EQ("", console_);
}

TEST_F(HexTextTest, DigitsOfBothCases) {
  EXPECT_EQ(0U, Convert("0123456789abcdefABCDEF", 11, 11));
  EXPECT_EQ(Bytes({0x01, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef, 0xAB, 0xCD, 0xEF}), bytes_);
}

TEST_F(HexTextTest, SourceIsFilteredInPlaceFirst) {
  EXPECT_EQ(0U, Convert("0x-A1:B2", 3, 3));
  EXPECT_STREQ("0A1B2", source_.c_str());
  EXPECT_EQ(Bytes({0x0A, 0x1B, 0x20}), bytes_);
}

TEST_F(HexTextTest, RoomBeyondTheDigitsIsZeroed) {
  EXPECT_EQ(0U, Convert("A1", 4, 5));
  EXPECT_EQ(Bytes({0xA1, 0x00, 0x00, 0x00, 0xEE}), bytes_);
}

TEST_F(HexTextTest, DestinationIsZeroedThroughTheHost) {
  Convert("A1", 4, 5);
  ASSERT_EQ(1U, host.memory_calls().size());
  EXPECT_EQ("bep_memSetEx", host.memory_calls()[0].name);
  EXPECT_EQ(4U, host.memory_calls()[0].count);
}

TEST_F(HexTextTest, EmptyTextSucceedsWithTheRoomZeroed) {
  EXPECT_EQ(0U, Convert("", 2, 3));
  EXPECT_EQ(Bytes({0x00, 0x00, 0xEE}), bytes_);
  EXPECT_EQ(0U, Convert("xyz", 2, 3));
  EXPECT_EQ(Bytes({0x00, 0x00, 0xEE}), bytes_);
}

TEST_F(HexTextTest, NoRoomIsRefusedEvenForAnEmptyText) {
  EXPECT_EQ(0x80000002U, Convert("", 0, 1));
  EXPECT_EQ("src_len is greater than dst_len !\r\n", console_);
  EXPECT_EQ(Bytes({0xEE}), bytes_);
  EXPECT_EQ(0x80000002U, Convert("A", 0, 1));
  EXPECT_EQ(Bytes({0xEE}), bytes_);
}

TEST_F(HexTextTest, NullDestinationWritesAConsoleLineAndLeavesTheSource) {
  char source[] = "x1";
  testing::internal::CaptureStdout();
  const unsigned int status = char_to_hex(nullptr, source, 2);
  EXPECT_EQ("input parm 'dst' is NULL\r\n", testing::internal::GetCapturedStdout());
  EXPECT_EQ(0x80000002U, status);
  EXPECT_STREQ("x1", source);
}

TEST_F(HexTextTest, NullSourceWritesAConsoleLineAndLeavesTheDestination) {
  unsigned char bytes[] = {0xEE, 0xEE};
  testing::internal::CaptureStdout();
  const unsigned int status = char_to_hex(bytes, nullptr, 2);
  EXPECT_EQ("input parm 'src' is NULL\r\n", testing::internal::GetCapturedStdout());
  EXPECT_EQ(0x80000002U, status);
  EXPECT_EQ(0xEE, bytes[0]);
}

TEST_F(HexTextTest, NullDestinationIsNamedBeforeNullSource) {
  testing::internal::CaptureStdout();
  char_to_hex(nullptr, nullptr, 2);
  EXPECT_EQ("input parm 'dst' is NULL\r\n", testing::internal::GetCapturedStdout());
}

TEST_F(HexTextTest, TakesUpTo255Digits) {
  EXPECT_EQ(0U, Convert(std::string(255, 'F'), 128, 129));
  Bytes expected(127, 0xFF);
  expected.push_back(0xF0);
  expected.push_back(0xEE);
  EXPECT_EQ(expected, bytes_);
}

TEST_F(HexTextTest, RefusesMoreDigitsThanItsPositionsCount) {
  EXPECT_EQ(0x80000002U, Convert(std::string(256, 'F'), 200, 200));
  EXPECT_EQ(0x80000002U, Convert(std::string(300, 'F'), 200, 200));
}

TEST_F(HexTextTest, ConsoleLinesAreNotLogLines) {
  testing::internal::CaptureStdout();
  char source[] = "A1B2";
  unsigned char bytes[1];
  filter_nohexchar(nullptr);
  char_to_hex(nullptr, source, 1);
  char_to_hex(bytes, nullptr, 1);
  char_to_hex(bytes, source, 1);
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLogWithoutTraces());
}

}  // namespace
