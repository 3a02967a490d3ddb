// olt_host diff of whole networks, as a user runs it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "program_runner.h"

namespace olt_host_test {
namespace {

using Json = nlohmann::ordered_json;

std::string Shipped() { return std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"; }

std::vector<Json> LinesOf(const std::string& text) {
  std::vector<Json> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
  return lines;
}

// The lines of one OLT as a reports file: JSON is YAML, too, but for words in quotes.
std::string AsYaml(const std::string& lines) {
  Json reports = {{"identify", {{"places", Json::array()}}}, {"onus", Json::array()}};
  std::map<int, Json> places;
  for (Json& line : LinesOf(lines)) {
    Json settings = {{"place", line["place"]}};
    if (line.contains("identify")) settings.update(line["identify"]);
    places[line["place"]] = settings;
    line.erase("identify");
    line.erase("olt");
    reports["onus"].push_back(line);
  }
  for (const auto& place : places) reports["identify"]["places"].push_back(place.second);
  std::string text = reports.dump();
  for (const std::string word : {"unknown", "sfu", "hgu", "any", "none"}) {
    const std::string quoted = ":\"" + word + "\"";
    for (std::size_t at = text.find(quoted); at != text.npos; at = text.find(quoted, at)) {
      text.replace(at, quoted.size(), ": " + word);
    }
  }
  return text;
}

// What is said of the ONUs, without the names of OLTs.
Json CountsOf(const std::string& out) {
  Json json = Json::parse(out);
  for (const char* head : {"kind", "catalogues", "shards", "old", "new", "reports"}) {
    json.erase(head);
  }
  json.erase("refused_lines");
  json.erase("codes_of_one");
  const auto forget_olts = [](Json& groups) {
    for (Json& group : groups) {
      for (Json& example : group["examples"]) example.erase("olt");
    }
  };
  forget_olts(json["groups"]);
  for (const char* side : {"before", "after"}) forget_olts(json["luck_of_order"][side]["groups"]);
  return json;
}

class NetworkDiffProgram : public testing::Test {
 protected:
  std::string ChangedShipped() {
    std::string text = ReadFile(Shipped());
    const std::string from = "GE_PORTS: 1, PON";
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from)) {
      text.replace(at, 11, "GE_PORTS: 3");
    }
    const std::string hgu = "hgu: 762";
    const std::size_t at = text.find(hgu);
    if (at != text.npos) text.replace(at, hgu.size(), "hgu: 763");
    return _directory.Write("changed.yaml", text);
  }

  std::string Generate(const std::string& name, const std::string& onus, const std::string& olts) {
    std::string path = _directory.Path(name);
    const ProgramResult result =
        RunProgram({"generate", Shipped(), "--onus", onus, "--olts", olts, "--seed", "7",
                    "--faults", "padding=5,garbage=10,missing=10", "-o", path});
    EXPECT_EQ(result.status, 0) << result.err;
    return path;
  }

  ProgramResult Diff(const std::vector<std::string>& more) {
    std::vector<std::string> words = {"diff", Shipped(), _changed};
    words.insert(words.end(), more.begin(), more.end());
    return RunProgram(words);
  }

