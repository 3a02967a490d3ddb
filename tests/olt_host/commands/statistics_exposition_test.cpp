// The metrics, read by the grammar of their format.
#include "commands/statistics_exposition.h"

#include <gtest/gtest.h>

#include "commands/exposition_lines.h"
#include "commands/exposition_writer.h"

namespace olt_host_test {
namespace {

using olt_host::ExpositionNumber;
using olt_host::ExpositionWriter;
using olt_host::StatisticsReport;

using Time = std::chrono::system_clock::time_point;

TEST(ExpositionWriter, EscapesWhatTheFormatGivesAMeaning) {
  ExpositionWriter writer;
  writer.Begin("a_total", "counter", "back\\slash, \"quotes\"\nand a line");
  writer.Add({{"label", "a\\b\"c\nd"}, {"other", ""}}, 3);
  EXPECT_EQ(writer.text(),
            "# HELP a_total back\\\\slash, \"quotes\"\\nand a line\n"
            "# TYPE a_total counter\n"
            "a_total{label=\"a\\\\b\\\"c\\nd\",other=\"\"} 3\n");
  EXPECT_EQ(
      ReadExposition(writer.text()).Value("a_total", {{"label", "a\\b\"c\nd"}, {"other", ""}}), 3);
}

TEST(ExpositionWriter, WhatIsNoUtf8IsReplaced) {
  ExpositionWriter writer;
  writer.Begin("a", "gauge", "x");
  writer.AddNumber({{"label", "caf\xc3\xa9 \xff|"}}, 0.5);
  EXPECT_EQ(ReadExposition(writer.text()).Value("a", {{"label", "café \xef\xbf\xbd|"}}), 0.5);
}

TEST(ExpositionWriter, NumbersReadBackAsTheyWere) {
  EXPECT_EQ(ExpositionNumber(0), "0");
  EXPECT_EQ(ExpositionNumber(0.00025), "0.00025");
  for (const double value : {1.0 / 3, 1e-9, 1763773200.123456, 12345678901234.0}) {
    EXPECT_EQ(std::stod(ExpositionNumber(value)), value);
  }
}

StatisticsReport Report() {
  StatisticsReport report{olt_host::ConfirmationStatistics(Time(std::chrono::seconds(100))),
                          Time(std::chrono::seconds(200)),
                          {},
                          0,
                          0};
  olt_host::ConfirmationResult result;
  result.how = olt_host::Recognition::kAbilities;
  result.translated = true;
  olt_host::HookCalls calls{};
  calls[0] = 7;
  const Time when(std::chrono::milliseconds(150500));
  report.counts.Count(result, olt_host::MatchProfileName{1, 9, 1}, calls,
                      std::chrono::microseconds(30), when);
  report.counts.Count(result, olt_host::MatchProfileName{1, 9, 1}, calls, std::chrono::seconds(3),
                      when);
  report.counts.CountCommand(true);
  report.profiles.push_back(
      {{1, 9, 1}, "odd \"name\" \\ \n", false, report.counts.wins().at({1, 9, 1})});
  report.profiles.push_back({{0, 9, 1}, "", true, {}});
  report.profiles.push_back({{0, 9, 2}, "", true, {}});
  report.won = 1;
  report.gone = 1;
  return report;
}

TEST(StatisticsExposition, EveryLineIsOfTheFormatAndNoneStandsTwice) {
  const Exposition read = ReadExposition(ExpositionText(Report()));
  EXPECT_EQ(read.Value("olt_host_statistics_start_timestamp_seconds"), 100);
  EXPECT_EQ(read.Value("olt_host_confirmations_total", {{"recognised_by", "abilities"}}), 2);
  EXPECT_EQ(read.Sum("olt_host_confirmations_total"), 2);
  EXPECT_EQ(read.Value("olt_host_translations_total"), 2);
  EXPECT_EQ(read.Value("olt_host_hook_calls_total", {{"hook", "vendor_id"}}), 14);
  EXPECT_EQ(read.Value("olt_host_commands_total", {{"kind", "changing"}}), 1);
  EXPECT_EQ(read.Value("olt_host_match_profiles", {{"state", "never_won"}}), 2);
  EXPECT_EQ(read.Value("olt_host_match_profiles", {{"state", "won"}}), 0);
  EXPECT_EQ(read.Value("olt_host_match_profiles", {{"state", "gone"}}), 1);
  const Exposition::Labels odd = {
      {"source", "operator"}, {"key", "9"}, {"number", "1"}, {"type_name", "odd \"name\" \\ \n"}};
  EXPECT_EQ(read.Value("olt_host_match_profile_wins_total", odd), 2);
  EXPECT_EQ(read.Value("olt_host_match_profile_last_win_timestamp_seconds", odd), 150.5);
  EXPECT_EQ(read.Sum("olt_host_match_profile_wins_total"), 2);
  EXPECT_EQ(read.Sum("olt_host_match_profile_last_win_timestamp_seconds"), 150.5)
      << "those that never won have none";
}

TEST(StatisticsExposition, TheClassesOfAHistogramAddUp) {
  const Exposition read = ReadExposition(ExpositionText(Report()));
  const std::string name = "olt_host_confirmation_duration_seconds";
  EXPECT_EQ(read.types.at(name), "histogram");
  EXPECT_EQ(read.Value(name + "_bucket", {{"le", "2.5e-05"}}), 0);
  EXPECT_EQ(read.Value(name + "_bucket", {{"le", "5e-05"}}), 1);
  EXPECT_EQ(read.Value(name + "_bucket", {{"le", "1"}}), 1);
  EXPECT_EQ(read.Value(name + "_bucket", {{"le", "+Inf"}}), 2);
  EXPECT_EQ(read.Value(name + "_count"), 2);
  EXPECT_DOUBLE_EQ(read.Value(name + "_sum"), 3.00003);
  EXPECT_EQ(read.Value("olt_host_confirmation_duration_longest_seconds"), 3);
}

}  // namespace
}  // namespace olt_host_test
