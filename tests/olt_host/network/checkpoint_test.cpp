// Checkpoints: what was kept comes back, to the same run only, and a crash at any moment
// leaves a whole one.
#include "network/checkpoint.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::Checkpoint;
using olt_host::Progress;
using Json = nlohmann::ordered_json;

Json OneRun() {
  return {{"job", "confirm"},
          {"input", {{"file", "network.jsonl"}, {"bytes", 1000}}},
          {"catalogues", {"a.yaml", "b.yaml"}}};
}

Progress At(std::uint64_t offset) {
  Progress progress;
  progress.offset = offset;
  progress.line = offset / 10 + 1;
  progress.written = offset * 3;
  progress.summary = {{"onus", offset}, {"z", "first"}, {"a", {1, 2}}};
  return progress;
}

void ExpectAt(const Checkpoint& checkpoint, std::uint64_t offset) {
  const auto read = checkpoint.Read();
  ASSERT_TRUE(read);
  const Progress expected = At(offset);
  EXPECT_EQ(read->offset, expected.offset);
  EXPECT_EQ(read->line, expected.line);
  EXPECT_EQ(read->written, expected.written);
  EXPECT_EQ(read->summary.dump(), expected.summary.dump());
}

std::string ReadErrorOf(const TemporaryDirectory& directory, const Json& run = OneRun()) {
  return ErrorOf([&] { Checkpoint(directory.Path("c"), run).Read(); }, directory);
}

TEST(Checkpoint, WhatIsKeptComesBack) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(Checkpoint(directory.Path("c"), OneRun()).Read());
  Checkpoint(directory.Path("c"), OneRun()).Keep(At(UINT64_MAX / 4));
  ExpectAt(Checkpoint(directory.Path("c"), OneRun()), UINT64_MAX / 4);
}

TEST(Checkpoint, IsKeptOnceASecond) {
  const TemporaryDirectory directory;
  Checkpoint checkpoint(directory.Path("c"), OneRun());
  EXPECT_TRUE(checkpoint.IsDue());
  checkpoint.Keep(At(10));
  ExpectAt(checkpoint, 10);
  EXPECT_FALSE(checkpoint.IsDue());
  checkpoint.Keep(At(30));
  ExpectAt(checkpoint, 30);
  std::this_thread::sleep_for(std::chrono::milliseconds(1050));
  EXPECT_TRUE(checkpoint.IsDue());
  checkpoint.Keep(At(40));
  ExpectAt(checkpoint, 40);
}

TEST(Checkpoint, IsGoneWhenTheRunIsDone) {
  const TemporaryDirectory directory;
  Checkpoint checkpoint(directory.Path("c"), OneRun());
  checkpoint.Keep(At(10));
  checkpoint.Remove();
  EXPECT_TRUE(std::filesystem::is_empty(directory.Path("")));
  EXPECT_FALSE(checkpoint.Read());
  checkpoint.Remove();
}

TEST(Checkpoint, WithoutAFileNothingIsKept) {
  Checkpoint checkpoint("", OneRun());
  EXPECT_FALSE(checkpoint.IsDue());
  checkpoint.Keep(At(10));
  EXPECT_FALSE(checkpoint.Read());
  checkpoint.Remove();
}

TEST(Checkpoint, OfAnotherRunIsRefusedWithWhatDiffers) {
  const TemporaryDirectory directory;
  Checkpoint(directory.Path("c"), OneRun()).Keep(At(10));
  const auto error = [&](const char* field, const Json& value) {
    Json run = OneRun();
    run[Json::json_pointer(field)] = value;
    return ReadErrorOf(directory, run);
  };
  const std::string begin = "c: is the checkpoint of another run: ";
  const std::string end = "; remove c to start anew";
  EXPECT_EQ(error("/job", "diff"), begin + R"(job was "confirm" and is "diff")" + end);
  EXPECT_EQ(error("/input/bytes", 1001), begin + "input.bytes was 1000 and is 1001" + end);
  EXPECT_EQ(error("/catalogues/1", "c.yaml"),
            begin + R"(catalogues was ["a.yaml","b.yaml"] and is ["a.yaml","c.yaml"])" + end);
  EXPECT_EQ(error("/shard", "1/10"), begin + R"(shard was not stated and is "1/10")" + end);
  EXPECT_EQ(error("/input", nullptr),
            begin + R"(input was {"file":"network.jsonl","bytes":1000} and is null)" + end);
  Json less = OneRun();
  less.erase("catalogues");
  EXPECT_EQ(ReadErrorOf(directory, less),
            begin + R"(catalogues was ["a.yaml","b.yaml"] and is not stated)" + end);
}

TEST(Checkpoint, OfAnotherVersionIsRefused) {
  const TemporaryDirectory directory;
  Checkpoint(directory.Path("c"), OneRun()).Keep(At(10));
  std::string text = ReadFile(directory.Path("c"));
  const std::string name = R"("olt_host":")";
  const std::size_t version = text.find(name) + name.size();
  directory.Write("c", text.replace(version, text.find('"', version) - version, "0.0.1"));
  EXPECT_EQ(ReadErrorOf(directory).find(
                R"(c: is the checkpoint of another run: olt_host was "0.0.1" and is ")"),
            0U);
}

