// show catalogue and reload, as an operator sees them and as the library holds
// what comes of them.
#include <gtest/gtest.h>

#include "catalogue/catalogue_profile.h"
#include "command_session.h"
#include "commands/host_commands.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

class CatalogueCommands : public testing::Test {
 protected:
  CatalogueCommands()
      : _text(ReadFile(Fixture("small_catalogue.yaml"))),
        _file(_directory.Write("c.yaml", _text)),
        _session({olt_host::InstallCatalogueCommands}, _file, "") {}

  // Writes the catalogue's file anew, with a change.
  void Change(const std::string& from, const std::string& to) {
    _text = With(_text, from, to);
    _directory.Write("c.yaml", _text);
  }

  std::string Reload() { return _session.Type("reload"); }

  // The refusal of a reload that must not change anything, without the directory.
  std::string RefusedReload() {
    const olt_host::LibraryState before = olt_host::CaptureLibrary();
    const std::string hash = olt_host::Host().catalogue.sha256;
    const std::string message = _session.Refusal("reload");
    EXPECT_TRUE(olt_host::SameState(before, olt_host::CaptureLibrary()));
    EXPECT_EQ(olt_host::Host().catalogue.sha256, hash);
    return ErrorOf([&] { throw std::runtime_error(message); }, _directory);
  }

  // Keys of a table in its order, an operator's profiles in brackets.
  static std::string Keys(const std::vector<OnuAbilityProfile>& profiles) {
    std::string text;
    for (const OnuAbilityProfile& profile : profiles) {
      unsigned int key = 0;
      profile.Get(key);
      const bool own = profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
      text += text.empty() ? "" : " ";
      text += own ? "[" + std::to_string(key) + "]" : std::to_string(key);
    }
    return text;
  }

  static std::string MatchKeys() { return Keys(olt_host::CaptureLibrary().match_profiles); }
  static std::string RealKeys() { return Keys(olt_host::CaptureLibrary().real_profiles); }

  static void AddOwn(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key, unsigned short code,
                     unsigned int value) {
    OnuAbilityProfile own;
    own.Init(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_MATCH_TYPE_EXACT);
    own.Add(key);
    own.Add(code, value);
    ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(own), 0U);
  }

  // What a start with the file as it is now would load.
  olt_host::Catalogue Fresh() { return olt_host::ReadCatalogueFiles(Request()).catalogue; }
  olt_host::CatalogueRequest Request() {
    olt_host::CatalogueRequest request;
    request.shipped = {_file};
    return request;
  }

  static void ExpectDefaults(const std::vector<OnuAbilityProfile>& held,
                             const std::vector<OnuAbilityProfile>& wanted) {
    ASSERT_GE(held.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      EXPECT_TRUE(olt_host::SameProfile(held[i], wanted[i])) << "profile " << i;
    }
  }

  TemporaryDirectory _directory;
  std::string _text;
  std::string _file;
  CommandSession _session;
};

TEST_F(CatalogueCommands, ShowTellsWhatIsLoaded) {
  const std::string text = _session.Type("show catalogue");
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("  Name     Small test models\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("  SHA-256  " + olt_host::Host().catalogue.sha256 + "\r\n"),
            std::string::npos);
  EXPECT_NE(text.find("  Holds    4 attributes, 13 codes, 3 real and 3 match profiles\r\n"),
            std::string::npos);
  EXPECT_NE(text.find("\r\nNothing of it is changed in memory\r\n"), std::string::npos);
}

TEST_F(CatalogueCommands, ShowAsJson) {
  const auto document = _session.TypeJson("show catalogue json")["catalogue"];
  EXPECT_EQ(document["name"], "Small test models");
  EXPECT_EQ(document["files"][0]["file"], _file);
  EXPECT_EQ(document["files"][0]["codes"], 13);
  EXPECT_EQ(document["sha256"].get<std::string>().size(), 64U);
  EXPECT_TRUE(document["changed_in_memory"].empty());
  EXPECT_TRUE(document["refused"].empty());
}

