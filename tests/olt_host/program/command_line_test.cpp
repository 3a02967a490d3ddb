#include "command_line.h"

#include <gtest/gtest.h>

#include <vector>

namespace olt_host_test {
namespace {

olt_host::ParsedCommandLine Parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "olt_host");
  return olt_host::ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

// The message of a command line that is refused with status 2.
std::string Refusal(const std::vector<const char*>& arguments) {
  testing::internal::CaptureStderr();
  const olt_host::ParsedCommandLine parsed = Parse(arguments);
  std::string message = testing::internal::GetCapturedStderr();
  EXPECT_FALSE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.exit_status, 2);
  return message;
}

TEST(CommandLine, Confirm) {
  const auto parsed = Parse({"confirm", "c.yaml", "r.yaml"});
  ASSERT_TRUE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.command_line->job, olt_host::Job::kConfirm);
  EXPECT_EQ(parsed.command_line->catalogue.shipped, std::vector<std::string>{"c.yaml"});
  EXPECT_FALSE(parsed.command_line->catalogue.keep_going);
  EXPECT_EQ(parsed.command_line->reports, "r.yaml");
  EXPECT_EQ(parsed.command_line->format, olt_host::OutputFormat::kTable);
  EXPECT_FALSE(parsed.command_line->summary_only);
  EXPECT_EQ(parsed.command_line->log.file, "");
  EXPECT_EQ(parsed.command_line->log.mask, (1U << 0) | (1U << 13));
}

TEST(CommandLine, ConfirmWithOptions) {
  const auto parsed = Parse(
      {"confirm", "c", "r", "--json", "--summary", "--log", "x.log", "--log-levels", "0,1,31"});
  ASSERT_TRUE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.command_line->format, olt_host::OutputFormat::kJson);
  EXPECT_TRUE(parsed.command_line->summary_only);
  EXPECT_EQ(parsed.command_line->log.file, "x.log");
  EXPECT_EQ(parsed.command_line->log.mask, 0x80000003U);
  EXPECT_EQ(Parse({"confirm", "c", "r", "--csv"}).command_line->format,
            olt_host::OutputFormat::kCsv);
}

TEST(CommandLine, DiffWithSeveralReports) {
  const auto parsed = Parse({"diff", "old", "new", "a.yaml", "b.yaml", "--json"});
  ASSERT_TRUE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.command_line->job, olt_host::Job::kDiff);
  EXPECT_EQ(parsed.command_line->diff.older, "old");
  EXPECT_EQ(parsed.command_line->diff.newer, "new");
  EXPECT_EQ(parsed.command_line->diff.reports, (std::vector<std::string>{"a.yaml", "b.yaml"}));
  EXPECT_TRUE(parsed.command_line->diff.json);
  EXPECT_EQ(Refusal({"diff", "old", "new"}),
            "olt_host: REPORTS is required (see olt_host --help)\n");
}

TEST(CommandLine, ConsoleWithAndWithoutReports) {
  const auto parsed = Parse({"console", "c.yaml"});
  ASSERT_TRUE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.command_line->job, olt_host::Job::kConsole);
  EXPECT_EQ(parsed.command_line->reports, "");
  EXPECT_EQ(Parse({"console", "c.yaml", "r.yaml"}).command_line->reports, "r.yaml");
}

TEST(CommandLine, ConsoleLogsOnlyWhenAsked) {
  EXPECT_EQ(Parse({"console", "c"}).command_line->log.mask, 0U);
  EXPECT_EQ(Parse({"console", "c", "--log", "x.log"}).command_line->log.mask,
            (1U << 0) | (1U << 13));
  EXPECT_EQ(Parse({"console", "c", "--log-levels", "9"}).command_line->log.mask, 1U << 9);
}

TEST(CommandLine, RefusesBadUsageWithOneMessage) {
  const std::string commands = "confirm, console, serve, run, attach, password, ";
  const std::string end = " (see olt_host --help)\n";
  for (const auto& [arguments, problem] :
       {std::pair<std::vector<const char*>, std::string>({}, "a command is missing"),
        {{"conform", "c", "r"}, "\"conform\" is no command"}}) {
    const std::string message = Refusal(arguments);
    const std::string beginning =
        std::string("olt_host: ").append(problem).append("; expected ").append(commands);
    EXPECT_EQ(message.substr(0, beginning.size()), beginning);
    EXPECT_NE(message.find(" or "), std::string::npos);
    EXPECT_EQ(message.substr(message.size() - end.size()), end);
  }
  EXPECT_EQ(Refusal({"confirm", "c"}), "olt_host: REPORTS is required (see olt_host --help)\n");
  EXPECT_EQ(Refusal({"confirm", "c", "r", "--json", "--csv"}),
            "olt_host: --json excludes --csv (see olt_host --help)\n");
  EXPECT_EQ(Refusal({"confirm", "c", "r", "--csv", "--summary"}),
            "olt_host: --csv excludes --summary (see olt_host --help)\n");
  EXPECT_EQ(Refusal({"confirm", "c", "r", "--log-levels", "1,99"}),
            "olt_host: --log-levels: \"1,99\" is no list of levels; expected 0,1,13, all or none "
            "(see olt_host --help)\n");
}

TEST(CommandLine, HelpAndVersionEndWithStatusZero) {
  for (const std::vector<const char*>& arguments : {std::vector<const char*>{"--help"},
                                                    {"confirm", "--help"},
                                                    {"console", "--help"},
                                                    {"serve", "--help"},
                                                    {"run", "--help"},
                                                    {"attach", "--help"},
                                                    {"password", "--help"},
                                                    {"types", "--help"},
                                                    {"diff", "--help"},
                                                    {"compare", "--help"},
                                                    {"generate", "--help"},
                                                    {"--version"}}) {
    testing::internal::CaptureStdout();
    const auto parsed = Parse(arguments);
    const std::string text = testing::internal::GetCapturedStdout();
    EXPECT_FALSE(parsed.command_line.has_value());
    EXPECT_EQ(parsed.exit_status, 0);
    EXPECT_NE(text, "");
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(line.size(), 80U) << line;
    }
  }
}

}  // namespace
}  // namespace olt_host_test
