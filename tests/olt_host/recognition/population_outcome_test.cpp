// What is said of a population against what the library does with each ONU.
#include "recognition/population_outcome.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "host_files.h"
#include "large_network.h"
#include "random_network.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::LibraryState;
using olt_host::OnuOutcome;
using olt_host::PopulationOutcome;
using olt_host::Populations;

// The match profile that the library itself leaves of an ONU.
class LastProfile : public olt_host::ConfirmationObserver {
 public:
  void OnProfile(unsigned int stage, const ConfirmOnuType& onu) override {
    if (stage != 0) taken = olt_host::NameOf(onu);
  }
  void OnRealType(std::uint16_t /*real_type*/) override {}
  void OnReportType(std::uint16_t /*report_type*/) override {}

  olt_host::PatternName taken;
};

olt_host::PatternName TakenBy(const olt_host::Population& population,
                              const olt_host::OnuReport& report) {
  LastProfile last;
  const olt_host::ScopedHookContext context(population, last);
  ConfirmOnuType(report.place, report.onu).Perform();
  return last.taken;
}

class PopulationOutcomeTest : public testing::Test {
 protected:
  PopulationOutcomeTest() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
  }

  // The outcomes of all ONUs and, from the same beginning, their confirmations.
  static void ExpectSameAsConfirmation(const Populations& populations) {
    const LibraryState before = olt_host::CaptureLibrary();
    const PopulationOutcome outcome = olt_host::OutcomeOf(populations);
    olt_host::InstallLibrary(before);
    std::size_t next = 0;
    for (const auto& population : populations) {
      for (const olt_host::OnuReport& report : population->Onus()) {
        ASSERT_LT(next, outcome.onus.size());
        const ConfirmationResult result = olt_host::ConfirmOnu(*population, report);
        ExpectSame(outcome, outcome.onus[next++], result);
        if (result.how != olt_host::Recognition::kNone) {
          EXPECT_EQ(outcome.onus[next - 1].winner, TakenBy(*population, report));
        }
        if (HasFailure()) return;
      }
    }
    EXPECT_EQ(next, outcome.onus.size());
  }

  static void ExpectSame(const PopulationOutcome& outcome, const OnuOutcome& onu,
                         const ConfirmationResult& result) {
    SCOPED_TRACE("ONU " + std::to_string(result.place) + "/" + std::to_string(result.onu));
    EXPECT_EQ(onu.place, result.place);
    EXPECT_EQ(onu.onu, result.onu);
    EXPECT_EQ(onu.how, result.how);
    EXPECT_EQ(onu.real_type, result.real_type);
    EXPECT_EQ(onu.report_type, result.report_type);
    const bool has_name = OnuAbilityCodeInfo::GetInstance()->IsExist(1083) != 0;
    if (!onu.real_type || !has_name) return;
    const auto name = outcome.type_names.find(onu.winner.key);
    EXPECT_EQ(name == outcome.type_names.end() ? "" : name->second, result.type_name);
  }

  CleanLibrary _library;
};

TEST_F(PopulationOutcomeTest, IsThatOfTheConfirmationForTheShippedPopulation) {
  const std::string data = OLT_HOST_SHIPPED_DATA;
  olt_host::CatalogueRequest request;
  request.shipped = {data + "/catalogue.yaml"};
  const olt_host::Catalogue catalogue = olt_host::ReadCatalogueFiles(request).catalogue;
  olt_host::LoadCatalogue(catalogue);
  const Populations populations =
      OnePopulation(olt_host::ReadReports(data + "/reports.yaml", catalogue));
  ASSERT_GT(populations.front()->Onus().size(), 500U);
  ExpectSameAsConfirmation(populations);
}

TEST_F(PopulationOutcomeTest, IsThatOfTheConfirmationForOddRandomNetworks) {
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(40, true));
    ExpectSameAsConfirmation({OnePopulation(network.Population(80)).front(),
                              OnePopulation(network.Population(20)).front()});
    if (HasFailure()) return;
  }
}

TEST_F(PopulationOutcomeTest, IsThatOfTheConfirmationForALargeNetwork) {
  LargeNetwork network(3);
  const LibraryState library = network.Library(2000);
  olt_host::InstallLibrary(library);
  ExpectSameAsConfirmation(OnePopulation(network.Reports(library, 8192)));
}

TEST_F(PopulationOutcomeTest, CountsThePatternsThatFit) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork network(seed);
    olt_host::InstallLibrary(network.Library(40, true));
    const Populations populations = OnePopulation(network.Population(80));
    const PopulationOutcome outcome = olt_host::OutcomeOf(populations);
    const std::vector<OnuAbilityProfile> patterns = olt_host::MatchProfiles();
    for (std::size_t i = 0; i < outcome.onus.size(); ++i) {
      const OnuOutcome& onu = outcome.onus[i];
      if (onu.how == olt_host::Recognition::kType) {
        EXPECT_EQ(onu.fitting, 0U);
        continue;
      }
      const OnuAbilityProfile report =
          olt_host::GatherForComparison(*populations[0], populations[0]->Onus()[i]);
      std::vector<olt_host::PatternName> fitting;
      for (auto pattern = patterns.rbegin(); pattern != patterns.rend(); ++pattern) {
        if (Fits(*pattern, report)) fitting.push_back(olt_host::NameOf(*pattern));
      }
      ASSERT_EQ(onu.fitting, fitting.size());
      EXPECT_EQ(onu.ByLuck(), fitting.size() >= 2);
      if (!fitting.empty()) {
        EXPECT_EQ(onu.winner, fitting[0]);
      }
      if (fitting.size() > 1) {
        EXPECT_EQ(onu.next, fitting[1]);
      }
    }
  }
}

}  // namespace
}  // namespace olt_host_test
