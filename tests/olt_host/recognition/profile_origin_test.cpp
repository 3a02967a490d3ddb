// Where profiles come from: entries of the catalogue by the ids that loading gives them.
#include "recognition/profile_origin.h"

#include <gtest/gtest.h>

#include "catalogue/catalogue_files.h"
#include "catalogue/catalogue_loader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::OriginKind;
using olt_host::ProfileOrigins;

std::vector<OnuAbilityProfile> Profiles(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

class ProfileOrigin : public testing::Test {
 protected:
  explicit ProfileOrigin(const std::string& file = Fixture("small_catalogue.yaml"))
      : loaded_(olt_host::ReadCatalogueFiles({{file}, {}, false})) {
    onu_ability_set_log_level_mask(0);
    olt_host::LoadCatalogue(loaded_.catalogue);
  }

  CleanLibrary library_;
  olt_host::LoadedCatalogue loaded_;
};

class ProfileOriginOfShipped : public ProfileOrigin {
 protected:
  ProfileOriginOfShipped()
      : ProfileOrigin(std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml") {}
};

void ExpectOrigins(const std::vector<OnuAbilityProfile>& profiles,
                   const std::vector<olt_host::ProfileEntry>& entries,
                   const ProfileOrigins& origins) {
  ASSERT_EQ(profiles.size(), entries.size());
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    const olt_host::ProfileOrigin origin = origins.Of(profiles[i]);
    EXPECT_EQ(origin.kind, OriginKind::kCatalogue);
    EXPECT_EQ(ToText(origin.position), ToText(entries[i].position));
    EXPECT_FALSE(origin.changed) << ToText(origin.position);
  }
}

TEST_F(ProfileOrigin, IsTheEntryWhetherOrNotItStatesAnId) {
  const ProfileOrigins origins(loaded_.catalogue);
  ExpectOrigins(Profiles(ONU_ABILITY_PROFILE_TYPE_MATCH), loaded_.catalogue.match_profiles,
                origins);
  ExpectOrigins(Profiles(ONU_ABILITY_PROFILE_TYPE_REAL), loaded_.catalogue.real_profiles, origins);
}

TEST_F(ProfileOriginOfShipped, IsTheEntryOfEveryProfile) {
  const ProfileOrigins origins(loaded_.catalogue);
  ExpectOrigins(Profiles(ONU_ABILITY_PROFILE_TYPE_MATCH), loaded_.catalogue.match_profiles,
                origins);
  ExpectOrigins(Profiles(ONU_ABILITY_PROFILE_TYPE_REAL), loaded_.catalogue.real_profiles, origins);
}

TEST_F(ProfileOrigin, TellsThatAnEntryIsNotWhatTheLibraryHolds) {
  const ProfileOrigins origins(loaded_.catalogue);
  OnuAbilityProfile profile = Profiles(ONU_ABILITY_PROFILE_TYPE_MATCH).front();
  profile.UpdateInit(47, 2U);
  EXPECT_TRUE(origins.Of(profile).changed);
}

TEST_F(ProfileOrigin, UnsetEntryIsNoChange) {
  const ProfileOrigins origins(loaded_.catalogue);
  OnuAbilityProfile profile = Profiles(ONU_ABILITY_PROFILE_TYPE_MATCH).front();
  profile._common_ability[1090] = {};
  EXPECT_FALSE(origins.Of(profile).changed);
}

TEST_F(ProfileOrigin, ShippedProfileOfNoFileIsUnknown) {
  const ProfileOrigins origins(loaded_.catalogue);
  OnuAbilityProfile profile = Profiles(ONU_ABILITY_PROFILE_TYPE_MATCH).front();
  profile._id = 4444;
  EXPECT_EQ(origins.Of(profile).kind, OriginKind::kUnknown);
}

}  // namespace
}  // namespace olt_host_test
