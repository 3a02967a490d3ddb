// olt_host explain, run as a user runs it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class ExplainProgram : public testing::Test {
 protected:
  ProgramResult Explain(const std::vector<std::string>& options) {
    std::vector<std::string> words = {"explain", _catalogue, _reports};
    words.insert(words.end(), options.begin(), options.end());
    return RunProgram(words);
  }

  std::string _catalogue = Fixture("small_catalogue.yaml");
  std::string _reports = Fixture("small_reports.yaml");
};

TEST_F(ExplainProgram, TellsWhyAnOnuIsWhatItIs) {
  const ProgramResult result = Explain({"--onu", "1/2"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.rfind("ONU 1/2 is SFU-1GE, real type 1001: recognised by its abilities.\n"
                             "  Reported type   5555, the key of no match profile\n",
                             0),
            0U)
      << result.out;
  EXPECT_NE(result.out.find("GE_PORTS (47): the ONU has 1, the profile 4\n"), std::string::npos);
  EXPECT_EQ(result.out.find('\r'), std::string::npos);
}

TEST_F(ExplainProgram, UnrecognisedOnuIsExplainedToo) {
  const ProgramResult result = Explain({"--onu", "1/4"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.rfind("ONU 1/4 is not recognised: ", 0), 0U) << result.out;
}

TEST_F(ExplainProgram, PrintsAllProfilesWhenAskedTo) {
  EXPECT_NE(Explain({"--onu", "1/3", "--all"}).out.find("     3  1001 SFU-1GE "),
            std::string::npos);
  EXPECT_EQ(Explain({"--onu", "1/3"}).out.find("     3  1001 SFU-1GE "), std::string::npos);
}

TEST_F(ExplainProgram, PrintsJson) {
  const ProgramResult result = Explain({"--onu", "1/2", "--json"});
  EXPECT_EQ(result.status, 0);
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json["winner"]["key"], 1001);
  EXPECT_EQ(json["winner"]["origin"]["file"], _catalogue);
  EXPECT_EQ(json["profiles"].size(), 3U);
}

TEST_F(ExplainProgram, OnuThatIsNotThereEndsWithTwo) {
  const ProgramResult result = Explain({"--onu", "1/9"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            "olt_host: " + _reports + ": No ONU 1/9, there is only 1/1, 1/2, 1/3, 1/4\n");
}

TEST_F(ExplainProgram, BadUsageEndsWithTwo) {
  for (const char* onu : {"1", "1/", "/2", "1/256", "65536/1", "-1/2", "1/2/3", "a/b", ""}) {
    const ProgramResult result = Explain({"--onu", onu});
    EXPECT_EQ(result.status, 2) << onu;
    EXPECT_EQ(result.err, "olt_host: --onu: \"" + std::string(onu) +
                              "\" is no ONU; expected its place and number, as in 1/2 "
                              "(see olt_host --help)\n");
  }
  EXPECT_EQ(Explain({}).err, "olt_host: --onu is required (see olt_host --help)\n");
  EXPECT_EQ(Explain({"--onu", "1/2", "--json", "--all"}).status, 2);
}

TEST_F(ExplainProgram, BadInputEndsWithTwo) {
  const ProgramResult result = RunProgram({"explain", _catalogue, "nowhere.yaml", "--onu", "1/2"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("nowhere.yaml: cannot be read", 0), 0U) << result.err;
}

TEST_F(ExplainProgram, OutputThatCannotBeWrittenEndsWithTwo) {
  const TemporaryDirectory directory;
  const std::string err = directory.Path("err");
  EXPECT_EQ(SpawnProgram({"explain", _catalogue, _reports, "--onu", "1/2"}, "/dev/null",
                         "/dev/full", err),
            2);
  EXPECT_EQ(ReadFile(err), "olt_host: standard output cannot be written\n");
}

}  // namespace
}  // namespace olt_host_test
