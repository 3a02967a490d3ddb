// The built program, run as a user runs it: outputs and exit statuses.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class Program : public testing::Test {
 protected:
  // The reports of the fixture with one change.
  std::string ReportsWith(const std::string& from, const std::string& to) {
    return _directory.Write("r.yaml", With(ReadFile(Fixture("small_reports.yaml")), from, to));
  }

  TemporaryDirectory _directory;
  std::string _catalogue = Fixture("small_catalogue.yaml");
  std::string _reports = Fixture("small_reports.yaml");
};

TEST_F(Program, ConfirmsAPopulationAsExpected) {
  const ProgramResult result = RunProgram({"confirm", _catalogue, _reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "Place/ONU Vendor   Reported Becomes   Real  Type name             Known by  OK?\n"
            "1/1       ACME         1001           1001  SFU-1GE               type      yes\n"
            "1/2       ACME         5555           1001  SFU-1GE               abilities yes\n"
            "1/3       -         unknown     800   1003  SFU-4FE               abilities yes\n"
            "1/4                    6666              -  -                     -         yes\n"
            "2/1       -            1002     700   1002  HGU-4GE-1POTS         type      yes\n"
            "3/1       -            1002           1002  HGU-4GE-1POTS         type      yes\n"
            "3/2       -            1003           1003  SFU-4FE               type      -\n"
            "\n"
            "  ONUs confirmed                           7\n"
            "  recognised by reported type              4\n"
            "  recognised by abilities                  2\n"
            "  not recognised                           1\n"
            "  reported type translated                 2\n"
            "  with an expectation                      6\n"
            "  not as expected                          0\n");
}

TEST_F(Program, EndsWithOneWhenAnOnuIsNotAsExpected) {
  const std::string reports =
      ReportsWith("expect: {real_type: 1001, how: abilities}", "expect: {real_type: 1002}");
  const ProgramResult result = RunProgram({"confirm", "--summary", _catalogue, reports});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "");
  EXPECT_NE(result.out.find("  not as expected                          1\n"), std::string::npos);
  EXPECT_NE(result.out.find("r.yaml:12: ONU 1/2 is type 1001 by abilities; "
                            "expected real type 1002\n"),
            std::string::npos)
      << result.out;
}

TEST_F(Program, PrintsJson) {
  const ProgramResult result = RunProgram({"confirm", "--json", _catalogue, _reports});
  EXPECT_EQ(result.status, 0);
  const auto json = nlohmann::json::parse(result.out);
  ASSERT_EQ(json["results"].size(), 7U);
  EXPECT_EQ(json["results"][2]["real_type"], 1003);
  EXPECT_EQ(json["results"][2]["translated"], true);
  EXPECT_EQ(json["summary"]["by_abilities"], 2);
}

TEST_F(Program, PrintsCsv) {
  const ProgramResult result = RunProgram({"confirm", "--csv", _catalogue, _reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.out.find("\n2,1,,1002,1002,HGU-4GE-1POTS,type,yes,700,1002,,700,yes\n"),
            std::string::npos)
      << result.out;
}

TEST_F(Program, BadInputEndsWithTwoAndOneMessage) {
  const std::string reports = ReportsWith("{GE_PORTS: 9}", "{GE_PORTZ: 9}");
  const ProgramResult result = RunProgram({"confirm", _catalogue, reports});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, reports + ":20: code GE_PORTZ is not defined; expected \"GE_PORTS\"\n");
}

TEST_F(Program, MissingFileEndsWithTwo) {
  const ProgramResult result = RunProgram({"confirm", _catalogue, "nowhere.yaml"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "nowhere.yaml: cannot be read: No such file or directory; "
            "expected a YAML file that can be read\n");
}

TEST_F(Program, BadUsageEndsWithTwo) {
  const ProgramResult result = RunProgram({"confirm"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "olt_host: CATALOGUE is required (see olt_host --help)\n");
}

TEST_F(Program, LogThatCannotBeWrittenEndsWithTwo) {
  const ProgramResult result =
      RunProgram({"confirm", "--log", _directory.Path(""), _catalogue, _reports});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.rfind("olt_host: cannot open the log file ", 0), 0U) << result.err;
}

TEST_F(Program, OutputThatCannotBeWrittenEndsWithTwo) {
  const std::string err = _directory.Path("err");
  EXPECT_EQ(SpawnProgram({"confirm", _catalogue, _reports}, "/dev/null", "/dev/full", err), 2);
  EXPECT_EQ(ReadFile(err), "olt_host: standard output cannot be written\n");
}

TEST_F(Program, WritesTheLevelsAskedForIntoTheLog) {
  const std::string log = _directory.Path("host.log");
  const ProgramResult result =
      RunProgram({"confirm", "--log", log, "--log-levels", "4", _catalogue, _reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  const std::string text = ReadFile(log);
  EXPECT_NE(text.find("level 4 module 19 type_from_onu_report:1001 "), std::string::npos);
  EXPECT_EQ(text.find("level 9 "), std::string::npos);
}

TEST_F(Program, ConsoleRunsCommandsOnTheLoadedCatalogue) {
  const ProgramResult result = RunProgram({"console", _catalogue}, "show onu_common_type\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_NE(result.out.find("common_sfu_type:       800"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("common_hgu_type:       700"), std::string::npos) << result.out;
}

TEST_F(Program, ConsoleConfirmsAPopulationFirst) {
  const ProgramResult result =
      RunProgram({"console", _catalogue, _reports}, "show key_ability_code\n");
  EXPECT_EQ(result.status, 0);
  const std::size_t summary = result.out.find("  ONUs confirmed                           7\n");
  const std::size_t command = result.out.find("key_ability_code:      1085");
  EXPECT_NE(summary, std::string::npos) << result.out;
  EXPECT_NE(command, std::string::npos) << result.out;
  EXPECT_LT(summary, command);
}

TEST_F(Program, ConsoleEndsWithOneWhenACommandFails) {
  EXPECT_EQ(RunProgram({"console", _catalogue}, "show nonsense\n").status, 1);
}

// The text between the next line `opening` and the line of three backquotes after
// it; `at` moves behind them.
std::string NextBlock(const std::string& text, const std::string& opening, std::size_t& at) {
  at = text.find(opening + "\n", at);
  const std::size_t begin = text.find('\n', at) + 1;
  at = text.find("```\n", begin);
  return text.substr(begin, at - begin);
}

TEST_F(Program, ExampleOfTheDocumentationGivesTheOutputShownThere) {
  const std::string page = ReadFile(Fixture("../../../docs/catalogue-format.md"));
  std::size_t at = 0;
  const std::string catalogue = _directory.Write("c.yaml", NextBlock(page, "```yaml", at));
  const std::string reports = _directory.Write("r.yaml", NextBlock(page, "```yaml", at));
  const std::string shown = NextBlock(page, "$ olt_host confirm catalogue.yaml reports.yaml", at);
  const ProgramResult result = RunProgram({"confirm", catalogue, reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, shown);
}

TEST_F(Program, ShowsItsVersion) {
  const ProgramResult result = RunProgram({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.rfind("olt_host ", 0), 0U);
}

}  // namespace
}  // namespace olt_host_test
