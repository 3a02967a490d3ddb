// Explanations against what the library does: for every ONU of the shipped population, of
// random odd networks and of a large one, the same road, winner, types; and every verdict
// on a profile is the library's own.
#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "host_files.h"
#include "onu_ability_common_reg_extern_func.h"
#include "random_network.h"
#include "recognition/explanation.h"
#include "state/library_state.h"
#include "whole_comparison.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::ConfirmationResult;
using olt_host::Explainer;
using olt_host::Explanation;
using olt_host::LibraryState;
using olt_host::OnuReport;
using olt_host::Population;
using olt_host::ProfileFate;
using olt_host::ProfileOrigins;
using olt_host::ProfileVerdict;
using olt_host::Recognition;

class Silent : public olt_host::ConfirmationObserver {
 public:
  void OnProfile(unsigned int /*stage*/, const ConfirmOnuType& /*profile*/) override {}
  void OnRealType(std::uint16_t /*real_type*/) override {}
  void OnReportType(std::uint16_t /*report_type*/) override {}
};

// What the library itself leaves of an ONU, to see which profile it took.
ConfirmOnuType Performed(const Population& population, const OnuReport& report) {
  Silent silent;
  const olt_host::ScopedHookContext context(population, silent);
  ConfirmOnuType onu(report.place, report.onu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  return onu;
}

std::optional<ProfileVerdict> WinnerOf(const Explanation& explanation) {
  return explanation.winner ? std::optional(explanation.profiles.at(*explanation.winner))
                            : std::nullopt;
}

void ExpectSameWinner(const std::optional<ProfileVerdict>& winner, Recognition how,
                      const ConfirmOnuType& performed) {
  ASSERT_EQ(winner.has_value(), how != Recognition::kNone);
  if (!winner) return;
  EXPECT_EQ(winner->fate, ProfileFate::kWon);
  EXPECT_EQ(winner->id, performed._id);
  EXPECT_EQ(winner->source, static_cast<unsigned int>(performed._profile_source));
}

// What the steps say about the translation must lead to what the library made of it.
void ExpectStepsLeadToOutcome(const Explanation& explanation) {
  const olt_host::TypeTranslation& steps = explanation.translation;
  const bool replaced = steps.common != olt_host::CommonType::kNone;
  EXPECT_EQ(steps.after, replaced ? steps.common_type : steps.before);
}

// Every profile has one of the three fates, in one order: lost, won, never asked.
void ExpectFatesInOrder(const Explanation& explanation) {
  for (std::size_t i = 0; i < explanation.profiles.size(); ++i) {
    const ProfileVerdict& verdict = explanation.profiles[i];
    EXPECT_EQ(verdict.turn, i + 1);
    EXPECT_EQ(verdict.fate == ProfileFate::kWon, explanation.winner == i);
    EXPECT_EQ(verdict.fate == ProfileFate::kLost,
              explanation.compared && (!explanation.winner || i < *explanation.winner));
    EXPECT_FALSE(verdict.fate == ProfileFate::kLost && verdict.fits);
  }
}

void ExpectAgreement(const Explanation& explanation, const ConfirmationResult& confirmed) {
  EXPECT_EQ(explanation.how, confirmed.how);
  EXPECT_EQ(explanation.real_type, confirmed.real_type);
  EXPECT_EQ(explanation.type_name, confirmed.type_name);
  EXPECT_EQ(explanation.translation.Translated(), confirmed.translated);
  EXPECT_EQ(explanation.report_type, confirmed.report_type);
  ExpectStepsLeadToOutcome(explanation);
}

// The report up to the ability, with it or without.
OnuAbilityProfile CutAt(const OnuAbilityProfile& report, std::uint16_t code, bool with) {
  OnuAbilityProfile cut = report;
  for (const auto& ability : report._common_ability) {
    if (ability.first > code || (ability.first == code && !with)) {
      cut._common_ability.erase(ability.first);
    }
  }
  return cut;
}

// The ability that is named decides: what stands before it fits, it does not.
void ExpectDeciderDecides(const OnuAbilityProfile& profile, const OnuAbilityProfile& report,
                          const ProfileVerdict& verdict) {
  EXPECT_EQ(verdict.fits, Fits(profile, report));
  EXPECT_EQ(verdict.fits, !verdict.tally.decider.has_value());
  EXPECT_EQ(verdict.tally.against == 0, verdict.fits);
  if (!verdict.tally.decider) return;
  const std::uint16_t code = verdict.tally.decider->code;
  EXPECT_TRUE(Fits(profile, CutAt(report, code, false))) << code;
  EXPECT_FALSE(Fits(profile, CutAt(report, code, true))) << code;
  EXPECT_EQ(profile._common_ability.count(code) != 0 ||
                code == OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(),
            verdict.tally.decider->held.has_value());
}

void ExpectDecidersDecide(const Explanation& explanation, const LibraryState& library,
                          const Population& population, const OnuReport& report) {
  const OnuAbilityProfile compared = olt_host::Gather(population, report).compared;
  const auto& profiles = library.match_profiles;
  ASSERT_EQ(explanation.profiles.size(), profiles.size());
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    ExpectDeciderDecides(profiles[profiles.size() - 1 - i], compared, explanation.profiles[i]);
  }
}

class ExplanationAgreement : public testing::Test {
 protected:
  ExplanationAgreement() {
    olt_host::RegisterHooks();
    // The library says a line at every oddity.
    onu_ability_set_log_level_mask(0);
  }

