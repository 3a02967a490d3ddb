// Unknown ONUs and the profiles near them, against what the library does with each ONU.
#include "recognition/unknown_onus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <tuple>

#include "confirmation/confirmer.h"
#include "host_files.h"
#include "large_network.h"
#include "random_network.h"
#include "recognition/near_profiles.h"
#include "recognition/undisturbed_library.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::AlikeOnus;
using olt_host::LibraryState;
using olt_host::NearProfile;
using olt_host::OnuOutcome;
using olt_host::OnuReport;
using olt_host::Population;
using olt_host::Recognition;
using olt_host::UnknownOnus;

class UnknownOnusTest : public testing::Test {
 protected:
  UnknownOnusTest() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
  }

  // Each ONU is where its confirmation puts it, and nowhere else.
  static void ExpectSameAsConfirmation(const Population& population) {
    const LibraryState before = olt_host::CaptureLibrary();
    const UnknownOnus unknown = olt_host::FindUnknownOnus(population);
    EXPECT_TRUE(SameState(olt_host::CaptureLibrary(), before));
    const auto shared = std::make_shared<const Population>(population);
    const olt_host::PopulationOutcome outcome = olt_host::OutcomeOf({shared});
    olt_host::InstallLibrary(before);
    std::map<std::pair<unsigned int, unsigned int>, const AlikeOnus*> found;
    for (const auto* groups : {&unknown.groups, &unknown.safe}) {
      for (const AlikeOnus& group : *groups) {
        for (const OnuReport* onu : group.onus) found[{onu->place, onu->onu}] = &group;
      }
    }
    std::size_t unrecognised = 0;
    std::size_t by_luck = 0;
    for (const OnuOutcome& onu : outcome.onus) {
      SCOPED_TRACE(std::to_string(onu.place) + "/" + std::to_string(onu.onu));
      const auto at = found.find({onu.place, onu.onu});
      const bool is_compared = onu.how == Recognition::kNone || onu.fitting != 0;
      ASSERT_EQ(at != found.end(), is_compared);
      if (!is_compared) continue;
      EXPECT_EQ(at->second->fitting, onu.fitting);
      if (onu.fitting != 0) {
        EXPECT_EQ(at->second->winner, onu.winner);
      }
      unrecognised += onu.how == Recognition::kNone ? 1 : 0;
      by_luck += onu.ByLuck() ? 1 : 0;
    }
    EXPECT_EQ(unknown.unrecognised, unrecognised);
    EXPECT_EQ(unknown.by_luck, by_luck);
  }

  static std::size_t CountOf(const std::vector<olt_host::AbilityComparison>& comparisons,
                             olt_host::AbilityVerdict verdict) {
    return static_cast<std::size_t>(
        std::count_if(comparisons.begin(), comparisons.end(),
                      [verdict](const auto& one) { return one.verdict == verdict; }));
  }

  // By comparing the report with every profile, one after the other.
  static std::vector<std::size_t> NearestOneByOne(const OnuAbilityProfile& report) {
    const std::vector<OnuAbilityProfile> profiles = olt_host::MatchProfiles();
    std::vector<std::tuple<std::size_t, std::size_t, std::size_t>> distances;
    for (std::size_t i = 0; i < profiles.size(); ++i) {
      const auto comparisons = olt_host::CompareAbilities(profiles[i], report);
      distances.emplace_back(CountOf(comparisons, olt_host::AbilityVerdict::kDecidesAgainst),
                             1000 - CountOf(comparisons, olt_host::AbilityVerdict::kAgrees),
                             profiles.size() - i);
    }
    std::sort(distances.begin(), distances.end());
    std::vector<std::size_t> nearest;
    for (std::size_t i = 0; i < std::min<std::size_t>(3, distances.size()); ++i) {
      nearest.push_back(profiles.size() - std::get<2>(distances[i]));
    }
    return nearest;
  }
  static void ExpectNearest(const AlikeOnus& group, olt_host::NearProfiles& near_profiles) {
    const std::vector<OnuAbilityProfile> profiles = olt_host::MatchProfiles();
    const std::vector<std::size_t> expected = NearestOneByOne(group.report);
    const std::vector<NearProfile> nearest = near_profiles.Of(group.report, 3);
    ASSERT_EQ(nearest.size(), expected.size());
    for (std::size_t i = 0; i < nearest.size(); ++i) {
      const OnuAbilityProfile& profile = profiles[expected[i]];
      EXPECT_EQ(nearest[i].profile, olt_host::NameOf(profile));
      EXPECT_EQ(nearest[i].tally.against, nearest[i].against.size());
      EXPECT_EQ(nearest[i].tally.against == 0, Fits(profile, group.report));
      std::vector<std::uint16_t> against;
      for (const auto& comparison : olt_host::CompareAbilities(profile, group.report)) {
        if (comparison.verdict == olt_host::AbilityVerdict::kDecidesAgainst) {
          against.push_back(comparison.code);
        }
      }
      ASSERT_EQ(nearest[i].against.size(), against.size());
      for (std::size_t j = 0; j < against.size(); ++j) {
        EXPECT_EQ(nearest[i].against[j].code, against[j]);
      }
    }
  }

  CleanLibrary _library;
};

