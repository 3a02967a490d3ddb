// Confirmation of a small population: each way of being recognised, translation,
// and the comparison with what was expected.
#include <gtest/gtest.h>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "host_files.h"
#include "onu_ability_common_reg_extern_func.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::Recognition;

class Confirmation : public testing::Test {
 protected:
  Confirmation() {
    olt_host::RegisterHooks();
    _catalogue = olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"));
    OnuAbilityRegExternFunc::GetInstance()->SetSfuCommonType(_catalogue.sfu_common_type);
    OnuAbilityRegExternFunc::GetInstance()->SetHguCommonType(_catalogue.hgu_common_type);
    olt_host::LoadCatalogue(_catalogue);
  }

  // The result for an ONU at 1/1 with these entries, at an OLT with these
  // identify settings.
  ConfirmationResult Confirm(const std::string& entries, const std::string& settings = "{}") {
    const TemporaryDirectory directory;
    const std::string file =
        directory.Write("r.yaml", "identify: {default: " + settings +
                                      "}\nonus: [{place: 1, onu: 1, " + entries + "}]\n");
    const olt_host::Population population(olt_host::ReadReports(file, _catalogue));
    return olt_host::ConfirmOnu(population, population.Onus().front());
  }

  CleanLibrary _library;
  olt_host::Catalogue _catalogue;
};

TEST_F(Confirmation, ByReportedType) {
  const ConfirmationResult result = Confirm("reported_type: 1001, vendor_id: ACME");
  EXPECT_EQ(result.how, Recognition::kType);
  EXPECT_EQ(result.real_type, 1001);
  EXPECT_EQ(result.type_name, "SFU-1GE");
  EXPECT_EQ(result.vendor_id, "ACME");
  EXPECT_EQ(result.reported_type, 1001U);
  EXPECT_FALSE(result.translated);
  EXPECT_EQ(result.report_type, 1001);
  EXPECT_EQ(result.place, 1);
  EXPECT_EQ(result.onu, 1);
}

TEST_F(Confirmation, ByAbilities) {
  const ConfirmationResult result =
      Confirm("reported_type: 5555, vendor_id: ACME, abilities: {GE_PORTS: 1, FE_PORTS: 0}");
  EXPECT_EQ(result.how, Recognition::kAbilities);
  EXPECT_EQ(result.real_type, 1001);
  EXPECT_EQ(result.type_name, "SFU-1GE");
  EXPECT_EQ(result.reported_type, 5555U);
  // The pattern's report type is not a translation.
  EXPECT_FALSE(result.translated);
  EXPECT_EQ(result.report_type, 1001);
}

TEST_F(Confirmation, ByAbilitiesWhenTheTypeIsUnknown) {
  const ConfirmationResult result =
      Confirm("reported_type: unknown, private_capability: sfu, abilities: {FE_PORTS: 4}");
  EXPECT_EQ(result.how, Recognition::kAbilities);
  EXPECT_EQ(result.real_type, 1003);
}

TEST_F(Confirmation, NotAtAll) {
  const ConfirmationResult result =
      Confirm("reported_type: 6666, device_name: Mystery, abilities: {GE_PORTS: 9}");
  EXPECT_EQ(result.how, Recognition::kNone);
  EXPECT_EQ(result.real_type, std::nullopt);
  EXPECT_EQ(result.type_name, "");
  EXPECT_FALSE(result.translated);
  EXPECT_EQ(result.report_type, 6666);
}

TEST_F(Confirmation, NotAtAllWithAnUnknownType) {
  const ConfirmationResult result = Confirm("reported_type: unknown, abilities: {GE_PORTS: 9}");
  EXPECT_EQ(result.how, Recognition::kNone);
  EXPECT_EQ(result.real_type, std::nullopt);
  EXPECT_FALSE(result.translated);
  EXPECT_EQ(result.report_type, 65535);
}

TEST_F(Confirmation, LastPatternOfTheFileIsTriedFirst) {
  // Nothing is reported that any pattern could refuse.
  EXPECT_EQ(Confirm("reported_type: 5555, read_abilities: false").real_type, 1003);
}

TEST_F(Confirmation, VendorDecidesBetweenPatterns) {
  EXPECT_EQ(Confirm("reported_type: 5555, vendor_id: ZKWM, abilities: {GE_PORTS: 4}").real_type,
            1002);
  EXPECT_EQ(Confirm("reported_type: 5555, vendor_id: NONE, abilities: {GE_PORTS: 4}").how,
            Recognition::kNone);
}

