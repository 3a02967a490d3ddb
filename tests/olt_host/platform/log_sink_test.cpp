// The host's log: what is written, where, and in which form.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "platform/log_sink.h"
#include "ulog.h"

namespace olt_host {
namespace {

class PlatformLogSink : public ::testing::Test {
 protected:
  using Texts = std::vector<std::string>;

  void TearDown() override {
    OpenLog(LogSettings());
    std::filesystem::remove(path_);
  }

  // The ring listens to nothing, unless asked, to tell the two places apart.
  void OpenFile(unsigned int mask, unsigned int ring_mask = 0) {
    OpenLog(LogSettings{path_, mask, ring_mask});
  }

  static Texts RecentTexts() {
    Texts texts;
    for (const LogLine& line : RecentLogLines().Newest(LogRing::kLines)) texts.push_back(line.text);
    return texts;
  }

  // The lines of the file, without their times.
  std::vector<std::string> Lines() {
    OpenLog(LogSettings());  // flushes the file
    std::ifstream file(path_);
    std::vector<std::string> lines;
    static const std::regex kTime(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )");
    for (std::string line; std::getline(file, line);) {
      EXPECT_TRUE(std::regex_search(line, kTime)) << line;
      lines.push_back(std::regex_replace(line, kTime, ""));
    }
    return lines;
  }

