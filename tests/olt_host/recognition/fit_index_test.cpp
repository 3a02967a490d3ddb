// The fast way to the patterns that fit, and to the nearest one, against the library's comparison
// of each pattern as a whole.
#include "recognition/fit_index.h"

#include <gtest/gtest.h>

#include "confirmation/hooks.h"
#include "host_files.h"
#include "large_network.h"
#include "random_network.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::LibraryState;

std::vector<std::size_t> FittingOneByOne(const std::vector<OnuAbilityProfile>& patterns,
                                         const OnuAbilityProfile& report) {
  std::vector<std::size_t> fitting;
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    if (Fits(patterns[i], report)) fitting.push_back(i);
  }
  return fitting;
}

void ExpectNearestAsOneByOne(const std::vector<OnuAbilityProfile>& patterns,
                             const OnuAbilityProfile& report, olt_host::FitIndex& index) {
  const olt_host::ComparedReport compared(report);
  std::size_t nearest = 0;
  olt_host::AbilityTally of_nearest;
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    OnuAbilityProfile pattern = patterns[i];
    const olt_host::AbilityTally tally = compared.Tally(pattern);
    if (i > 0 && tally.against > of_nearest.against) continue;
    nearest = i;
    of_nearest = tally;
  }
  const auto found = index.NearestTo(report);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->position, nearest);
  EXPECT_EQ(found->against, of_nearest.against);
  EXPECT_EQ(found->first_code, of_nearest.decider ? of_nearest.decider->code : 0);
}

class FitIndexTest : public testing::Test {
 protected:
  FitIndexTest() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
  }

  static void ExpectSameAsOneByOne(const LibraryState& library, olt_host::Reports reports) {
    const olt_host::Population population(std::move(reports));
    olt_host::FitIndex index(library.match_profiles);
    std::size_t fitting_at_all = 0;
    for (const olt_host::OnuReport& onu : population.Onus()) {
      const OnuAbilityProfile report = olt_host::GatherForComparison(population, onu);
      const std::vector<std::size_t> fitting = index.Fitting(report);
      ASSERT_EQ(fitting, FittingOneByOne(library.match_profiles, report))
          << "ONU " << onu.place << "/" << int{onu.onu};
      fitting_at_all += fitting.size();
      ExpectNearestAsOneByOne(library.match_profiles, report, index);
      if (HasFailure()) return;
    }
    EXPECT_GT(fitting_at_all, 0U);
  }

  CleanLibrary _library;
};

TEST_F(FitIndexTest, AgreesWithTheComparisonOnOddRandomNetworks) {
  for (std::uint32_t seed = 1; seed <= AQuarterWhereSlow(40); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    const LibraryState library = network.Library(70);
    olt_host::InstallLibrary(library);
    ExpectSameAsOneByOne(library, network.Population(60));
    if (HasFatalFailure()) return;
  }
}

TEST_F(FitIndexTest, AgreesWhereThereAreMoreValuesThanAreAskedForAtOnce) {
  LargeNetwork network(7);
  const LibraryState library = network.Library(300);
  olt_host::InstallLibrary(library);
  ExpectSameAsOneByOne(library, network.Reports(library, 200));
}

TEST_F(FitIndexTest, TakesEveryPatternForAReportOfNothing) {
  LargeNetwork network(1);
  const LibraryState library = network.Library(130);
  olt_host::InstallLibrary(library);
  OnuAbilityProfile nothing;
  nothing.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
               ONU_ABILITY_MATCH_TYPE_PATTERN);
  EXPECT_EQ(olt_host::FitIndex(library.match_profiles).Fitting(nothing).size(), 130U);
  EXPECT_EQ(olt_host::FitIndex({}).Fitting(nothing), std::vector<std::size_t>());
  EXPECT_FALSE(olt_host::FitIndex({}).NearestTo(nothing));
}

// The library sets the unset entry before it compares: a pattern without a key never fits
// where the key is compared.
TEST_F(FitIndexTest, TakesNoPatternWithoutAKeyWhereTheKeyIsCompared) {
  LargeNetwork network(1);
  LibraryState library = network.Library(2);
  for (ONU_ABILITY_CODE_ATTR_INFO& code : library.codes) {
    if (code.ability_code == 1085) code.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = 1;
  }
  library.match_profiles[1].Clear();
  olt_host::InstallLibrary(library);
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
              ONU_ABILITY_MATCH_TYPE_PATTERN);
  report.UpdateInit(1085, 1000U);
  EXPECT_EQ(olt_host::FitIndex(library.match_profiles).Fitting(report),
            std::vector<std::size_t>{0});
}

// A million ONUs report names without end.
TEST_F(FitIndexTest, ForgetsReportedValuesBeforeTheyAreTooMany) {
  LargeNetwork network(5);
  const LibraryState library = network.Library(100);
  olt_host::InstallLibrary(library);
  olt_host::FitIndex index(library.match_profiles);
  constexpr std::size_t kMost = olt_host::FitIndex::kMostReported;
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
              ONU_ABILITY_MATCH_TYPE_PATTERN);
  for (std::size_t i = 0; i < 2 * kMost + 10; ++i) {
    report.UpdateInit(1083, (i % 3 == 0 ? "MODEL-" : "GARBAGE-") + std::to_string(i));
    const std::vector<std::size_t> fitting = index.Fitting(report);
    ASSERT_LE(index.Remembered(), kMost);
    if (i % 50 == 0) {
      EXPECT_EQ(fitting, FittingOneByOne(library.match_profiles, report));
    }
  }
  EXPECT_LT(index.Remembered(), kMost / 2) << "nothing was forgotten";
}

}  // namespace
}  // namespace olt_host_test
