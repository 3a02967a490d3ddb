// A catalogue in several files and folders: which of two definitions counts, and
// what remains of files with mistakes.
#include "catalogue/catalogue_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host_files.h"

namespace olt_host_test {
namespace {

const char* const kShipped =
    "catalogue: {name: Shipped, version: 1}\n"                               // line 1
    "common_types: {sfu: 11, hgu: 12}\n"                                     // line 2
    "attributes:\n"                                                          // line 3
    "  - {id: 4, name: PORT_TYPE}\n"                                         // line 4
    "  - {id: 5, name: VALUE_TYPE}\n"                                        // line 5
    "codes:\n"                                                               // line 6
    "  - {code: 24, name: FE_PORTS}\n"                                       // line 7
    "  - {code: 47, name: GE_PORTS}\n"                                       // line 8
    "  - {code: 1082, name: VENDOR_ID, attributes: {VALUE_TYPE: string}}\n"  // line 9
    "  - {code: 1085, name: KEY}\n"                                          // line 10
    "real_profiles:\n"                                                       // line 11
    "  - {key: 1, abilities: {GE_PORTS: 1}}\n"                               // line 12
    "  - {key: 2, abilities: {GE_PORTS: 2}}\n"                               // line 13
    "  - {key: 3, abilities: {GE_PORTS: 3}}\n"                               // line 14
    "match_profiles:\n"                                                      // line 15
    "  - {key: 1, abilities: {GE_PORTS: 1}}\n"                               // line 16
    "  - {key: 2, abilities: {GE_PORTS: 2}}\n"                               // line 17
    "  - {key: 1, abilities: {GE_PORTS: 7}}\n";                              // line 18

class CatalogueFiles : public testing::Test {
 protected:
  CatalogueFiles() { _request.shipped = {_directory.Write("shipped.yaml", kShipped)}; }

  void Local(const std::string& text, const std::string& name = "local.yaml") {
    _request.local.push_back(_directory.Write(name, text));
  }

  olt_host::LoadedCatalogue Read() { return olt_host::ReadCatalogueFiles(_request); }

  // The same, keeping going.
  olt_host::LoadedCatalogue Keep() {
    _request.keep_going = true;
    return Read();
  }

  std::string Error() {
    return ErrorOf([&] { Read(); }, _directory);
  }

  std::vector<std::string> Refused(const olt_host::LoadedCatalogue& loaded) {
    std::vector<std::string> messages;
    for (const std::string& message : loaded.refused) {
      messages.push_back(ErrorOf([&] { throw std::runtime_error(message); }, _directory));
    }
    return messages;
  }

  // "KEY:GE_PORTS" of each profile, in order.
  static std::string Profiles(const std::vector<olt_host::ProfileEntry>& profiles) {
    std::string text;
    for (const olt_host::ProfileEntry& profile : profiles) {
      text += (text.empty() ? "" : " ") + std::to_string(profile.key) + ":" +
              std::to_string(profile.abilities.empty() ? 0 : profile.abilities.front().number);
    }
    return text;
  }

  using Messages = std::vector<std::string>;

