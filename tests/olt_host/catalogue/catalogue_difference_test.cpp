// What is told of two catalogues, or of a catalogue and the library.
#include "catalogue/catalogue_difference.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

class CatalogueDifference : public testing::Test {
 protected:
  CatalogueDifference() : _text(ReadFile(Fixture("small_catalogue.yaml"))) {}

  olt_host::Catalogue Read(const std::string& text) {
    return olt_host::ReadCatalogue(_directory.Write("c.yaml", text));
  }

  // Of the small catalogue and the same with one change.
  olt_host::CatalogueDifference Of(const std::string& from, const std::string& to) {
    return olt_host::Compare(olt_host::ContentOf(Read(_text)),
                             olt_host::ContentOf(Read(With(_text, from, to))));
  }

  static std::string Text(const olt_host::CatalogueDifference& difference) {
    std::string text;
    for (const olt_host::CatalogueChange& change : difference) {
      for (const std::string& line : olt_host::ChangeLines(change)) {
        text += line + "\n";
      }
    }
    return text;
  }

  TemporaryDirectory _directory;
  CleanLibrary _library;
  std::string _text;
};

TEST_F(CatalogueDifference, NoneBetweenACatalogueAndItself) {
  const olt_host::CatalogueDifference difference = Of("Small test models", "Other name");
  EXPECT_TRUE(difference.empty());
  EXPECT_EQ(olt_host::CountsText(difference), "");
}

TEST_F(CatalogueDifference, ChangedAbilityTakesItsTotalsAlong) {
  const auto difference =
      Of("{REAL_TYPE: 1001, TYPE_NAME: \"SFU-1GE\", ONU_CAPA: 0, GE_PORTS: 1, "
         "LAMPS: 0x105}",
         "{REAL_TYPE: 1001, TYPE_NAME: \"SFU-1GE\", GE_PORTS: 2}");
  EXPECT_EQ(Text(difference),
            "  real profile 1001 (SFU-1GE): changed, ALL_LAN 1 to 2, DATA_UNI 1 to 2,\n"
            "    GE_PORTS 1 to 2, LAMPS 261 to none\n");
  EXPECT_EQ(olt_host::CountsText(difference), "1 real profile changed");
}

TEST_F(CatalogueDifference, AbsentWildcardAndValueAreTold) {
  EXPECT_EQ(Text(Of("FE_PORTS: any", "FE_PORTS: 0")),
            "  match profile 1002: changed, FE_PORTS any to 0\n");
  EXPECT_EQ(Text(Of("FE_PORTS: any, ", "")),
            "  match profile 1002: changed, FE_PORTS any to none\n");
  EXPECT_EQ(Text(Of("VENDOR_ID: ACME", "VENDOR_ID: any")),
            "  match profile 1001: changed, VENDOR_ID \"ACME\" to any\n");
}

TEST_F(CatalogueDifference, AddedAndRemovedProfiles) {
  const auto difference = Of(
      "  - key: 1003\n    abilities: {1081: 1003, 1083: \"SFU-4FE\", TRANS_TYPE: 1, FE_PORTS: 4}\n",
      "  - {key: 1004, abilities: {REAL_TYPE: 1004}}\n"
      "  - {key: 1005, abilities: {REAL_TYPE: 1005}}\n");
  EXPECT_EQ(Text(difference),
            "  real profile 1004: added\n"
            "  real profile 1005: added\n"
            "  real profile 1003 (SFU-4FE): removed\n");
  EXPECT_EQ(olt_host::CountsText(difference), "2 real profiles added, 1 removed");
}

TEST_F(CatalogueDifference, MovedProfileIsToldAndThoseItPassedAreNot) {
  const std::string first =
      "  - key: 1001\n"
      "    abilities: {REPORT_TYPE: 1001, REAL_TYPE: 1001, GE_PORTS: 1, FE_PORTS: 0, VENDOR_ID: "
      "ACME}\n";
  const auto before = olt_host::ContentOf(Read(_text));
  const auto after = olt_host::ContentOf(Read(With(_text, first, "") + first));
  EXPECT_EQ(Text(olt_host::Compare(before, after)), "  match profile 1001: moved\n");
}

TEST_F(CatalogueDifference, MatchProfilesWithOneKeyAreToldApart) {
  const std::string more = "  - {key: 1001, abilities: {GE_PORTS: 7}}\n";
  const auto before = olt_host::ContentOf(Read(_text + more));
  const auto after = olt_host::ContentOf(Read(_text + With(more, "7", "8")));
  EXPECT_EQ(Text(olt_host::Compare(before, after)),
            "  match profile 1001: changed, ALL_LAN 7 to 8, DATA_UNI 7 to 8,\n"
            "    GE_PORTS 7 to 8\n");
  EXPECT_EQ(Text(olt_host::Compare(olt_host::ContentOf(Read(_text)), before)),
            "  match profile 1001: added\n");
}

