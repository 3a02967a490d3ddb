// Catalogue files that cannot be used: each ends with one message that says
// where, what is wrong and what was expected.
#include <gtest/gtest.h>

#include "catalogue/catalogue_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

const char* const kGood =
    "catalogue: {name: Test, version: 1}\n"                                  // line 1
    "key_ability_code: 1085\n"                                               // line 2
    "attributes:\n"                                                          // line 3
    "  - {id: 1, name: CONFIRM_TYPE}\n"                                      // line 4
    "  - {id: 5, name: VALUE_TYPE}\n"                                        // line 5
    "codes:\n"                                                               // line 6
    "  - {code: 47, name: GE_PORTS, attributes: {CONFIRM_TYPE: 3}}\n"        // line 7
    "  - {code: 1085, name: KEY}\n"                                          // line 8
    "  - {code: 1082, name: VENDOR_ID, attributes: {VALUE_TYPE: string}}\n"  // line 9
    "  - {code: 1083, name: TYPE_NAME, attributes: {VALUE_TYPE: string}}\n"  // line 10
    "real_profiles:\n"                                                       // line 11
    "  - {key: 7, abilities: {GE_PORTS: 4, VENDOR_ID: ACME}}\n"              // line 12
    "match_profiles:\n"                                                      // line 13
    "  - {key: 7, abilities: {GE_PORTS: any}}\n";                            // line 14

class CatalogueFile : public testing::Test {
 protected:
  // The message for a file with this text.
  std::string Error(const std::string& text) {
    const std::string file = _directory.Write("c.yaml", text);
    return ErrorOf([&] { olt_host::ReadCatalogue(file); }, _directory);
  }

  // The message for the good file with one change.
  std::string ErrorWith(const std::string& from, const std::string& to) {
    return Error(With(kGood, from, to));
  }

  TemporaryDirectory _directory;
};

TEST_F(CatalogueFile, GoodOneIsTaken) { EXPECT_EQ(Error(kGood), "no error"); }

TEST_F(CatalogueFile, MissingFile) {
  EXPECT_EQ(ErrorOf([&] { olt_host::ReadCatalogue(_directory.Path("none.yaml")); }, _directory),
            "none.yaml: cannot be read: No such file or directory; "
            "expected a YAML file that can be read");
}

TEST_F(CatalogueFile, DirectoryInPlaceOfAFile) {
  std::filesystem::create_directory(_directory.Path("d"));
  EXPECT_EQ(ErrorOf([&] { olt_host::ReadCatalogue(_directory.Path("d")); }, _directory),
            "d: cannot be read: Is a directory; expected a YAML file that can be read");
}

TEST_F(CatalogueFile, EmptyFile) { EXPECT_EQ(Error(""), "c.yaml: is empty; expected a catalogue"); }

TEST_F(CatalogueFile, BinaryFile) {
  EXPECT_EQ(Error(std::string("\x7f"
                              "ELF\0\0",
                              6)),
            "c.yaml: holds binary data; expected YAML");
}

TEST_F(CatalogueFile, BrokenYaml) {
  EXPECT_EQ(ErrorWith("  - {id: 5, name: VALUE_TYPE}", "  - {id: 5, name: VALUE_TYPE"),
            "c.yaml:7: is broken YAML: illegal block entry; expected YAML");
}

// The parser repeats the character.
TEST_F(CatalogueFile, BrokenYamlWithAControlCharacter) {
  EXPECT_EQ(Error("codes: \"\\\x17\"\n"),
            "c.yaml:1: is broken YAML: unknown escape character: \\x17; expected YAML");
}

TEST_F(CatalogueFile, SecondDocument) {
  EXPECT_EQ(Error(std::string(kGood) + "---\ncodes: []\n"),
            "c.yaml:16: a second document begins; expected one document a file");
}

