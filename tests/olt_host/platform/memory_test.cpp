// The host's string and memory primitives.
#include <gtest/gtest.h>

#include <cstring>

#include "bep.h"

namespace {

TEST(PlatformMemory, ComparesTexts) {
  EXPECT_EQ(0, bep_StrCmp("null", "null"));
  EXPECT_LT(bep_StrCmp("a", "b"), 0);
  EXPECT_GT(bep_StrCmp("ab", "a"), 0);
}

TEST(PlatformMemory, MeasuresTexts) {
  EXPECT_EQ(0U, bep_StrLen(""));
  EXPECT_EQ(4U, bep_StrLen("ZKWM"));
}

TEST(PlatformMemory, GivesZeroedBlocks) {
  auto* const block = static_cast<unsigned char*>(bep_callocEx(100, 3, __FILE__, __LINE__));
  ASSERT_NE(nullptr, block);
  for (int i = 0; i < 300; ++i) EXPECT_EQ(0, block[i]);
  bep_freeEx(block, __FILE__, __LINE__);
  bep_freeEx(nullptr, nullptr, 0);
}

TEST(PlatformMemory, CopiesWithinTheRoom) {
  char dst[5] = "....";
  bep_memCpyEx(dst, 4, "abcd", 4);
  EXPECT_STREQ("abcd", dst);
  bep_memCpyEx(dst, 4, "xy", 2);
  EXPECT_STREQ("xycd", dst);
}

TEST(PlatformMemory, RefusesToCopyBeyondTheRoomAndSaysSo) {
  char dst[5] = "....";
  ::testing::internal::CaptureStderr();
  bep_memCpyEx(dst, 3, "abcd", 4);
  EXPECT_NE(std::string::npos, ::testing::internal::GetCapturedStderr().find(
                                   "level 0 module 0 bep_memCpyEx refused: 4 bytes for 3\n"));
  EXPECT_STREQ("....", dst);
}

TEST(PlatformMemory, FillsWithinTheRoom) {
  char dst[5] = "....";
  bep_memSetEx(dst, 4, 0x141, 2);
  EXPECT_STREQ("AA..", dst) << "the low 8 bits of the value";
}

TEST(PlatformMemory, RefusesToFillBeyondTheRoomAndSaysSo) {
  char dst[5] = "....";
  ::testing::internal::CaptureStderr();
  bep_memSetEx(dst, 3, 'x', 4);
  EXPECT_NE(std::string::npos, ::testing::internal::GetCapturedStderr().find(
                                   "level 0 module 0 bep_memSetEx refused: 4 bytes for 3\n"));
  EXPECT_STREQ("....", dst);
}

TEST(PlatformMemory, RefusesANullTarget) {
  ::testing::internal::CaptureStderr();
  bep_memCpyEx(nullptr, 8, "a", 1);
  bep_memSetEx(nullptr, 0, 0, 0);  // nothing to do: nothing to complain about
  const std::string text = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(std::string::npos, text.find("bep_memCpyEx refused: 1 bytes for a null pointer\n"));
  EXPECT_EQ(std::string::npos, text.find("bep_memSetEx"));
}

}  // namespace
