// Capturing reports and replaying them.
#include "recognition/capture.h"

#include <gtest/gtest.h>

#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "loaded_catalogue.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_reg_extern_func.h"
#include "recognition/met_expectations.h"
#include "recognition/replay.h"

namespace olt_host_test {
namespace {

using olt_host::Capture;
using olt_host::ConfirmationResult;
using olt_host::OnuReport;
using olt_host::Population;

class CaptureTest : public testing::Test {
 protected:
  explicit CaptureTest(const std::string& catalogue = Fixture("small_catalogue.yaml"))
      : _loaded(catalogue) {
    onu_ability_set_log_level_mask(0);
    OnuAbilityRegExternFunc* settings = OnuAbilityRegExternFunc::GetInstance();
    settings->SetSfuCommonType(_loaded.catalogue().sfu_common_type);
    settings->SetHguCommonType(_loaded.catalogue().hgu_common_type);
  }

  std::shared_ptr<const Population> Read(const std::string& file) const {
    return std::make_shared<const Population>(olt_host::ReadReports(file, _loaded.catalogue()));
  }
  std::shared_ptr<const Population> ReadText(const std::string& text) const {
    return Read(_directory.Write("reports.yaml", text));
  }
  static Capture CaptureAll(const Population& population) {
    std::vector<const OnuReport*> onus;
    for (const OnuReport& onu : population.Onus()) onus.push_back(&onu);
    return olt_host::CaptureReports(population, onus, "of a test, version 1");
  }
  std::string Replayed(const std::string& text) const {
    olt_host::ReplayResult result;
    olt_host::Replay(ReadText(text), result);
    std::string lines = olt_host::ReplayText(result);
    const std::string folder = _directory.Path("");
    for (std::size_t at = lines.find(folder); at != std::string::npos; at = lines.find(folder)) {
      lines.erase(at, folder.size());
    }
    return lines;
  }

  // What was captured reports and becomes the same.
  void ExpectSameAgain(const std::string& file) {
    const auto before = Read(file);
    const Capture capture = CaptureAll(*before);
    EXPECT_EQ(capture.onus, before->Onus().size());
    const auto after = ReadText(capture.text);
    EXPECT_EQ(after->Name(), before->Name());
    ASSERT_EQ(after->Onus().size(), before->Onus().size());
    for (std::size_t i = 0; i < before->Onus().size(); ++i) {
      ExpectSameReport(after->Onus()[i], before->Onus()[i]);
      ExpectSameResult(ConfirmOnu(*after, after->Onus()[i]),
                       ConfirmOnu(*before, before->Onus()[i]));
    }
    EXPECT_EQ(CaptureAll(*after).text, capture.text);
    olt_host::ReplayResult result;
    olt_host::Replay(after, result);
    EXPECT_EQ(result.failures.size(), 0U) << olt_host::ReplayText(result);
    EXPECT_EQ(result.onus, capture.onus);
    EXPECT_EQ(result.ambiguous, capture.ambiguous);
  }

  TemporaryDirectory _directory;
  LoadedCatalogue _loaded;

