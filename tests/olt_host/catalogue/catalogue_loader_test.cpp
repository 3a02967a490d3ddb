// A checked catalogue in the library: everything arrives, in the order of the
// file, and what does not arrive is noticed.
#include "catalogue/catalogue_loader.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_profile.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/load_verification.h"
#include "host_files.h"
#include "onu_ability_common_service_cinterface.h"

namespace olt_host_test {
namespace {

class CatalogueLoader : public testing::Test {
 protected:
  static olt_host::Catalogue Small() {
    return olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"));
  }

  static std::vector<OnuAbilityProfile> Stored(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
    return profiles;
  }

  static void ExpectSame(const std::vector<OnuAbilityProfile>& made,
                         const std::vector<OnuAbilityProfile>& stored) {
    ASSERT_EQ(made.size(), stored.size());
    for (std::size_t i = 0; i < made.size(); ++i) {
      EXPECT_EQ(made[i]._id, stored[i]._id);
      EXPECT_EQ(made[i]._common_ability_num, stored[i]._common_ability_num);
      EXPECT_EQ(made[i]._flag_match_type, stored[i]._flag_match_type);
      EXPECT_EQ(made[i]._key_ability_code, stored[i]._key_ability_code);
      ASSERT_EQ(made[i]._common_ability.size(), stored[i]._common_ability.size());
      for (const auto& [code, value] : stored[i]._common_ability) {
        EXPECT_EQ(made[i].IsEqual(code, value), 1U) << "code " << code << " of profile " << i;
      }
    }
  }

  std::string VerificationError(const olt_host::Catalogue& catalogue) {
    const TemporaryDirectory directory;
    std::string message = ErrorOf([&] { olt_host::VerifyLoaded(catalogue); }, directory);
    const std::size_t at = message.find("small_catalogue.yaml");
    return at == std::string::npos ? message : message.substr(at);
  }