TEST_F(CatalogueCommands, ShowTellsWhatIsChangedInMemory) {
  _session.Type("set onu_common_type sfu 4");
  _session.Type("update onu_ability_profile key_ability_value 1002 1 0 uint_ability_value 1012 3");
  OnuAbilityTableManager::GetInstance()->Add(ONU_ABILITY_PROFILE_TYPE_REAL,
                                             ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 1002U, 1012, 3U);
  const std::string text = _session.Type("show catalogue");
  EXPECT_NE(text.find("Changed in memory\r\n"
                      "  1 setting changed; 1 real profile changed\r\n"
                      "\r\n"
                      "  setting common SFU type: changed, 800 to 4\r\n"
                      "  real profile 1002 (HGU-4GE-1POTS): changed, LAMPS none to 3\r\n"),
            std::string::npos)
      << text;
  const auto document = _session.TypeJson("show catalogue json")["catalogue"];
  EXPECT_EQ(document["changed_in_memory"][1]["key"], 1002);
  EXPECT_EQ(document["changed_in_memory"][1]["change"], "changed");
  EXPECT_EQ(document["changed_in_memory"][1]["details"][0], "LAMPS none to 3");
}

TEST_F(CatalogueCommands, ShowListsSomeChangesAndCountsTheRest) {
  for (unsigned short number = 0; number < 25; ++number) {
    ONU_ABILITY_CODE_ATTR_INFO code;
    code.ability_code = static_cast<unsigned short>(5000 + number);
    code.ability_name = "OWN_" + std::to_string(number);
    OnuAbilityCodeInfo::GetInstance()->Update(code);
  }
  const std::string text = _session.Type("show catalogue");
  EXPECT_NE(text.find("code 5019 (OWN_19): added\r\n  ... and 5 more\r\n"), std::string::npos)
      << text;
}

TEST_F(CatalogueCommands, ReloadTellsWhatIsWrongWithOperatorsProfilesToo) {
  AddOwn(ONU_ABILITY_PROFILE_TYPE_MATCH, 77, 47, 9);
  Change("sfu: 800", "sfu: 801");
  const std::string text = Reload();
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("\r\n\r\nThe catalogue and what operators made have 1 warning;\r\n"
                      "  \"lint catalogue\" shows more\r\n"),
            std::string::npos)
      << text;
}

TEST_F(CatalogueCommands, ReloadOfTheSameFileChangesNothing) {
  AddOwn(ONU_ABILITY_PROFILE_TYPE_MATCH, 77, 47, 9);
  const olt_host::LibraryState before = olt_host::CaptureLibrary();
  EXPECT_EQ(Reload(), "Nothing changed\r\n");
  EXPECT_TRUE(olt_host::SameState(before, olt_host::CaptureLibrary()));
}

TEST_F(CatalogueCommands, ReloadTakesOverWhatChanged) {
  Change("GE_PORTS: 1, LAMPS: 0x105", "GE_PORTS: 2, LAMPS: 0x105");
  Change(
      "  - key: 1003\n    abilities: {1081: 1003, 1083: \"SFU-4FE\", TRANS_TYPE: 1, FE_PORTS: 4}",
      "  - {key: 1004, abilities: {REAL_TYPE: 1004, GE_PORTS: 6}}");
  Change("sfu: 800", "sfu: 801");
  const std::string text = Reload();
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "Reloaded\r\n"
            "  1 setting changed; 1 real profile added, 1 removed, 1 changed\r\n"
            "\r\n"
            "  setting common SFU type: changed, 800 to 801\r\n"
            "  real profile 1001 (SFU-1GE): changed, ALL_LAN 1 to 2, DATA_UNI 1 to 2,\r\n"
            "    GE_PORTS 1 to 2\r\n"
            "  real profile 1004: added\r\n"
            "  real profile 1003 (SFU-4FE): removed\r\n"
            "\r\n"
            // A real profile without match profile, and the reverse.
            "The catalogue has 2 warnings; \"lint catalogue\" shows more\r\n");
  EXPECT_EQ(RealKeys(), "1001 1002 1004");
  EXPECT_EQ(OnuAbilityGlobalVar::GetInstance()->_sfu_common_type, 801);
  EXPECT_EQ(Reload(), "Nothing changed\r\n");
}

TEST_F(CatalogueCommands, ReloadLeavesWhatAStartWithTheFileGives) {
  Change("real_profiles:\n",
         "  - {code: 60, name: USB, attributes: {PORT_TYPE: 7}}\n"
         "real_profiles:\n  - {key: 900, abilities: {USB: 2, GE_PORTS: 1}}\n");
  Change("match_profiles:\n", "match_profiles:\n  - {key: 900, abilities: {USB: any}}\n");
  Reload();
  const olt_host::LibraryState state = olt_host::CaptureLibrary();
  ExpectDefaults(state.real_profiles, olt_host::MakeTable(Fresh(), ONU_ABILITY_PROFILE_TYPE_REAL));
  ExpectDefaults(state.match_profiles,
                 olt_host::MakeTable(Fresh(), ONU_ABILITY_PROFILE_TYPE_MATCH));
  EXPECT_EQ(state.codes.back().ability_name, "USB");
}

