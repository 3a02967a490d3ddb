// What operators see of the log, and how they choose what is logged.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "onu_ability_common_global.h"
#include "platform/log_sink.h"
#include "ulog.h"

namespace olt_host_test {
namespace {

class LogCommands : public testing::Test {
 protected:
  // As on a console: the stream is quiet.
  void SetUp() override { olt_host::OpenLog({"", 0, olt_host::kDefaultLogMask}); }

  // Without the times.
  static std::string WithoutTimes(const std::string& text) {
    static const std::regex kTime(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )");
    return std::regex_replace(text, kTime, "");
  }

  CommandSession session_{{olt_host::InstallLogCommands}};
};

TEST_F(LogCommands, EmptyLogSaysSo) {
  EXPECT_EQ(session_.Type("show log"), "No log lines\r\n");
  EXPECT_EQ(session_.TypeJson("show log json").dump(), R"({"log":[]})");
}

TEST_F(LogCommands, ShowsFiftyLinesUnlessToldHowMany) {
  for (int i = 1; i <= 60; ++i) ulogPrintf(19, 0, "line %d\r\n\r\n", i);
  EXPECT_EQ(session_.TypeJson("show log json")["log"].size(), 50U);
  EXPECT_EQ(session_.TypeJson("show log 1000 json")["log"].size(), 60U);
  EXPECT_EQ(WithoutTimes(session_.Type("show log 2")),
            "level 0 module 19 line 59\r\nlevel 0 module 19 line 60\r\n");
}

TEST_F(LogCommands, RefusesNumbersOutsideItsRange) {
  for (const char* line : {"show log 0", "show log 1001", "show log -1", "show log x"}) {
    session_.Type(line);
    EXPECT_EQ(session_.last().kind, olt_host::CommandResult::kRefused) << line;
  }
}

TEST_F(LogCommands, ShowsTimesLevelsAndModules) {
  olt_host::LogHostLine(13, "of the host");
  const std::string text = session_.Type("show log");
  EXPECT_TRUE(std::regex_match(
      text,
      std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} level 13 module 0 of the "
                 "host\r\n")))
      << text;
  const auto line = session_.TypeJson("show log json")["log"][0];
  EXPECT_EQ(line["level"], 13);
  EXPECT_EQ(line["module"], 0);
  EXPECT_EQ(line["text"], "of the host");
  EXPECT_EQ(line["times"], 1);
  EXPECT_TRUE(std::regex_match(line["time"].get<std::string>(),
                               std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)")));
}

TEST_F(LogCommands, LinesOfOneListingTakeOneLine) {
  // Each of the three shipped profiles is another one's source.
  session_.Type("show onucapa_table real 1 flag 0");
  const std::string text = session_.Type("show log");
  EXPECT_NE(text.find("profile source don't match!"), std::string::npos) << text;
  EXPECT_NE(text.find(" (3 times)\r\n"), std::string::npos) << text;
}

TEST_F(LogCommands, MaskCountsForTheLibraryAndTheRecentLines) {
  EXPECT_EQ(session_.Type("log mask 9,1"),
            "Levels of the recent lines: 1,9\r\nLevels of standard error: none\r\n");
  EXPECT_EQ(onu_ability_get_log_level_mask(), (1U << 1) | (1U << 9));
  ulogPrintf(19, 0, "not listened to");
  ulogPrintf(19, 9, "found");
  EXPECT_EQ(session_.TypeJson("show log json")["log"].back()["text"], "found");
  session_.Type("log mask none");
  EXPECT_EQ(onu_ability_get_log_level_mask(), 0U);
  session_.Type("log mask all");
  EXPECT_EQ(onu_ability_get_log_level_mask(), 0xFFFFFFFFU);
}

TEST_F(LogCommands, MaskNeverPutsLinesOnAScreenThatDidNotAskForThem) {
  testing::internal::CaptureStderr();
  session_.Type("log mask all");
  ulogPrintf(19, 0, "into the ring");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(LogCommands, MaskCountsForAFileThatWasAskedFor) {
  const TemporaryDirectory directory;
  olt_host::OpenLog({directory.Path("host.log"), 1U << 0, 1U << 0});
  EXPECT_EQ(session_.Type("log mask 4"),
            "Levels of the recent lines: 4\r\nLevels of " + directory.Path("host.log") + ": 4\r\n");
  ulogPrintf(19, 4, "progress");
  olt_host::OpenLog({"", 0, 0});
  EXPECT_NE(ReadFile(directory.Path("host.log")).find("level 4 module 19 progress\n"),
            std::string::npos);
}

TEST_F(LogCommands, MaskRefusesWhatIsNoListOfLevels) {
  EXPECT_EQ(session_.Refusal("log mask 0,32"),
            "\"0,32\" is no list of levels, expected 0,1,13, all or none");
  EXPECT_EQ(session_.Refusal("log mask \"\""),
            "\"\" is no list of levels, expected 0,1,13, all or none");
  EXPECT_EQ(onu_ability_get_log_level_mask(), olt_host::kDefaultLogMask);
}

TEST_F(LogCommands, ShowsTheMaskAndWhatItsLevelsMean) {
  const std::string text = session_.Type("show log mask");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "  Recent lines  0,13\r\n"
            "  Stream        none, to standard error\r\n"
            "\r\n"
            "Level  Recent  Stream  Meaning\r\n"
            "    0  yes     -       rejected input that breaks a rule\r\n"
            "    1  -       -       lookups that found nothing, refusals, failed queries\r\n"
            "    4  -       -       progress of profiles and of type confirmation\r\n"
            "    5  -       -       results handed back and compared values\r\n"
            "    6  -       -       walks over the registries, derived counts\r\n"
            "    9  -       -       successful finds\r\n"
            "   10  -       -       start and end of functions, the most frequent\r\n"
            "   13  yes     -       null pointers, profiles that do not pack or unpack\r\n");
  const auto json = session_.TypeJson("show log mask json");
  EXPECT_EQ(json["recent"], "0,13");
  EXPECT_EQ(json["stream"], "none");
  EXPECT_EQ(json["stream_to"], "standard error");
  EXPECT_EQ(json["levels"].size(), 8U);
  EXPECT_EQ(json["levels"][7]["level"], 13);
  EXPECT_EQ(json["levels"][7]["recent"], true);
  EXPECT_EQ(json["levels"][7]["stream"], false);
}

TEST_F(LogCommands, ReadOnlyOperatorsMayLookButNotChangeTheMask) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  EXPECT_EQ(session_.Type("show log"), "No log lines\r\n");
  session_.Type("show log mask");
  EXPECT_TRUE(session_.last().ok());
  session_.Type("log mask all");
  EXPECT_FALSE(session_.last().ok());
  EXPECT_EQ(onu_ability_get_log_level_mask(), olt_host::kDefaultLogMask);
}

TEST_F(LogCommands, MayBeAbbreviated) {
  EXPECT_EQ(session_.Type("sh lo m j"), session_.Type("show log mask json"));
  EXPECT_EQ(session_.Type("sh lo 5 j"), session_.Type("show log 5 json"));
}

}  // namespace
}  // namespace olt_host_test