// The parser takes each of these for an empty document that it never passes by.
TEST_F(CatalogueFile, StrayMarksOutsideAllLists) {
  for (const char* text : {",codes: [1]\n", "]\n", "}\n", "codes: []\n]\n", ",", "[1], 2"}) {
    EXPECT_EQ(Error(text).rfind("c.yaml:", 0), 0U) << text;
  }
  EXPECT_EQ(Error(",codes: [1]\n"),
            "c.yaml:1: a second document begins; expected one document a file");
}

TEST_F(CatalogueFile, RootThatIsNoMap) {
  EXPECT_EQ(Error("- 1\n- 2\n"), "c.yaml:1: a catalogue is a list; expected a map");
  EXPECT_EQ(Error("hello\n"), "c.yaml:1: a catalogue is \"hello\"; expected a map");
}

TEST_F(CatalogueFile, UnknownKeyNamesTheNearestKnownOne) {
  EXPECT_EQ(ErrorWith("real_profiles:", "real_profile:"),
            "c.yaml:11: \"real_profile\" is not a key of a catalogue; expected \"real_profiles\"");
  EXPECT_EQ(ErrorWith("{key: 7, abilities: {GE_PORTS: 4,", "{key: 7, abilites: {GE_PORTS: 4,"),
            "c.yaml:12: \"abilites\" is not a key of a real profile; expected \"abilities\"");
}

TEST_F(CatalogueFile, UnknownKeyFarFromAllNamesAllKnownOnes) {
  EXPECT_EQ(ErrorWith("{id: 1, name: CONFIRM_TYPE}", "{id: 1, zebra: CONFIRM_TYPE}"),
            "c.yaml:4: \"zebra\" is not a key of an attribute; expected one of id, name");
}

TEST_F(CatalogueFile, KeyThatStandsTwice) {
  EXPECT_EQ(ErrorWith("match_profiles:", "real_profiles:"),
            "c.yaml:13: \"real_profiles\" stands twice in a catalogue, first in line 11; "
            "expected every key once");
}

TEST_F(CatalogueFile, MissingKey) {
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: 1085}"),
            "c.yaml:8: a code has no \"name\"; expected a name");
  EXPECT_EQ(ErrorWith(", version: 1}", "}"),
            "c.yaml:1: the catalogue header has no \"version\"; expected a text");
  EXPECT_EQ(Error("catalogue: {name: a, version: b}\nattributes: [{id: 5, name: V}]\n"),
            "c.yaml:1: a catalogue has no \"codes\"; expected a list of codes");
  EXPECT_EQ(ErrorWith(", abilities: {GE_PORTS: any}", ""),
            "c.yaml:14: a match profile has no \"abilities\"; "
            "expected a map of codes and values");
}

TEST_F(CatalogueFile, WrongType) {
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: [1085], name: KEY}"),
            "c.yaml:8: code is a list; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: \"1085\", name: KEY}"),
            "c.yaml:8: code is \"1085\"; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorWith("{GE_PORTS: 4, VENDOR_ID: ACME}", "4"),
            "c.yaml:12: abilities is 4; expected a map of codes and values");
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "VENDOR_ID: [ACME]"),
            "c.yaml:12: VENDOR_ID is a list; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorWith("catalogue: {name: Test, version: 1}", "catalogue: 5"),
            "c.yaml:1: the catalogue header is 5; expected a map");
}

TEST_F(CatalogueFile, EmptyValueIsSaidToBeEmptyInItsOwnLine) {
  EXPECT_EQ(ErrorWith("key_ability_code: 1085", "key_ability_code:"),
            "c.yaml:2: key_ability_code is empty; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorWith("  - {id: 1, name: CONFIRM_TYPE}", "  - id: 1\n    name:"),
            "c.yaml:5: name is empty; expected a name");
}