TEST_F(CatalogueCommands, ReloadKeepsFileOrderAndOperatorsPatternsBehindIt) {
  AddOwn(ONU_ABILITY_PROFILE_TYPE_MATCH, 77, 47, 9);
  AddOwn(ONU_ABILITY_PROFILE_TYPE_REAL, 1001, 47, 9);
  Change("match_profiles:\n", "match_profiles:\n  - {key: 500, abilities: {GE_PORTS: 5}}\n");
  Change("    id: 9\n    abilities: {REPORT_TYPE: 1003",
         "    id: 9\n    abilities: {GE_PORTS: 8}\n"
         "  - key: 1009\n    abilities: {REPORT_TYPE: 1003");
  Reload();
  EXPECT_EQ(MatchKeys(), "500 1001 1002 1003 1009 [77]");
  EXPECT_EQ(RealKeys(), "1001 1002 1003 [1001]");
}

TEST_F(CatalogueCommands, ReloadKeepsWhatOperatorsChangedAndFollowsTheFileElsewhere) {
  ONU_ABILITY_CODE_ATTR_INFO code;
  code.ability_code = 1012;
  code.ability_name = "LIGHTS";
  OnuAbilityCodeInfo::GetInstance()->Update(code);
  code.ability_code = 5000;
  code.ability_name = "OWN";
  OnuAbilityCodeInfo::GetInstance()->Update(code);
  OnuAbilityGlobalVar::GetInstance()->_sfu_common_type = 4;
  Change("common_types: {sfu: 800, hgu: 700}", "common_types: {sfu: 801, hgu: 701}");
  Change("name: LAMPS, attributes: {LAMP: 1}", "name: LAMPS, attributes: {LAMP: 1, PORT_TYPE: 2}");
  Change("name: POTS_PORTS, attributes: {CONFIRM_TYPE: 3,",
         "name: POTS_PORTS, attributes: {CONFIRM_TYPE: 1,");
  Reload();
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  EXPECT_EQ(codes->Get(1012), "LIGHTS");
  EXPECT_EQ(codes->Get(5000), "OWN");
  EXPECT_EQ(codes->Get(32, ONU_ABILITY_ATTR_CONFIRM_TYPE), 1);
  EXPECT_EQ(OnuAbilityGlobalVar::GetInstance()->_sfu_common_type, 4);
  EXPECT_EQ(OnuAbilityGlobalVar::GetInstance()->_hgu_common_type, 701);
}

TEST_F(CatalogueCommands, ReloadGivesDefaultProfilesBackWhatTheFileSays) {
  OnuAbilityTableManager::GetInstance()->Add(ONU_ABILITY_PROFILE_TYPE_REAL,
                                             ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 1002U, 1012, 3U);
  EXPECT_NE(Reload().find("real profile 1002 (HGU-4GE-1POTS): changed, LAMPS 3 to none"),
            std::string::npos);
}

TEST_F(CatalogueCommands, CodeThatIsGoneGoesUnlessAnOperatorsProfileHoldsIt) {
  Change("  - {code: 1012, name: LAMPS, attributes: {LAMP: 1}}\n", "");
  Change(", LAMPS: 0x105", "");
  EXPECT_NE(Reload().find("code 1012 (LAMPS): removed"), std::string::npos);
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->IsExist(static_cast<unsigned short>(1012)), 0U);

  AddOwn(ONU_ABILITY_PROFILE_TYPE_REAL, 77, 1023, 9);
  Change("  - {code: 1023, name: TRANS_TYPE}\n", "");
  Change("      TRANS_TYPE: 1\n", "");
  Change("TRANS_TYPE: 1, FE_PORTS: 4}", "FE_PORTS: 4}");
  EXPECT_NE(Reload().find(
                "  Code 1023 (TRANS_TYPE) is gone from the catalogue but stays: an operator's\r\n"
                "    profile holds it\r\n"),
            std::string::npos);
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->Get(1023), "TRANS_TYPE");
}

