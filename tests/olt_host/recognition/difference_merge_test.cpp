// Differences of parts of a population against that of the whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "confirmation/hooks.h"
#include "host_files.h"
#include "random_network.h"
#include "recognition/difference_counter.h"
#include "recognition/difference_record.h"
#include "recognition/difference_text.h"

namespace olt_host_test {
namespace {

using olt_host::DifferenceCounter;
using olt_host::LibraryState;
using olt_host::OnuAddress;
using olt_host::PopulationDifference;
using olt_host::PopulationOutcome;
using olt_host::Populations;

// ONUs of several OLTs under two libraries, each with a line of its own.
struct Network {
  Populations populations;
  PopulationOutcome before;
  PopulationOutcome after;
};

constexpr std::size_t kOlts = 4;

void CountOne(const Network& network, std::size_t i, DifferenceCounter& counter) {
  const olt_host::OnuOutcome& onu = network.before.onus[i];
  const std::string olt = "olt-" + std::to_string(onu.population);
  counter.Count({olt, 0, onu.place, onu.onu}, onu, network.after.onus[i],
                {network.before.type_names, network.after.type_names},
                "line " + std::to_string(i) + " \xFF\xC3\x7F\x80");
}

PopulationDifference DifferenceOf(const Network& network, const std::vector<std::size_t>& onus) {
  DifferenceCounter counter;
  for (const std::size_t i : onus) CountOne(network, i, counter);
  return counter.Difference();
}

// Adds the difference of other ONUs between the same two libraries.
void Merge(PopulationDifference& into, const PopulationDifference& other) {
  DifferenceCounter counter;
  counter.Add(into);
  counter.Add(other);
  into = counter.Difference();
}

std::string TextOf(const PopulationDifference& difference) {
  const std::vector<std::string> no_files;
  return olt_host::RecordOf(difference).dump(1) + olt_host::DifferenceText({difference, no_files});
}

class DifferenceMerge : public testing::Test {
 protected:
  DifferenceMerge() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
  }

  static Network MakeNetwork(std::uint32_t seed) {
    RandomNetwork random(seed);
    const LibraryState older = random.Library(30, true);
    LibraryState newer = older;
    newer.match_profiles.erase(newer.match_profiles.begin() + 3, newer.match_profiles.begin() + 9);
    std::rotate(newer.match_profiles.begin(), newer.match_profiles.begin() + 11,
                newer.match_profiles.end());
    newer.hgu_common_type = 4711;
    Network network;
    for (std::size_t olt = 0; olt < kOlts; ++olt) {
      network.populations.push_back(
          std::make_shared<const olt_host::Population>(random.Population(60)));
    }
    olt_host::InstallLibrary(older);
    network.before = olt_host::OutcomeOf(network.populations);
    olt_host::InstallLibrary(newer);
    network.after = olt_host::OutcomeOf(network.populations);
    return network;
  }

  CleanLibrary _library;
};

TEST_F(DifferenceMerge, OfPartsInAnyOrderIsThatOfTheWhole) {
  std::size_t groups = 0;
  std::size_t lucky = 0;
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Network network = MakeNetwork(seed);
    std::vector<std::size_t> onus;
    for (std::size_t i = 0; i < network.before.onus.size(); ++i) onus.push_back(i);
    const PopulationDifference whole = DifferenceOf(network, onus);
    std::shuffle(onus.begin(), onus.end(), random);
    PopulationDifference sum;
    for (std::size_t from = 0; from < onus.size();) {
      const std::size_t count = std::min<std::size_t>(1 + random() % 60, onus.size() - from);
      const auto first = onus.begin() + static_cast<std::ptrdiff_t>(from);
      PopulationDifference part =
          DifferenceOf(network, {first, first + static_cast<std::ptrdiff_t>(count)});
      if (random() % 2 == 0) std::swap(part, sum);
      // Half of them by way of their records.
      const bool is_read = random() % 2 == 0;
      Merge(sum, is_read ? olt_host::DifferenceOf(olt_host::RecordOf(part)) : part);
      from += count;
    }
    ASSERT_EQ(TextOf(sum), TextOf(whole));
    groups += whole.groups.size();
    lucky += whole.luck_after.groups.size();
  }
  EXPECT_GT(groups, 100U);
  EXPECT_GT(lucky, 100U);
}

