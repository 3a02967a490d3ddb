// What the entries of a catalogue must keep among each other.
#include <gtest/gtest.h>

#include "catalogue/catalogue_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

class CatalogueChecks : public testing::Test {
 protected:
  // The message for a catalogue with these codes (from line 4 on), after the code
  // of the key in line 3, and these profiles.
  std::string Error(const std::string& codes, const std::string& profiles = "") {
    return ErrorOfText(
        "catalogue: {name: a, version: b}\n"
        "attributes: [{id: 4, name: PORT_TYPE}, {id: 5, name: VALUE_TYPE}]\n"
        "codes: [{code: 1085, name: KEY},\n" +
        codes + "]\n" + profiles);
  }

  std::string ErrorOfText(const std::string& text) {
    const std::string file = _directory.Write("c.yaml", text);
    return ErrorOf([&] { olt_host::ReadCatalogue(file); }, _directory);
  }

  TemporaryDirectory _directory;
};

TEST_F(CatalogueChecks, DuplicateAttributeId) {
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "attributes:\n"
                        "  - {id: 5, name: A}\n"
                        "  - {id: 5, name: B}\n"
                        "codes: []\n"),
            "c.yaml:4: attribute id 5 is already taken in line 3; "
            "expected an id of its own for every attribute");
}

TEST_F(CatalogueChecks, DuplicateAttributeName) {
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "attributes:\n"
                        "  - {id: 5, name: A}\n"
                        "  - {id: 6, name: A}\n"
                        "codes: []\n"),
            "c.yaml:4: attribute name \"A\" is already taken in line 3; "
            "expected a name of its own for every attribute");
}

TEST_F(CatalogueChecks, ValueTypeAttributeIsMissing) {
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "attributes: [{id: 1, name: A}]\n"
                        "codes: []\n"),
            "c.yaml:1: attribute 5, the value type of a code, is not defined; "
            "expected it under attributes, such as {id: 5, name: VALUE_TYPE}");
}

TEST_F(CatalogueChecks, DuplicateCode) {
  EXPECT_EQ(Error("  {code: 47, name: A},\n  {code: 47, name: B}"),
            "c.yaml:5: code 47 is already taken in line 4; "
            "expected a number of its own for every code");
}

TEST_F(CatalogueChecks, DuplicateCodeName) {
  EXPECT_EQ(Error("  {code: 47, name: A},\n  {code: 48, name: A}"),
            "c.yaml:5: code name \"A\" is already taken in line 4; "
            "expected a name of its own for every code");
}

TEST_F(CatalogueChecks, CodeOfTheLibraryWithTheWrongValueType) {
  EXPECT_EQ(Error("  {code: 1082, name: VENDOR_ID}"),
            "c.yaml:4: code 1082 (VENDOR_ID) holds a number; "
            "expected value type string, which the library keeps there");
  EXPECT_EQ(Error("  {code: 1081, name: REAL_TYPE, attributes: {VALUE_TYPE: string}}"),
            "c.yaml:4: code 1081 (REAL_TYPE) holds a text; "
            "expected value type number, which the library keeps there");
}

TEST_F(CatalogueChecks, TotalThatCountsItself) {
  EXPECT_EQ(Error("  {code: 1001, name: ALL_LAN, attributes: {PORT_TYPE: 3}}"),
            "c.yaml:4: code 1001 (ALL_LAN) is a total of ports but counts as a port itself; "
            "expected no port type 3 or 7");
  EXPECT_EQ(Error("  {code: 65533, name: DATA_UNI, attributes: {PORT_TYPE: 7}}"),
            "c.yaml:4: code 65533 (DATA_UNI) is a total of ports but counts as a port itself; "
            "expected no port type 3 or 7");
}

TEST_F(CatalogueChecks, KeyAbilityCodeIsNotDefined) {
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "key_ability_code: 1086\n"
                        "attributes: [{id: 5, name: V}]\n"
                        "codes: [{code: 1085, name: KEY}]\n"),
            "c.yaml:2: key ability code 1086 is not defined; expected it under codes");
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "attributes: [{id: 5, name: V}]\n"
                        "codes: []\n"),
            "c.yaml:1: key ability code 1085 is not defined; expected it under codes");
}