 private:
  static void ExpectSameReport(const OnuReport& a, const OnuReport& b) {
    EXPECT_EQ(a.place, b.place);
    EXPECT_EQ(a.onu, b.onu);
    EXPECT_EQ(a.vendor_id, b.vendor_id);
    EXPECT_EQ(a.behind_vendor_id, b.behind_vendor_id);
    EXPECT_EQ(a.reported_type, b.reported_type);
    EXPECT_EQ(a.read_abilities, b.read_abilities);
    EXPECT_EQ(a.private_capability, b.private_capability);
    EXPECT_EQ(a.device_name, b.device_name);
    EXPECT_EQ(a.behind_device_name, b.behind_device_name);
    EXPECT_EQ(a.abilities, b.abilities);
  }
  static void ExpectSameResult(const ConfirmationResult& a, const ConfirmationResult& b) {
    EXPECT_EQ(a.real_type, b.real_type);
    EXPECT_EQ(a.type_name, b.type_name);
    EXPECT_EQ(a.how, b.how);
    EXPECT_EQ(a.report_type, b.report_type);
    EXPECT_EQ(a.translated, b.translated);
    EXPECT_TRUE(a.Ok());
  }
};

class ShippedCaptureTest : public CaptureTest {
 protected:
  ShippedCaptureTest() : CaptureTest(std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml") {}
};

TEST_F(CaptureTest, SmallPopulationComesBackTheSame) {
  ExpectSameAgain(Fixture("small_reports.yaml"));
}

TEST_F(ShippedCaptureTest, ShippedPopulationComesBackTheSame) {
  ExpectSameAgain(std::string(OLT_HOST_SHIPPED_DATA) + "/reports.yaml");
}

TEST_F(CaptureTest, OddBytesComeBackTheSame) {
  ExpectSameAgain(_directory.Write(
      "odd.yaml",
      "onus:\n"
      "  - {place: 65535, onu: 255, vendor_id: \"Z\\0\\x01\\\"\", reported_type: 4294967295,\n"
      "     device_name: \"a \\\"b\\\" \\\\ \\0rest\", private_capability: 255,\n"
      "     abilities: {GE_PORTS: 0xFFFFFFFF, 60000: 7}}\n"
      "  - {place: 0, onu: 0, vendor_id: \"\", reported_type: 0, device_name: \"é: {x}\"}\n"));
}

TEST_F(CaptureTest, OneOnuTakesTheSettingsOfItsPlaceAlong) {
  const auto population = Read(Fixture("small_reports.yaml"));
  const Capture capture =
      olt_host::CaptureReports(*population, {population->Find(2, 1)}, "of a test");
  EXPECT_EQ(capture.text,
            "# Captured under the catalogue of a test.\n"
            "# The expectations are what came of the ONUs: look at them before you rely on them.\n"
            "reports: {name: \"Small test population\"}\n"
            "identify:\n"
            "  places:\n"
            "    - {place: 2, sfu_mode: 1, setting_1: 0, hgu_mode: 2, setting_3: 0}\n"
            "onus:\n"
            "  - {place: 2, onu: 1, reported_type: 1002, expect: {real_type: 1002, how: type, "
            "report_type: 700}}\n");
}

TEST_F(CaptureTest, SerialNumberIsKeptAsHashOnly) {
  const auto population = ReadText(
      "onus: [{place: 1, onu: 1, serial_number: \"zkwm00C0FFEE\", reported_type: 1001}]\n");
  const std::string text = CaptureAll(*population).text;
  EXPECT_EQ(text.find("C0FFEE"), std::string::npos) << text;
  // The first digits of the SHA-256 of "ZKWM00C0FFEE".
  EXPECT_NE(text.find("serial_number: \"sha256:29dfc86709e67495\""), std::string::npos) << text;
  EXPECT_EQ(CaptureAll(*ReadText(text)).text, text);
}

TEST_F(CaptureTest, HashOfSerialNumberDoesNotDependOnCase) {
  EXPECT_EQ(olt_host::HashedSerialNumber("ZKWM00C0FFEE"),
            olt_host::HashedSerialNumber("zkwm00c0ffee"));
  EXPECT_NE(olt_host::HashedSerialNumber("ZKWM00C0FFEE"),
            olt_host::HashedSerialNumber("ZKWM00C0FFEF"));
  EXPECT_EQ(olt_host::HashedSerialNumber(""), "");
  // What only looks like a hash is hashed.
  const std::string alike = "sha256:ZKWM00C0FFEE0000";
  EXPECT_NE(olt_host::HashedSerialNumber(alike), alike);
}

TEST_F(CaptureTest, TruthIsNotReportedAndNotCaptured) {
  const auto population = ReadText(
      "onus: [{place: 1, onu: 1, reported_type: 1001, truth: {real_type: 7, faults: [x]}}]\n");
  EXPECT_EQ(CaptureAll(*population).text.find("truth"), std::string::npos);
}

// Two profiles fit an ONU with one port that tells nothing else.
constexpr const char* kAmbiguous =
    "onus: [{place: 1, onu: 1, reported_type: unknown, abilities: {POTS_PORTS: 0}@}]\n";

TEST_F(CaptureTest, AmbiguityIsCapturedAsDeclared) {
  const Capture capture = CaptureAll(*ReadText(With(kAmbiguous, "@", "")));
  EXPECT_EQ(capture.ambiguous, 1U);
  EXPECT_NE(capture.text.find("expect: {real_type: 1003, how: abilities, report_type: 1003, "
                              "ambiguous: [1003, 1002, 1001]}"),
            std::string::npos)
      << capture.text;
}

TEST_F(CaptureTest, WhatWasExpectedAndDidNotComeStaysExpected) {
  const Capture capture =
      CaptureAll(*ReadText(With(kAmbiguous, "@", ", expect: {real_type: 1002}")));
  EXPECT_EQ(capture.not_as_expected, 1U);
  EXPECT_NE(capture.text.find("expect: {real_type: 1002}"), std::string::npos) << capture.text;
  EXPECT_EQ(Replayed(capture.text),
            "reports.yaml:5: ONU 1/1 is real type 1003 by abilities, report type 1003; expected "
            "real type 1002\n"
            "1 ONU replayed, 1 not as expected, 0 ambiguous as declared\n");
}

TEST_F(CaptureTest, ReplayWantsAnExpectationOfEveryOnu) {
  EXPECT_EQ(Replayed(With(kAmbiguous, "@", "")),
            "reports.yaml:1: ONU 1/1 states no expectation; expected expect: {real_type: ...}\n"
            "1 ONU replayed, 1 not as expected, 0 ambiguous as declared\n");
}

TEST_F(CaptureTest, ReplayTellsAnAmbiguityThatIsNotDeclared) {
  EXPECT_EQ(Replayed(With(kAmbiguous, "@", ", expect: {real_type: 1003}")),
            "reports.yaml:1: ONU 1/1 is fitted by the match profiles 1003, 1002, 1001, and only "
            "their order decides; expected one that fits, or ambiguous: [1003, 1002, 1001]\n"
            "1 ONU replayed, 1 not as expected, 0 ambiguous as declared\n");
}

TEST_F(CaptureTest, ReplayTellsAnAmbiguityThatIsNoneOrAnother) {
  EXPECT_EQ(Replayed("onus: [{place: 1, onu: 1, reported_type: 1001, "
                     "expect: {real_type: 1001, ambiguous: [1001, 1002]}}]\n"),
            "reports.yaml:1: ONU 1/1 is fitted by no more than one match profile; expected "
            "ambiguous: [1001, 1002]\n"
            "1 ONU replayed, 1 not as expected, 0 ambiguous as declared\n");
  EXPECT_EQ(Replayed(With(kAmbiguous, "@", ", expect: {real_type: 1003, ambiguous: [1, 1003]}")),
            "reports.yaml:1: ONU 1/1 is fitted by the match profiles 1003, 1002, 1001, and only "
            "their order decides; expected ambiguous: [1, 1003]\n"
            "1 ONU replayed, 1 not as expected, 0 ambiguous as declared\n");
}

TEST_F(CaptureTest, ReplayTakesADeclaredAmbiguityInAnyOrder) {
  EXPECT_EQ(
      Replayed(With(kAmbiguous, "@", ", expect: {real_type: 1003, ambiguous: [1001, 1002, 1003]}")),
      "1 ONU replayed, 0 not as expected, 1 ambiguous as declared\n");
}

}  // namespace
}  // namespace olt_host_test
