// The value record, its tags, and the enumerations that select profiles.
#include <type_traits>
#include <vector>

#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class AbilityValuesTest : public LibraryTest {
 protected:
  // Key 5 is of source 0, key 6 of source 1.
  void FillRealTable() {
    DefineUsualCodes();
    InitTables();
    AddToTable(MakeRealProfile(5, 500, 0));
    AddToTable(MakeRealProfile(6, 600, 1));
    host.ForgetLog();
  }
};

TEST_F(AbilityValuesTest, DefaultValueHasTag0NumberAllOnesAndEmptyString) {
  const ONU_ABILITY_COMMON_ABILITY_VALUE value;
  EXPECT_EQ(ONU_ABILITY_VALUE_TYPE_NONE, value.ability_value_type);
  EXPECT_EQ(0U, value.ability_value_type);
  EXPECT_EQ(0xFFFFFFFFU, value.ability_ushort_value);
  EXPECT_EQ("", value.ability_string_value);
}

TEST_F(AbilityValuesTest, DefaultValueReadAsNumberIsNotFound) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(1);
  profile._common_ability[1010] = ONU_ABILITY_COMMON_ABILITY_VALUE();
  host.ForgetLog();
  unsigned int number = 77;
  EXPECT_EQ(0x80000004U, profile.Get(1010, number));
  EXPECT_EQ(77U, number);
  EXPECT_TRUE(host.ClaimLog(
      0, "value type is not ushort!ability_code:1010, ability_name:FE_PORTS, value_type:0"));
}

TEST_F(AbilityValuesTest, DefaultValueReadAsStringIsNotFound) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(1);
  profile._common_ability[1083] = ONU_ABILITY_COMMON_ABILITY_VALUE();
  host.ForgetLog();
  std::string text = "before";
  EXPECT_EQ(0x80000004U, profile.Get(1083, text));
  EXPECT_EQ("before", text);
  EXPECT_TRUE(host.ClaimLog(
      0, "value type is not string!ability_code:1083, ability_name:TYPE_NAME, value_type:0"));
}

TEST_F(AbilityValuesTest, AbsentCodeReadsAsTag2DefaultAndEmptyStringYetNotFound) {
  DefineUsualCodes();
  for (const int type : {1, 2}) {
    const OnuAbilityProfile profile = MakeProfile(type);
    ONU_ABILITY_COMMON_ABILITY_VALUE value;
    value.ability_value_type = 3;
    value.ability_string_value = "before";
    EXPECT_EQ(0x80000004U, profile.Get(1010, value));
    EXPECT_EQ(2U, value.ability_value_type);
    EXPECT_EQ(type == 1 ? 0U : 0xFFFFFFFFU, value.ability_ushort_value);
    EXPECT_EQ("", value.ability_string_value);
  }
}

TEST_F(AbilityValuesTest, CopyOwnsItsString) {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = ONU_ABILITY_VALUE_TYPE_STRING;
  value.ability_ushort_value = 12;
  value.ability_string_value = std::string(5000, 'x');
  ONU_ABILITY_COMMON_ABILITY_VALUE copy = value;
  value.ability_string_value[0] = 'y';
  EXPECT_EQ(3U, copy.ability_value_type);
  EXPECT_EQ(12U, copy.ability_ushort_value);
  EXPECT_EQ(std::string(5000, 'x'), copy.ability_string_value);
}

TEST_F(AbilityValuesTest, NoReaderAcceptsTag1) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(1);
  profile._common_ability[1010].ability_value_type = 1;
  profile._common_ability[1010].ability_ushort_value = 4;
  host.ForgetLog();
  unsigned int number = 77;
  EXPECT_EQ(0x80000004U, profile.Get(1010, number));
  EXPECT_TRUE(host.ClaimLog(
      0, "value type is not ushort!ability_code:1010, ability_name:FE_PORTS, value_type:1"));
  EXPECT_EQ(0U, profile.IsEqual(1010, 4U));
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:1"));
  profile.Update(1010, 5U);
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:1"));
  EXPECT_EQ(4U, profile._common_ability[1010].ability_ushort_value);
}

TEST_F(AbilityValuesTest, NumberIntoStringValueIsInvalid) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(1);
  profile.Add(1083, std::string("ONT-1"));
  host.ForgetLog();
  profile.Update(1083, 5U);
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:3"));
  EXPECT_EQ("ONT-1", profile._common_ability[1083].ability_string_value);
}

