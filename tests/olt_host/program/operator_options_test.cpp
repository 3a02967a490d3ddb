// The arguments of the jobs that let operators in: console, serve, run, attach
// and password; and those of the catalogue that all share.
#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "command_line.h"

namespace olt_host_test {
namespace {

using olt_host::Access;
using olt_host::CommandLine;
using olt_host::Job;

CommandLine Parsed(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "olt_host");
  const auto parsed =
      olt_host::ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
  EXPECT_TRUE(parsed.command_line.has_value());
  return parsed.command_line.value_or(CommandLine());
}

std::string Refusal(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "olt_host");
  testing::internal::CaptureStderr();
  const auto parsed =
      olt_host::ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
  EXPECT_FALSE(parsed.command_line.has_value());
  EXPECT_EQ(parsed.exit_status, 2);
  return testing::internal::GetCapturedStderr();
}

TEST(OperatorOptions, AConsoleNeedsNoCatalogue) {
  const CommandLine line = Parsed({"console"});
  EXPECT_EQ(line.job, Job::kConsole);
  EXPECT_TRUE(line.catalogue.shipped.empty());
  EXPECT_TRUE(line.catalogue.local.empty());
}

TEST(OperatorOptions, LocalCataloguesAreTakenInTheirOrder) {
  const CommandLine line =
      Parsed({"console", "c", "--local", "x.yaml", "r", "--local", "y", "--keep-going"});
  EXPECT_EQ(line.catalogue.shipped, std::vector<std::string>{"c"});
  EXPECT_EQ(line.catalogue.local, (std::vector<std::string>{"x.yaml", "y"}));
  EXPECT_TRUE(line.catalogue.keep_going);
  EXPECT_EQ(line.reports, "r");
}

TEST(OperatorOptions, AServerHasItsWaysIn) {
  const CommandLine line =
      Parsed({"serve", "c", "--socket", "s", "--listen", "0.0.0.0:2323", "--passwords", "p",
              "--sessions", "3", "--exec-timeout", "0", "--state", "f"});
  EXPECT_EQ(line.job, Job::kServe);
  EXPECT_EQ(line.serving.socket, "s");
  EXPECT_EQ(line.serving.listen, "0.0.0.0:2323");
  EXPECT_EQ(line.serving.passwords, "p");
  EXPECT_EQ(line.serving.limits.sessions, 3U);
  EXPECT_EQ(line.serving.limits.exec_timeout, std::chrono::seconds(0));
  EXPECT_EQ(line.state_file, "f");
}

TEST(OperatorOptions, MetricsHaveASocketOfTheirOwn) {
  EXPECT_EQ(Parsed({"serve", "c", "--socket", "s", "--metrics", "m"}).serving.metrics, "m");
  EXPECT_EQ(Parsed({"console", "c", "--metrics", "m"}).serving.metrics, "m");
  EXPECT_EQ(Parsed({"serve", "c", "--socket", "s"}).serving.metrics, "");
}

TEST(OperatorOptions, SessionsHaveLimitsUnlessToldOtherwise) {
  const CommandLine line = Parsed({"serve", "--socket", "s"});
  EXPECT_EQ(line.serving.limits.sessions, 16U);
  EXPECT_EQ(line.serving.limits.exec_timeout, std::chrono::minutes(10));
}

TEST(OperatorOptions, ARunHasCommandsOrFiles) {
  const CommandLine commands = Parsed({"run", "c", "-c", "show version", "-c", "list"});
  EXPECT_EQ(commands.job, Job::kRun);
  EXPECT_EQ(commands.commands, (std::vector<std::string>{"show version", "list"}));
  EXPECT_FALSE(commands.check_only);
  const CommandLine files = Parsed({"run", "-f", "a", "-f", "-", "--check"});
  EXPECT_EQ(files.command_files, (std::vector<std::string>{"a", "-"}));
  EXPECT_TRUE(files.check_only);
  EXPECT_EQ(Refusal({"run", "-c", "list", "-f", "a"}),
            "olt_host: -c excludes -f (see olt_host --help)\n");
}

TEST(OperatorOptions, AttachNeedsASocket) {
  EXPECT_EQ(Parsed({"attach", "s"}).attach_socket, "s");
  EXPECT_EQ(Parsed({"attach", "s"}).job, Job::kAttach);
  EXPECT_EQ(Refusal({"attach"}), "olt_host: SOCKET is required (see olt_host --help)\n");
}

TEST(OperatorOptions, AUserMayChangeThingsUnlessReadOnly) {
  EXPECT_EQ(Parsed({"password", "anna"}).user, "anna");
  EXPECT_EQ(Parsed({"password", "anna"}).access, Access::kFull);
  EXPECT_EQ(Parsed({"password", "anna", "--read-only"}).access, Access::kReadOnly);
}

TEST(OperatorOptions, NumbersHaveRanges) {
  EXPECT_EQ(Refusal({"serve", "--sessions", "0"}),
            "olt_host: --sessions: Value 0 not in range 1 to 1000 (see olt_host --help)\n");
  EXPECT_EQ(
      Refusal({"serve", "--exec-timeout", "35792"}),
      "olt_host: --exec-timeout: Value 35792 not in range 0 to 35791 (see olt_host --help)\n");
}

}  // namespace
}  // namespace olt_host_test
