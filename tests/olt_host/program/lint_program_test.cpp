// olt_host lint: outputs and exit statuses, and the line that loading a catalogue prints.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class LintProgram : public testing::Test {
 protected:
  // The fixture with a pattern behind the others that asks for nothing.
  std::string WithOneThatTakesEverything() {
    return _directory.Write("c.yaml", ReadFile(Fixture("small_catalogue.yaml")) +
                                          "  - {key: 1002, abilities: {REAL_TYPE: 1002}}\n");
  }

  TemporaryDirectory _directory;
  std::string _reports = Fixture("small_reports.yaml");
};

TEST_F(LintProgram, SoundCatalogueIsQuiet) {
  const ProgramResult result = RunProgram({"lint", Fixture("small_catalogue.yaml"), _reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            "No errors, no warnings in 13 codes, 3 real profiles, 3 match profiles, 7\n"
            "  reports.\n"
            "\n"
            "Notes, which good catalogues have, too:\n"
            "  dropped-value     1  zeros, which are not stored\n"
            "\n"
            "--all lists everything.\n");
}

TEST_F(LintProgram, FindingsGiveStatus1) {
  const ProgramResult result = RunProgram({"lint", WithOneThatTakesEverything()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.find("2 errors, 2 warnings in 13 codes"), 0U) << result.out;
  EXPECT_NE(result.out.find(_directory.Path("c.yaml") + ":51: error: match profile 1002"),
            std::string::npos)
      << result.out;
}

TEST_F(LintProgram, BadInputGivesStatus2) {
  const ProgramResult result = RunProgram({"lint", _directory.Path("none.yaml")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err, "");
}

TEST_F(LintProgram, Json) {
  const ProgramResult result = RunProgram({"lint", WithOneThatTakesEverything(), "--json"});
  EXPECT_EQ(result.status, 1);
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json["findings"][0]["name"], "takes-everything");
  EXPECT_EQ(json["summary"]["errors"], 2);
}

TEST_F(LintProgram, LocalFilesCount) {
  const std::string local = _directory.Write(
      "l.yaml", "match_profiles:\n  - {key: 1003, abilities: {REAL_TYPE: 1003}}\n");
  EXPECT_EQ(RunProgram({"lint", Fixture("small_catalogue.yaml"), "--local", local}).status, 1);
}

TEST_F(LintProgram, LoadingSaysThatThereAreFindings) {
  const std::string catalogue = WithOneThatTakesEverything();
  const ProgramResult confirm = RunProgram({"confirm", catalogue, _reports, "--summary"});
  EXPECT_EQ(confirm.err, "olt_host: the catalogue has 2 errors and 2 warnings; \"olt_host lint " +
                             catalogue + "\" shows more\n");
  const ProgramResult run = RunProgram({"run", catalogue, "-c", "show version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "olt_host: the catalogue has 2 errors and 2 warnings; \"lint catalogue\" shows more\n");
}

TEST_F(LintProgram, LoadingTheShippedDataSaysNothing) {
  const std::string data = OLT_HOST_SHIPPED_DATA;
  EXPECT_EQ(RunProgram({"run", data + "/catalogue.yaml", "-c", "show version"}).err, "");
  EXPECT_EQ(RunProgram({"lint", data + "/catalogue.yaml", data + "/reports.yaml"}).status, 0);
}

}  // namespace
}  // namespace olt_host_test
