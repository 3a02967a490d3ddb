// The jobs for operators without a terminal: run, a piped console, password, and
// what serve refuses.
#include <gtest/gtest.h>

#include <csignal>

#include "program_runner.h"
#include "transport/child_process.h"

namespace olt_host_test {
namespace {

// The program on a terminal, whoever runs the test.
int AskForPassword() {
  dup2(STDOUT_FILENO, STDERR_FILENO);
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
  execl(OLT_HOST_PROGRAM, "olt_host", "password", "anna", nullptr);
  return 70;
}

class OperatorJobs : public testing::Test {
 protected:
  TemporaryDirectory _directory;
  std::string _catalogue = Fixture("small_catalogue.yaml");
  std::string _reports = Fixture("small_reports.yaml");
  std::string _state = _directory.Path("state");
};

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(OperatorJobs, RunsCommandsOnAnEmptyHost) {
  const ProgramResult result = RunProgram({"run", "-c", "show key_ability_code"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(Contains(result.out, "key_ability_code:      1085")) << result.out;
}

TEST_F(OperatorJobs, NamesTheLineOfAnErrorAndRunsTheRest) {
  const std::string file =
      _directory.Write("commands", "! the types\nshow onu_common_typ nonsense\n\nsh onu_com\n");
  const ProgramResult result = RunProgram({"run", _catalogue, "-f", file});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(Contains(result.out, "line 2: show onu_common_typ nonsense\r\n")) << result.out;
  EXPECT_TRUE(Contains(result.out, "common_sfu_type:       800")) << result.out;
}

TEST_F(OperatorJobs, NamesTheFileOfAnErrorWhereThereAreSeveral) {
  const std::string good = _directory.Write("good", "show key_ability_code\n");
  const std::string bad = _directory.Write("bad", "\nnonsense\n");
  const ProgramResult result = RunProgram({"run", "--check", "-f", good, "-f", bad});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Contains(result.out, bad + " line 2: nonsense\r\n")) << result.out;
}

TEST_F(OperatorJobs, AFileMayHaveLinesThatEndInCarriageReturns) {
  const std::string file = _directory.Write("commands", "show key_ability_code\r\n");
  EXPECT_EQ(RunProgram({"run", _catalogue, "-f", file}).status, 0);
}

TEST_F(OperatorJobs, ChecksWithoutRunning) {
  const std::string file = _directory.Write(
      "commands", "set onu_common_type sfu 5\nset onu_common_type abc 5\nshow onu_common_type\n");
  const ProgramResult result = RunProgram({"run", _catalogue, "--check", "-f", file});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Contains(result.out, "line 2: set onu_common_type abc 5\r\n")) << result.out;
  EXPECT_FALSE(Contains(result.out, "common_sfu_type")) << result.out;
  const std::string good = _directory.Write("good", "set onu_common_type sfu 5\n");
  const ProgramResult clean = RunProgram({"run", _catalogue, "--check", "-f", good});
  EXPECT_EQ(clean.status, 0);
  EXPECT_EQ(clean.out, "");
}

TEST_F(OperatorJobs, ReadsCommandsFromStandardInput) {
  const ProgramResult result = RunProgram({"run", _catalogue, "-f", "-"}, "show onu_common_type\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(Contains(result.out, "common_hgu_type:       700")) << result.out;
}

TEST_F(OperatorJobs, AFileOfCommandsThatIsNotThereEndsWithTwo) {
  const ProgramResult result = RunProgram({"run", "-f", _directory.Path("none")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "olt_host: " + _directory.Path("none") +
                            " cannot be read: No such file or directory\n");
}

TEST_F(OperatorJobs, ARunWithoutCommandsSaysWhatWasExpected) {
  const ProgramResult result = RunProgram({"run", _catalogue});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "olt_host: nothing to run; expected -c COMMAND or -f FILE\n");
}

TEST_F(OperatorJobs, WhatAnOperatorAddsIsThereAfterARestart) {
  const std::string add =
      "add onu_ability_profile key 4000 profile_type 1 reporttype 4000 realtype 4000 "
      "vendorid ABCD onu_type_name LAB-1";
  const ProgramResult first = RunProgram({"run", _catalogue, "--state", _state, "-c", add, "-c",
                                          "apply onu_ability_profile key 4000"});
  EXPECT_EQ(first.status, 0) << first.out << first.err;
  const ProgramResult second =
      RunProgram({"run", _catalogue, "--state", _state, "-c", "show onucapa_table real 1 flag 0"});
  EXPECT_EQ(second.status, 0) << second.err;
  EXPECT_TRUE(Contains(second.out, "LAB-1")) << second.out;
}

TEST_F(OperatorJobs, ABrokenStateFileStopsTheStart) {
  _directory.Write("state", "nonsense");
  const ProgramResult result =
      RunProgram({"run", _catalogue, "--state", _state, "-c", "show key_ability_code"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.rfind("olt_host: " + _state, 0), 0U) << result.err;
  EXPECT_EQ(ReadFile(_state), "nonsense");
}

TEST_F(OperatorJobs, APasswordLineComesFromAPipe) {
  const ProgramResult result = RunProgram({"password", "anna", "--read-only"}, "secret\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.rfind("anna:$", 0), 0U) << result.out;
  EXPECT_TRUE(Contains(result.out, ":read-only\n")) << result.out;
  EXPECT_FALSE(Contains(result.out, "secret"));
  const ProgramResult empty = RunProgram({"password", "anna"}, "");
  EXPECT_EQ(empty.status, 2);
  EXPECT_EQ(empty.err, "olt_host: no password was given\n");
}

TEST_F(OperatorJobs, APasswordIsAskedForTwiceAndNotShown) {
  ChildProcess asking(ChildProcess::On::kTerminal, AskForPassword);
  asking.Go();
  for (const char* question : {"Password for anna: ", "Again: "}) {
    asking.Until(question);
    ASSERT_TRUE(Becomes([&asking] { return !asking.Echoes(); }));
    asking.Type("secret\n");
  }
  const std::string line = asking.Until(":full\r\n");
  EXPECT_FALSE(Contains(line, "secret")) << line;
  EXPECT_EQ(asking.Status(), 0);
  EXPECT_TRUE(asking.IsAsBefore());
}

TEST_F(OperatorJobs, ASignalWhileAPasswordIsTypedLeavesATerminalThatEchoes) {
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
    ChildProcess asking(ChildProcess::On::kTerminal, AskForPassword);
    asking.Go();
    asking.Until("Password for anna: ");
    ASSERT_TRUE(Becomes([&asking] { return !asking.Echoes(); }));
    asking.Type("sec");
    asking.Signal(signal);
    EXPECT_EQ(asking.Status(), 1000 + signal);
    EXPECT_TRUE(asking.IsAsBefore());
  }
}

TEST_F(OperatorJobs, AnOltWithoutReportsIsRefused) {
  const ProgramResult result = RunProgram({"console", _catalogue, "--olt", "olt-1"}, "list\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "olt_host: --olt olt-1 chooses among reports, and there are none; expected REPORTS\n");
}

TEST_F(OperatorJobs, AServerNeedsAWayIn) {
  const ProgramResult result = RunProgram({"serve", _catalogue});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "olt_host: no way in for operators; expected --socket or --listen\n");
}

TEST_F(OperatorJobs, AServerBeyondLoopbackNeedsPasswords) {
  const ProgramResult result = RunProgram({"serve", _catalogue, "--listen", "0.0.0.0:0"});
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(Contains(result.err, "password file")) << result.err;
}

TEST_F(OperatorJobs, APipedConsoleServesNobodyElse) {
  const ProgramResult result =
      RunProgram({"console", _catalogue, "--socket", _directory.Path("s")}, "list\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(Contains(result.err, "expected \"serve\"")) << result.err;
}

TEST_F(OperatorJobs, AttachingToNobodyEndsWithTwo) {
  const ProgramResult result = RunProgram({"attach", _directory.Path("s")});
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(Contains(result.err, _directory.Path("s"))) << result.err;
}

TEST_F(OperatorJobs, LocalFilesOverrideTheCatalogue) {
  const std::string local = _directory.Write("local.yaml", "common_types: {sfu: 4711}\n");
  const ProgramResult result =
      RunProgram({"run", _catalogue, "--local", local, "-c", "show onu_common_type"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(Contains(result.out, "common_sfu_type:      4711")) << result.out;
  EXPECT_TRUE(Contains(result.out, "common_hgu_type:       700")) << result.out;
}

TEST_F(OperatorJobs, GoesOnWithoutARefusedEntryOnlyWhenAsked) {
  const std::string local = _directory.Write(
      "local.yaml", "real_profiles:\n  - {key: 77, abilities: {NO_SUCH_CODE: 1}}\n");
  const ProgramResult strict =
      RunProgram({"run", _catalogue, "--local", local, "-c", "show key_ability_code"});
  EXPECT_EQ(strict.status, 2);
  EXPECT_EQ(strict.err.rfind(local + ":2: ", 0), 0U) << strict.err;
  const ProgramResult lenient = RunProgram(
      {"run", _catalogue, "--local", local, "--keep-going", "-c", "show key_ability_code"});
  EXPECT_EQ(lenient.status, 0);
  EXPECT_EQ(lenient.err.rfind(local + ":2: ", 0), 0U) << lenient.err;
}

}  // namespace
}  // namespace olt_host_test
