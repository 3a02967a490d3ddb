// What parts of a network come to against the whole, in the processes and documents that
// they pass through.
#include "network/network_difference.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/catalogue_files.h"
#include "confirmation/hooks.h"
#include "host_files.h"
#include "network/network_comparison.h"
#include "recognition/catalogue_exchange.h"

namespace olt_host_test {
namespace {

using olt_host::Catalogue;
using olt_host::LineBlock;
using olt_host::NetworkComparison;
using olt_host::NetworkDifference;
using olt_host::NetworkDifferenceSum;
using Json = nlohmann::ordered_json;

class NetworkDifferenceTest : public testing::Test {
 protected:
  NetworkDifferenceTest() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
    const std::string small = ReadFile(Fixture("small_catalogue.yaml"));
    _older = Read("old.yaml", small);
    _newer = Read(
        "new.yaml",
        With(small, "REAL_TYPE: 1001, GE_PORTS: 1,", "REAL_TYPE: 1001, GE_PORTS: 2,") +
            "  - key: 6001\n    abilities: {REPORT_TYPE: 6001, REAL_TYPE: 6001, GE_PORTS: 10}\n");
  }

  Catalogue Read(const std::string& name, const std::string& text) {
    olt_host::CatalogueRequest request;
    request.shipped = {_directory.Write(name, text)};
    return olt_host::ReadCatalogueFiles(request).catalogue;
  }

  // Line `i` of a network, some of them no reports.
  static std::string Line(unsigned int i) {
    if (i % 11 == 5) return "no report\n";
    const std::string type = i % 3 == 0 ? "6001" : i % 3 == 1 ? "5555" : "null";
    return R"({"olt":"olt-)" + std::to_string(i % 7) + R"(","place":)" + std::to_string(i % 5) +
           R"(,"onu":)" + std::to_string(i / 5) + R"(,"vendor_id":"ACME","reported_type":)" + type +
           R"(,"abilities":{"GE_PORTS":)" + std::to_string(i % 4 * 3 + 1) + "}}\n";
  }

  static std::string TaskOf(unsigned int from, unsigned int to) {
    LineBlock block;
    block.first_line = from + 1;
    for (unsigned int i = from; i < to; ++i) block.text += Line(i);
    return olt_host::TaskOf(block);
  }

  static std::string Text(const NetworkDifference& difference) {
    return olt_host::ToRecord(difference).dump(1) + olt_host::NetworkDifferenceText(difference);
  }

  CleanLibrary _library;
  TemporaryDirectory _directory;
  Catalogue _older;
  Catalogue _newer;
};

constexpr unsigned int kLines = 300;

TEST_F(NetworkDifferenceTest, OfBlocksInAnyOrderIsThatOfTheWhole) {
  NetworkComparison comparison(_older, _newer, {});
  const NetworkDifference whole = comparison.Compare(TaskOf(0, kLines), "n.jsonl");
  EXPECT_GT(whole.difference.CountOf(olt_host::OnuChange::kBecameUnknown) +
                whole.difference.CountOf(olt_host::OnuChange::kType),
            10U);
  EXPECT_EQ(whole.refused.count(), 27U);
  std::vector<NetworkDifference> parts;
  for (unsigned int from = 0; from < kLines; from += 20) {
    parts.push_back(comparison.Compare(TaskOf(from, from + 20), "n.jsonl"));
  }
  for (int order = 0; order < 2; ++order) {
    NetworkDifferenceSum sum;
    for (const NetworkDifference& part : parts) {
      const Json sent = Json::parse(olt_host::ToRecord(part).dump());
      sum.Add(olt_host::ParseNetworkDifference(sent));
    }
    EXPECT_EQ(Text(sum.Sum()), Text(whole));
    std::reverse(parts.begin(), parts.end());
  }
}

TEST_F(NetworkDifferenceTest, OfShardsIsThatOfTheWholeWithItsReasons) {
  const std::string task = TaskOf(0, kLines);
  NetworkComparison everything(_older, _newer, {});
  NetworkDifference whole = everything.Compare(task, "n.jsonl");
  everything.AskReasons(whole.difference);
  NetworkDifferenceSum sum;
  for (std::uint32_t shard = 4; shard > 0; --shard) {
    olt_host::LoadInstead(_older);
    NetworkComparison comparison(_older, _newer, {shard, 4});
    NetworkDifference part = comparison.Compare(task, "n.jsonl");
    comparison.AskReasons(part.difference);
    EXPECT_LT(part.difference.onus, whole.difference.onus);
    sum.Add(olt_host::ParseNetworkDifference(olt_host::ToJson(part)));
  }
  EXPECT_EQ(olt_host::ToJson(sum.Sum()).dump(1), olt_host::ToJson(whole).dump(1));
  EXPECT_NE(olt_host::NetworkDifferenceText(whole).find("GE_PORTS is reported 1,"),
            std::string::npos)
      << olt_host::NetworkDifferenceText(whole);
}

TEST_F(NetworkDifferenceTest, RefusesWhatIsNoDocument) {
  const Json whole = olt_host::ToJson(NetworkDifference());
  EXPECT_NO_THROW(olt_host::ParseNetworkDifference(whole));
  for (const char* member : {"onus", "groups", "luck_of_order", "codes_of_one", "refused_lines"}) {
    Json lacking = whole;
    lacking.erase(member);
    EXPECT_THROW(olt_host::ParseNetworkDifference(lacking), Json::exception) << member;
  }
}

// Numbers that do not fit would otherwise be read as others.
TEST_F(NetworkDifferenceTest, IsNotReadFromDamagedNumbers) {
  NetworkComparison comparison(_older, _newer, {});
  NetworkDifference compared = comparison.Compare(TaskOf(0, kLines), "n.jsonl");
  compared.codes_of_one.push_back({50, "NEW", true, 1});
  const Json whole = Json::parse(olt_host::ToRecord(compared).dump());
  EXPECT_NO_THROW(olt_host::ParseNetworkDifference(whole));
  const std::pair<const char*, Json> cases[] = {{"/onus", -1},
                                                {"/groups/0/onus", -1},
                                                {"/groups/0/examples/0/place", 65536},
                                                {"/groups/0/examples/0/onu", 256},
                                                {"/groups/0/before/report_type", 65536},
                                                {"/groups/0/after/type_to_translate", 4294967296},
                                                {"/luck_of_order/after/onus", 0.5},
                                                {"/codes_of_one/0/code", 65536},
                                                {"/refused_lines/count", 1}};
  for (const auto& [member, value] : cases) {
    Json damaged = whole;
    damaged.at(Json::json_pointer(member)) = value;
    EXPECT_THROW(olt_host::ParseNetworkDifference(damaged), std::runtime_error) << member;
  }
}

}  // namespace
}  // namespace olt_host_test
