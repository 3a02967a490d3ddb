// olt_host unknown, run as a user runs it.
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "program_runner.h"
#include "thinned_catalogue.h"

namespace olt_host_test {
namespace {

using Json = nlohmann::json;

class UnknownProgram : public testing::Test {
 protected:
  static Json Unknown(std::vector<std::string> words) {
    words.insert(words.begin(), "unknown");
    words.emplace_back("--json");
    const ProgramResult result = RunProgram(words);
    EXPECT_EQ(result.status, 0) << result.err;
    return Json::parse(result.out);
  }
  // Unrecognised ONUs of groups whose entry `--entries` leaves out.
  static std::size_t LeftOut(const Json& unknown) {
    std::size_t onus = 0;
    for (const Json& group : unknown["groups"]) {
      const bool is_in = !group["entry"].is_null() && group["entry"]["takes_safe"] == 0;
      if (!group["recognised"] && !is_in) onus += group["count"].get<std::size_t>();
    }
    return onus;
  }
  // Types of the ONUs that exactly one profile fits or that are known by their type, by
  // "place/onu".
  static std::map<std::string, int> Types(const std::vector<std::string>& words) {
    std::vector<std::string> all = {"confirm", "--json"};
    all.insert(all.end(), words.begin(), words.end());
    const Json confirmed = Json::parse(RunProgram(all).out);
    std::map<std::string, int> types;
    for (const Json& onu : confirmed["results"]) {
      if (!onu["real_type"].is_null()) types[Name(onu)] = onu["real_type"];
    }
    return types;
  }
  static std::string Name(const Json& onu) { return onu["place"].dump() + "/" + onu["onu"].dump(); }

  std::string _shipped = std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml";
  TemporaryDirectory _directory;
};

TEST_F(UnknownProgram, TellsWhatNothingRecognises) {
  const ProgramResult result =
      RunProgram({"unknown", Fixture("small_catalogue.yaml"), Fixture("small_reports.yaml")});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.rfind("1 ONU that nothing recognises, then 1 that only the order of match "
                             "profiles\ndecides; 2 groups that reported the same, of either kind "
                             "the largest first.\n",
                             0),
            0U)
      << result.out;
  EXPECT_NE(result.out.find("1. 1 ONU that nothing recognises: 1/4\n"), std::string::npos);
  EXPECT_EQ(result.out.find('\r'), std::string::npos);
}

// ONUs of one catalogue, asked of another that lacks a third of their types.
TEST_F(UnknownProgram, EntriesMakeGeneratedOnusKnownAndChangeNoOther) {
  const std::string reports = _directory.Path("generated.yaml");
  const std::string thinned = _directory.Write("thinned.yaml", ThinnedCatalogue());
  ASSERT_EQ(RunProgram({"generate", _shipped, "--onus", "400", "--seed", "5", "--faults",
                        "missing=20,ones=10,truncated=20,case=20,padding=10,garbage=10,unknown=20",
                        "-o", reports})
                .status,
            0);
  const Json before = Unknown({thinned, reports});
  const ProgramResult entries = RunProgram({"unknown", thinned, reports, "--entries"});
  const std::string local = _directory.Write("local.yaml", entries.out);
  const Json after = Unknown({thinned, reports, "--local", local});
  EXPECT_GT(before["unrecognised"], 20);
  EXPECT_EQ(after["unrecognised"].get<std::size_t>(), LeftOut(before));
  EXPECT_LT(after["unrecognised"], before["unrecognised"]);
  std::set<std::string> by_luck;
  for (const Json& group : before["groups"]) {
    if (!group["recognised"]) continue;
    for (const Json& onu : group["onus"]) by_luck.insert(Name(onu));
  }
  const std::map<std::string, int> types = Types({thinned, reports, "--local", local});
  std::size_t compared = 0;
  for (const auto& [onu, type] : Types({thinned, reports})) {
    if (by_luck.count(onu) != 0) continue;
    ++compared;
    EXPECT_EQ(types.at(onu), type) << onu;
  }
  EXPECT_GT(compared, 20U);
}

TEST_F(UnknownProgram, BadUsageEndsWithTwo) {
  const std::string reports = Fixture("small_reports.yaml");
  const std::string catalogue = Fixture("small_catalogue.yaml");
  EXPECT_EQ(RunProgram({"unknown", catalogue}).status, 2);
  EXPECT_EQ(RunProgram({"unknown", catalogue, reports, "--json", "--all"}).status, 2);
  EXPECT_EQ(RunProgram({"unknown", catalogue, reports, "--json", "--entries"}).status, 2);
  const ProgramResult result = RunProgram({"unknown", catalogue, "nowhere.yaml"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("nowhere.yaml: cannot be read", 0), 0U) << result.err;
}

TEST_F(UnknownProgram, NamesTheFileToPasteInto) {
  const std::string local = _directory.Write("site.yaml", "codes: []\n");
  const std::string reports = Fixture("small_reports.yaml");
  const std::string catalogue = Fixture("small_catalogue.yaml");
  EXPECT_EQ(Unknown({catalogue, reports})["file"], catalogue);
  EXPECT_EQ(Unknown({catalogue, reports, "--local", local})["file"], local);
}

}  // namespace
}  // namespace olt_host_test