  CleanLibrary _library;
};

TEST_F(CatalogueLoader, RegistersAttributesAndCodesInOrder) {
  olt_host::LoadCatalogue(Small());
  EXPECT_EQ(OnuAbilityAttrInfo::GetInstance()->Get(ONU_ABILITY_ATTR_PORT_TYPE), "PORT_TYPE");
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  ASSERT_EQ(codes->Get().size(), 13U);
  EXPECT_EQ(codes->Get().front().ability_name, "FE_PORTS");
  EXPECT_EQ(codes->Get().back().ability_name, "DATA_UNI");
  EXPECT_EQ(codes->Get(47, ONU_ABILITY_ATTR_CONFIRM_TYPE), 3);
  EXPECT_EQ(codes->Get(47, ONU_ABILITY_ATTR_VALUE_TYPE), 2);
  EXPECT_EQ(codes->Get(1083, ONU_ABILITY_ATTR_VALUE_TYPE), 3);
  EXPECT_EQ(codes->Get(1081, ONU_ABILITY_ATTR_CONFIRM_TYPE), 0);
}

TEST_F(CatalogueLoader, StoresEveryProfileAsADefaultOneInOrder) {
  olt_host::LoadCatalogue(Small());
  const auto real = Stored(ONU_ABILITY_PROFILE_TYPE_REAL);
  const auto match = Stored(ONU_ABILITY_PROFILE_TYPE_MATCH);
  ASSERT_EQ(real.size(), 3U);
  ASSERT_EQ(match.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    unsigned int key = 0;
    EXPECT_EQ(real[i].Get(key), ONU_ABILITY_RET_OK);
    EXPECT_EQ(key, 1001 + i);
    EXPECT_EQ(match[i].Get(key), ONU_ABILITY_RET_OK);
    EXPECT_EQ(key, 1001 + i);
    EXPECT_EQ(real[i]._profile_source, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
    EXPECT_EQ(match[i]._profile_source, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
  }
}

TEST_F(CatalogueLoader, GivesStatedIdsAndLeavesTheRestToTheLibrary) {
  olt_host::LoadCatalogue(Small());
  const auto real = Stored(ONU_ABILITY_PROFILE_TYPE_REAL);
  EXPECT_EQ(real.at(0)._id, 30001);
  EXPECT_EQ(real.at(1)._id, 17);
  EXPECT_EQ(real.at(2)._id, 30002);
  EXPECT_EQ(Stored(ONU_ABILITY_PROFILE_TYPE_MATCH).at(2)._id, 9);
}

TEST_F(CatalogueLoader, StoresNumbersTextsAndTotals) {
  olt_host::LoadCatalogue(Small());
  EXPECT_EQ(onu_ability_get_onu_ability_value_by_key_value(1002, 32), 1U);
  EXPECT_EQ(onu_ability_get_onu_ability_value_by_key_value(1002, 1001), 4U);
  EXPECT_EQ(onu_ability_get_onu_ability_value_by_key_value(1002, 65533), 4U);
  EXPECT_EQ(onu_ability_get_onu_lamp_total_num_by_key_ability(1001), 5U);
  char name[21] = {};
  EXPECT_EQ(onu_ability_get_onu_type_name_by_realtype(1003, name, sizeof name), 0U);
  EXPECT_STREQ(name, "SFU-4FE");
}

TEST_F(CatalogueLoader, LeavesOutDefaultsOfRealProfiles) {
  olt_host::LoadCatalogue(Small());
  EXPECT_FALSE(Stored(ONU_ABILITY_PROFILE_TYPE_REAL).at(0).IsExist(1002));
  // In a pattern 0 is a value like others.
  EXPECT_TRUE(Stored(ONU_ABILITY_PROFILE_TYPE_MATCH).at(2).IsExist(47));
}

// A catalogue with one pattern and one real profile of these abilities.
std::string TextCatalogue(const std::string& real, const std::string& match) {
  return "catalogue: {name: a, version: b}\n"
         "attributes: [{id: 1, name: CONFIRM_TYPE}, {id: 4, name: PORT}, {id: 5, name: "
         "VALUE_TYPE}]\n"
         "codes:\n"
         "  - {code: 47, name: GE_PORTS, attributes: {CONFIRM_TYPE: 1}}\n"
         "  - {code: 1082, name: VENDOR_ID, attributes: {CONFIRM_TYPE: 1, VALUE_TYPE: string}}\n"
         "  - {code: 1085, name: KEY}\n"
         "real_profiles: [{key: 7, abilities: " +
         real + "}]\nmatch_profiles: [{key: 7, abilities: " + match + "}]\n";
}

TEST_F(CatalogueLoader, AbsentWildcardAndValueOfAPatternAreThreeThings) {
  const TemporaryDirectory directory;
  const auto load = [&](const std::string& match) {
    const CleanLibrary library;
    olt_host::LoadCatalogue(
        olt_host::ReadCatalogue(directory.Write("c.yaml", TextCatalogue("{}", match))));
    return Stored(ONU_ABILITY_PROFILE_TYPE_MATCH).front();
  };
  const OnuAbilityProfile absent = load("{}");
  EXPECT_FALSE(absent.IsExist(47));
  EXPECT_FALSE(absent.IsExist(1082));
  EXPECT_EQ(absent == std::string("ZKWM"), 0U);
  const OnuAbilityProfile wildcard = load("{GE_PORTS: any, VENDOR_ID: any}");
  EXPECT_EQ(wildcard.IsEqual(47, 0xFFFFFFFFU), 1U);
  EXPECT_EQ(wildcard.IsEqual(1082, std::string()), 1U);
  EXPECT_EQ(wildcard == std::string("ZKWM"), 1U);
  EXPECT_EQ(wildcard._common_ability_num, 3U);
  const OnuAbilityProfile value = load("{GE_PORTS: 0, VENDOR_ID: ACME}");
  EXPECT_EQ(value.IsEqual(47, 0U), 1U);
  EXPECT_EQ(value == std::string("ZKWM"), 0U);
}

TEST_F(CatalogueLoader, EmptyTextOfARealProfileIsHeldAndAnAbsentOneIsNot) {
  const TemporaryDirectory directory;
  olt_host::LoadCatalogue(
      olt_host::ReadCatalogue(directory.Write("c.yaml", TextCatalogue("{VENDOR_ID: \"\"}", "{}"))));
  std::string vendor = "untouched";
  const OnuAbilityProfile real = Stored(ONU_ABILITY_PROFILE_TYPE_REAL).front();
  EXPECT_EQ(real.Get(1082, vendor), ONU_ABILITY_RET_OK);
  EXPECT_EQ(vendor, "");
  EXPECT_EQ(real.Get(47, vendor), ONU_ABILITY_RET_NOT_FOUND);
}

TEST_F(CatalogueLoader, CatalogueOfNoFilesLoads) {
  const olt_host::Catalogue none = olt_host::ReadCatalogueFiles({}).catalogue;
  olt_host::LoadCatalogue(none);
  EXPECT_TRUE(OnuAbilityCodeInfo::GetInstance()->Get().empty());
  EXPECT_TRUE(Stored(ONU_ABILITY_PROFILE_TYPE_REAL).empty());
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 1085);
}

// What a reload works out beforehand is what loading gives.
TEST_F(CatalogueLoader, TablesMadeBesideTheLibraryAreThoseItLoads) {
  for (const std::string& file :
       {Fixture("small_catalogue.yaml"), std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"}) {
    const CleanLibrary library;
    const olt_host::Catalogue catalogue = olt_host::ReadCatalogue(file);
    olt_host::LoadCatalogue(catalogue);
    ExpectSame(olt_host::MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_REAL),
               Stored(ONU_ABILITY_PROFILE_TYPE_REAL));
    ExpectSame(olt_host::MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_MATCH),
               Stored(ONU_ABILITY_PROFILE_TYPE_MATCH));
  }
}

TEST_F(CatalogueLoader, AnotherKeyAbilityCodeIsSeenByTheTables) {
  const TemporaryDirectory directory;
  const std::string file = directory.Write(
      "c.yaml", With(ReadFile(Fixture("small_catalogue.yaml")), "attributes:\n  - {id: 1,",
                     "key_ability_code: 1081\nattributes:\n  - {id: 1,"));
  olt_host::LoadCatalogue(olt_host::ReadCatalogue(file));
  EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), 1081);
  EXPECT_EQ(onu_ability_key_ability_value_is_exist(1003), 1U);
  EXPECT_EQ(onu_ability_get_onu_ability_value_by_key_value(1003, 24), 4U);
}