TEST_F(AbilityValuesTest, InitRefusesProfileTypesOutsideTheEnumeration) {
  for (const int type : {-1, 3, 65536}) {
    OnuAbilityProfile profile = MakeProfile(2, 1);
    host.ForgetLog();
    profile.Init(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type),
                 ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
    EXPECT_TRUE(host.ClaimLog(0, "profile_type invalid!profile_type:" + std::to_string(type)));
    EXPECT_EQ(ONU_ABILITY_PROFILE_TYPE_MATCH, profile._profile_type);
    EXPECT_EQ(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, profile._profile_source);
    EXPECT_EQ(0xFFFFFFFFU, profile._ability_default_value);
  }
}

TEST_F(AbilityValuesTest, InitTakesTheThreeProfileTypes) {
  EXPECT_EQ(0U, MakeProfile(0)._ability_default_value);
  EXPECT_EQ(0U, MakeProfile(1)._ability_default_value);
  EXPECT_EQ(0xFFFFFFFFU, MakeProfile(2)._ability_default_value);
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog({0}));
}

TEST_F(AbilityValuesTest, ProfileType0HasNoTable) {
  FillRealTable();
  OnuAbilityProfile profile = MakeProfile(0);
  host.ForgetLog();
  EXPECT_EQ(0x80000002U, OnuAbilityTableManager::GetInstance()->Add(profile));
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!"));
}

TEST_F(AbilityValuesTest, FilterSource2MatchesProfilesOfSource0And1) {
  FillRealTable();
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  const auto exists = [manager](int source, unsigned int key) {
    return manager->IsExist(ONU_ABILITY_PROFILE_TYPE_REAL,
                            static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source), key);
  };
  EXPECT_EQ(1U, exists(2, 5));
  EXPECT_EQ(1U, exists(2, 6));
  EXPECT_EQ(1U, exists(0, 5));
  EXPECT_EQ(0U, exists(0, 6));
  EXPECT_EQ(0U, exists(1, 5));
  EXPECT_EQ(1U, exists(1, 6));
}

TEST_F(AbilityValuesTest, FilterSource2TakesTheWholeTable) {
  FillRealTable();
  const auto keys = [](int source) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(
        ONU_ABILITY_PROFILE_TYPE_REAL, static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source),
        profiles);
    std::vector<unsigned int> found;
    found.reserve(profiles.size());
    for (const OnuAbilityProfile& profile : profiles) {
      found.push_back(profile._common_ability.at(1085).ability_ushort_value);
    }
    return found;
  };
  EXPECT_EQ(std::vector<unsigned int>({5, 6}), keys(2));
  EXPECT_EQ(std::vector<unsigned int>({5}), keys(0));
  EXPECT_EQ(std::vector<unsigned int>({6}), keys(1));
}

// A host may cast any number into an enumeration, negative ones included.
template <typename Enumeration>
constexpr bool HoldsAnyInt() {
  return std::is_same<std::underlying_type_t<Enumeration>, int>::value;
}

TEST_F(AbilityValuesTest, EnumerationsAreSignedAndHave32Bits) {
  EXPECT_TRUE(HoldsAnyInt<ONU_ABILITY_ENUM_PROFILE_TYPE>());
  EXPECT_TRUE(HoldsAnyInt<ONU_ABILITY_ENUM_PROFILE_SOURCE>());
  EXPECT_TRUE(HoldsAnyInt<ONU_ABILITY_ENUM_MATCH_TYPE>());
  EXPECT_TRUE(HoldsAnyInt<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>());
}

TEST_F(AbilityValuesTest, NumbersOfTagsAndAttributesAreFixed) {
  EXPECT_EQ(0U, ONU_ABILITY_VALUE_TYPE_NONE);
  EXPECT_EQ(2U, ONU_ABILITY_VALUE_TYPE_USHORT);
  EXPECT_EQ(3U, ONU_ABILITY_VALUE_TYPE_STRING);
  EXPECT_EQ(1, static_cast<int>(ONU_ABILITY_ATTR_CONFIRM_TYPE));
  EXPECT_EQ(3, static_cast<int>(ONU_ABILITY_ATTR_LAMP));
  EXPECT_EQ(4, static_cast<int>(ONU_ABILITY_ATTR_PORT_TYPE));
  EXPECT_EQ(5, static_cast<int>(ONU_ABILITY_ATTR_VALUE_TYPE));
}

}  // namespace
