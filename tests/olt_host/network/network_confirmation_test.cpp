// Confirming a network block by block comes to what confirming its ONUs one by one does.
#include "network/network_confirmation.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "confirmation/confirmer.h"
#include "host_files.h"
#include "onu_ability_common_reg_extern_func.h"
#include "recognition/loaded_catalogue.h"
#include "recognition/one_report.h"
#include "recognition/population_outcome.h"

namespace olt_host_test {
namespace {

using olt_host::BlockResult;
using olt_host::NetworkConfirmation;
using olt_host::NetworkReport;
using olt_host::NetworkSummary;
using olt_host::Shard;

std::string Text(const NetworkSummary& summary) { return ToJson(summary).dump(); }

std::string TaskOf(const std::string& text, std::uint64_t first_line = 1) {
  olt_host::LineBlock block;
  block.first_line = first_line;
  block.text = text;
  return olt_host::TaskOf(block);
}

class NetworkConfirmationTest : public testing::Test {
 protected:
  NetworkConfirmationTest() {
    OnuAbilityRegExternFunc* settings = OnuAbilityRegExternFunc::GetInstance();
    settings->SetSfuCommonType(_library.catalogue().sfu_common_type);
    settings->SetHguCommonType(_library.catalogue().hgu_common_type);
  }

  NetworkConfirmation Confirmation(const Shard& shard = {}, bool with_rows = false) {
    return {_library.catalogue(), "network.jsonl", shard, with_rows};
  }