TEST_F(CatalogueChecks, KeyAbilityCodeThatHoldsATextOrATotal) {
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "key_ability_code: 9\n"
                        "attributes: [{id: 5, name: V}]\n"
                        "codes: [{code: 9, name: KEY, attributes: {V: string}}]\n"),
            "c.yaml:4: code 9 (KEY) holds a text; expected a number, for it is the key ability "
            "code");
  EXPECT_EQ(ErrorOfText("catalogue: {name: a, version: b}\n"
                        "key_ability_code: 1001\n"
                        "attributes: [{id: 5, name: V}]\n"
                        "codes: [{code: 1001, name: ALL_LAN}]\n"),
            "c.yaml:2: code 1001 (ALL_LAN) is a total of ports, which the library overwrites; "
            "expected another key ability code, such as 1085");
}

TEST_F(CatalogueChecks, DuplicateKeyOfRealProfiles) {
  EXPECT_EQ(Error("", "real_profiles:\n  - {key: 7, abilities: {}}\n  - {key: 7, abilities: {}}\n"),
            "c.yaml:7: key 7 is already taken in line 6; "
            "expected a key of its own for every real profile");
}

TEST_F(CatalogueChecks, MatchProfilesMayShareAKey) {
  EXPECT_EQ(Error("", "match_profiles: [{key: 7, abilities: {}}, {key: 7, abilities: {}}]\n"),
            "no error");
}

TEST_F(CatalogueChecks, DuplicateProfileId) {
  EXPECT_EQ(Error("",
                  "match_profiles:\n  - {key: 7, id: 5, abilities: {}}\n"
                  "  - {key: 8, id: 5, abilities: {}}\n"),
            "c.yaml:7: id 5 already belongs to the profile in line 6; "
            "expected an id of its own, below 30001 or none at all");
}

TEST_F(CatalogueChecks, IdThatTheLibraryHasGivenByThen) {
  EXPECT_EQ(Error("",
                  "real_profiles:\n  - {key: 7, abilities: {}}\n"
                  "  - {key: 8, id: 30001, abilities: {}}\n"),
            "c.yaml:7: id 30001 already belongs to the profile in line 6; "
            "expected an id of its own, below 30001 or none at all");
  // The other way round the library gives the next id.
  EXPECT_EQ(Error("",
                  "real_profiles:\n  - {key: 8, id: 30001, abilities: {}}\n"
                  "  - {key: 7, abilities: {}}\n"),
            "no error");
}

TEST_F(CatalogueChecks, BothTablesMayUseAnId) {
  EXPECT_EQ(Error("",
                  "real_profiles: [{key: 7, id: 5, abilities: {}}]\n"
                  "match_profiles: [{key: 7, id: 5, abilities: {}}]\n"),
            "no error");
}

TEST_F(CatalogueChecks, KeyThatDiffersFromItsAbility) {
  EXPECT_EQ(Error("", "real_profiles:\n  - {key: 7, abilities: {KEY: 8}}\n"),
            "c.yaml:6: code 1085 (KEY) differs from the key 7; "
            "expected the key alone: it is stored under this code");
  EXPECT_EQ(Error("", "real_profiles:\n  - {key: 7, abilities: {KEY: 7}}\n"), "no error");
}

TEST_F(CatalogueChecks, TotalThatIsNotTheSumOfThePorts) {
  const std::string codes =
      "  {code: 24, name: FE, attributes: {PORT_TYPE: 3}},"
      "  {code: 47, name: GE, attributes: {PORT_TYPE: 3}},"
      "  {code: 50, name: OTHER, attributes: {PORT_TYPE: 7}},"
      "  {code: 1001, name: ALL_LAN}, {code: 65533, name: DATA_UNI}";
  EXPECT_EQ(Error(codes, "real_profiles:\n  - {key: 7, abilities: {FE: 2, GE: 1, ALL_LAN: 4}}\n"),
            "c.yaml:6: code 1001 (ALL_LAN) is not the sum of the ports; "
            "expected 3, or no entry: the library derives it");
  EXPECT_EQ(
      Error(codes, "match_profiles:\n  - {key: 7, abilities: {OTHER: 2, GE: 1, DATA_UNI: any}}\n"),
      "c.yaml:6: code 65533 (DATA_UNI) is not the sum of the ports; "
      "expected 3, or no entry: the library derives it");
  EXPECT_EQ(Error(codes,
                  "real_profiles:\n  - {key: 7, abilities: {GE: 1, OTHER: 2, ALL_LAN: 1,"
                  " DATA_UNI: 3}}\n"),
            "no error");
  // Nothing to derive it from: the total is kept as it stands.
  EXPECT_EQ(Error(codes, "real_profiles:\n  - {key: 7, abilities: {GE: 0, ALL_LAN: 9}}\n"),
            "no error");
}

}  // namespace
}  // namespace olt_host_test