  TemporaryDirectory _directory;
  std::string _changed = ChangedShipped();
};

TEST_F(NetworkDiffProgram, SaysOfLinesWhatItSaysOfAReportsFile) {
  const std::string lines = Generate("n.jsonl", "800", "1");
  const std::string yaml = _directory.Write("n.yaml", AsYaml(ReadFile(lines)));
  const ProgramResult of_lines = Diff({lines, "--json"});
  const ProgramResult of_yaml = Diff({yaml, "--json"});
  ASSERT_EQ(of_yaml.status, 1) << of_yaml.err;
  ASSERT_EQ(of_lines.status, 1) << of_lines.err;
  const Json counts = CountsOf(of_lines.out);
  EXPECT_EQ(counts, CountsOf(of_yaml.out));
  EXPECT_EQ(counts["onus"], 800);
  EXPECT_GT(counts["groups"].size(), 3U);
  EXPECT_GT(counts["luck_of_order"]["after"]["groups"].size(), 3U);
}

TEST_F(NetworkDiffProgram, SaysTheSameWhateverTheNumberOfWorkersAndFromStandardInput) {
  const std::string lines = Generate("n.jsonl", "8000", "20");
  ASSERT_GT(ReadFile(lines).size(), 2U << 20U) << "fewer blocks than workers";
  const ProgramResult one = Diff({lines, "--json", "--workers", "1"});
  EXPECT_EQ(one.status, 1) << one.err;
  EXPECT_EQ(Diff({lines, "--json", "--workers", "2"}).out, one.out);
  EXPECT_EQ(Diff({lines, "--json", "--workers", "3"}).out, one.out);
  EXPECT_EQ(RunProgram({"diff", Shipped(), _changed, "-", "--json"}, ReadFile(lines)).out, one.out);
}

TEST_F(NetworkDiffProgram, ShardsMergeIntoWhatOneRunSays) {
  std::string text = ReadFile(Generate("n.jsonl", "3000", "30"));
  // Lines that no report can be read from are of one shard each, too.
  for (std::size_t i = 0; i < 25; ++i)
    text.insert(text.find('\n', text.size() / 30 * i) + 1, "{\"olt\":\n");
  const std::string lines = _directory.Write("n.jsonl", text);
  const ProgramResult whole = Diff({lines, "--json"});
  EXPECT_EQ(whole.status, 2);
  EXPECT_EQ(Json::parse(whole.out)["refused_lines"]["count"], 25);
  std::vector<std::string> merge = {"merge", "--json"};
  for (const int shard : {4, 1, 5, 2, 3}) {
    const ProgramResult part = Diff({lines, "--json", "--shard", std::to_string(shard) + "/5"});
    EXPECT_EQ(Json::parse(part.out)["shards"]["numbers"][0], shard);
    merge.push_back(_directory.Write("s" + std::to_string(shard), part.out));
  }
  const ProgramResult merged = RunProgram(merge);
  EXPECT_EQ(merged.out, whole.out) << merged.err;
  EXPECT_EQ(merged.status, 2);
  merge.erase(merge.begin() + 1);
  EXPECT_EQ(RunProgram(merge).out, Diff({lines}).out);
  merge.pop_back();
  EXPECT_NE(RunProgram(merge).out.find("Shards: 4 of 5; missing: 3\n"), std::string::npos);
}

TEST_F(NetworkDiffProgram, SummariesThatDoNotMakeAWholeAreTold) {
  const std::string lines = Generate("n.jsonl", "300", "9");
  std::vector<std::string> shards;
  for (const char* shard : {"1/3", "2/3"}) {
    const ProgramResult part = Diff({lines, "--json", "--shard", shard});
    shards.push_back(_directory.Write("s" + std::to_string(shards.size()), part.out));
  }
  const std::string again = _directory.Write("again", ReadFile(shards[0]));
  const ProgramResult twice = RunProgram({"merge", shards[0], shards[1], again});
  EXPECT_EQ(twice.status, 2);
  EXPECT_EQ(twice.out, "");
  EXPECT_EQ(twice.err,
            "olt_host: " + again + ": shard 1 of 3 is there already; expected every shard once\n");
  const ProgramResult same = RunProgram({"merge", shards[0], shards[1], shards[0]});
  EXPECT_EQ(same.status, 2);
  EXPECT_EQ(same.out, "");
  EXPECT_EQ(same.err,
            "olt_host: " + shards[0] + ": is there already; expected every summary once\n");
  // A whole run tells neither shards nor OLTs.
  const std::string whole = _directory.Write("whole", Diff({lines, "--json"}).out);
  const ProgramResult doubled = RunProgram({"merge", whole, _directory.Path("./whole")});
  EXPECT_EQ(doubled.status, 2);
  EXPECT_EQ(doubled.out, "");
  EXPECT_NE(doubled.err.find("whole: is there already; expected every summary once"),
            std::string::npos)
      << doubled.err;
}

// What a pipe gives is gone once it is read.
TEST_F(NetworkDiffProgram, MergesASummaryThatCanBeReadOnce) {
  const std::string lines = Generate("n.jsonl", "300", "9");
  const std::string whole = Diff({lines, "--json"}).out;
  const std::string pipe = _directory.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(pipe) << whole; });
  const ProgramResult merged = RunProgram({"merge", pipe, "--json"});
  writer.join();
  EXPECT_EQ(merged.out, whole) << merged.err;
}

TEST_F(NetworkDiffProgram, MergesNothingOfAnotherKind) {
  const std::string whole = Diff({Generate("n.jsonl", "10", "1"), "--json"}).out;
  const std::string other =
      _directory.Write("other", With(whole, R"("kind": "diff")", R"("kind": "lint")"));
  EXPECT_EQ(RunProgram({"merge", other}).err,
            "olt_host: " + other + ": a summary of \"lint\"; expected one of confirm or diff\n");
  Json less = Json::parse(whole);
  less["catalogues"].erase(1);
  const std::string one = _directory.Write("one", less.dump());
  EXPECT_EQ(RunProgram({"merge", one}).err,
            "olt_host: " + one + ": a summary of diff with 1 catalogue; expected 2\n");
}