  LoadedCatalogue _library;
  const std::string _lines = ReadFile(Fixture("network.jsonl"));
};

TEST_F(NetworkConfirmationTest, MeetsTheExpectationsOfTheNetwork) {
  const NetworkSummary summary = Confirmation().Confirm(TaskOf(_lines)).summary;
  EXPECT_EQ(summary.counts.onus, 12U);
  EXPECT_EQ(summary.counts.with_expectation, 10U);
  EXPECT_EQ(summary.counts.expectation_failed, 0U);
  EXPECT_EQ(summary.counts.translated, 3U);
  EXPECT_EQ(summary.olts.size(), 3U);
  EXPECT_EQ(summary.olts.at("olt-east").onus, 4U);
  EXPECT_EQ(summary.olts.at("olt-east").not_recognised, 1U);
}

TEST_F(NetworkConfirmationTest, ComesToWhatItsOnusComeToOneByOne) {
  olt_host::JsonReportReader reader(_library.catalogue());
  olt_host::ConfirmationSummary expected;
  std::string rows;
  std::istringstream lines(_lines);
  std::string line;
  while (std::getline(lines, line)) {
    const NetworkReport report = reader.Read(line, {"network.jsonl", 0});
    const olt_host::OneReport source(report.report, report.settings);
    const auto result = olt_host::ConfirmOnu(source, report.report);
    expected.Count(result);
    rows +=
        report.olt + "," + std::to_string(result.place) + "," + std::to_string(result.onu) + ",";
  }
  const BlockResult block = Confirmation({}, true).Confirm(TaskOf(_lines));
  EXPECT_EQ(block.summary.counts.by_type, expected.by_type);
  EXPECT_EQ(block.summary.counts.by_abilities, expected.by_abilities);
  EXPECT_EQ(block.summary.counts.not_recognised, expected.not_recognised);
  EXPECT_EQ(block.summary.counts.translated, expected.translated);
  std::istringstream its_rows(block.rows);
  std::string beginnings;
  while (std::getline(its_rows, line)) {
    const std::size_t end = line.find(',', line.find(',', line.find(',') + 1) + 1);
    beginnings += line.substr(0, end + 1);
  }
  EXPECT_EQ(beginnings, rows);
}

TEST_F(NetworkConfirmationTest, AddsUpOverBlocksAndShards) {
  const std::string whole = Text(Confirmation().Confirm(TaskOf(_lines)).summary);
  const std::size_t middle = _lines.find('\n', _lines.size() / 2) + 1;
  NetworkConfirmation one_by_one = Confirmation();
  NetworkSummary sum = one_by_one.Confirm(TaskOf(_lines.substr(0, middle))).summary;
  sum.Merge(one_by_one.Confirm(TaskOf(_lines.substr(middle), 7)).summary);
  EXPECT_EQ(Text(sum), whole);
  NetworkSummary of_shards;
  for (std::uint32_t number = 1; number <= 4; ++number) {
    of_shards.Merge(Confirmation({number, 4}).Confirm(TaskOf(_lines)).summary);
  }
  EXPECT_EQ(Text(of_shards), whole);
}

TEST_F(NetworkConfirmationTest, LeavesOutLinesThatAreNoReports) {
  const NetworkSummary summary =
      Confirmation().Confirm(TaskOf("\n" + _lines + "{\n \r\n{\"olt\":7}\n", 100)).summary;
  EXPECT_EQ(summary.counts.onus, 12U);
  EXPECT_EQ(summary.refused.count(), 2U);
  ASSERT_EQ(summary.refused.first().size(), 2U);
  EXPECT_EQ(summary.refused.first().begin()->line, 113U);
  EXPECT_EQ(summary.refused.first().begin()->Text().find("network.jsonl:113: "), 0U);
  EXPECT_EQ(std::next(summary.refused.first().begin())->line, 115U);
  NetworkSummary of_shards;
  for (std::uint32_t number = 1; number <= 3; ++number) {
    of_shards.Merge(Confirmation({number, 3})
                        .Confirm(TaskOf("\n" + _lines + "{\n \r\n{\"olt\":7}\n", 100))
                        .summary);
  }
  EXPECT_EQ(Text(of_shards), Text(summary));
}

// Every match profile took somebody or stands there with no win, and the wins are those of
// the recognised.
TEST_F(NetworkConfirmationTest, CountsTheWinsOfEveryProfile) {
  NetworkConfirmation confirmation = Confirmation();
  NetworkSummary summary = confirmation.NoWins();
  const std::size_t profiles = summary.profiles.size();
  EXPECT_EQ(profiles, olt_host::MatchProfiles().size());
  summary.Merge(confirmation.Confirm(TaskOf(_lines)).summary);
  EXPECT_EQ(summary.profiles.size(), profiles);
  std::uint64_t wins = 0;
  for (const auto& profile : summary.profiles) wins += profile.second.wins;
  EXPECT_EQ(wins, summary.counts.onus - summary.counts.not_recognised);
}

TEST_F(NetworkConfirmationTest, NamesWhatDecidesAgainstTheNearestProfile) {
  const NetworkSummary summary = Confirmation().Confirm(TaskOf(_lines)).summary;
  std::uint64_t onus = summary.compared_with_nothing;
  for (const auto& [key, group] : summary.unrecognised) {
    onus += group.onus;
    EXPECT_NE(group.ability, "");
    EXPECT_NE(group.reported, group.held);
  }
  EXPECT_EQ(onus, summary.counts.not_recognised);
  EXPECT_GT(onus, 0U);
}

// They are one name in JSON, which takes no other bytes; every ONU is counted all the same.
TEST_F(NetworkConfirmationTest, CountsOltsWhoseNamesAreNotUtf8) {
  const std::string rest = "\",\"place\":1,\"onu\":1,\"reported_type\":1}\n";
  const std::string lines = "{\"olt\":\"a\xFE" + rest + "{\"olt\":\"a\xFF" + rest;
  const BlockResult block = Confirmation().Confirm(TaskOf(lines));
  const NetworkSummary read = olt_host::ParseBlockResult(ToBytes(block)).summary;
  ASSERT_EQ(read.olts.size(), 1U);
  EXPECT_EQ(read.olts.begin()->first, "a\xEF\xBF\xBD");
  EXPECT_EQ(read.olts.begin()->second.onus, 2U);
  std::uint64_t of_shards = 0;
  for (std::uint32_t number = 1; number <= 3; ++number) {
    of_shards += Confirmation({number, 3}).Confirm(TaskOf(lines)).summary.olts.size();
  }
  EXPECT_EQ(of_shards, 1U);
}

TEST_F(NetworkConfirmationTest, SurvivesTheWayOfItsResult) {
  const BlockResult block = Confirmation({}, true).Confirm(TaskOf(_lines));
  const BlockResult read = olt_host::ParseBlockResult(ToBytes(block));
  EXPECT_EQ(read.rows, block.rows);
  EXPECT_EQ(Text(read.summary), Text(block.summary));
  EXPECT_THROW(olt_host::ParseBlockResult("9\nx"), std::invalid_argument);
}

}  // namespace
}  // namespace olt_host_test