TEST_F(CatalogueFile, NumberOutOfRange) {
  EXPECT_EQ(ErrorWith("{id: 1, name: CONFIRM_TYPE}", "{id: 0, name: CONFIRM_TYPE}"),
            "c.yaml:4: id is 0; expected a number from 1 to 65535");
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: 65535, name: KEY}"),
            "c.yaml:8: code is 65535; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorWith("{CONFIRM_TYPE: 3}", "{CONFIRM_TYPE: 65535}"),
            "c.yaml:7: CONFIRM_TYPE is 65535; expected a number from 0 to 65534");
  EXPECT_EQ(ErrorWith("{key: 7, abilities: {GE_PORTS: 4,", "{key: 0, abilities: {GE_PORTS: 4,"),
            "c.yaml:12: key is 0; expected a number from 1 to 4294967294");
  EXPECT_EQ(ErrorWith("{key: 7, abilities: {GE_PORTS: any}}", "{key: 0xFFFFFFFF, abilities: {}}"),
            "c.yaml:14: key is 0xFFFFFFFF; expected a number from 1 to 4294967294");
  EXPECT_EQ(
      ErrorWith("{key: 7, abilities: {GE_PORTS: 4,", "{key: 7, id: 65535, abilities: {47: 4,"),
      "c.yaml:12: id is 65535; expected a number from 1 to 65534");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: 4294967296"),
            "c.yaml:12: GE_PORTS is 4294967296; expected a number from 0 to 4294967295");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: -1"),
            "c.yaml:12: GE_PORTS is -1; expected a number from 0 to 4294967295");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: 99999999999999999999999999"),
            "c.yaml:12: GE_PORTS is 99999999999999999999999999; "
            "expected a number from 0 to 4294967295");
}

TEST_F(CatalogueFile, TextInPlaceOfANumber) {
  EXPECT_EQ(ErrorWith("{GE_PORTS: any}", "{GE_PORTS: many}"),
            "c.yaml:14: GE_PORTS is \"many\"; expected a number from 0 to 4294967295, or any");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: 4.5"),
            "c.yaml:12: GE_PORTS is \"4.5\"; expected a number from 0 to 4294967295");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: 0x"),
            "c.yaml:12: GE_PORTS is \"0x\"; expected a number from 0 to 4294967295");
}

TEST_F(CatalogueFile, ValueTypeOtherThanNumberOrString) {
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}",
                      "{code: 1085, name: KEY, attributes: {VALUE_TYPE: text}}"),
            "c.yaml:8: VALUE_TYPE is \"text\"; expected number (2) or string (3)");
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: 1085, name: KEY, attributes: {5: 1}}"),
            "c.yaml:8: 5 is 1; expected number (2) or string (3)");
}

TEST_F(CatalogueFile, NameThatCouldBeANumber) {
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: 1085, name: \"12\"}"),
            "c.yaml:8: name is \"12\"; expected a name of one word that is no number");
  EXPECT_EQ(ErrorWith("{code: 1085, name: KEY}", "{code: 1085, name: \"A KEY\"}"),
            "c.yaml:8: name is \"A KEY\"; expected a name of one word that is no number");
}

TEST_F(CatalogueFile, CodeThatIsNotDefined) {
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORT: 4"),
            "c.yaml:12: code GE_PORT is not defined; expected \"GE_PORTS\"");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "LAMPS: 4"),
            "c.yaml:12: code LAMPS is not defined; expected a code that is defined under codes");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "48: 4"),
            "c.yaml:12: code 48 is not defined; expected a code that is defined under codes");
}

TEST_F(CatalogueFile, CodeThatIsUsedBeforeItsDefinition) {
  EXPECT_EQ(Error("catalogue: {name: a, version: b}\n"
                  "attributes: [{id: 5, name: V}]\n"
                  "real_profiles:\n"
                  "  - {key: 1, abilities: {GE_PORTS: 4}}\n"
                  "codes:\n"
                  "  - {code: 1085, name: KEY}\n"
                  "  - {code: 47, name: GE_PORTS}\n"),
            "c.yaml:4: code GE_PORTS is used before its definition in line 7; "
            "expected codes above everything that uses them");
}

TEST_F(CatalogueFile, AttributeThatIsNotDefined) {
  EXPECT_EQ(ErrorWith("{CONFIRM_TYPE: 3}", "{CONFIRM: 3}"),
            "c.yaml:7: attribute CONFIRM is not defined; expected one of CONFIRM_TYPE, VALUE_TYPE");
  EXPECT_EQ(ErrorWith("{CONFIRM_TYPE: 3}", "{confirm_typ: 3}"),
            "c.yaml:7: attribute confirm_typ is not defined; expected \"CONFIRM_TYPE\"");
}

