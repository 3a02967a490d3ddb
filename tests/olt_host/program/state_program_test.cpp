// --state in the built program: damaged files, two hosts with one file, and hosts that
// are killed.
#include <gtest/gtest.h>
#include <poll.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <random>
#include <set>

#include "program_runner.h"

namespace olt_host_test {
namespace {

constexpr const char* kShow = "show onu_common_type";

// A host that reads commands from a pipe for as long as the test wants.
class PipedHost {
 public:
  PipedHost(std::vector<std::string> arguments, const std::string& out) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    _commands = ends[1];
    arguments.insert(arguments.begin(), OLT_HOST_PROGRAM);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int spawned = posix_spawn(&_process, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[0]);
    if (spawned != 0) throw std::runtime_error("olt_host cannot be run");
  }
  ~PipedHost() {
    close(_commands);
    if (_process > 0) Kill();
  }
  PipedHost(const PipedHost&) = delete;
  PipedHost& operator=(const PipedHost&) = delete;

  // Whether all of it was taken.
  bool Type(const std::string& lines) const {
    return write(_commands, lines.data(), lines.size()) == static_cast<ssize_t>(lines.size());
  }

  // True when it was there to be killed.
  bool Kill() {
    kill(_process, SIGKILL);
    int status = 0;
    waitpid(_process, &status, 0);
    _process = 0;
    return WIFSIGNALED(status);
  }

 private:
  pid_t _process = 0;
  int _commands = -1;
};

class StateProgram : public testing::Test {
 protected:
  ProgramResult Show() const {
    return RunProgram({"run", _catalogue, "--state", _state, "-c", kShow});
  }

  // Waits until the file holds something else; far longer than any machine needs.
  static bool Changes(const std::string& file, const std::string& content) {
    for (int i = 0; i < 60000 && ReadFile(file) == content; ++i) poll(nullptr, 0, 1);
    return ReadFile(file) != content;
  }

  void MakeState() const {
    const std::string lines = _directory.Write(
        "lines",
        "set ability_code 2000 name FANS\n"
        "add onu_ability_profile key 5 profile_type 1 reporttype 5 realtype 5 vendorid ABCD "
        "onu_type_name FIVE\n"
        "apply onu_ability_profile key 5\n");
    const ProgramResult made = RunProgram({"run", _catalogue, "--state", _state, "-f", lines});
    ASSERT_EQ(made.status, 0) << made.out << made.err;
  }

  // The start with this content ends with one message, and leaves the file.
  void ExpectRefused(const std::string& content) const {
    _directory.Write("olt.state", content);
    const ProgramResult result = Show();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.rfind("olt_host: " + _state + ": ", 0), 0U) << result.err;
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_EQ(ReadFile(_state), content);
  }

  const TemporaryDirectory _directory;
  const std::string _catalogue = Fixture("small_catalogue.yaml");
  const std::string _state = _directory.Path("olt.state");
};

TEST_F(StateProgram, ACutFileStopsTheStart) {
  MakeState();
  const std::string content = ReadFile(_state);
  for (std::size_t i = 0; i < 30; ++i) {
    SCOPED_TRACE(content.size() * i / 30);
    ExpectRefused(content.substr(0, content.size() * i / 30));
  }
  ExpectRefused(content.substr(0, content.size() - 1));
}

TEST_F(StateProgram, AFlippedBitStopsTheStart) {
  MakeState();
  const std::string content = ReadFile(_state);
  for (std::size_t i = 0; i < 40; ++i) {
    const std::size_t at = content.size() * i / 40;
    SCOPED_TRACE(at);
    std::string flipped = content;
    flipped[at] = static_cast<char>(static_cast<unsigned char>(flipped[at]) ^ (1U << (i % 8)));
    ExpectRefused(flipped);
  }
  _directory.Write("olt.state", content);
  EXPECT_EQ(Show().status, 0);
}

