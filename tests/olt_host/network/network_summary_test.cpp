// Counts of a network add up to the same whichever the parts and their order, and survive
// being written and read.
#include "network/network_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <vector>

#include "network/network_summary_text.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::NetworkSummary;

using Json = nlohmann::ordered_json;
using Random = std::mt19937;

Random Seeded(unsigned int seed) { return Random(seed); }

unsigned int Below(Random& random, unsigned int limit) {
  return std::uniform_int_distribution<unsigned int>(0, limit - 1)(random);
}

ConfirmationResult RandomResult(Random& random) {
  ConfirmationResult result;
  result.place = static_cast<std::uint16_t>(Below(random, 4));
  result.onu = static_cast<std::uint8_t>(Below(random, 250));
  if (Below(random, 3) != 0) {
    result.real_type = static_cast<std::uint16_t>(Below(random, 5));
    result.type_name = "TYPE-" + std::to_string(*result.real_type);
    result.how =
        Below(random, 2) == 0 ? olt_host::Recognition::kType : olt_host::Recognition::kAbilities;
  }
  if (Below(random, 2) == 0) {
    result.expect.emplace();
    result.expect->real_type = static_cast<std::uint16_t>(Below(random, 5));
  }
  result.translated = Below(random, 2) == 0;
  return result;
}

// What one ONU adds, of an OLT with one of seven names.
NetworkSummary RandomOne(Random& random) {
  NetworkSummary one;
  const std::string olt = "olt-" + std::to_string(Below(random, 7));
  const ConfirmationResult result = RandomResult(random);
  if (result.real_type) {
    one.Count(olt, result, olt_host::MatchProfileName{1, *result.real_type + 1000U, 1});
  } else {
    one.Count(olt, result, std::nullopt);
    olt_host::UnrecognisedGroup group;
    group.onus = 1;
    group.example = {olt, result.place, result.onu};
    group.reported = std::to_string(result.place) + "/" + std::to_string(result.onu) + olt;
    one.CountUnrecognised(
        {{1, 1000 + Below(random, 3), 1}, static_cast<std::uint16_t>(Below(random, 2))}, group);
  }
  one.hook_calls[Below(random, 10)] = Below(random, 20);
  if (Below(random, 10) == 0) one.refused.Add({"file", Below(random, 100000), "nothing"});
  return one;
}

std::string Text(const NetworkSummary& summary) { return ToJson(summary).dump(); }

TEST(NetworkSummaries, AddUpToTheSameWhateverThePartsAndTheirOrder) {
  for (unsigned int seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random = Seeded(seed);
    NetworkSummary whole;
    std::vector<NetworkSummary> parts(1 + Below(random, 6));
    for (int i = 0; i < 400; ++i) {
      const NetworkSummary one = RandomOne(random);
      whole.Merge(one);
      parts[Below(random, static_cast<unsigned int>(parts.size()))].Merge(one);
    }
    std::shuffle(parts.begin(), parts.end(), random);
    NetworkSummary sum;
    for (const NetworkSummary& part : parts) sum.Merge(part);
    EXPECT_EQ(Text(sum), Text(whole));
    EXPECT_EQ(whole.counts.onus, 400U);
    EXPECT_GT(whole.refused.count(), 10U);
    EXPECT_EQ(whole.refused.first().size(), 10U);
    EXPECT_EQ(whole.failures.size(), 10U);
  }
}

TEST(NetworkSummaries, SurviveBeingWrittenAndRead) {
  Random random = Seeded(5);
  NetworkSummary summary;
  for (int i = 0; i < 300; ++i) summary.Merge(RandomOne(random));
  summary.compared_with_nothing = 3;
  EXPECT_EQ(Text(olt_host::ParseNetworkSummary(ToJson(summary))), Text(summary));
}

TEST(NetworkSummaries, AreNotReadFromAnythingElse) {
  EXPECT_THROW(olt_host::ParseNetworkSummary({{"counts", 3}}), nlohmann::json::exception);
  EXPECT_THROW(olt_host::ParseNetworkSummary({}), nlohmann::json::exception);
}

TEST(NetworkSummaries, CountMoreThanAMachineOfThirtyTwoBitsCounts) {
  NetworkSummary summary;
  summary.counts.onus = 3'000'000'000U;
  summary.Merge(NetworkSummary(summary));
  EXPECT_EQ(ToJson(summary)["counts"]["onus"].dump(), "6000000000");
  EXPECT_NE(olt_host::NetworkSummaryText(summary).find(" 6000000000\n"), std::string::npos);
}