TEST_F(Confirmation, HguIsTranslated) {
  const ConfirmationResult result = Confirm("reported_type: 1002", "{hgu_mode: 2}");
  EXPECT_TRUE(result.translated);
  EXPECT_EQ(result.report_type, 700);
  EXPECT_EQ(result.real_type, 1002);
}

TEST_F(Confirmation, HguOfAKnownVendorKeepsItsType) {
  const ConfirmationResult result = Confirm("reported_type: 1002", "{hgu_mode: 3}");
  EXPECT_FALSE(result.translated);
  EXPECT_EQ(result.report_type, 1002);
}

TEST_F(Confirmation, SfuIsTranslated) {
  const ConfirmationResult result = Confirm("reported_type: 1003", "{sfu_mode: 1}");
  EXPECT_TRUE(result.translated);
  EXPECT_EQ(result.report_type, 800);
}

TEST_F(Confirmation, OnuRecognisedByAbilitiesIsTranslatedToo) {
  const ConfirmationResult result =
      Confirm("reported_type: 5555, abilities: {FE_PORTS: 4}", "{sfu_mode: 1}");
  EXPECT_EQ(result.how, Recognition::kAbilities);
  EXPECT_TRUE(result.translated);
  EXPECT_EQ(result.report_type, 800);
}

TEST_F(Confirmation, SeveralPatternsOfOneKeyAreToldApart) {
  OnuAbilityProfile second;
  second.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
              ONU_ABILITY_MATCH_TYPE_EXACT);
  second._id = 9;
  second.Add(1003U);
  second.Add(ONU_ABILITY_CODE_REPORT_TYPE, 4444U);
  second.Add(ONU_ABILITY_CODE_REAL_TYPE, 1003U);
  second.Add(47, 7U);
  ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(second), ONU_ABILITY_RET_OK);
  const ConfirmationResult older = Confirm("reported_type: 5555, abilities: {FE_PORTS: 4, 47: 0}");
  EXPECT_EQ(older.report_type, 1003);
  EXPECT_FALSE(older.translated);
  const ConfirmationResult newer = Confirm("reported_type: 5555, abilities: {47: 7}");
  EXPECT_EQ(newer.report_type, 4444);
  EXPECT_FALSE(newer.translated);
}

TEST_F(Confirmation, ExpectationsThatHold) {
  EXPECT_TRUE(Confirm("reported_type: 1001").Ok());
  EXPECT_TRUE(
      Confirm("reported_type: 1001, expect: {real_type: 1001, how: type, report_type: 1001}").Ok());
  EXPECT_TRUE(Confirm("reported_type: 6, abilities: {47: 9}, expect: {real_type: none}").Ok());
}

TEST_F(Confirmation, ExpectationsThatDoNotHold) {
  const auto failure = [this](const std::string& expect) {
    return DescribeFailure(Confirm("reported_type: 1001, expect: " + expect));
  };
  EXPECT_EQ(failure("{real_type: 1002}"), "expected real type 1002");
  EXPECT_EQ(failure("{real_type: none}"), "expected real type none");
  EXPECT_EQ(failure("{real_type: 1001, how: abilities}"), "expected recognition by abilities");
  EXPECT_EQ(failure("{real_type: 1001, report_type: 5}"), "expected report type 5 (is 1001)");
  EXPECT_EQ(failure("{real_type: 3, how: abilities, report_type: 5}"),
            "expected real type 3, by abilities, report type 5 (is 1001)");
}

TEST_F(Confirmation, SummaryCountsEveryKind) {
  const olt_host::Population population(
      olt_host::ReadReports(Fixture("small_reports.yaml"), _catalogue));
  olt_host::ConfirmationSummary summary;
  for (const olt_host::OnuReport& report : population.Onus()) {
    const ConfirmationResult result = olt_host::ConfirmOnu(population, report);
    EXPECT_EQ(DescribeFailure(result), "") << ToText(report.position);
    summary.Count(result);
  }
  EXPECT_EQ(summary.onus, 7U);
  EXPECT_EQ(summary.by_type, 4U);
  EXPECT_EQ(summary.by_abilities, 2U);
  EXPECT_EQ(summary.not_recognised, 1U);
  EXPECT_EQ(summary.translated, 2U);
  EXPECT_EQ(summary.with_expectation, 6U);
  EXPECT_EQ(summary.expectation_failed, 0U);
}

TEST_F(Confirmation, SummaryCountsFailures) {
  olt_host::ConfirmationSummary summary;
  summary.Count(Confirm("reported_type: 1001, expect: {real_type: 1002}"));
  EXPECT_EQ(summary.with_expectation, 1U);
  EXPECT_EQ(summary.expectation_failed, 1U);
}

}  // namespace
}  // namespace olt_host_test
