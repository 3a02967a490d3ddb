// Reports files: what they say, and what they end with when they cannot be used.
#include <gtest/gtest.h>

#include <sstream>

#include "catalogue/catalogue_reader.h"
#include "catalogue/report_reader.h"
#include "catalogue/yaml_report_writer.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

class ReportFile : public testing::Test {
 protected:
  ReportFile() : _catalogue(olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"))) {}

  olt_host::Reports Read(const std::string& text) {
    return olt_host::ReadReports(_directory.Write("r.yaml", text), _catalogue);
  }

  std::string Error(const std::string& text) {
    return ErrorOf([&] { Read(text); }, _directory);
  }

  // The message for an ONU with these further entries.
  std::string ErrorOfOnu(const std::string& entries) {
    return Error("onus:\n  - {place: 1, onu: 2, reported_type: 3, " + entries + "}\n");
  }

  TemporaryDirectory _directory;
  olt_host::Catalogue _catalogue;
};

TEST_F(ReportFile, EveryEntryOfAnOnu) {
  const olt_host::Reports reports = Read(
      "reports: {name: Here}\n"
      "onus:\n"
      "  - {place: 65535, onu: 255, vendor_id: ACME, reported_type: 4294967294,\n"
      "     read_abilities: false, private_capability: hgu, device_name: \"A name of 20 "
      "bytes..\",\n"
      "     abilities: {GE_PORTS: 0x10, 24: any, POTS_PORTS: 0},\n"
      "     expect: {real_type: 12, how: abilities, report_type: 13}}\n");
  EXPECT_EQ(reports.name, "Here");
  ASSERT_EQ(reports.onus.size(), 1U);
  const olt_host::OnuReport& onu = reports.onus.front();
  EXPECT_EQ(onu.place, 65535);
  EXPECT_EQ(onu.onu, 255);
  EXPECT_EQ(onu.vendor_id, "ACME");
  EXPECT_EQ(onu.reported_type, 4294967294U);
  EXPECT_FALSE(onu.read_abilities);
  EXPECT_EQ(onu.private_capability, 1);
  EXPECT_EQ(onu.device_name, "A name of 20 bytes..");
  EXPECT_EQ(onu.abilities, (std::map<std::uint16_t, std::uint32_t>{{32, 0}, {47, 16}}));
  EXPECT_EQ(onu.expect->real_type, 12);
  EXPECT_EQ(onu.expect->how, olt_host::Recognition::kAbilities);
  EXPECT_EQ(onu.expect->report_type, 13);
  EXPECT_EQ(onu.position.line, 3U);
}

TEST_F(ReportFile, WhatAnOnuNeedNotState) {
  const olt_host::OnuReport onu =
      Read("onus: [{place: 0, onu: 0, reported_type: unknown}]\n").onus.front();
  EXPECT_EQ(onu.vendor_id, std::nullopt);
  EXPECT_EQ(onu.reported_type, 0xFFFFFFFFU);
  EXPECT_TRUE(onu.read_abilities);
  EXPECT_EQ(onu.private_capability, std::nullopt);
  EXPECT_EQ(onu.device_name, std::nullopt);
  EXPECT_TRUE(onu.abilities.empty());
  EXPECT_FALSE(onu.expect.has_value());
}

TEST_F(ReportFile, EmptyAndAbsentVendorAreTwoThings) {
  const olt_host::OnuReport onu =
      Read("onus: [{place: 0, onu: 0, reported_type: 1, vendor_id: \"\"}]\n").onus.front();
  EXPECT_EQ(onu.vendor_id, "");
}

TEST_F(ReportFile, PrivateCapabilityByWordOrNumber) {
  const auto capability = [this](const std::string& text) {
    return Read("onus: [{place: 0, onu: 0, reported_type: 1, private_capability: " + text + "}]\n")
        .onus.front()
        .private_capability;
  };
  EXPECT_EQ(capability("sfu"), 0);
  EXPECT_EQ(capability("hgu"), 1);
  EXPECT_EQ(capability("unknown"), 255);
  EXPECT_EQ(capability("7"), 7);
}

TEST_F(ReportFile, PlacesTakeTheRestFromTheDefault) {
  const olt_host::Reports reports = Read(
      "identify:\n"
      "  default: {sfu_mode: 1, setting_1: 2, hgu_mode: 3, setting_3: 4}\n"
      "  places: [{place: 7, hgu_mode: 9}]\n"
      "onus: []\n");
  const olt_host::IdentifySettings settings = reports.settings.at(7);
  EXPECT_EQ(settings.sfu_mode, 1);
  EXPECT_EQ(settings.setting_1, 2);
  EXPECT_EQ(settings.hgu_mode, 9);
  EXPECT_EQ(settings.setting_3, 4);
}

TEST_F(ReportFile, NoListOfOnus) {
  EXPECT_EQ(Error("reports: {name: a}\n"),
            "r.yaml:1: a reports file has no \"onus\"; expected a list of ONUs");
}

TEST_F(ReportFile, UnknownKey) {
  const std::string all =
      "r.yaml:2: \"vendor\" is not a key of an ONU; expected one of place, onu, ";
  EXPECT_EQ(ErrorOfOnu("vendor: ACME").substr(0, all.size()), all);
  EXPECT_EQ(ErrorOfOnu("vendor_ids: ACME"),
            "r.yaml:2: \"vendor_ids\" is not a key of an ONU; expected \"vendor_id\"");
}

TEST_F(ReportFile, NumberOutOfRange) {
  EXPECT_EQ(Error("onus: [{place: 65536, onu: 0, reported_type: 1}]\n"),
            "r.yaml:1: place is 65536; expected a number from 0 to 65535");
  EXPECT_EQ(Error("onus: [{place: 1, onu: 256, reported_type: 1}]\n"),
            "r.yaml:1: onu is 256; expected a number from 0 to 255");
  EXPECT_EQ(Error("onus: [{place: 1, onu: 1, reported_type: none}]\n"),
            "r.yaml:1: reported_type is \"none\"; "
            "expected a number from 0 to 4294967295, or unknown");
  EXPECT_EQ(ErrorOfOnu("private_capability: 256"),
            "r.yaml:2: private_capability is 256; "
            "expected a number from 0 to 255, or sfu, hgu or unknown");
  EXPECT_EQ(ErrorOfOnu("expect: {real_type: 65536}"),
            "r.yaml:2: real_type is 65536; expected a number from 0 to 65535, or none");
  EXPECT_EQ(Error("identify: {default: {sfu_mode: 65536}}\nonus: []\n"),
            "r.yaml:1: sfu_mode is 65536; expected a number from 0 to 65535");
}

TEST_F(ReportFile, WordThatIsNoneOfThose) {
  EXPECT_EQ(ErrorOfOnu("read_abilities: maybe"),
            "r.yaml:2: read_abilities is \"maybe\"; expected true or false");
  EXPECT_EQ(ErrorOfOnu("expect: {real_type: 1, how: luck}"),
            "r.yaml:2: how is \"luck\"; expected type, abilities or none");
}

TEST_F(ReportFile, TextLongerThanTheBuffers) {
  EXPECT_EQ(ErrorOfOnu("vendor_id: ACMEE"),
            "r.yaml:2: vendor_id \"ACMEE\" has 5 bytes; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorOfOnu("device_name: \"A name of 21 bytes...\""),
            "r.yaml:2: device_name \"A name of 21 bytes...\" has 21 bytes; "
            "expected a text of at most 20 bytes");
}