// Numbers that do not fit would otherwise be read as others.
TEST(NetworkSummaries, AreNotReadFromDamagedNumbers) {
  Random random = Seeded(3);
  NetworkSummary summary;
  for (int i = 0; i < 300; ++i) summary.Merge(RandomOne(random));
  const Json whole = ToJson(summary);
  EXPECT_NO_THROW(olt_host::ParseNetworkSummary(whole));
  const std::pair<const char*, Json> cases[] = {{"/counts/onus", -1},
                                                {"/counts/by_type", 0.5},
                                                {"/hook_calls/ability", "9"},
                                                {"/types/0/real_type", 70000},
                                                {"/types/0/onus", -1},
                                                {"/profiles/0/key", 4294967296},
                                                {"/olts/0/not_recognised", -1},
                                                {"/unrecognised/0/code", 65536},
                                                {"/unrecognised/0/example/onu", 256},
                                                {"/failures/0/place", 65536},
                                                {"/refused_lines/first/0/line", -1}};
  for (const auto& [member, value] : cases) {
    Json damaged = whole;
    damaged.at(Json::json_pointer(member)) = value;
    EXPECT_THROW(olt_host::ParseNetworkSummary(damaged), std::runtime_error) << member;
  }
}

TEST(NetworkSummaries, AreNotReadFromListsLongerThanTheirCounts) {
  Random random = Seeded(4);
  NetworkSummary summary;
  for (int i = 0; i < 300; ++i) summary.Merge(RandomOne(random));
  for (const char* count : {"/counts/not_as_expected", "/refused_lines/count"}) {
    Json damaged = ToJson(summary);
    damaged.at(Json::json_pointer(count)) = 1;
    EXPECT_THROW(olt_host::ParseNetworkSummary(damaged), std::runtime_error) << count;
  }
}

TEST(NetworkSummaries, CountEachOltByItself) {
  NetworkSummary summary;
  ConfirmationResult known;
  known.real_type = 7;
  known.how = olt_host::Recognition::kType;
  ConfirmationResult wrong;
  wrong.expect.emplace();
  wrong.expect->real_type = 7;
  summary.Count("b", known, std::nullopt);
  summary.Count("a", known, std::nullopt);
  summary.Count("b", wrong, std::nullopt);
  EXPECT_EQ(summary.olts.at("a").onus, 1U);
  EXPECT_EQ(summary.olts.at("b").onus, 2U);
  EXPECT_EQ(summary.olts.at("b").not_recognised, 1U);
  EXPECT_EQ(summary.olts.at("b").not_as_expected, 1U);
  EXPECT_EQ(summary.failures.begin()->what, "is not recognised; expected real type 7");
}

TEST(NetworkSummaries, FitAScreenOf80Columns) {
  Random random = Seeded(9);
  NetworkSummary summary;
  for (int i = 0; i < 500; ++i) summary.Merge(RandomOne(random));
  for (unsigned int key = 2000; key < 2030; ++key) {
    summary.profiles[{1, key, 1}] = {"A TYPE WITH A LONG NAME", 0};
  }
  const std::string longest(64, 'o');
  ConfirmationResult wrong;
  wrong.expect.emplace();
  wrong.expect->real_type = 7;
  for (int i = 0; i < 500; ++i) summary.Count(longest, wrong, std::nullopt);
  const std::string text = olt_host::NetworkSummaryText(summary);
  EXPECT_NE(text.find("     500      500      500\n          " + longest + "\n"), std::string::npos)
      << text;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) EXPECT_LT(line.size(), 80U) << line;
  EXPECT_NE(text.find("5 of 35 match profiles took ONUs, 30 never did: 2000 A TYPE"),
            std::string::npos)
      << text;
}

TEST(NetworkSummaries, ShowTheLargestGroupsFirst) {
  NetworkSummary summary;
  for (std::uint16_t code = 1; code <= 12; ++code) {
    for (unsigned int i = 0; i < code; ++i) {
      olt_host::UnrecognisedGroup one;
      one.onus = 1;
      one.example = {"olt", code, static_cast<std::uint8_t>(i)};
      one.ability = "CODE" + std::to_string(code);
      one.reported = "1";
      one.held = "2";
      summary.CountUnrecognised({{1, 1001, 1}, code}, one);
    }
  }
  const std::string text = olt_host::NetworkSummaryText(summary);
  EXPECT_LT(text.find("CODE12 (12) is 2 there, and 1 at ONU 12/0 of olt"),
            text.find("CODE11 (11) is 2 there, and 1 at ONU 11/0 of olt"));
  EXPECT_EQ(text.find("CODE2 "), std::string::npos);
  EXPECT_NE(text.find("... and 2 more such groups, see --json"), std::string::npos) << text;
}

}  // namespace
}  // namespace olt_host_test
