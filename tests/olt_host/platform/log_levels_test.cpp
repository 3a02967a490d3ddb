#include "platform/log_levels.h"

#include <gtest/gtest.h>

namespace olt_host {
namespace {

TEST(LogLevels, AreAListOrAllOrNone) {
  EXPECT_EQ(ParseLogLevels("0"), 1U);
  EXPECT_EQ(ParseLogLevels("0,1,13"), 0x2003U);
  EXPECT_EQ(ParseLogLevels("13,0,13"), 0x2001U);
  EXPECT_EQ(ParseLogLevels("31"), 0x80000000U);
  EXPECT_EQ(ParseLogLevels("all"), 0xFFFFFFFFU);
  EXPECT_EQ(ParseLogLevels("none"), 0U);
}

TEST(LogLevels, RefuseEverythingElse) {
  for (const char* text : {"", ",", "1,", ",1", "32", "1,,2", "-1", "x", "1 2", "999", "ALL",
                           "none,1", "all,1", "none,", "4294967297"}) {
    EXPECT_EQ(ParseLogLevels(text), std::nullopt) << text;
  }
}

TEST(LogLevels, AreWrittenAsTheyAreRead) {
  EXPECT_EQ(LogLevelsText(0x2003), "0,1,13");
  EXPECT_EQ(LogLevelsText(0x80000000), "31");
  EXPECT_EQ(LogLevelsText(0xFFFFFFFF), "all");
  EXPECT_EQ(LogLevelsText(0), "none");
  for (const unsigned int mask : {0U, 1U, 0x7FFFFFFFU, 0x80000001U, 0xFFFFFFFFU}) {
    EXPECT_EQ(ParseLogLevels(LogLevelsText(mask)), mask);
  }
}

TEST(LogLevels, HaveAMeaningWhereTheLibraryUsesThem) {
  std::vector<unsigned int> levels;
  for (const LogLevelMeaning& entry : LogLevelMeanings()) {
    levels.push_back(entry.level);
    EXPECT_STRNE(entry.meaning, "");
  }
  EXPECT_EQ(levels, (std::vector<unsigned int>{0, 1, 4, 5, 6, 9, 10, 13}));
}

}  // namespace
}  // namespace olt_host