  const std::string path_ =
      ::testing::TempDir() + "platform_log_sink_" + std::to_string(getpid()) + ".log";
};

TEST_F(PlatformLogSink, WritesOneTextLineALine) {
  OpenFile(~0U);
  ulogPrintf(19, 1, "find null!code:%d func:%s,line:%d\r\n\r\n", 7, "Get", 12);
  ulogPrintf(19, 10, "plain");
  EXPECT_EQ(
      (Texts{"level 1 module 19 find null!code:7 func:Get,line:12", "level 10 module 19 plain"}),
      Lines());
}

TEST_F(PlatformLogSink, JoinsBreaksInsideALine) {
  OpenFile(~0U);
  ulogPrintf(19, 13, "unpack _id failed\r\n func:%s,line:%d\r\n\r\n", "UnSerialize", 3);
  EXPECT_EQ(Texts{"level 13 module 19 unpack _id failed  func:UnSerialize,line:3"}, Lines());
}

TEST_F(PlatformLogSink, ShowsControlCharactersInsteadOfSendingThem) {
  OpenFile(~0U);
  ulogPrintf(19, 0, "name:%s", "a\x1b[2J\x7f\tb\rc");
  EXPECT_EQ(Texts{"level 0 module 19 name:a\\x1b[2J\\x7f b\\x0dc"}, Lines());
}

TEST_F(PlatformLogSink, WritesLongLinesInFull) {
  OpenFile(~0U);
  const std::string text(5000, 'z');
  ulogPrintf(1, 2, "%s!", text.c_str());
  EXPECT_EQ(Texts{"level 2 module 1 " + text + "!"}, Lines());
}

TEST_F(PlatformLogSink, WritesTheLevelsOfTheMaskOnly) {
  OpenFile((1U << 1) | (1U << 31));
  for (unsigned int level = 0; level < 40; ++level) ulogPrintf(1, level, "x");
  EXPECT_EQ((Texts{"level 1 module 1 x", "level 31 module 1 x"}), Lines());
}

TEST_F(PlatformLogSink, TellsTheLibraryWhichLevelsAreListenedTo) {
  OpenFile(0x21);
  EXPECT_EQ(0x21U, onu_ability_get_log_level_mask());
  OpenFile(0x21, 0x3);
  EXPECT_EQ(0x23U, onu_ability_get_log_level_mask());
  OpenLog(LogSettings());
  EXPECT_EQ((1U << 0) | (1U << 13), onu_ability_get_log_level_mask());
}

TEST_F(PlatformLogSink, AddsToAnExistingFile) {
  OpenFile(~0U);
  ulogPrintf(1, 0, "first");
  EXPECT_EQ(1U, Lines().size());
  OpenFile(~0U);
  ulogPrintf(1, 0, "second");
  EXPECT_EQ((Texts{"level 0 module 1 first", "level 0 module 1 second"}), Lines());
}

TEST_F(PlatformLogSink, WritesTheHostsOwnLinesAsModule0) {
  OpenFile(1U << 0);
  LogHostLine(0, "100 % of it");
  LogHostLine(1, "not listened to");
  EXPECT_EQ(Texts{"level 0 module 0 100 % of it"}, Lines());
}

TEST_F(PlatformLogSink, RefusesAFileThatCannotBeOpenedAndStaysAsItWas) {
  OpenFile(~0U);
  EXPECT_THROW(OpenLog(LogSettings{"/dev/null/log", 1}), std::runtime_error);
  EXPECT_EQ(~0U, onu_ability_get_log_level_mask());
  ulogPrintf(1, 4, "still here");
  EXPECT_EQ(Texts{"level 4 module 1 still here"}, Lines());
}

TEST_F(PlatformLogSink, StandardErrorGetsWhatAnOperatorNeedsByDefault) {
  ::testing::internal::CaptureStderr();
  for (unsigned int level = 0; level < 14; ++level) ulogPrintf(19, level, "line %u", level);
  const std::string text = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(std::string::npos, text.find(" level 0 module 19 line 0\n"));
  EXPECT_NE(std::string::npos, text.find(" level 13 module 19 line 13\n"));
  EXPECT_EQ(2, std::count(text.begin(), text.end(), '\n'));
}

TEST_F(PlatformLogSink, RingTakesTheLevelsOfItsOwnMask) {
  OpenFile(1U << 1, 1U << 4);
  ulogPrintf(19, 1, "for the file\r\n\r\n");
  ulogPrintf(19, 4, "for the ring\r\n\r\n");
  LogHostLine(4, "of the host");
  ulogPrintf(19, 5, "for nobody");
  EXPECT_EQ((Texts{"for the ring", "of the host"}), RecentTexts());
  const std::vector<LogLine> lines = RecentLogLines().Newest(2);
  EXPECT_EQ(4U, lines[0].level);
  EXPECT_EQ(19U, lines[0].module_id);
  EXPECT_EQ(0U, lines[1].module_id);
  EXPECT_EQ(Texts{"level 1 module 19 for the file"}, Lines());
}

TEST_F(PlatformLogSink, RingKeepsItsLinesWhenTheLogIsOpenedAgain) {
  ulogPrintf(19, 13, "before the log was opened");
  OpenFile(0, kDefaultLogMask);
  ulogPrintf(19, 13, "after");
  EXPECT_EQ((Texts{"before the log was opened", "after"}), RecentTexts());
}

TEST_F(PlatformLogSink, ChangedMaskCountsForFileRingAndLibrary) {
  OpenFile(1U << 0, 1U << 0);
  SetLogMask(1U << 9);
  EXPECT_EQ(1U << 9, onu_ability_get_log_level_mask());
  EXPECT_EQ(1U << 9, CurrentLogSettings().mask);
  EXPECT_EQ(1U << 9, CurrentLogSettings().ring_mask);
  EXPECT_EQ(path_, CurrentLogSettings().file);
  ulogPrintf(19, 0, "no longer");
  ulogPrintf(19, 9, "now");
  EXPECT_EQ(Texts{"now"}, RecentTexts());
  EXPECT_EQ(Texts{"level 9 module 19 now"}, Lines());
}

TEST_F(PlatformLogSink, StreamThatWasSwitchedOffComesBack) {
  OpenFile(1U << 0);
  SetLogMask(0);
  ulogPrintf(19, 0, "unheard");
  SetLogMask(1U << 0);
  ulogPrintf(19, 0, "heard");
  EXPECT_EQ(Texts{"level 0 module 19 heard"}, Lines());
}

TEST_F(PlatformLogSink, StreamThatNobodyAskedForStaysQuietWhateverTheMask) {
  OpenLog(LogSettings{"", 0, kDefaultLogMask});
  ::testing::internal::CaptureStderr();
  SetLogMask(~0U);
  ulogPrintf(19, 0, "not on the operator's screen");
  LogHostLine(13, "nor this");
  EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
  EXPECT_EQ(0U, CurrentLogSettings().mask);
  EXPECT_EQ((Texts{"not on the operator's screen", "nor this"}), RecentTexts());
}

}  // namespace
}  // namespace olt_host