  CleanLibrary _library;
};

TEST_F(ExplanationAgreement, OnEveryOnuOfTheShippedPopulation) {
  const std::string data = OLT_HOST_SHIPPED_DATA;
  const olt_host::LoadedCatalogue loaded =
      olt_host::ReadCatalogueFiles({{data + "/catalogue.yaml"}, {}, false});
  OnuAbilityRegExternFunc::GetInstance()->SetSfuCommonType(loaded.catalogue.sfu_common_type);
  OnuAbilityRegExternFunc::GetInstance()->SetHguCommonType(loaded.catalogue.hgu_common_type);
  olt_host::LoadCatalogue(loaded.catalogue);
  const Population population(olt_host::ReadReports(data + "/reports.yaml", loaded.catalogue));
  const ProfileOrigins origins(loaded.catalogue);
  ASSERT_EQ(population.Onus().size(), 602U);
  for (const OnuReport& report : population.Onus()) {
    SCOPED_TRACE(ToText(report.position));
    const LibraryState before = CaptureLibrary();
    const Explanation explanation = Explainer(origins).Explain(population, report);
    ASSERT_TRUE(SameState(CaptureLibrary(), before));
    ExpectFatesInOrder(explanation);
    ExpectDecidersDecide(explanation, before, population, report);
    ExpectAgreement(explanation, ConfirmOnu(population, report));
    ExpectSameWinner(WinnerOf(explanation), explanation.how, Performed(population, report));
    if (explanation.winner) {
      EXPECT_EQ(explanation.origin.kind, olt_host::OriginKind::kCatalogue);
      EXPECT_GT(explanation.origin.position.line, 0U);
      EXPECT_FALSE(explanation.origin.changed);
    }
    if (HasFailure()) return;
  }
}

class RandomAgreement : public ExplanationAgreement,
                        public testing::WithParamInterface<std::uint32_t> {};

TEST_P(RandomAgreement, OnOddNetworks) {
  constexpr std::uint32_t kNetworks = AQuarterWhereSlow(60);
  std::map<Recognition, unsigned int> roads;
  const olt_host::Catalogue no_catalogue;
  const ProfileOrigins origins(no_catalogue);
  for (std::uint32_t seed = GetParam(); seed < GetParam() + kNetworks; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomNetwork random(seed);
    InstallLibrary(random.Library(1 + seed % 40));
    const Population population(random.Population(30));
    for (const OnuReport& report : population.Onus()) {
      SCOPED_TRACE("ONU " + std::to_string(report.onu));
      const LibraryState before = CaptureLibrary();
      const Explanation explanation = Explainer(origins).Explain(population, report);
      ASSERT_TRUE(SameState(CaptureLibrary(), before));
      ExpectFatesInOrder(explanation);
      ExpectDecidersDecide(explanation, before, population, report);
      InstallLibrary(before);
      ExpectAgreement(explanation, ConfirmOnu(population, report));
      InstallLibrary(before);
      ExpectSameWinner(WinnerOf(explanation), explanation.how, Performed(population, report));
      if (HasFailure()) return;
      ++roads[explanation.how];
    }
  }
  for (const auto& [how, onus] : roads) EXPECT_GT(onus, AQuarterWhereSlow(100)) << ToText(how);
  EXPECT_EQ(roads.size(), 3U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomAgreement,
                         testing::Values(1U, 1001U, 2001U, 3001U, 4001U, 5001U));

// Without the verdicts on two thousand profiles.
struct Kept {
  Explanation explanation;
  std::optional<ProfileVerdict> winner;
};

// One explainer for many ONUs, as for a whole population: an eighth of it a test.
class LargeAgreement : public RandomAgreement {};

TEST_P(LargeAgreement, OnEightThousandOnusAndTwoThousandPatterns) {
  constexpr std::uint32_t kSlices = kIsSlow ? 64 : 8;  // of which eight are looked at
  constexpr std::size_t kOnus = 8192;
  RandomNetwork random(77);
  InstallLibrary(random.Library(2000, true));
  const Population population(random.Population(kOnus));
  const olt_host::Catalogue no_catalogue;
  const ProfileOrigins origins(no_catalogue);
  const LibraryState before = CaptureLibrary();
  Explainer explainer(origins);
  std::vector<Kept> kept;
  std::map<Recognition, unsigned int> roads;
  for (std::size_t i = GetParam(); i < kOnus; i += kSlices) {
    Explanation explanation = explainer.Explain(population, population.Onus()[i]);
    ExpectFatesInOrder(explanation);
    const auto winner = WinnerOf(explanation);
    explanation.profiles.clear();
    kept.push_back({std::move(explanation), winner});
    if (HasFailure()) return;
    ++roads[kept.back().explanation.how];
  }
  for (const auto& [how, onus] : roads) EXPECT_GT(onus, 10U) << ToText(how);
  EXPECT_EQ(roads.size(), 3U);
  ASSERT_TRUE(SameState(CaptureLibrary(), before));
  for (const auto& [explanation, winner] : kept) {
    const OnuReport& report = explanation.report;
    SCOPED_TRACE("ONU " + std::to_string(report.place) + "/" + std::to_string(report.onu));
    ExpectAgreement(explanation, ConfirmOnu(population, report));
    ExpectSameWinner(winner, explanation.how, Performed(population, report));
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Slices, LargeAgreement, testing::Range(0U, 8U));

}  // namespace
}  // namespace olt_host_test
