// What ONUs came to, ambiguities included, against the library itself.
#include "recognition/met_expectations.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "confirmation/confirmer.h"
#include "host_files.h"
#include "random_network.h"
#include "recognition/population_outcome.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::Expectation;
using olt_host::OnuReport;
using olt_host::Population;

// One comparison a match profile, newest first.
std::vector<std::uint32_t> KeysThatFit(const Population& population, const OnuReport& report) {
  const OnuAbilityProfile onu = olt_host::GatherForComparison(population, report);
  std::vector<OnuAbilityProfile> profiles = olt_host::MatchProfiles();
  std::reverse(profiles.begin(), profiles.end());
  std::vector<std::uint32_t> keys;
  for (const OnuAbilityProfile& profile : profiles) {
    if (Fits(profile, onu)) keys.push_back(olt_host::NameOf(profile).key);
  }
  return keys;
}

TEST(MetExpectations, AreWhatTheLibraryConfirmsAndFits) {
  olt_host::RegisterHooks();
  onu_ability_set_log_level_mask(0);
  std::size_t ambiguous = 0;
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(seed);
    const CleanLibrary library;
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(12, true));
    const auto population = std::make_shared<const Population>(network.Population(40));
    const std::vector<Expectation> met = olt_host::MetExpectations(population);
    ASSERT_EQ(met.size(), population->Onus().size());
    for (std::size_t i = 0; i < met.size(); ++i) {
      const OnuReport& report = population->Onus()[i];
      const olt_host::ConfirmationResult result = olt_host::ConfirmOnu(*population, report);
      EXPECT_EQ(met[i].real_type, result.real_type);
      EXPECT_EQ(met[i].how, result.how);
      EXPECT_EQ(met[i].report_type, result.report_type);
      std::vector<std::uint32_t> fitting;
      if (result.how == olt_host::Recognition::kAbilities) {
        fitting = KeysThatFit(*population, report);
      }
      if (fitting.size() < 2) fitting.clear();
      EXPECT_EQ(met[i].ambiguous, fitting);
      ambiguous += fitting.empty() ? 0 : 1;
    }
  }
  EXPECT_GT(ambiguous, 20U);
}

TEST(MetExpectations, WhatIsLeftOpenMayBeAnything) {
  Expectation met;
  met.real_type = 5;
  met.how = olt_host::Recognition::kAbilities;
  met.report_type = 6;
  Expectation stated;
  stated.real_type = 5;
  EXPECT_TRUE(olt_host::TypesAsStated(stated, met));
  stated.report_type = 7;
  EXPECT_FALSE(olt_host::TypesAsStated(stated, met));
  stated.report_type = 6;
  stated.how = olt_host::Recognition::kType;
  EXPECT_FALSE(olt_host::TypesAsStated(stated, met));
  stated.how.reset();
  stated.real_type.reset();
  EXPECT_FALSE(olt_host::TypesAsStated(stated, met));
}

TEST(MetExpectations, AmbiguityHasNoOrderButCountsEachProfile) {
  Expectation met;
  met.ambiguous = {3, 1, 1};
  Expectation stated;
  EXPECT_FALSE(olt_host::AmbiguityAsStated(stated, met));
  stated.ambiguous = {1, 3, 1};
  EXPECT_TRUE(olt_host::AmbiguityAsStated(stated, met));
  stated.ambiguous = {1, 3, 3};
  EXPECT_FALSE(olt_host::AmbiguityAsStated(stated, met));
  stated.ambiguous = {1, 3};
  EXPECT_FALSE(olt_host::AmbiguityAsStated(stated, met));
}

}  // namespace
}  // namespace olt_host_test