TEST_F(UnknownOnusTest, AreThoseThatTheLibraryDoesNotRecogniseOrOnlyByOrder) {
  std::size_t groups = 0;
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(seed % 2 == 0 ? 12 : 3, true));
    const Population population(network.Population(80));
    ExpectSameAsConfirmation(population);
    groups += olt_host::FindUnknownOnus(population).groups.size();
    if (HasFailure()) return;
  }
  EXPECT_GT(groups, 300U);
}

TEST_F(UnknownOnusTest, LeaveALibraryWithoutKeysAsItIs) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(12));
    const Population population(network.Population(40));
    const LibraryState before = olt_host::CaptureLibrary();
    {
      const olt_host::UndisturbedLibrary undisturbed;
      const UnknownOnus unknown = olt_host::FindUnknownOnus(population);
      olt_host::NearProfiles near_profiles;
      for (const AlikeOnus& group : unknown.groups) near_profiles.Of(group.report, 3);
    }
    EXPECT_TRUE(SameState(olt_host::CaptureLibrary(), before)) << seed;
  }
}

TEST_F(UnknownOnusTest, NearestProfilesAreThoseOfComparingAll) {
  std::size_t looked_at = 0;
  for (std::uint32_t seed = 1; seed <= 30; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(seed % 3 == 0 ? 2 : 15));
    const Population population(network.Population(40));
    const olt_host::UnknownOnus unknown = olt_host::FindUnknownOnus(population);
    olt_host::NearProfiles near_profiles;
    for (const AlikeOnus& group : unknown.groups) {
      ExpectNearest(group, near_profiles);
      ++looked_at;
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(looked_at, 100U);
}

TEST_F(UnknownOnusTest, UnrecognisedComeFirstThenTheLargest) {
  LargeNetwork network(3);
  const LibraryState library = network.Library(60);
  olt_host::InstallLibrary(library);
  olt_host::Reports reports = network.Reports(library, 200);
  const Population population(std::move(reports));
  const UnknownOnus unknown = olt_host::FindUnknownOnus(population);
  EXPECT_GT(unknown.unrecognised, 0U);
  EXPECT_GT(unknown.by_luck, 0U);
  for (std::size_t i = 1; i < unknown.groups.size(); ++i) {
    const AlikeOnus& before = unknown.groups[i - 1];
    const AlikeOnus& group = unknown.groups[i];
    EXPECT_LE(before.IsRecognised(), group.IsRecognised());
    if (before.IsRecognised() == group.IsRecognised()) {
      EXPECT_GE(before.onus.size(), group.onus.size());
    }
  }
}

}  // namespace
}  // namespace olt_host_test