TEST(Checkpoint, OfTheSameRunIsTheSameInAnyOrderAndSpelling) {
  const TemporaryDirectory directory;
  Json run = OneRun();
  run["file"] = "not UTF-8: \xFF";
  Checkpoint(directory.Path("c"), run).Keep(At(10));
  ExpectAt(Checkpoint(directory.Path("c"), run), 10);
  run.erase("job");
  run["job"] = "confirm";
  ExpectAt(Checkpoint(directory.Path("c"), run), 10);
}

TEST(Checkpoint, ThatIsCutAnywhereIsRefused) {
  const TemporaryDirectory directory;
  Checkpoint(directory.Path("c"), OneRun()).Keep(At(10));
  const std::string whole = ReadFile(directory.Path("c"));
  for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
    directory.Write("c", whole.substr(0, length));
    const std::string error = ReadErrorOf(directory);
    if (error.find("c: the checkpoint is damaged: ") == 0) {
      EXPECT_NE(error.find("; remove c to start anew"), std::string::npos);
    } else {
      EXPECT_EQ(error, "c: is no checkpoint; expected one, or a new name") << length;
    }
  }
}

TEST(Checkpoint, WithoutWhatBelongsInItIsRefused) {
  const TemporaryDirectory directory;
  Checkpoint(directory.Path("c"), OneRun()).Keep(At(10));
  const std::string whole = ReadFile(directory.Path("c"));
  for (const char* name : {"run", "offset", "line", "written", "summary"}) {
    const std::string key = "\"" + std::string(name) + "\":";
    directory.Write("c", With(whole, key, "\"other\":"));
    EXPECT_EQ(ReadErrorOf(directory).find("c: the checkpoint is damaged: "), 0U) << name;
  }
  for (const char* offset : {R"("10")", "-1", "1.5", "18446744073709551616"}) {
    directory.Write("c", With(whole, "\"offset\":10", std::string("\"offset\":") + offset));
    EXPECT_EQ(ReadErrorOf(directory).find("c: the checkpoint is damaged: offset is "), 0U)
        << offset;
  }
}

TEST(Checkpoint, WhatIsNoneIsRefusedAndNotRecommendedForRemoval) {
  const TemporaryDirectory directory;
  for (const char* text :
       {"", "profiles: []\n", R"({"olt":"olt-0001"})", R"({"olt_host_checkpoint":2,"run":{}})"}) {
    directory.Write("c", text);
    EXPECT_EQ(ReadErrorOf(directory), "c: is no checkpoint; expected one, or a new name") << text;
  }
  std::filesystem::remove(directory.Path("c"));
  std::filesystem::create_directory(directory.Path("c"));
  EXPECT_EQ(ReadErrorOf(directory), "c: is no file");
}

TEST(Checkpoint, ThatCannotBeKeptIsToldAndLeavesTheEarlierOne) {
  const TemporaryDirectory directory;
  Checkpoint lost(directory.Path("none/c"), OneRun());
  EXPECT_EQ(ErrorOf([&] { lost.Keep(At(10)); }, directory),
            "none/c: the checkpoint cannot be kept: cannot create none/c.new: No such file or "
            "directory");
  Checkpoint checkpoint(directory.Path("c"), OneRun());
  checkpoint.Keep(At(10));
  directory.Write("c.new", "somebody's own");
  EXPECT_EQ(ErrorOf([&] { checkpoint.Keep(At(20)); }, directory),
            "c: the checkpoint cannot be kept: c.new is in the way; expected a checkpoint, or "
            "nothing");
  EXPECT_EQ(ReadFile(directory.Path("c.new")), "somebody's own");
  ExpectAt(checkpoint, 10);
}

TEST(Checkpoint, WhatAKilledRunLeftBesideItIsReplaced) {
  const TemporaryDirectory directory;
  Checkpoint checkpoint(directory.Path("c"), OneRun());
  checkpoint.Keep(At(10));
  for (const std::size_t length : {std::size_t{0}, std::size_t{5}, std::size_t{60}}) {
    directory.Write("c.new", ReadFile(directory.Path("c")).substr(0, length));
    checkpoint.Keep(At(20 + length));
    ExpectAt(checkpoint, 20 + length);
    EXPECT_FALSE(std::filesystem::exists(directory.Path("c.new")));
  }
}

TEST(Checkpoint, IsWholeWheneverTheRunIsKilled) {
  const TemporaryDirectory directory;
  std::uint64_t before = 0;
  // A busy machine takes its time for two of them.
  for (int i = 0; i < 30 || (before == 0 && i < 300); ++i) {
    const pid_t process = fork();
    if (process == 0) {
      Checkpoint checkpoint(directory.Path("c"), OneRun());
      for (std::uint64_t offset = before;; ++offset) {
        checkpoint.Keep(At(offset));
      }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(3000 + i * 977));
    kill(process, SIGKILL);
    ASSERT_EQ(waitpid(process, nullptr, 0), process);
    const auto read = Checkpoint(directory.Path("c"), OneRun()).Read();
    if (!read) continue;  // killed before the first
    EXPECT_GE(read->offset, before);
    before = read->offset;
    ExpectAt(Checkpoint(directory.Path("c"), OneRun()), before);
  }
  EXPECT_GT(before, 0U);
}

}  // namespace
}  // namespace olt_host_test