TEST_F(NetworkDiffProgram, NamesOltsAndLinesThatWereLeftOut) {
  const std::string lines = _directory.Write(
      "n.jsonl",
      "{\"olt\":\"olt-9\",\"place\":1,\"onu\":1,\"reported_type\":6001,\"abilities\":{\"47\":9}}\n"
      "\n"
      "{\"olt\":\"olt-1\",\"place\":2,\"onu\":3,\"reported_type\":6001,\"abilities\":{\"47\":9}}\n"
      "{\"olt\":\"olt-1\",\"place\":70000,\"onu\":3}\n");
  const std::string small = ReadFile(Fixture("small_catalogue.yaml"));
  const std::string newer = _directory.Write(
      "newer.yaml", small + "  - key: 6001\n    abilities: {REPORT_TYPE: 6001, REAL_TYPE: 6001}\n");
  const ProgramResult result = RunProgram({"diff", Fixture("small_catalogue.yaml"), newer, lines});
  EXPECT_EQ(result.status, 2) << result.err;
  EXPECT_NE(
      result.out.find("       2  unknown becomes 6001\n"
                      "          ONUs 2/3 of olt-1, 1/1 of olt-9\n"
                      "          Why: it reports type 6001, and now a profile has that key\n"),
      std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("Left out: 1 line that no report could be read from\n  "),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("n.jsonl:4: "), std::string::npos) << result.out;
}

// A code may have another name in NEW, and a name another code.
TEST_F(NetworkDiffProgram, ReadsLinesByTheNamesOfEachCatalogue) {
  const std::string old_file = Fixture("small_catalogue.yaml");
  const std::string newer = _directory.Write(
      "newer.yaml", With(ReadFile(old_file), "  - {code: 1001, name: ALL_LAN}",
                         "  - {code: 50, name: NEW_PORTS, attributes: {CONFIRM_TYPE: 3}}\n"
                         "  - {code: 1001, name: ALL_LAN}") +
                        "  - key: 1009\n    abilities: {REAL_TYPE: 1009, NEW_PORTS: 9}\n");
  const std::string lines = _directory.Write("n.jsonl",
                                             "{\"olt\":\"a\",\"place\":1,\"onu\":1,\"reported_"
                                             "type\":null,\"abilities\":{\"NEW_PORTS\":9}}\n");
  const ProgramResult result = RunProgram({"diff", old_file, newer, lines});
  EXPECT_EQ(result.status, 1) << result.err;
  EXPECT_NE(result.out.find("Note: only NEW defines code 50 (NEW_PORTS), which 1 ONU reports"),
            std::string::npos)
      << result.out;
  const Json json = Json::parse(RunProgram({"diff", newer, old_file, lines, "--json"}).out);
  EXPECT_EQ(json["codes_of_one"][0]["only_in"], "old");
}

TEST_F(NetworkDiffProgram, RefusesWhatDoesNotGoTogether) {
  const std::string lines = Generate("n.jsonl", "10", "1");
  const std::string yaml = Fixture("small_reports.yaml");
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {lines, yaml}, {yaml, "--shard", "1/2"}, {yaml, "--workers", "2"}}) {
    const ProgramResult result = Diff(words);
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("small_reports.yaml: no JSON lines; expected a name that ends in"),
              std::string::npos)
        << result.err;
  }
  const ProgramResult two = Diff({lines, lines, "--checkpoint", _directory.Path("c")});
  EXPECT_EQ(two.status, 2);
  EXPECT_NE(two.err.find("--checkpoint is kept for one file"), std::string::npos) << two.err;
  const std::string confirmed =
      _directory.Write("c.json", RunProgram({"confirm", Shipped(), lines, "--json"}).out);
  const std::string compared = _directory.Write("d.json", Diff({lines, "--json"}).out);
  const ProgramResult mixed = RunProgram({"merge", compared, confirmed});
  EXPECT_EQ(mixed.status, 2);
  EXPECT_NE(mixed.err.find("a summary of confirm; expected one of diff"), std::string::npos)
      << mixed.err;
}

}  // namespace
}  // namespace olt_host_test