TEST_F(CatalogueFile, AttributeThatIsUsedBeforeItsDefinition) {
  EXPECT_EQ(Error("catalogue: {name: a, version: b}\n"
                  "codes:\n"
                  "  - {code: 1085, name: KEY, attributes: {V: 2}}\n"
                  "attributes:\n"
                  "  - {id: 5, name: V}\n"),
            "c.yaml:3: attribute V is used before its definition in line 5; "
            "expected attributes above everything that uses them");
}

TEST_F(CatalogueFile, SameCodeTwiceInAProfileByNameAndNumber) {
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "47: 5"),
            "c.yaml:12: code 47 (GE_PORTS) stands twice, first in line 12; "
            "expected every code once");
}

TEST_F(CatalogueFile, SameAttributeTwiceInACode) {
  EXPECT_EQ(ErrorWith("{CONFIRM_TYPE: 3}", "{CONFIRM_TYPE: 3, 1: 2}"),
            "c.yaml:7: attribute 1 (CONFIRM_TYPE) stands twice; expected every attribute once");
}

TEST_F(CatalogueFile, AnyInARealProfile) {
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: any"),
            "c.yaml:12: GE_PORTS is any in a real profile; "
            "expected a number; only match profiles take any");
}

TEST_F(CatalogueFile, AnyInQuotesIsAText) {
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "VENDOR_ID: \"any\""), "no error");
}

TEST_F(CatalogueFile, EmptyTextThatNoPatternCanAskFor) {
  EXPECT_EQ(ErrorWith("abilities: {GE_PORTS: any}", "abilities: {VENDOR_ID: \"\"}"),
            "c.yaml:14: VENDOR_ID is an empty text, which no pattern can ask for; "
            "expected a text, any (fits every value) or no entry (not compared)");
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "VENDOR_ID: \"\""), "no error");
}

TEST_F(CatalogueFile, NothingBehindTheColonSaysWhatToWriteInstead) {
  EXPECT_EQ(ErrorWith("GE_PORTS: any", "GE_PORTS: "),
            "c.yaml:14: GE_PORTS is empty; "
            "expected a number, any (fits every value) or no entry (not compared)");
  EXPECT_EQ(ErrorWith("GE_PORTS: any", "VENDOR_ID: ~"),
            "c.yaml:14: VENDOR_ID is empty; "
            "expected a text, any (fits every value) or no entry (not compared)");
  EXPECT_EQ(ErrorWith("GE_PORTS: 4", "GE_PORTS: null"),
            "c.yaml:12: GE_PORTS is empty; expected a number, 0 (none) or no entry (not known)");
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "VENDOR_ID: "),
            "c.yaml:12: VENDOR_ID is empty; "
            "expected a text, \"\" (an empty one) or no entry (not known)");
}

TEST_F(CatalogueFile, TextLongerThanTheBuffers) {
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "VENDOR_ID: ACMEE"),
            "c.yaml:12: VENDOR_ID \"ACMEE\" has 5 bytes; expected a text of at most 4 bytes");
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "TYPE_NAME: ABCDEFGHIJKLMNOPQRSTU"),
            "c.yaml:12: TYPE_NAME \"ABCDEFGHIJKLMNOPQRSTU\" has 21 bytes; "
            "expected a text of at most 20 bytes");
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "TYPE_NAME: ABCDEFGHIJKLMNOPQRST"), "no error");
}

TEST_F(CatalogueFile, TextWithControlCharacters) {
  EXPECT_EQ(ErrorWith("VENDOR_ID: ACME", "TYPE_NAME: \"A\\e[2J\""),
            "c.yaml:12: TYPE_NAME is \"A\\x1b[2J\"; "
            "expected a text of at most 20 bytes without control characters");
}

}  // namespace
}  // namespace olt_host_test
