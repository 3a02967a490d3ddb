// The difference of two libraries over a population, against counting it ONU by ONU, and
// the time that it takes.
#include "recognition/population_difference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <iostream>
#include <set>

#include "confirmation/confirmer.h"
#include "host_files.h"
#include "large_network.h"
#include "platform/log_sink.h"
#include "random_network.h"
#include "recognition/ability_value.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::ChangeGroup;
using olt_host::ConfirmationResult;
using olt_host::LibraryState;
using olt_host::Luck;
using olt_host::OnuChange;
using olt_host::PatternStanding;
using olt_host::PopulationDifference;
using olt_host::PopulationOutcome;
using olt_host::Populations;

// One library after the other, as the program does it.
struct Asked {
  PopulationOutcome before;
  PopulationOutcome after;
  PopulationDifference difference;
};

std::size_t IndexOf(const PopulationOutcome& outcome, const olt_host::OnuAddress& onu) {
  const auto found = std::find_if(
      outcome.onus.begin(), outcome.onus.end(), [&onu](const olt_host::OnuOutcome& other) {
        return onu.file == other.population && onu.place == other.place && onu.onu == other.onu;
      });
  return static_cast<std::size_t>(found - outcome.onus.begin());
}

Asked Ask(const LibraryState& older, const LibraryState& newer, const Populations& populations) {
  Asked asked;
  olt_host::InstallLibrary(older);
  asked.before = olt_host::OutcomeOf(populations);
  olt_host::InstallLibrary(newer);
  asked.after = olt_host::OutcomeOf(populations);
  asked.difference = olt_host::Compare(asked.before, asked.after);
  olt_host::AskAfter(asked.difference, olt_host::ExamplesOf(populations));
  olt_host::InstallLibrary(older);
  olt_host::AskBefore(asked.difference, olt_host::ExamplesOf(populations));
  return asked;
}

// The same by confirming every ONU and comparing every pattern.
struct Counted {
  std::vector<ConfirmationResult> results;
  std::size_t by_luck = 0;
};

Counted CountOneByOne(const LibraryState& library, const olt_host::Population& population) {
  olt_host::InstallLibrary(library);
  Counted counted;
  for (const olt_host::OnuReport& onu : population.Onus()) {
    counted.results.push_back(olt_host::ConfirmOnu(population, onu));
    if (counted.results.back().how == olt_host::Recognition::kType) continue;
    const OnuAbilityProfile report = olt_host::GatherForComparison(population, onu);
    std::size_t fitting = 0;
    for (const OnuAbilityProfile& pattern : library.match_profiles) {
      fitting += Fits(pattern, report) ? 1 : 0;
    }
    counted.by_luck += fitting >= 2 ? 1 : 0;
  }
  return counted;
}

using Types = std::pair<std::optional<std::uint16_t>, std::optional<std::uint16_t>>;

void ExpectSame(const Asked& asked, const Counted& before, const Counted& after) {
  const PopulationDifference& difference = asked.difference;
  std::map<Types, std::size_t> changes;
  std::size_t report_types = 0;
  for (std::size_t i = 0; i < before.results.size(); ++i) {
    const Types types{before.results[i].real_type, after.results[i].real_type};
    if (types.first != types.second) {
      ++changes[types];
    } else if (before.results[i].report_type != after.results[i].report_type) {
      ++report_types;
    }
  }
  std::map<Types, std::size_t> told;
  for (const ChangeGroup& group : difference.groups) {
    const Types types{group.before.real_type, group.after.real_type};
    if (types.first != types.second) {
      EXPECT_TRUE(told.emplace(types, group.onus).second) << "two groups of the same change";
    }
    ASSERT_FALSE(group.examples.empty());
    for (const olt_host::OnuAddress& onu : group.examples) {
      const std::size_t example = IndexOf(asked.before, onu);
      ASSERT_LT(example, before.results.size());
      EXPECT_EQ(before.results[example].real_type, types.first);
      EXPECT_EQ(after.results[example].real_type, types.second);
    }
  }
  EXPECT_EQ(told, changes);
  EXPECT_EQ(difference.CountOf(OnuChange::kReportType), report_types);
  EXPECT_EQ(difference.luck_before.onus, before.by_luck);
  EXPECT_EQ(difference.luck_after.onus, after.by_luck);
}

std::size_t SumOf(const Luck& luck) {
  std::size_t sum = 0;
  for (const olt_host::LuckGroup& group : luck.groups) sum += group.onus;
  return sum;
}

class PopulationDifferenceTest : public testing::Test {
 protected:
  PopulationDifferenceTest() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
  }

  CleanLibrary _library;
};