TEST_F(ReportFile, BytesBehindTheTerminatorOfAText) {
  const olt_host::OnuReport onu =
      Read(
          "onus: [{place: 0, onu: 0, reported_type: 1, vendor_id: \"ZK\\0\\x01\",\n"
          "  device_name: \"NAME\\0\\0\\x7F\\n\"}]\n")
          .onus.front();
  EXPECT_EQ(onu.vendor_id, "ZK");
  EXPECT_EQ(onu.behind_vendor_id, "\x01");
  EXPECT_EQ(onu.device_name, "NAME");
  EXPECT_EQ(onu.behind_device_name, std::string("\0\x7F\n", 3));
  EXPECT_EQ(ErrorOfOnu("vendor_id: \"ZKWM\\0\""),
            "r.yaml:2: vendor_id is \"ZKWM\\x00\"; expected a text of at most 4 bytes without "
            "control characters");
  EXPECT_EQ(ErrorOfOnu("device_name: \"A\\x01B\\0C\"").substr(0, 30),
            "r.yaml:2: device_name is \"A\\x0");
}

TEST_F(ReportFile, NumbersOfCodesThatNoCatalogueKnows) {
  const olt_host::OnuReport onu =
      Read("onus: [{place: 0, onu: 0, reported_type: 1, abilities: {60000: 7, 47: 1}}]\n")
          .onus.front();
  EXPECT_EQ(onu.abilities, (std::map<std::uint16_t, std::uint32_t>{{47, 1}, {60000, 7}}));
  EXPECT_EQ(ErrorOfOnu("abilities: {60000: 7, 60000: 8}").substr(0, 9), "r.yaml:2:");
  EXPECT_EQ(ErrorOfOnu("abilities: {65535: 7}").substr(0, 9), "r.yaml:2:");
}

