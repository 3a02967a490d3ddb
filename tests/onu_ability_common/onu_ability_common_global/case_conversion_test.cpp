#include <string>

#include "onu_ability_common_global.h"
#include "support/recording_host.h"

namespace {

class CaseConversionTest : public LibraryTest {};

TEST_F(CaseConversionTest, LowerToUpperConvertsInPlace) {
  char text[] = "onu-Type_9 azAZ{}";
  EXPECT_EQ(0U, onu_ability_trans_str_lower_to_upper(text));
  EXPECT_STREQ("ONU-TYPE_9 AZAZ{}", text);
}

TEST_F(CaseConversionTest, UpperToLowerConvertsInPlace) {
  char text[] = "ONU-tYPE_9 azAZ[]";
  EXPECT_EQ(0U, onu_ability_trans_str_upper_to_lower(text));
  EXPECT_STREQ("onu-type_9 azaz[]", text);
}

TEST_F(CaseConversionTest, StopsAtTheTerminator) {
  char text[] = "ab\0cd";
  EXPECT_EQ(0U, onu_ability_trans_str_lower_to_upper(text));
  EXPECT_EQ(std::string("AB\0cd", 5), std::string(text, 5));
  char other[] = "AB\0CD";
  EXPECT_EQ(0U, onu_ability_trans_str_upper_to_lower(other));
  EXPECT_EQ(std::string("ab\0CD", 5), std::string(other, 5));
}

TEST_F(CaseConversionTest, BytesAbove127StayInTheDefaultLocale) {
  char text[] = "\xe4\xff";
  EXPECT_EQ(0U, onu_ability_trans_str_lower_to_upper(text));
  EXPECT_STREQ("\xe4\xff", text);
  EXPECT_EQ(0U, onu_ability_trans_str_upper_to_lower(text));
  EXPECT_STREQ("\xe4\xff", text);
}

TEST_F(CaseConversionTest, EmptyTextSucceeds) {
  char text[] = "";
  EXPECT_EQ(0U, onu_ability_trans_str_lower_to_upper(text));
  EXPECT_EQ(0U, onu_ability_trans_str_upper_to_lower(text));
  EXPECT_STREQ("", text);
}

TEST_F(CaseConversionTest, NullTextIsRefused) {
  EXPECT_EQ(0x80000001U, onu_ability_trans_str_lower_to_upper(nullptr));
  EXPECT_EQ(0x80000001U, onu_ability_trans_str_upper_to_lower(nullptr));
}

}  // namespace