  TemporaryDirectory _directory;
  olt_host::CatalogueRequest _request;
};

TEST_F(CatalogueFiles, LaterRealProfileTakesThePlaceOfTheOneWithItsKey) {
  Local(
      "real_profiles: [{key: 9, abilities: {GE_PORTS: 9}}, {key: 2, abilities: {GE_PORTS: 8}}]\n");
  EXPECT_EQ(Profiles(Read().catalogue.real_profiles), "1:1 2:8 3:3 9:9");
}

TEST_F(CatalogueFiles, LaterMatchProfilesPutAwayAllEarlierOnesOfTheirKeyAndAreTriedFirst) {
  Local(
      "match_profiles: [{key: 1, abilities: {GE_PORTS: 5}}, {key: 1, abilities: {GE_PORTS: 6}}]\n");
  EXPECT_EQ(Profiles(Read().catalogue.match_profiles), "2:2 1:5 1:6");
}

TEST_F(CatalogueFiles, LaterCodeAndAttributeReplaceTheWholeRecordInPlace) {
  Local(
      "attributes: [{id: 4, name: KIND}]\n"
      "codes: [{code: 47, name: GIGABIT, attributes: {KIND: 3}}]\n"
      "real_profiles: [{key: 4, abilities: {GIGABIT: 4}}]\n");
  const olt_host::Catalogue catalogue = Read().catalogue;
  EXPECT_EQ(catalogue.attributes.at(0).name, "KIND");
  ASSERT_EQ(catalogue.codes.size(), 4U);
  EXPECT_EQ(catalogue.codes.at(1).name, "GIGABIT");
  EXPECT_EQ(catalogue.codes.at(1).Attribute(4), 3);
  // What the first file called GE_PORTS still means code 47.
  EXPECT_EQ(Profiles(catalogue.real_profiles), "1:1 2:2 3:3 4:4");
}

TEST_F(CatalogueFiles, LastFileThatStatesASettingDecides) {
  Local("common_types: {hgu: 22}\n");
  Local("key_ability_code: 24\ncommon_types: {sfu: 31}\n", "more.yaml");
  const olt_host::Catalogue catalogue = Read().catalogue;
  EXPECT_EQ(catalogue.sfu_common_type, 31);
  EXPECT_EQ(catalogue.hgu_common_type, 22);
  EXPECT_EQ(catalogue.key_ability_code, 24);
}

TEST_F(CatalogueFiles, FirstFileNamesTheCatalogue) {
  Local("catalogue: {name: Local, version: 2}\n");
  const olt_host::LoadedCatalogue loaded = Read();
  EXPECT_EQ(loaded.catalogue.name, "Shipped");
  EXPECT_EQ(loaded.catalogue.version, "1");
  ASSERT_EQ(loaded.files.size(), 2U);
  EXPECT_EQ(loaded.files.at(1).name, "Local");
  EXPECT_EQ(loaded.files.at(1).version, "2");
}

TEST_F(CatalogueFiles, CountsWhatRemainsOfEachFile) {
  Local("match_profiles: [{key: 1, abilities: {}}]\nreal_profiles: [{key: 2, abilities: {}}]\n");
  const olt_host::LoadedCatalogue loaded = Read();
  EXPECT_EQ(loaded.files.at(0).attributes, 2U);
  EXPECT_EQ(loaded.files.at(0).codes, 4U);
  EXPECT_EQ(loaded.files.at(0).real_profiles, 2U);
  EXPECT_EQ(loaded.files.at(0).match_profiles, 1U);
  EXPECT_EQ(loaded.files.at(1).real_profiles, 1U);
  EXPECT_EQ(loaded.files.at(1).match_profiles, 1U);
}

TEST_F(CatalogueFiles, HashesAreThoseOfTheBytes) {
  _request.shipped = {};
  // What sha256sum says of these bytes, and of no bytes at all.
  EXPECT_EQ(Read().sha256, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  _request.shipped = {_directory.Write("a.yaml",
                                       "catalogue: {name: a, version: b}\n"
                                       "attributes: [{id: 5, name: V}]\n"
                                       "codes: [{code: 1085, name: KEY}]\n")};
  const olt_host::LoadedCatalogue loaded = Read();
  EXPECT_EQ(loaded.files.at(0).sha256,
            "7ccf47b630465dfa417cdcf0680798a89d7629e1ba9d6570e1690a1505073e04");
  EXPECT_EQ(loaded.sha256, "21aebb7d2eeee72bd943e5c2a6e1f81ef5d22e3fea38094809c5cd5fc70172d6");
}

TEST_F(CatalogueFiles, FolderGivesItsYamlFilesInTheOrderOfTheirNames) {
  std::filesystem::create_directories(_directory.Path("d/deeper"));
  for (const char* name : {"20.yaml", "10.yaml", ".hidden.yaml", "notes.txt", "deeper/30.yaml"}) {
    const std::string value = std::string(name).substr(0, 2);
    _directory.Write(std::string("d/") + name,
                     "real_profiles: [{key: 2, abilities: {GE_PORTS: " + value + "}}]\n");
  }
  _request.local = {_directory.Path("d")};
  const olt_host::LoadedCatalogue loaded = Read();
  ASSERT_EQ(loaded.files.size(), 3U);
  EXPECT_EQ(loaded.files.at(1).file, _directory.Path("d/10.yaml"));
  EXPECT_EQ(loaded.files.at(2).file, _directory.Path("d/20.yaml"));
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:20 3:3");
}

TEST_F(CatalogueFiles, EmptyFolderGivesNothing) {
  std::filesystem::create_directory(_directory.Path("d"));
  _request.local = {_directory.Path("d")};
  EXPECT_EQ(Read().files.size(), 1U);
}

TEST_F(CatalogueFiles, MissingPathIsAnError) {
  _request.local = {_directory.Path("none")};
  EXPECT_EQ(Error(),
            "none: cannot be read: No such file or directory; "
            "expected a YAML file or a folder of them");
}

TEST_F(CatalogueFiles, NoFilesAreAnEmptyCatalogue) {
  _request.shipped = {};
  const olt_host::LoadedCatalogue loaded = Read();
  EXPECT_EQ(loaded.catalogue.name, "none");
  EXPECT_EQ(loaded.catalogue.version, "");
  EXPECT_TRUE(loaded.catalogue.codes.empty());
  EXPECT_EQ(loaded.catalogue.key_ability_code, 1085);
}

TEST_F(CatalogueFiles, OnlyTheFirstFileNeedsAHeader) {
  _request.shipped = {_directory.Write("first.yaml", "attributes: []\ncodes: []\n")};
  EXPECT_EQ(Error(),
            "first.yaml:1: a catalogue has no \"catalogue\"; expected a map with name and version");
}

TEST_F(CatalogueFiles, LaterFileIsAtFaultWhereTwoExcludeEachOther) {
  Local("codes:\n  - {code: 24, name: GE_PORTS}\n");
  EXPECT_EQ(Error(),
            "local.yaml:2: code name \"GE_PORTS\" is already taken in shipped.yaml:8; "
            "expected a name of its own for every code");
}

TEST_F(CatalogueFiles, TwoCodesMaySwapTheirNames) {
  Local("codes: [{code: 24, name: GE_PORTS}, {code: 47, name: FE_PORTS}]\n");
  EXPECT_EQ(Error(), "no error");
}

TEST_F(CatalogueFiles, SameKeyTwiceInAFileIsStillAnError) {
  Local("codes:\n  - {code: 24, name: A}\n  - {code: 24, name: B}\n");
  EXPECT_EQ(Error(),
            "local.yaml:3: code 24 is already taken in line 2; "
            "expected a number of its own for every code");
}

TEST_F(CatalogueFiles, CodeOfALaterFileIsNotKnownToAnEarlierOne) {
  Local("real_profiles: [{key: 4, abilities: {NEW: 1}}]\n");
  Local("codes: [{code: 50, name: NEW}]\n", "more.yaml");
  EXPECT_EQ(Error(),
            "local.yaml:1: code NEW is not defined; expected a code that is defined under codes");
}

TEST_F(CatalogueFiles, ProfileMustFitACodeThatALaterFileDefinesAnew) {
  Local("codes:\n  - {code: 47, name: GE_PORTS, attributes: {VALUE_TYPE: string}}\n");
  EXPECT_EQ(Error(),
            "shipped.yaml:12: code 47 (GE_PORTS) holds a text since local.yaml:2; expected a text");
}

TEST_F(CatalogueFiles, KeepingGoingABadProfileHurtsOnlyItself) {
  Local(
      "real_profiles:\n"
      "  - {key: 2, abilities: {GE_PORTS: four}}\n"
      "  - {key: 9, abilities: {GE_PORTS: 9}}\n"
      "match_profiles:\n"
      "  - {key: 0, abilities: {}}\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:2 3:3 9:9");
  EXPECT_EQ(Refused(loaded),
            (Messages{"local.yaml:2: GE_PORTS is \"four\"; expected a number from 0 to 4294967295",
                      "local.yaml:5: key is 0; expected a number from 1 to 4294967294"}));
  EXPECT_EQ(loaded.refused_entries, 2U);
}

TEST_F(CatalogueFiles, NothingIsTakenWithoutKeepingGoing) {
  Local("real_profiles:\n  - {key: 2, abilities: {GE_PORTS: four}}\n");
  EXPECT_EQ(Error(), "local.yaml:2: GE_PORTS is \"four\"; expected a number from 0 to 4294967295");
}

TEST_F(CatalogueFiles, KeepingGoingTheOverriddenEntryComesBack) {
  Local("codes:\n  - {code: 24, name: GE_PORTS}\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(loaded.catalogue.codes.at(0).name, "FE_PORTS");
  EXPECT_EQ(loaded.refused.size(), 1U);
}

TEST_F(CatalogueFiles, KeepingGoingWhatNamesARefusedCodeIsRefusedToo) {
  Local(
      "codes:\n"
      "  - {code: 70000, name: NEW}\n"
      "  - {code: 60, name: KEY}\n"
      "real_profiles:\n"
      "  - {key: 4, abilities: {NEW: 1}}\n"
      "  - {key: 5, abilities: {60: 1}}\n"
      "  - {key: 6, abilities: {GE_PORTS: 1}}\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:2 3:3 6:1");
  EXPECT_EQ(
      Refused(loaded),
      (Messages{"local.yaml:2: code is 70000; expected a number from 0 to 65534",
                "local.yaml:3: code name \"KEY\" is already taken in shipped.yaml:10; "
                "expected a name of its own for every code",
                "local.yaml:5: code NEW was refused in line 2; expected a code that is taken",
                "local.yaml:6: code 60 was refused in line 3; expected a code that is taken"}));
}

TEST_F(CatalogueFiles, KeepingGoingACodeThatNamesARefusedAttributeIsRefusedToo) {
  Local(
      "attributes: [{id: 0, name: UNIT}]\n"
      "codes:\n  - {code: 60, name: NEW, attributes: {UNIT: 1}}\n");
  EXPECT_EQ(Refused(Keep()), (Messages{"local.yaml:1: id is 0; expected a number from 1 to 65535",
                                       "local.yaml:3: attribute UNIT was refused in line 1; "
                                       "expected an attribute that is taken"}));
}

TEST_F(CatalogueFiles, KeepingGoingAnUnknownKeyIsToldOnce) {
  std::string text = "real_profiles:\n";
  for (int key = 100; key < 300; ++key) {
    text += "  - {key: " + std::to_string(key) + ", abilites: {}}\n";
  }
  text +=
      "match_profiles:\n  - {key: 4, abilities: {GE_PORT: 1}}\n"
      "  - {key: 5, abilities: {GE_PORT: 1}}\n";
  Local(text);
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Refused(loaded), (Messages{"local.yaml:2: \"abilites\" is not a key of a real profile; "
                                       "expected \"abilities\" (and in 199 more places)",
                                       "local.yaml:203: code GE_PORT is not defined; "
                                       "expected \"GE_PORTS\" (and in 1 more place)"}));
  EXPECT_EQ(loaded.refused_entries, 202U);
}

TEST_F(CatalogueFiles, KeepingGoingABrokenFileIsLeftOutWhole) {
  Local("real_profiles: [{key: 9, abilities: {}}]\ncommon_types: {sfu: many}\n");
  Local("real_profiles: [\n", "broken.yaml");
  Local("real_profiles: [{key: 8, abilities: {}}]\n", "good.yaml");
  _request.local.push_back(_directory.Path("none.yaml"));
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:2 3:3 8:0");
  EXPECT_EQ(loaded.files.size(), 2U);
  EXPECT_EQ(loaded.refused_files.size(), 3U);
  EXPECT_EQ(Refused(loaded),
            (Messages{"local.yaml:2: sfu is \"many\"; expected a number from 0 to 65535",
                      "broken.yaml:2: is broken YAML: end of sequence flow not found; "
                      "expected YAML",
                      "none.yaml: cannot be read: No such file or directory; "
                      "expected a YAML file or a folder of them"}));
}

TEST_F(CatalogueFiles, KeepingGoingAFileThatSpoilsTheKeyAbilityCodeIsLeftOutWhole) {
  Local("key_ability_code: 1086\nreal_profiles: [{key: 9, abilities: {}}]\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(loaded.catalogue.key_ability_code, 1085);
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:2 3:3");
  EXPECT_EQ(Refused(loaded), (Messages{"local.yaml:1: key ability code 1086 is not defined; "
                                       "expected it under codes"}));
}

TEST_F(CatalogueFiles, KeepingGoingAKeyCodeThatHoldsATextIsLeftOutWhereItIsDefined) {
  Local(
      "codes:\n  - {code: 1085, name: KEY, attributes: {VALUE_TYPE: string}}\n"
      "real_profiles: [{key: 9, abilities: {}}]\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Profiles(loaded.catalogue.real_profiles), "1:1 2:2 3:3 9:0");
  EXPECT_FALSE(loaded.catalogue.FindCode(1085)->HoldsText());
  EXPECT_EQ(Refused(loaded), (Messages{"local.yaml:2: code 1085 (KEY) holds a text; "
                                       "expected a number, for it is the key ability code"}));
  _request.local.clear();
  Local("key_ability_code: 1082\n");
  EXPECT_EQ(Keep().refused_files.size(), 1U);
  EXPECT_EQ(Keep().catalogue.codes.size(), 4U);
}

TEST_F(CatalogueFiles, PipeInAFolderIsNotRead) {
  std::filesystem::create_directory(_directory.Path("d"));
  ASSERT_EQ(mkfifo(_directory.Path("d/pipe.yaml").c_str(), 0600), 0);
  _request.local = {_directory.Path("d")};
  EXPECT_EQ(Read().files.size(), 1U);
}

TEST_F(CatalogueFiles, LinkToNothingInAFolderIsAnError) {
  std::filesystem::create_directory(_directory.Path("d"));
  std::filesystem::create_symlink("nowhere", _directory.Path("d/link.yaml"));
  _request.local = {_directory.Path("d")};
  EXPECT_EQ(Error(),
            "d/link.yaml: cannot be read: No such file or directory; "
            "expected a YAML file that can be read");
}

TEST_F(CatalogueFiles, KeepingGoingWithoutAnyGoodFileGivesAnEmptyCatalogue) {
  _request.shipped = {_directory.Write("bad.yaml", "hello\n")};
  Local("real_profiles: [{key: 9, abilities: {}}]\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(loaded.catalogue.name, "none");
  EXPECT_TRUE(loaded.catalogue.real_profiles.empty());
  EXPECT_EQ(Refused(loaded), (Messages{"bad.yaml:1: a catalogue is \"hello\"; expected a map",
                                       "local.yaml:1: a catalogue has no \"attributes\"; "
                                       "expected a list of attributes"}));
}

TEST_F(CatalogueFiles, KeepingGoingTheLaterOfTwoProfilesWithAnIdIsRefused) {
  Local("real_profiles:\n  - {key: 1, id: 30002, abilities: {}}\n");
  const olt_host::LoadedCatalogue loaded = Keep();
  EXPECT_EQ(Refused(loaded), Messages{});
  Local("real_profiles:\n  - {key: 9, id: 30002, abilities: {}}\n", "more.yaml");
  EXPECT_EQ(Refused(Keep()),
            (Messages{"more.yaml:2: id 30002 already belongs to the profile in local.yaml:2; "
                      "expected an id of its own, below 30001 or none at all"}));
}

}  // namespace
}  // namespace olt_host_test