TEST_F(StateProgram, OneFileIsKeptByOneHost) {
  PipedHost host({"console", _catalogue, "--state", _state}, _directory.Path("out"));
  ASSERT_TRUE(host.Type("set onu_common_type sfu 9\n"));
  ASSERT_TRUE(Changes(_state, ""));
  const ProgramResult second = Show();
  EXPECT_EQ(second.status, 2);
  EXPECT_EQ(second.out, "");
  EXPECT_EQ(second.err, "olt_host: " + _state + " is kept by another olt_host\n");
  // Taking a look at what it saved is no keeping.
  const ProgramResult look =
      RunProgram({"run", _catalogue, "-c", "restore " + _state, "-c", kShow});
  EXPECT_EQ(look.status, 0);
  EXPECT_NE(look.out.find("common_sfu_type:         9"), std::string::npos) << look.out;
  EXPECT_TRUE(host.Kill());
  EXPECT_EQ(Show().status, 0);
}

TEST_F(StateProgram, ACatalogueThatWasForgottenStopsTheStart) {
  MakeState();
  const std::string content = ReadFile(_state);
  const ProgramResult result = RunProgram({"run", "--state", _state, "-c", kShow});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("was written over a catalogue"), std::string::npos) << result.err;
  EXPECT_EQ(ReadFile(_state), content);
  EXPECT_EQ(Show().status, 0);
}

TEST_F(StateProgram, AnEmptyHostStartsAgainWithWhatItMade) {
  const std::string lines =
      _directory.Write("lines",
                       "register attribute 5 VALUE_TYPE\nset ability_code 2000 name FANS\n"
                       "set onu_common_type sfu 9\n");
  ASSERT_EQ(RunProgram({"run", "--state", _state, "-f", lines}).status, 0);
  const ProgramResult again = RunProgram({"run", "--state", _state, "-c", "show running-config"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_NE(again.out.find("set ability_code 2000 name FANS"), std::string::npos) << again.out;
}

TEST_F(StateProgram, ACatalogueWithARefusedCodeStopsTheStart) {
  MakeState();
  const std::string content = ReadFile(_state);
  const std::string local = _directory.Write("local.yaml", "codes:\n  - {code: 2001}\n");
  const std::vector<std::string> arguments = {
      "run", _catalogue, "--local", local, "--state", _state, "-c", kShow, "--keep-going"};
  const ProgramResult result = RunProgram(arguments);
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("\nolt_host: " + _state +
                            ": the catalogue was taken without some of its attributes or codes; "
                            "expected a catalogue that is taken whole\n"),
            std::string::npos)
      << result.err;
  EXPECT_EQ(ReadFile(_state), content);
  _directory.Write("local.yaml", "real_profiles:\n  - {key: 77, abilities: {NO_SUCH: 1}}\n");
  EXPECT_EQ(RunProgram(arguments).status, 0);
}

TEST_F(StateProgram, KilledWhileItSavesLeavesAValueThatWasTyped) {
  constexpr int kLines = 400;  // fits a pipe, so that typing never waits
  const unsigned int seed = std::random_device()();
  std::cout << "seed " << seed << "\n";
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> microseconds(0, 30000);
  std::set<std::string> typed = {"800"};
  std::set<std::string> seen;
  for (int round = 0; round < 30; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const std::string before = ReadFile(_state);
    PipedHost host({"run", _catalogue, "--state", _state, "-f", "-"}, _directory.Path("out"));
    std::string lines;
    for (int i = 0; i < kLines; ++i) {
      const std::string value = std::to_string(1000 + round * 100 + i % 2);
      lines += "set onu_common_type sfu " + value + "\n";
      typed.insert(value);
    }
    ASSERT_TRUE(host.Type(lines));
    ASSERT_TRUE(Changes(_state, before));
    usleep(static_cast<useconds_t>(microseconds(random)));
    ASSERT_TRUE(host.Kill());
    const ProgramResult result = Show();
    ASSERT_EQ(result.status, 0) << result.err;
    const std::size_t at = result.out.find("common_sfu_type:");
    ASSERT_NE(at, std::string::npos) << result.out;
    const std::size_t value = result.out.find_first_not_of(' ', result.out.find(':', at) + 1);
    const std::string shown = result.out.substr(value, result.out.find('\r', value) - value);
    EXPECT_EQ(typed.count(shown), 1U) << shown;
    seen.insert(shown);
  }
  // The kills met hosts that were saving.
  EXPECT_GT(seen.size(), 5U);
  std::cout << "30 kills, " << seen.size() << " values seen\n";
}

}  // namespace
}  // namespace olt_host_test