TEST_F(PopulationDifferenceTest, IsWhatCountingOneByOneGives) {
  std::size_t changed = 0;
  for (std::uint32_t seed = 1; seed <= AQuarterWhereSlow(60); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    const LibraryState older = network.Library(30, true);
    LibraryState newer = older;
    // Some patterns of another library in front of, and behind, those of this one.
    const LibraryState other = network.Library(8, true);
    newer.match_profiles.clear();
    for (std::size_t i = 0; i < older.match_profiles.size(); ++i) {
      if (i % 9 != seed % 9) newer.match_profiles.push_back(older.match_profiles[i]);
      if (i % 8 == 0) newer.match_profiles.push_back(other.match_profiles[i / 8]);
    }
    newer.hgu_common_type = 4711;
    const Populations populations = OnePopulation(network.Population(120));
    const Asked asked = Ask(older, newer, populations);
    ExpectSame(asked, CountOneByOne(older, *populations[0]), CountOneByOne(newer, *populations[0]));
    EXPECT_EQ(SumOf(asked.difference.luck_after), asked.difference.luck_after.onus);
    changed += asked.difference.Changed();
    if (HasFailure()) return;
  }
  EXPECT_GT(changed, AQuarterWhereSlow(100));
}

TEST_F(PopulationDifferenceTest, OfALibraryAndItselfIsNone) {
  RandomNetwork network(5);
  const LibraryState library = network.Library(30, true);
  const Asked asked = Ask(library, library, OnePopulation(network.Population(100)));
  EXPECT_EQ(asked.difference.Changed(), 0U);
  EXPECT_TRUE(asked.difference.groups.empty());
  EXPECT_EQ(asked.difference.luck_before.onus, asked.difference.luck_after.onus);
}

// Whoever takes an ONU is said to fit on the other side only if the library says so.
TEST_F(PopulationDifferenceTest, StandingsAreTheLibrarysVerdicts) {
  LargeNetwork network(11);
  const LibraryState older = network.Library(200);
  const LibraryState newer = network.Changed(older);
  const Populations populations = OnePopulation(network.Reports(older, 600));
  const Asked asked = Ask(older, newer, populations);
  std::set<PatternStanding::Kind> seen;
  olt_host::InstallLibrary(newer);
  for (const ChangeGroup& group : asked.difference.groups) {
    if (!group.before.real_type) continue;
    const OnuAbilityProfile report = olt_host::GatherForComparison(
        *populations[0], populations[0]->Onus()[IndexOf(asked.before, group.examples.front())]);
    bool is_there = false;
    bool fits = false;
    for (const OnuAbilityProfile& pattern : newer.match_profiles) {
      if (olt_host::NameOf(pattern).key != group.before.winner.key) continue;
      is_there = true;
      fits = fits || Fits(pattern, report);
    }
    EXPECT_EQ(group.loser_after.kind != PatternStanding::kAbsent, is_there);
    EXPECT_EQ(group.loser_after.kind == PatternStanding::kFits, fits);
    seen.insert(group.loser_after.kind);
  }
  EXPECT_EQ(seen.size(), 3U);
}

TEST_F(PopulationDifferenceTest, StandingNamesACodeThatIsNotRegisteredByItsNumber) {
  OnuAbilityProfile pattern;
  pattern.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  OnuAbilityProfile report(pattern);
  pattern._common_ability[47] = olt_host::Number(4);
  report._common_ability[47] = olt_host::Number(1);
  OnuAbilityCodeInfo::GetInstance()->Restore({});
  const PatternStanding standing = olt_host::StandingOf(pattern, report);
  EXPECT_EQ(standing.kind, PatternStanding::kStopped);
  EXPECT_EQ(standing.ability, "code 47");
}

TEST_F(PopulationDifferenceTest, OfALargeNetwork) {
  LargeNetwork network(3);
  const LibraryState older = network.Library(2000);
  const LibraryState newer = network.Changed(older);
  const Populations populations = OnePopulation(network.Reports(older, 8192));
  olt_host::InstallLibrary(older);
  onu_ability_set_log_level_mask(olt_host::kDefaultLogMask);
  // How long it takes is measured, not tested: machines are shared.
  const std::clock_t start = std::clock();
  const Asked asked = Ask(older, newer, populations);
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  std::cout << "8192 ONUs under two libraries of 2000 patterns: " << seconds << " s, "
            << asked.difference.Changed() << " change, " << asked.difference.luck_after.onus
            << " by luck\n";
  EXPECT_GT(asked.difference.Changed(), 100U);
  EXPECT_GT(asked.difference.luck_after.onus, 100U);
}

}  // namespace
}  // namespace olt_host_test
