// The process-wide settings and the three small text utilities beside them.
#include <string>

#include "onu_ability_common_global.h"
#include "support/recording_host.h"

namespace {

class GlobalVarTest : public LibraryTest {
 protected:
  // What char_to_string leaves of a destination filled with '.'.
  static std::string Copied(std::string source, unsigned int maximum) {
    std::string destination(400, '.');
    EXPECT_EQ(0U, OnuAbilityGlobalVar::char_to_string(source.data(), destination.data(), maximum));
    return destination.substr(0, destination.find_last_not_of('.') + 1);
  }
};

TEST_F(GlobalVarTest, StartsWithoutPendingProfileAndWithTheCommonTypes) {
  OnuAbilityGlobalVar* var = OnuAbilityGlobalVar::GetInstance();
  EXPECT_EQ(nullptr, var->_onu_ability_profile);
  EXPECT_EQ(857, var->_sfu_common_type);
  EXPECT_EQ(762, var->_hgu_common_type);
}

TEST_F(GlobalVarTest, ThereIsOneInstance) {
  OnuAbilityGlobalVar::GetInstance()->_sfu_common_type = 5;
  EXPECT_EQ(5, OnuAbilityGlobalVar::GetInstance()->_sfu_common_type);
}

TEST_F(GlobalVarTest, CharToStringCopiesTheTextWithoutTerminator) {
  EXPECT_EQ("ABCD", Copied("ABCD", 10));
  EXPECT_EQ("ABCD", Copied("ABCD", 4));
}

TEST_F(GlobalVarTest, CharToStringCutsToTheMaximum) {
  EXPECT_EQ("AB", Copied("ABCD", 2));
  EXPECT_EQ("", Copied("ABCD", 0));
}

TEST_F(GlobalVarTest, CharToStringTakesTheLengthModulo256) {
  EXPECT_EQ(std::string(255, 'x'), Copied(std::string(255, 'x'), 1000));
  EXPECT_EQ("", Copied(std::string(256, 'x'), 1000));
  EXPECT_EQ(std::string(44, 'x'), Copied(std::string(300, 'x'), 1000));
}

TEST_F(GlobalVarTest, CharToStringTakesTheModuloBeforeTheMaximum) {
  EXPECT_EQ("", Copied(std::string(256, 'x'), 10));
  EXPECT_EQ(std::string(44, 'x'), Copied(std::string(300, 'x'), 50));
}

TEST_F(GlobalVarTest, CharToStringCopiesThroughTheHost) {
  Copied("ABCD", 3);
  ASSERT_EQ(1U, host.memory_calls().size());
  EXPECT_EQ("bep_memCpyEx", host.memory_calls()[0].name);
  EXPECT_EQ(3U, host.memory_calls()[0].count);
}

TEST_F(GlobalVarTest, BufferCopyCopiesTheTextWithoutTerminator) {
  unsigned char buffer[] = "......";
  OnuAbilityGlobalVar::BufferCopy(buffer, "ABC", 6);
  EXPECT_STREQ("ABC...", reinterpret_cast<char*>(buffer));
}

TEST_F(GlobalVarTest, BufferCopyCutsToTheSize) {
  unsigned char buffer[] = "......";
  OnuAbilityGlobalVar::BufferCopy(buffer, "ABC", 2);
  EXPECT_STREQ("AB....", reinterpret_cast<char*>(buffer));
}

TEST_F(GlobalVarTest, BufferCopyPassesTheSizeAsTheHostsBound) {
  unsigned char buffer[8] = {};
  OnuAbilityGlobalVar::BufferCopy(buffer, "ABC", 8);
  ASSERT_EQ(1U, host.memory_calls().size());
  EXPECT_EQ("bep_memCpyEx", host.memory_calls()[0].name);
  EXPECT_EQ(8U, host.memory_calls()[0].size);
  EXPECT_EQ(3U, host.memory_calls()[0].count);
}

// "point" where every other place says "pointer": meant.
TEST_F(GlobalVarTest, BufferCopyWordsItsNullLineApart) {
  OnuAbilityGlobalVar::BufferCopy(nullptr, "ABC", 2);
  EXPECT_EQ(std::vector<LogLine>({Log(13, "there is null point!")}), host.TakeLogWithoutTraces());
  EXPECT_TRUE(host.memory_calls().empty());
}

TEST_F(GlobalVarTest, IsDigitTakesDecimalDigitsOnly) {
  EXPECT_EQ(1, OnuAbilityGlobalVar::IsDigit("0123456789"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("12a"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("a12"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("-1"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit(" 1"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("1/"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("1:"));
  EXPECT_EQ(0, OnuAbilityGlobalVar::IsDigit("\xb2"));
}

TEST_F(GlobalVarTest, IsDigitOfTheEmptyTextIs1) { EXPECT_EQ(1, OnuAbilityGlobalVar::IsDigit("")); }

}  // namespace