TEST_F(CatalogueCommands, AttributeThatIsGoneLeavesTheRecords) {
  Change("  - {id: 3, name: LAMP}\n", "");
  Change("name: LAMPS, attributes: {LAMP: 1}", "name: LAMPS");
  Reload();
  EXPECT_EQ(OnuAbilityAttrInfo::GetInstance()->IsExist(ONU_ABILITY_ATTR_LAMP), 0U);
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->IsExist(ONU_ABILITY_ATTR_LAMP), 0U);
}

TEST_F(CatalogueCommands, BrokenFileIsRefusedAndNothingChanges) {
  Change("GE_PORTS: 4\n", "GE_PORTS: four\n");
  Change("sfu: 800", "sfu: 801");
  EXPECT_EQ(RefusedReload(),
            "Not reloaded: c.yaml:37: GE_PORTS is \"four\"; "
            "expected a number from 0 to 4294967295");
}

TEST_F(CatalogueCommands, MissingFileIsRefusedAndNothingChanges) {
  std::filesystem::remove(_file);
  EXPECT_EQ(RefusedReload(),
            "Not reloaded: c.yaml: cannot be read: No such file or directory; "
            "expected a YAML file or a folder of them");
}

TEST_F(CatalogueCommands, NameThatAnOperatorGaveToAnotherCodeIsRefused) {
  ONU_ABILITY_CODE_ATTR_INFO code;
  code.ability_code = 5000;
  code.ability_name = "USB";
  OnuAbilityCodeInfo::GetInstance()->Update(code);
  Change("real_profiles:\n", "  - {code: 60, name: USB}\nreal_profiles:\n");
  const std::string message = RefusedReload();
  EXPECT_EQ(message.rfind("Not reloaded, what operators made does not go with this catalogue", 0),
            0U)
      << message;
}

TEST_F(CatalogueCommands, AnotherKeyAbilityCodeTakesARestart) {
  Change("common_types:", "key_ability_code: 1081\ncommon_types:");
  EXPECT_EQ(RefusedReload(),
            "Not reloaded: c.yaml:3: key ability code is 1081; "
            "expected 1085, for another one takes a restart of the host");
}

TEST_F(CatalogueCommands, ReloadFollowsTheTablesKeyCodeWhateverOperatorsSet) {
  _session.Type("set key_ability_code 1081");
  Change("real_profiles:\n", "real_profiles:\n  - {key: 900, abilities: {GE_PORTS: 1}}\n");
  EXPECT_NE(Reload().find("real profile 900: added"), std::string::npos);
  unsigned int value = 0;
  EXPECT_EQ(
      OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL, 900U, 47, value),
      0U);
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 1081);
}

TEST_F(CatalogueCommands, LongRefusalsAreBrokenBetweenCharacters) {
  std::string name;
  for (int i = 0; i < 100; ++i) name += "\xc3\xb6";
  olt_host::Host().catalogue.refused = {"c.yaml:1: the profile x" + name + " is no good"};
  const std::string text = _session.Type("show catalogue");
  ExpectFitsScreen(text);
  EXPECT_EQ(text.find("\n    \xb6"), std::string::npos) << text;
  EXPECT_NE(text.find("\n    \xc3\xb6"), std::string::npos) << text;
}

TEST_F(CatalogueCommands, KeepingGoingABadEntryIsToldAndABrokenFileStillRefused) {
  olt_host::Host().catalogue_request.keep_going = true;
  Change("      GE_PORTS: 4\n", "      GE_PORTS: four\n");
  const std::string text = Reload();
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("real profile 1002 (HGU-4GE-1POTS): removed\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Left out as refused: 1 entry\r\n"), std::string::npos);
  EXPECT_NE(_session.Type("show catalogue").find("Left out as refused: 1 entry\r\n"),
            std::string::npos);
  EXPECT_EQ(_session.TypeJson("show catalogue json")["catalogue"]["refused_entries"], 1);
  Change("common_types: {sfu: 800", "common_types: {sfu: many");
  EXPECT_EQ(RefusedReload(),
            "Not reloaded: c.yaml:3: sfu is \"many\"; expected a number from 0 to 65535");
}

TEST_F(CatalogueCommands, HostWithoutACatalogueHasNothingToReload) {
  olt_host::Host().catalogue_request.shipped.clear();
  EXPECT_EQ(RefusedReload(), "Not reloaded: The host was started without a catalogue");
}

}  // namespace
}  // namespace olt_host_test