TEST_F(CatalogueLoader, NoticesAProfileThatIsMissing) {
  const olt_host::Catalogue catalogue = Small();
  olt_host::LoadCatalogue(catalogue);
  OnuAbilityTableManager::GetInstance()->Del(ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                                             ONU_ABILITY_PROFILE_TYPE_REAL, 1002);
  EXPECT_EQ(VerificationError(catalogue),
            "small_catalogue.yaml:2: the library did not take every profile");
}

TEST_F(CatalogueLoader, NoticesAValueThatIsNotAsStated) {
  const olt_host::Catalogue catalogue = Small();
  olt_host::LoadCatalogue(catalogue);
  OnuAbilityTableManager::GetInstance()->Add(ONU_ABILITY_PROFILE_TYPE_REAL,
                                             ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 1002U, 32, 3U);
  EXPECT_EQ(VerificationError(catalogue),
            "small_catalogue.yaml:38: the library did not take code 32 of the profile with key "
            "1002");
}

TEST_F(CatalogueLoader, NoticesACodeAndAnAttributeThatAreNotAsStated) {
  const olt_host::Catalogue catalogue = Small();
  olt_host::LoadCatalogue(catalogue);
  OnuAbilityCodeInfo::GetInstance()->Get().at(2).ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = 7;
  EXPECT_EQ(VerificationError(catalogue),
            "small_catalogue.yaml:14: the library did not take attribute PORT_TYPE of code "
            "GE_PORTS");
  OnuAbilityCodeInfo::GetInstance()->Get().at(2).ability_name = "OTHER";
  EXPECT_EQ(VerificationError(catalogue),
            "small_catalogue.yaml:14: the library did not take code GE_PORTS");
  OnuAbilityAttrInfo::GetInstance()->Update(ONU_ABILITY_ATTR_LAMP, "OTHER");
  EXPECT_EQ(VerificationError(catalogue),
            "small_catalogue.yaml:7: the library did not take attribute LAMP");
}

}  // namespace
}  // namespace olt_host_test
