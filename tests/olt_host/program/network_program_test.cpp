// `olt_host confirm` and `merge` over a network as JSON lines: the same result however many
// work on it, in however many shards, and however often it was interrupted.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "program_runner.h"

namespace olt_host_test {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kOnus = 24000;  // several blocks
constexpr int kOlts = 40;

std::string WithAll(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// olt_host in a process group of its own, as a shell starts it.
class StartedProgram {
 public:
  StartedProgram(std::vector<std::string> arguments, const std::string& in, const std::string& out,
                 const std::string& err) {
    arguments.insert(arguments.begin(), OLT_HOST_PROGRAM);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) {
      argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    _process = fork();
    if (_process != 0) {
      setpgid(_process, _process);
      return;
    }
    setpgid(0, 0);
    signal(SIGINT, SIG_DFL);  // a shell's background jobs ignore it, and so would this
    dup2(open(in.c_str(), O_RDONLY), STDIN_FILENO);
    dup2(creat(out.c_str(), 0600), STDOUT_FILENO);
    dup2(creat(err.c_str(), 0600), STDERR_FILENO);
    execv(argv.front(), argv.data());
    _exit(127);
  }
  ~StartedProgram() {
    if (_process > 0) {
      kill(-_process, SIGKILL);
      Wait();
    }
  }
  StartedProgram(const StartedProgram&) = delete;
  StartedProgram& operator=(const StartedProgram&) = delete;

  bool HasEnded() const {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(_process), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           info.si_pid != 0;
  }

  std::vector<pid_t> Workers() const {
    std::vector<pid_t> workers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
      const std::string stat = ReadFile(entry.path() / "stat");
      const std::size_t behind_name = stat.rfind(") ");
      if (behind_name == std::string::npos) continue;
      // A letter for its state, then the parent.
      if (std::atoi(stat.c_str() + behind_name + 4) == _process) {  // NOLINT(cert-err34-c)
        workers.push_back(std::stoi(entry.path().filename()));
      }
    }
    return workers;
  }

  // The exit status, when it ends by itself.
  int Status() {
    const int status = Wait();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // To the program alone, or to its whole group as Ctrl-C does. Returns the signal that it
  // ended by, 0 when it had ended before.
  int End(int signal, bool group) {
    kill(group ? -_process : _process, signal);
    const int status = Wait();
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  }

 private:
  int Wait() {
    int status = 0;
    waitpid(_process, &status, 0);
    _process = -1;
    return status;
  }

  pid_t _process = -1;
};

class NetworkProgram : public testing::Test {
 protected:
  void SetUp() override {
    const ProgramResult made =
        RunProgram({"generate", _catalogue, "--onus", std::to_string(kOnus), "--olts",
                    std::to_string(kOlts), "--seed", "3", "--faults", "all=4", "-o", _input});
    ASSERT_EQ(made.status, 0) << made.err;
    Spoil();
    _whole = Confirm({});
    ASSERT_EQ(_whole.status, 2) << _whole.err;
  }

  // Lines that are no reports, here and there, and the last one is cut.
  void Spoil() {
    std::istringstream lines(ReadFile(_input));
    std::string text;
    std::string line;
    std::string last;
    for (int number = 1; std::getline(lines, line); ++number) {
      if (number % 1777 == 0) {
        text += number % 2 == 0 ? "{\"olt\":\"olt-1\"\n" : "no JSON\r\n";
        ++_spoiled;
      }
      _onus_of[Json::parse(line).at("olt")] += 1;
      text += line + "\n";
      last = line;
    }
    text += last.substr(0, last.size() / 2);
    ++_spoiled;
    _directory.Write("network.jsonl", text);
  }

  std::vector<std::string> Arguments(const std::vector<std::string>& options) const {
    std::vector<std::string> arguments = {"confirm", _catalogue, _input, "--json"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
  }

  ProgramResult Confirm(const std::vector<std::string>& options) const {
    return RunProgram(Arguments(options));
  }

  // The summaries of all shards, as files.
  std::vector<std::string> Shards(int count) const {
    std::vector<std::string> files;
    for (int number = 1; number <= count; ++number) {
      const std::string shard = std::to_string(number) + "/" + std::to_string(count);
      const ProgramResult result = Confirm({"--shard", shard});
      files.push_back(_directory.Write("shard" + std::to_string(number) + ".json", result.out));
    }
    return files;
  }

  static ProgramResult Merge(std::vector<std::string> files) {
    files.insert(files.begin(), "merge");
    files.emplace_back("--json");
    return RunProgram(files);
  }

  // Runs with a checkpoint and ends the program as soon as there is one.
  void Interrupt(int signal, bool group) const {
    for (int attempt = 0; attempt < 20; ++attempt) {
      std::filesystem::remove(_checkpoint);
      StartedProgram program(Arguments({"--checkpoint", _checkpoint, "--workers", "1"}),
                             "/dev/null", _directory.Path("out"), _directory.Path("err"));
      while (!std::filesystem::exists(_checkpoint) && !program.HasEnded()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      if (program.End(signal, group) == signal) break;
    }
    EXPECT_EQ(ReadFile(_directory.Path("out")), "");
    EXPECT_EQ(ReadFile(_directory.Path("err")), "");
    const Json kept = Json::parse(ReadFile(_checkpoint));
    ASSERT_GT(kept.at("offset"), 0);
    ASSERT_LT(kept.at("offset"), std::filesystem::file_size(_input));
  }

  TemporaryDirectory _directory;
  std::string _catalogue = Fixture("small_catalogue.yaml");
  std::string _input = _directory.Path("network.jsonl");
  std::string _checkpoint = _directory.Path("checkpoint");
  std::map<std::string, int> _onus_of;  // OLT
  int _spoiled = 0;
  ProgramResult _whole;
};

TEST_F(NetworkProgram, CountsEveryOnuOfEveryOltOnce) {
  const Json summary = Json::parse(_whole.out);
  const Json& counts = summary.at("counts");
  EXPECT_EQ(counts.at("onus"), kOnus);
  EXPECT_EQ(counts.at("by_type").get<int>() + counts.at("by_abilities").get<int>() +
                counts.at("not_recognised").get<int>(),
            kOnus);
  EXPECT_EQ(counts.at("not_as_expected"), 0);
  std::map<std::string, int> olts;
  for (const Json& olt : summary.at("olts")) {
    olts[olt.at("olt")] = olt.at("onus");
  }
  EXPECT_EQ(olts, _onus_of);
  EXPECT_EQ(olts.size(), std::size_t{kOlts});
  EXPECT_EQ(summary.at("refused_lines").at("count"), _spoiled);
  EXPECT_EQ(summary.at("refused_lines").at("first").at(0).at("line"), 1777);
}

TEST_F(NetworkProgram, AnyNumberOfWorkersComesToTheSame) {
  for (const char* workers : {"1", "2", "3"}) {
    const ProgramResult result = Confirm({"--workers", workers});
    EXPECT_EQ(result.status, _whole.status);
    EXPECT_EQ(result.err, _whole.err);
    EXPECT_TRUE(result.out == _whole.out) << workers;
  }
  const ProgramResult rows = RunProgram({"confirm", _catalogue, _input, "--csv", "--workers", "1"});
  EXPECT_EQ(std::count(rows.out.begin(), rows.out.end(), '\n'), kOnus + 1);
  const ProgramResult same = RunProgram({"confirm", _catalogue, _input, "--csv", "--workers", "3"});
  EXPECT_TRUE(same.out == rows.out);
  EXPECT_EQ(same.err, rows.err);
}

TEST_F(NetworkProgram, StandardInputComesToTheSame) {
  for (const char* workers : {"1", "3"}) {
    const ProgramResult result =
        RunProgram({"confirm", _catalogue, "-", "--json", "--workers", workers}, ReadFile(_input));
    EXPECT_EQ(result.status, _whole.status);
    EXPECT_TRUE(result.out == WithAll(_whole.out, _input, "standard input")) << workers;
  }
}

TEST_F(NetworkProgram, MergedShardsAreOneRunByteForByte) {
  std::vector<std::string> shards = Shards(10);
  const ProgramResult merged = Merge(shards);
  EXPECT_EQ(merged.status, _whole.status);
  EXPECT_TRUE(merged.out == _whole.out);
  std::reverse(shards.begin(), shards.end());
  EXPECT_TRUE(Merge(shards).out == _whole.out);
  // Merged again, from parts that are merged themselves.
  const std::string some =
      _directory.Write("some.json", Merge({shards.begin(), shards.begin() + 4}).out);
  const std::string others =
      _directory.Write("others.json", Merge({shards.begin() + 4, shards.end()}).out);
  EXPECT_TRUE(Merge({others, some}).out == _whole.out);
}

TEST_F(NetworkProgram, ShardsThatDoNotMakeAWholeAreTold) {
  const std::vector<std::string> shards = Shards(3);
  const std::string again = _directory.Write("again.json", ReadFile(shards[0]));
  const ProgramResult twice = Merge({shards[0], shards[1], again});
  EXPECT_EQ(twice.status, 2);
  EXPECT_EQ(twice.out, "");
  EXPECT_NE(twice.err.find("shard 1 of 3 is there already; expected every shard once"),
            std::string::npos)
      << twice.err;
  const ProgramResult same = Merge({shards[0], shards[0]});
  EXPECT_EQ(same.status, 2);
  EXPECT_NE(same.err.find(" already; expected "), std::string::npos) << same.err;
  const ProgramResult less = RunProgram({"merge", shards[2], shards[0]});
  EXPECT_EQ(less.status, 2);
  EXPECT_NE(less.out.find("2 of 3; missing: 2\n"), std::string::npos) << less.out;
}

TEST_F(NetworkProgram, AWorkerThatIsKilledEndsTheRun) {
  const std::string in = _directory.Path("in");
  ASSERT_EQ(mkfifo(in.c_str(), 0600), 0);
  StartedProgram program({"confirm", _catalogue, "-", "--json", "--workers", "2"}, in,
                         _directory.Path("out"), _directory.Path("err"));
  const int input = open(in.c_str(), O_WRONLY);
  ASSERT_GE(input, 0);
  std::vector<pid_t> workers;
  while (workers.size() < 2 && !program.HasEnded()) {
    workers = program.Workers();
  }
  ASSERT_EQ(workers.size(), 2U);
  for (const pid_t worker : workers) {
    kill(worker, SIGKILL);
  }
  const std::string line = "{}\n";
  EXPECT_EQ(write(input, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  close(input);
  EXPECT_EQ(program.Status(), 2);
  EXPECT_EQ(ReadFile(_directory.Path("out")), "");
  EXPECT_EQ(ReadFile(_directory.Path("err")), "olt_host: a worker process was ended by signal 9\n");
}

TEST_F(NetworkProgram, AKilledRunGoesOnFromItsCheckpoint) {
  Interrupt(SIGKILL, false);
  const ProgramResult result = Confirm({"--checkpoint", _checkpoint, "--workers", "2"});
  EXPECT_EQ(result.status, _whole.status) << result.err;
  EXPECT_TRUE(result.out == _whole.out);
  EXPECT_FALSE(std::filesystem::exists(_checkpoint));
}

TEST_F(NetworkProgram, AnInterruptedRunGoesOnFromItsCheckpoint) {
  Interrupt(SIGINT, true);
  EXPECT_TRUE(Confirm({"--checkpoint", _checkpoint}).out == _whole.out);
}

TEST_F(NetworkProgram, WhatIsDoneIsNotDoneAgain) {
  Interrupt(SIGKILL, false);
  // What the checkpoint counts is not counted from the input.
  Json kept = Json::parse(ReadFile(_checkpoint));
  Json& onus = kept["summary"]["counts"]["onus"];
  onus = onus.get<int>() + 1000000;
  _directory.Write("checkpoint", kept.dump());
  const ProgramResult result = Confirm({"--checkpoint", _checkpoint});
  EXPECT_EQ(Json::parse(result.out).at("counts").at("onus"), kOnus + 1000000);
}

TEST_F(NetworkProgram, ACheckpointOfAnotherRunIsRefused) {
  Interrupt(SIGKILL, false);
  const std::string kept = ReadFile(_checkpoint);
  const ProgramResult shard = Confirm({"--checkpoint", _checkpoint, "--shard", "1/2"});
  EXPECT_EQ(shard.status, 2);
  EXPECT_EQ(shard.out, "");
  EXPECT_EQ(shard.err, "olt_host: " + _checkpoint +
                           ": is the checkpoint of another run: shard was \"1/1\" and is \"1/2\"; "
                           "remove " +
                           _checkpoint + " to start anew\n");
  _directory.Write("network.jsonl", ReadFile(_input) + "\n");
  const ProgramResult input = Confirm({"--checkpoint", _checkpoint});
  EXPECT_EQ(input.status, 2);
  EXPECT_NE(input.err.find("is the checkpoint of another run: size was"), std::string::npos)
      << input.err;
  EXPECT_EQ(ReadFile(_checkpoint), kept);
}

TEST(OneOltOfANetwork, IsConfirmedAndExplainedByItself) {
  const std::string catalogue = Fixture("small_catalogue.yaml");
  const std::string network = Fixture("network.jsonl");
  const ProgramResult confirmed =
      RunProgram({"confirm", catalogue, network, "--olt", "olt-north", "--json"});
  EXPECT_EQ(confirmed.status, 0) << confirmed.err;
  const Json results = Json::parse(confirmed.out).at("results");
  ASSERT_EQ(results.size(), 3U);
  EXPECT_EQ(results[0].at("report_type"), 700);  // by what the OLT is set to
  const ProgramResult explained =
      RunProgram({"explain", catalogue, network, "--olt", "olt-east", "--onu", "1/4", "--json"});
  EXPECT_EQ(explained.status, 0) << explained.err;
  EXPECT_EQ(Json::parse(explained.out).at("recognised_by"), "none");
}

TEST(OneOltOfANetwork, RefusesWhatIsForTheWhole) {
  const std::string catalogue = Fixture("small_catalogue.yaml");
  const std::string network = Fixture("network.jsonl");
  const std::string yaml = Fixture("small_reports.yaml");
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{yaml, "--shard", "1/2"},
                                             {yaml, "--workers", "2"},
                                             {yaml, "--checkpoint", "c"},
                                             {network, "--olt", "olt-north", "--shard", "1/2"}}) {
    std::vector<std::string> arguments = {"confirm", catalogue};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const ProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "olt_host: --shard, --workers and --checkpoint are for whole networks; expected "
              "REPORTS of JSON lines, without --olt\n");
  }
}

TEST(NetworkHelp, TellsThatLinesThatWereLeftOutAreBadInput) {
  for (const char* job : {"confirm", "diff"}) {
    const std::string help = RunProgram({job, "--help"}).out;
    EXPECT_NE(help.find("or lines\n     of JSON that were left out\n"), std::string::npos) << help;
  }
}

TEST(OneOltOfANetwork, MustBeNamed) {
  const std::string catalogue = Fixture("small_catalogue.yaml");
  const std::string network = Fixture("network.jsonl");
  const ProgramResult unnamed = RunProgram({"explain", catalogue, network, "--onu", "1/4"});
  EXPECT_EQ(unnamed.status, 2);
  EXPECT_NE(unnamed.err.find("is a network, of any size; expected --olt"), std::string::npos)
      << unnamed.err;
  const ProgramResult yaml =
      RunProgram({"confirm", catalogue, Fixture("small_reports.yaml"), "--olt", "a"});
  EXPECT_EQ(yaml.status, 2);
  EXPECT_NE(yaml.err.find("--olt is for JSON lines"), std::string::npos) << yaml.err;
}

}  // namespace
}  // namespace olt_host_test
