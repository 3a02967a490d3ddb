// `olt_host generate`, run as a user runs it.
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
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
  const ProgramResult told = RunProgram({"generate", _catalogue, "--onus", "50", "-o", "-"});
  EXPECT_EQ(told.out, made.out);
  EXPECT_FALSE(std::filesystem::remove("-")) << "a file of that name";
  const ProgramResult none = RunProgram({"generate", _catalogue, "--onus", "0"});
  EXPECT_EQ(none.status, 0);
  EXPECT_EQ(none.out.substr(none.out.size() - 10), "\nonus: []\n");
}

TEST_F(GenerateProgram, WritesNetworksAsLinesOfJson) {
  const std::string file = _directory.Path("n.jsonl");
  const std::vector<std::string> same = {"generate", _catalogue, "--onus",   "5001",
                                         "--seed",   "5",        "--faults", "all=5"};
  const auto run = [&same](const std::vector<std::string>& options) {
    std::vector<std::string> arguments = same;
    arguments.insert(arguments.end(), options.begin(), options.end());
    return RunProgram(arguments);
  };
  const ProgramResult made = run({"--olts", "7"});
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.err, "");
  EXPECT_EQ(made.out.find("{\"olt\":\"olt-00001\",\"place\":0,\"onu\":0,"), 0U);
  EXPECT_NE(made.out.find("\n{\"olt\":\"olt-00007\",\"place\":2,\"onu\":201,"), std::string::npos);
  EXPECT_EQ(std::count(made.out.begin(), made.out.end(), '\n'), 5001);

  EXPECT_EQ(run({"--olts", "7", "--output", file, "--workers", "1"}).status, 0);
  EXPECT_TRUE(ReadFile(file) == made.out);
  EXPECT_EQ(run({"-o", file, "--workers", "3"}).status, 0);
  EXPECT_TRUE(ReadFile(file) == run({"--olts", "1"}).out);
}

// Runs olt_host until `file` is there, and kills it.
void KillOnceThereIs(const std::string& file, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), OLT_HOST_PROGRAM);
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& word : arguments) argv.push_back(word.data());
  argv.push_back(nullptr);
  pid_t process = 0;
  ASSERT_EQ(posix_spawn(&process, argv.front(), nullptr, nullptr, argv.data(), environ), 0);
  int status = 0;
  while (!std::filesystem::exists(file) && waitpid(process, &status, WNOHANG) == 0) {
    usleep(1000);
  }
  kill(process, SIGKILL);
  waitpid(process, &status, 0);
}

TEST_F(GenerateProgram, GoesOnAfterBeingKilled) {
  const std::string file = _directory.Path("n.jsonl");
  const std::string checkpoint = _directory.Path("checkpoint");
  const std::vector<std::string> same = {"generate", _catalogue, "--onus", "60000",
                                         "--olts",   "11",       "-o",     file};
  EXPECT_EQ(RunProgram(same).status, 0);
  const std::string expected = ReadFile(file);
  std::filesystem::remove(file);

  std::vector<std::string> resumable = same;
  resumable.insert(resumable.end(), {"--checkpoint", checkpoint});
  KillOnceThereIs(checkpoint, resumable);
  ASSERT_TRUE(std::filesystem::exists(checkpoint));
  EXPECT_LT(std::filesystem::file_size(file), expected.size());

  std::vector<std::string> other = resumable;
  other.insert(other.end(), {"--seed", "2"});
  const ProgramResult refused = RunProgram(other);
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "olt_host: " + checkpoint +
                             ": is the checkpoint of another run: seed was 1 and is 2; remove " +
                             checkpoint + " to start anew\n");

  EXPECT_EQ(RunProgram(resumable).status, 0);
  EXPECT_TRUE(ReadFile(file) == expected);
  EXPECT_FALSE(std::filesystem::exists(checkpoint));
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
       "--onus: 16777217 ONUs are too many for 1 OLT; expected at most 16777216 an OLT, and --olts "
       "for more"},
      {{"--onus", "33554433", "--olts", "2"},
       "--onus: 33554433 ONUs are too many for 2 OLTs; expected at most 16777216 an OLT, and "
       "--olts for more"},
      {{"--onus", "1", "--olts", "0"},
       "--olts: Value 0 not in range 1 to 65535 (see olt_host --help)"},
      {{"--onus", "1", "--workers", "2"},
       "--workers is for JSON lines; expected --olts, or an output FILE.jsonl"},
      {{"--onus", "1", "-o", _directory.Path("r.yaml"), "--checkpoint", _directory.Path("c")},
       "--checkpoint is for JSON lines; expected --olts, or an output FILE.jsonl"},
      {{"--onus", "1", "--olts", "1", "--checkpoint", _directory.Path("c")},
       "--checkpoint needs an output to go on in; expected -o FILE"},
      {{"--onus", "1", "--olts", "1", "-o", _directory.Path("none/r.jsonl")},
       _directory.Path("none/r.jsonl") + " cannot be written: No such file or directory"},
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
       _directory.Path("none/r.yaml") + " cannot be written: No such file or directory"},
      {{"--onus", "1", "-o", "/dev/full"}, "/dev/full cannot be written: No space left on device"},
      {{"--onus", "1", "-o", _directory.Path("n.jsonl"), "--checkpoint",
        _directory.Path("./n.jsonl")},
       "--checkpoint and -o are the same file; expected two"},
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
