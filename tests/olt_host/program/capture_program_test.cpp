// olt_host capture and replay, run as a user runs them.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class CaptureProgram : public testing::Test {
 protected:
  std::string _catalogue = Fixture("small_catalogue.yaml");
  std::string _reports = Fixture("small_reports.yaml");
  TemporaryDirectory _directory;
};

TEST_F(CaptureProgram, WhatIsCapturedIsConfirmedAndReplayed) {
  const std::string file = _directory.Path("all.yaml");
  const ProgramResult captured = RunProgram({"capture", _catalogue, _reports, file});
  EXPECT_EQ(captured.status, 0) << captured.err;
  EXPECT_NE(captured.out.find("Captured 7 ONUs to"), std::string::npos);
  const ProgramResult confirmed = RunProgram({"confirm", _catalogue, file, "--csv"});
  EXPECT_EQ(confirmed.status, 0);
  const ProgramResult replayed = RunProgram({"replay", _catalogue, file});
  EXPECT_EQ(replayed.status, 0);
  EXPECT_EQ(replayed.out, "7 ONUs replayed, 0 not as expected, 1 ambiguous as declared\n");
}

TEST_F(CaptureProgram, CapturesOneOnu) {
  const std::string file = _directory.Path("one.yaml");
  EXPECT_EQ(RunProgram({"capture", _catalogue, _reports, file, "--onu", "2/1"}).status, 0);
  EXPECT_EQ(RunProgram({"replay", _catalogue, file}).out,
            "1 ONU replayed, 0 not as expected, 0 ambiguous as declared\n");
  const ProgramResult unknown =
      RunProgram({"capture", _catalogue, _reports, _directory.Path("no.yaml"), "--onu", "9/1"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_FALSE(std::filesystem::exists(_directory.Path("no.yaml")));
}

TEST_F(CaptureProgram, FileThatIsThereEndsWithTwoUnlessReplaced) {
  const std::string file = _directory.Write("kept.yaml", "kept\n");
  const ProgramResult refused = RunProgram({"capture", _catalogue, _reports, file});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.out, "");
  EXPECT_NE(refused.err.find("is already there; expected a new name, or replace"),
            std::string::npos)
      << refused.err;
  EXPECT_EQ(ReadFile(file), "kept\n");
  EXPECT_EQ(RunProgram({"capture", _catalogue, _reports, file, "--replace"}).status, 0);
  EXPECT_NE(ReadFile(file), "kept\n");
}

TEST_F(CaptureProgram, GeneratedPopulationWithFaultsIsCapturedAndReplayed) {
  const std::string catalogue = std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml";
  const std::string reports = _directory.Path("generated.yaml");
  const std::string file = _directory.Path("captured.yaml");
  ASSERT_EQ(RunProgram({"generate", catalogue, "--onus", "500", "--seed", "11", "--faults",
                        "missing=20,ones=10,truncated=10,case=10,padding=10,garbage=10,unknown=10",
                        "-o", reports})
                .status,
            0);
  EXPECT_EQ(RunProgram({"capture", catalogue, reports, file}).status, 0);
  const ProgramResult replayed = RunProgram({"replay", catalogue, file});
  EXPECT_EQ(replayed.status, 0) << replayed.out;
  EXPECT_EQ(replayed.out.rfind("500 ONUs replayed, 0 not as expected, ", 0), 0U) << replayed.out;
}

TEST_F(CaptureProgram, ReplayEndsWithOneWhenAnOnuIsNotAsExpected) {
  const std::string file = _directory.Write(
      "one.yaml", "onus:\n  - {place: 1, onu: 4, reported_type: 1001, expect: {real_type: 7}}\n");
  const ProgramResult result = RunProgram({"replay", _catalogue, file, _reports});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out.rfind(file + ":2: ONU 1/4 is real type 1001 by type, report type 1001; "
                                    "expected real type 7\n",
                             0),
            0U)
      << result.out;
  // Of the fixture one ONU states no expectation and one is ambiguous.
  EXPECT_NE(result.out.find("ONU 3/2 states no expectation; "), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("8 ONUs replayed, 3 not as expected"), std::string::npos);
}

TEST_F(CaptureProgram, ReplayPrintsJson) {
  const ProgramResult result = RunProgram({"replay", _catalogue, _reports, "--json"});
  EXPECT_EQ(result.status, 1);
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json["onus"], 7);
  EXPECT_EQ(json["failures"].size(), 2U);
}

}  // namespace
}  // namespace olt_host_test
