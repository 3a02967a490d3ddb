// What is counted of confirmations.
#include "confirmation/confirmation_statistics.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::ConfirmationStatistics;
using olt_host::ConfirmationTrace;
using olt_host::DurationHistogram;
using olt_host::HookCalls;
using olt_host::MatchProfileName;
using olt_host::Recognition;
using std::chrono::microseconds;

ConfirmationStatistics::Time At(int seconds) {
  return ConfirmationStatistics::Time(std::chrono::seconds(seconds));
}

ConfirmationResult Result(Recognition how, const std::string& type_name) {
  ConfirmationResult result;
  result.how = how;
  result.type_name = type_name;
  return result;
}

TEST(DurationHistogram, ADurationIsInTheFirstClassThatTakesIt) {
  DurationHistogram histogram;
  histogram.Count(microseconds(0));
  histogram.Count(microseconds(10));  // a limit belongs to its class
  histogram.Count(std::chrono::nanoseconds(10001));
  histogram.Count(std::chrono::seconds(1));
  histogram.Count(std::chrono::seconds(2));
  EXPECT_EQ(histogram.classes().front(), 2U);
  EXPECT_EQ(histogram.classes().at(1), 1U);
  EXPECT_EQ(histogram.classes().at(DurationHistogram::kLimits.size() - 1), 1U);
  EXPECT_EQ(histogram.classes().back(), 1U);
  EXPECT_EQ(histogram.count(), 5U);
  EXPECT_EQ(histogram.sum(), std::chrono::nanoseconds(3000020001));
  EXPECT_EQ(histogram.longest(), std::chrono::seconds(2));
}

TEST(DurationHistogram, LimitsAscend) {
  for (std::size_t i = 1; i < DurationHistogram::kLimits.size(); ++i) {
    EXPECT_LT(DurationHistogram::kLimits.at(i - 1), DurationHistogram::kLimits.at(i));
  }
}

TEST(ConfirmationStatistics, EachConfirmationIsCountedByWhatBecameOfIt) {
  ConfirmationStatistics counts(At(1));
  HookCalls calls{};
  calls[6] = 5;
  counts.Count(Result(Recognition::kType, "A"), MatchProfileName{0, 7, 1}, calls, microseconds(3),
               At(2));
  counts.Count(Result(Recognition::kAbilities, "B"), MatchProfileName{0, 7, 1}, calls,
               microseconds(4), At(3));
  counts.Count(Result(Recognition::kAbilities, "C"), MatchProfileName{1, 7, 1}, calls,
               microseconds(5), At(4));
  counts.Count(Result(Recognition::kNone, ""), std::nullopt, calls, microseconds(6), At(5));
  EXPECT_EQ(counts.since(), At(1));
  EXPECT_EQ(counts.summary().onus, 4U);
  EXPECT_EQ(counts.summary().by_type, 1U);
  EXPECT_EQ(counts.summary().by_abilities, 2U);
  EXPECT_EQ(counts.summary().not_recognised, 1U);
  EXPECT_EQ(counts.hook_calls().at(6), 20U);
  EXPECT_EQ(counts.durations().sum(), microseconds(18));
  ASSERT_EQ(counts.wins().size(), 2U);
  const olt_host::ProfileWins& shipped = counts.wins().at({0, 7, 1});
  EXPECT_EQ(shipped.wins, 2U);
  EXPECT_EQ(shipped.last, At(3));
  EXPECT_EQ(shipped.type_name, "B");
  EXPECT_EQ(counts.wins().at({1, 7, 1}).wins, 1U);
}

TEST(ConfirmationStatistics, ClearingBeginsAnew) {
  ConfirmationStatistics counts(At(1));
  counts.Count(Result(Recognition::kType, "A"), MatchProfileName{0, 7, 1}, {}, microseconds(3),
               At(2));
  counts.CountCommand(true);
  counts.CountCommand(false);
  counts.CountCommand(false);
  EXPECT_EQ(counts.changing_commands(), 1U);
  EXPECT_EQ(counts.looking_commands(), 2U);
  counts.Clear(At(9));
  EXPECT_EQ(counts.since(), At(9));
  EXPECT_EQ(counts.summary().onus, 0U);
  EXPECT_TRUE(counts.wins().empty());
  EXPECT_EQ(counts.durations().count(), 0U);
  EXPECT_EQ(counts.looking_commands() + counts.changing_commands(), 0U);
}

// A trace tells which profile took the ONU and what was asked for.
TEST(ConfirmationTrace, HoldsTheWinnerAndTheHookCalls) {
  const CleanLibrary library;
  const olt_host::Catalogue catalogue = olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"));
  olt_host::LoadCatalogue(catalogue);
  olt_host::RegisterHooks();
  const olt_host::Population population(
      olt_host::ReadReports(Fixture("small_reports.yaml"), catalogue));
  ConfirmationTrace taken;
  ConfirmOnu(population, *population.Find(1, 2), &taken);
  ASSERT_TRUE(taken.winner);
  unsigned int key = 0;
  EXPECT_EQ(taken.winner->Get(catalogue.key_ability_code, key), 0U);
  EXPECT_EQ(key, 1001U);
  // Vendor, type, private capability, profile (gathered, confirmed), real type, report type,
  // four codes that ONUs are asked for, four settings, whether to ask, device name.
  EXPECT_EQ(taken.hook_calls, (HookCalls{1, 1, 1, 2, 1, 1, 4, 4, 1, 1}));
  ConfirmationTrace missed;
  ConfirmOnu(population, *population.Find(1, 4), &missed);
  EXPECT_FALSE(missed.winner);
  // This one's abilities are not read.
  ConfirmationTrace unread;
  ConfirmOnu(population, *population.Find(3, 2), &unread);
  EXPECT_EQ(unread.hook_calls, (HookCalls{1, 1, 0, 2, 1, 1, 0, 4, 1, 0}));
}

// Calls behind a context that does not count are nobody's.
TEST(ConfirmationTrace, OnlyItsOwnCallsAreCounted) {
  const CleanLibrary library;
  const olt_host::Catalogue catalogue = olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"));
  olt_host::LoadCatalogue(catalogue);
  olt_host::RegisterHooks();
  const olt_host::Population population(
      olt_host::ReadReports(Fixture("small_reports.yaml"), catalogue));
  ConfirmationTrace trace;
  ConfirmOnu(population, *population.Find(1, 1), &trace);
  const HookCalls before = trace.hook_calls;
  ConfirmOnu(population, *population.Find(1, 1));
  EXPECT_EQ(trace.hook_calls, before);
}

}  // namespace
}  // namespace olt_host_test