TEST_F(DifferenceMerge, KeepsTheSmallestExamplesAndTheLineOfTheFirst) {
  const Network network = MakeNetwork(2);
  std::vector<std::size_t> onus;
  for (std::size_t i = network.before.onus.size(); i-- > 0;) onus.push_back(i);
  const PopulationDifference difference = DifferenceOf(network, onus);
  ASSERT_FALSE(difference.groups.empty());
  for (const olt_host::ChangeGroup& group : difference.groups) {
    EXPECT_EQ(group.examples.size(), std::min(group.onus, olt_host::kMostExamples));
    const auto order = [](const OnuAddress& onu) { return std::tie(onu.olt, onu.place, onu.onu); };
    EXPECT_TRUE(std::is_sorted(
        group.examples.begin(), group.examples.end(),
        [&order](const auto& one, const auto& other) { return order(one) < order(other); }));
    const auto& first = group.examples.front();
    const std::size_t line = std::stoul(group.report.substr(5));
    EXPECT_EQ("olt-" + std::to_string(network.before.onus[line].population), first.olt);
    EXPECT_EQ(network.before.onus[line].place, first.place);
    EXPECT_EQ(network.before.onus[line].onu, first.onu);
  }
}

// Two lines of a network may name one ONU.
TEST_F(DifferenceMerge, DoesNotDependOnTheOrderOfLinesAboutOneOnu) {
  const olt_host::NamesByKey names;
  const auto outcome = [](std::uint32_t key) {
    olt_host::OnuOutcome onu;
    onu.how = olt_host::Recognition::kAbilities;
    onu.real_type = std::uint16_t{7};
    onu.winner.key = key;
    return onu;
  };
  const OnuAddress address{"olt-1", 0, 1, 2};
  DifferenceCounter forwards;
  forwards.Count(address, outcome(1), {}, {names, names}, "a");
  forwards.Count(address, outcome(1), {}, {names, names}, "b");
  forwards.Count(address, outcome(2), {}, {names, names}, "0");
  DifferenceCounter backwards;
  backwards.Count(address, outcome(2), {}, {names, names}, "0");
  backwards.Count(address, outcome(1), {}, {names, names}, "b");
  backwards.Count(address, outcome(1), {}, {names, names}, "a");
  const PopulationDifference difference = forwards.Difference();
  EXPECT_EQ(TextOf(difference), TextOf(backwards.Difference()));
  ASSERT_EQ(difference.groups.size(), 1U);
  EXPECT_EQ(difference.groups[0].onus, 3U);
  EXPECT_EQ(difference.groups[0].report, "a");
  EXPECT_EQ(difference.groups[0].before.winner.key, 1U);
}

TEST_F(DifferenceMerge, RefusesWhatIsNoRecord) {
  using Json = nlohmann::ordered_json;
  EXPECT_THROW(olt_host::DifferenceOf(Json::object()), Json::exception);
  const Network network = MakeNetwork(3);
  Json record = olt_host::RecordOf(DifferenceOf(network, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
  ASSERT_FALSE(record["groups"].empty());
  Json changed = record;
  changed["groups"][0]["change"] = "something";
  EXPECT_THROW(olt_host::DifferenceOf(changed), std::runtime_error);
  changed = record;
  changed["groups"][0]["examples"] = Json::array();
  EXPECT_THROW(olt_host::DifferenceOf(changed), std::runtime_error);
}

}  // namespace
}  // namespace olt_host_test