TEST_F(CatalogueDifference, SettingsAttributesAndCodes) {
  EXPECT_EQ(Text(Of("sfu: 800", "sfu: 801")), "  setting common SFU type: changed, 800 to 801\n");
  EXPECT_EQ(Text(Of("  - {id: 5, name: VALUE_TYPE}\n",
                    "  - {id: 5, name: VALUE_TYPE}\n  - {id: 9, name: UNIT}\n")),
            "  attribute 9 (UNIT): added\n");
  EXPECT_EQ(Text(Of("name: LAMPS, attributes: {LAMP: 1}", "name: LAMPS")),
            "  code 1012 (LAMPS): changed, LAMP 1 to none\n");
}

TEST_F(CatalogueDifference, GivenIdsDoNotCountAndStatedOnesDo) {
  EXPECT_EQ(Text(Of("    id: 9\n", "    id: 10\n")), "  match profile 1003: changed, id 9 to 10\n");
  EXPECT_EQ(olt_host::CountsText(Of("  - key: 1001\n    source",
                                    "  - {key: 5, abilities: {}}\n  - key: 1001\n    source")),
            "1 real profile added");
}

TEST_F(CatalogueDifference, CodeZeroIsOneLikeOthers) {
  const auto before = olt_host::ContentOf(Read(With(_text, "code: 24,", "code: 0,")));
  const auto after = olt_host::ContentOf(
      Read(With(With(_text, "code: 24,", "code: 0,"), "LAMP: 1}", "LAMP: 1, PORT_TYPE: 2}")));
  EXPECT_EQ(Text(olt_host::Compare(before, after)),
            "  code 1012 (LAMPS): changed, PORT_TYPE none to 2\n");
  EXPECT_EQ(olt_host::ChangeLines(
                {olt_host::EntryKind::kCode, 0, "FE_PORTS", olt_host::ChangeKind::kRemoved, {}})
                .front(),
            "  code 0 (FE_PORTS): removed");
}

TEST_F(CatalogueDifference, LongDetailsFit80Columns) {
  const std::string name(100, 'N');
  const auto difference =
      Of("name: TRANS_TYPE}", "name: TRANS_TYPE}\n  - {code: 7, name: " + name + "}");
  for (const std::string& line : olt_host::ChangeLines(difference.front())) {
    EXPECT_LE(line.size(), 79U) << line;
  }
}

TEST_F(CatalogueDifference, LongDetailsAreNotCutWithinACharacter) {
  std::string name;
  for (int i = 0; i < 60; ++i) name += "\xC3\xA9";
  const std::vector<std::string> lines = olt_host::ChangeLines(
      {olt_host::EntryKind::kCode, 7, name, olt_host::ChangeKind::kRemoved, {}});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], "  code 7 (" + name.substr(0, 68));
  EXPECT_EQ(lines[1], "      " + name.substr(68) + "): removed");
}

TEST_F(CatalogueDifference, LoadedLibraryDoesNotDiffer) {
  const olt_host::Catalogue shipped =
      olt_host::ReadCatalogue(std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml");
  olt_host::LoadCatalogue(shipped);
  OnuAbilityGlobalVar::GetInstance()->_sfu_common_type = shipped.sfu_common_type;
  OnuAbilityGlobalVar::GetInstance()->_hgu_common_type = shipped.hgu_common_type;
  EXPECT_EQ(
      Text(olt_host::Compare(olt_host::ContentOf(shipped), olt_host::ContentOfLibrary(shipped))),
      "");
}

TEST_F(CatalogueDifference, ChangesInMemoryAreTold) {
  const olt_host::Catalogue small = Read(_text);
  olt_host::LoadCatalogue(small);
  OnuAbilityGlobalVar::GetInstance()->_sfu_common_type = small.sfu_common_type;
  OnuAbilityGlobalVar::GetInstance()->_hgu_common_type = 5;
  OnuAbilityTableManager* tables = OnuAbilityTableManager::GetInstance();
  tables->Add(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 1002U, 1012, 3U);
  tables->Del(ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_PROFILE_TYPE_REAL, 1003);
  ONU_ABILITY_CODE_ATTR_INFO code;
  code.ability_code = 5000;
  code.ability_name = "OPERATORS";
  OnuAbilityCodeInfo::GetInstance()->Update(code);
  // An operator's own profile is no change of the catalogue.
  OnuAbilityProfile own;
  own.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
           ONU_ABILITY_MATCH_TYPE_EXACT);
  own.Add(77U);
  ASSERT_EQ(tables->Add(own), 0U);
  EXPECT_EQ(Text(olt_host::Compare(olt_host::ContentOf(small), olt_host::ContentOfLibrary(small))),
            "  setting common HGU type: changed, 700 to 5\n"
            "  code 5000 (OPERATORS): added\n"
            "  real profile 1002 (HGU-4GE-1POTS): changed, LAMPS none to 3\n"
            "  real profile 1003 (SFU-4FE): removed\n");
}

}  // namespace
}  // namespace olt_host_test