TEST_F(ReportFile, TheTruthOfAGeneratedOnu) {
  const olt_host::OnuReport onu =
      Read(
          "onus: [{place: 0, onu: 0, reported_type: 1, truth: {real_type: 9, faults: [case, "
          "ones]}}]\n")
          .onus.front();
  EXPECT_EQ(onu.truth->real_type, 9);
  EXPECT_EQ(onu.truth->faults, (std::vector<std::string>{"case", "ones"}));
  EXPECT_FALSE(onu.expect);
  EXPECT_EQ(ErrorOfOnu("truth: {}").substr(0, 9), "r.yaml:2:");
}

TEST_F(ReportFile, FaultsOfAnyTextAreWrittenAndReadBack) {
  const olt_host::OnuReport onu =
      Read(
          "onus: [{place: 0, onu: 0, reported_type: 1, truth: {real_type: 9, faults: [case, "
          "'a, b', 'x]: {', '', 'null', '#']}}]\n")
          .onus.front();
  std::ostringstream out;
  olt_host::YamlReportWriter writer(out);
  writer.Begin({});
  writer.Write(onu);
  writer.End();
  EXPECT_NE(out.str().find("faults: [case, \"a, b\""), std::string::npos) << out.str();
  EXPECT_EQ(Read(out.str()).onus.front().truth->faults, onu.truth->faults);
}

TEST_F(ReportFile, AbilityThatIsNotDefinedOrHoldsAText) {
  EXPECT_EQ(ErrorOfOnu("abilities: {GE_PORT: 1}"),
            "r.yaml:2: code GE_PORT is not defined; expected \"GE_PORTS\"");
  EXPECT_EQ(ErrorOfOnu("abilities: {VENDOR_ID: ACME}"),
            "r.yaml:2: VENDOR_ID holds a text; expected a code that holds a number");
}

TEST_F(ReportFile, SamePlaceAndOnuTwice) {
  EXPECT_EQ(Error("onus:\n"
                  "  - {place: 1, onu: 2, reported_type: 3}\n"
                  "  - {place: 2, onu: 1, reported_type: 3}\n"
                  "  - {place: 1, onu: 2, reported_type: 4}\n"),
            "r.yaml:4: ONU 1/2 already stands in line 2; expected every place and onu once");
}

TEST_F(ReportFile, SettingsOfAPlaceTwice) {
  EXPECT_EQ(Error("identify:\n"
                  "  places:\n"
                  "    - {place: 1}\n"
                  "    - {place: 1, sfu_mode: 2}\n"
                  "onus: []\n"),
            "r.yaml:4: place 1 is already set in line 3; expected every place once");
}

TEST_F(ReportFile, ExpectationThatContradictsItself) {
  const std::string expected = "; expected none for both or for neither";
  EXPECT_EQ(ErrorOfOnu("expect: {real_type: none, how: type}"),
            "r.yaml:2: real_type \"none\" and how \"type\" exclude each other" + expected);
  EXPECT_EQ(ErrorOfOnu("expect: {real_type: 5, how: none}"),
            "r.yaml:2: real_type 5 and how \"none\" exclude each other" + expected);
}

TEST_F(ReportFile, ExpectationWithoutARealType) {
  EXPECT_EQ(ErrorOfOnu("expect: {how: type}"),
            "r.yaml:2: expect has no \"real_type\"; expected a number from 0 to 65535, or none");
}

}  // namespace
}  // namespace olt_host_test
