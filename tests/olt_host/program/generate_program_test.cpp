// `olt_host generate`, run as a user runs it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class GenerateProgram : public testing::Test {
 protected:
  std::string _catalogue = Fixture("small_catalogue.yaml");
  TemporaryDirectory _directory;
};

TEST_F(GenerateProgram, WritesWhatConfirmTakesAtOnce) {
  const std::string file = _directory.Path("r.yaml");
  const ProgramResult made = RunProgram({"generate", _catalogue, "--onus", "2000", "--seed", "5",
                                         "--faults", "all=5,case=0", "-o", file});
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.out, "");
  EXPECT_EQ(made.err, "");
  const ProgramResult confirmed = RunProgram({"confirm", _catalogue, file, "--json", "--summary"});
  EXPECT_EQ(confirmed.status, 0) << confirmed.out;
  const auto summary = nlohmann::json::parse(confirmed.out)["summary"];
  EXPECT_EQ(summary["onus"], 2000);
  EXPECT_GT(summary["with_expectation"], 1000);
  EXPECT_EQ(ReadFile(file).find("# Generated: 2000 ONUs of 3 types, seed 5, faults all=5,case=0.\n"
                                "reports: {name: \"Generated, seed 5\"}\nonus:\n  - {place: 0, "),
            0U);
}

TEST_F(GenerateProgram, WritesToStandardOutputTheSame) {
  const std::string file = _directory.Path("r.yaml");
  RunProgram({"generate", _catalogue, "--onus", "50", "-o", file});
  const ProgramResult made = RunProgram({"generate", _catalogue, "--onus", "50"});
  EXPECT_EQ(made.out, ReadFile(file));
  const ProgramResult none = RunProgram({"generate", _catalogue, "--onus", "0"});
  EXPECT_EQ(none.status, 0);
  EXPECT_EQ(none.out.substr(none.out.size() - 10), "\nonus: []\n");
}

TEST_F(GenerateProgram, SaysWhichTypesCannotBeTold) {
  std::string text = ReadFile(_catalogue);
  text.erase(text.rfind("  - key: 1003"));
  const ProgramResult made =
      RunProgram({"generate", _directory.Write("c.yaml", text), "--onus", "1", "--models", "1003"});
  EXPECT_EQ(made.status, 0);
  // Behind what loading says of such a catalogue.
  const std::string said =
      "olt_host: 1 of 1 types cannot be told by the type that they report (1003): no expectation "
      "for them\n"
      "olt_host: 1 of 1 types cannot be told by what they can do (1003): no expectation for them\n";
  ASSERT_GE(made.err.size(), said.size());
  EXPECT_EQ(made.err.substr(made.err.size() - said.size()), said);
}

TEST_F(GenerateProgram, EndsWithTwoAndOneMessageForBadOptions) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"--onus", "16777217"},
       "--onus: Value 16777217 not in range 0 to 16777216 (see olt_host "
       "--help)"},
      {{}, "--onus is required (see olt_host --help)"},
      {{"--onus", "1", "--models", "1001,7777"},
       "--models: No type is called \"7777\"; expected a key, a real type or a type name that "
       "\"show type\" lists"},
      {{"--onus", "1", "--faults", "garbage=101"},
       "--faults: \"garbage=101\" states no rate; expected garbage=PERCENT, 0 to 100 with up to 4 "
       "decimals"},
      {{"--onus", "1", "--faults", "garbgae=1"},
       "--faults: \"garbgae\" is no fault; expected \"garbage\""},
      {{"--onus", "1", "-o", _directory.Path("none/r.yaml")},
       _directory.Path("none/r.yaml") + " cannot be written"},
  };
  for (const auto& [options, message] : cases) {
    std::vector<std::string> arguments = {"generate", _catalogue};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "olt_host: " + message + "\n");
  }
}

}  // namespace
}  // namespace olt_host_test
