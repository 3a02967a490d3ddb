// The library as one value: captured, compared, put back whole or not at all.
#include "state/library_state.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::InstallLibrary;
using olt_host::LibraryState;
using olt_host::SameProfile;
using olt_host::SameState;

OnuAbilityTableManager* Manager() { return OnuAbilityTableManager::GetInstance(); }

void AddProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile.Add(key);
  profile.Add(47, 4U);
  profile.Add(1083, std::string("TYPE-" + std::to_string(key)));
  ASSERT_EQ(Manager()->Add(profile), ONU_ABILITY_RET_OK);
}

void UpdateKey(unsigned int key, unsigned int value) {
  ASSERT_EQ(Manager()->Add(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, key,
                           1085, value),
            ONU_ABILITY_RET_OK);
}

class LibraryStateTest : public testing::Test {
 protected:
  LibraryStateTest() {
    olt_host::LoadCatalogue(olt_host::ReadCatalogue(Fixture("small_catalogue.yaml")));
    AddProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 5001);
    AddProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 5002);
    AddProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, 5001);
  }

  // Installs `changed` over what is there, and that over `changed`.
  static void ExpectThereAndBack(const LibraryState& changed) {
    const LibraryState before = CaptureLibrary();
    ASSERT_FALSE(SameState(before, changed));
    InstallLibrary(changed);
    EXPECT_TRUE(SameState(CaptureLibrary(), changed));
    InstallLibrary(before);
    EXPECT_TRUE(SameState(CaptureLibrary(), before));
  }

  CleanLibrary _library;
};

TEST_F(LibraryStateTest, CapturesEverythingThatTheLibraryHolds) {
  const LibraryState state = CaptureLibrary();
  EXPECT_EQ(state.attributes.size(), 4U);
  EXPECT_EQ(state.attributes.at(5), "VALUE_TYPE");
  EXPECT_EQ(state.codes.size(), 13U);
  EXPECT_EQ(state.codes.front().ability_name, "FE_PORTS");
  EXPECT_EQ(state.key_ability_code, 1085);
  EXPECT_EQ(state.real_profiles.size(), 5U);
  EXPECT_EQ(state.match_profiles.size(), 4U);
  EXPECT_EQ(state.real_profiles.back()._profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
}

TEST_F(LibraryStateTest, FindsNoValueTypeAttributeThatNobodyRegistered) {
  const CleanLibrary empty;
  EXPECT_TRUE(CaptureLibrary().attributes.empty());
}

TEST_F(LibraryStateTest, InstallsAttributesCodesAndSettings) {
  LibraryState changed = CaptureLibrary();
  changed.attributes[3] = "PORT_TYPE";
  changed.attributes[4] = "LAMP";
  changed.attributes[77] = "COLOUR";
  changed.codes[1].ability_name = "OTHER";
  changed.codes[1].ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77)] = 9;
  changed.codes.pop_back();
  changed.key_ability_code = 1080;
  changed.sfu_common_type = 1;
  changed.hgu_common_type = 2;
  ExpectThereAndBack(changed);
}

TEST_F(LibraryStateTest, InstallsProfilesWithTheirIdsCountsAndOrder) {
  LibraryState changed = CaptureLibrary();
  std::swap(changed.real_profiles.front(), changed.real_profiles.back());
  changed.real_profiles[1]._id = 17;
  changed.real_profiles[2]._bind_count = 3;
  changed.real_profiles[2]._age_count = 4;
  changed.real_profiles[2]._common_ability_num = 99;
  changed.match_profiles.pop_back();
  changed.match_profiles.front()._key_ability_code = 1080;
  ExpectThereAndBack(changed);
}

TEST_F(LibraryStateTest, InstallsProfilesThatTheTableWouldRefuseAsDuplicates) {
  const LibraryState before = CaptureLibrary();
  UpdateKey(5002, 5001);
  const LibraryState duplicates = CaptureLibrary();
  InstallLibrary(before);
  InstallLibrary(duplicates);
  EXPECT_TRUE(SameState(CaptureLibrary(), duplicates));
}

TEST_F(LibraryStateTest, LeavesTheTablesAsTheyWereMade) {
  const auto tables = Manager()->_map_table;
  LibraryState changed = CaptureLibrary();
  changed.key_ability_code = 1080;
  changed.real_profiles.pop_back();
  InstallLibrary(changed);
  EXPECT_EQ(Manager()->_map_table, tables);
  // The table still counts bindings by the key ability code 1085.
  EXPECT_EQ(Manager()->AddBindCount(ONU_ABILITY_PROFILE_TYPE_REAL, 5001), ONU_ABILITY_RET_OK);
}

TEST_F(LibraryStateTest, ChangesNothingWhenTheLibraryDoesNotTakeIt) {
  const LibraryState before = CaptureLibrary();
  LibraryState refused = before;
  refused.attributes[77] = "LAMP";  // a name that attribute 3 has
  refused.codes.clear();
  refused.real_profiles.clear();
  refused.match_profiles.clear();
  refused.sfu_common_type = 1;
  EXPECT_THROW(InstallLibrary(refused), std::runtime_error);
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
}

TEST_F(LibraryStateTest, SaysWhenATableIsMissing) {
  Manager()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  const LibraryState before = CaptureLibrary();
  LibraryState wanted = before;
  wanted.codes.clear();
  wanted.match_profiles = wanted.real_profiles;
  const TemporaryDirectory directory;
  EXPECT_EQ(ErrorOf([&] { InstallLibrary(wanted); }, directory),
            "There is no table for profiles of type 2");
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
}

TEST_F(LibraryStateTest, TellsProfilesApartByEverythingTheyHold) {
  const OnuAbilityProfile profile = CaptureLibrary().real_profiles.back();
  const auto differs = [&profile](auto change) {
    OnuAbilityProfile other(profile);
    change(other);
    return !SameProfile(profile, other);
  };
  EXPECT_FALSE(differs([](OnuAbilityProfile&) {}));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._id; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._bind_count; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._age_count; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._common_ability_num; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._ability_default_value; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._key_ability_code; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { ++p._reserved[7]; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { p._common_ability.erase(47); }));
  EXPECT_TRUE(
      differs([](OnuAbilityProfile& p) { p._common_ability[47].ability_ushort_value = 5; }));
  EXPECT_TRUE(differs([](OnuAbilityProfile& p) { p._common_ability[47].ability_value_type = 3; }));
  EXPECT_TRUE(
      differs([](OnuAbilityProfile& p) { p._common_ability[47].ability_string_value = "x"; }));
}

}  // namespace
}  // namespace olt_host_test
