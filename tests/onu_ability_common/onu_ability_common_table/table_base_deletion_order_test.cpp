// Deleting every profile of a source: order, key codes and lines are those of
// deleting one after another.
#include "short_way_fixture.h"

namespace table_test {
namespace {

class TableBaseDeletionOrderTest : public ShortWayTest {
 protected:
  // Of each source 0 or 1 a profile with its own id and key code; every bit of
  // `sources` is one profile.
  static std::vector<OnuAbilityProfile> MakeProfiles(unsigned int count, unsigned int sources) {
    std::vector<OnuAbilityProfile> profiles;
    profiles.reserve(count);
    for (unsigned int i = 0; i < count; ++i) {
      const int source = (sources >> i & 1U) != 0 ? kExternal : kDefault;
      profiles.push_back(MakeRealProfile(10 + i, static_cast<unsigned short>(100 + i), source));
      profiles.back()._id = static_cast<unsigned short>(20 + i);
      profiles.back()._key_ability_code = static_cast<unsigned short>(2000 + i);
    }
    return profiles;
  }

  static void EraseOneByOne(std::vector<OnuAbilityProfile>& profiles, int source) {
    for (auto profile = profiles.begin(); profile != profiles.end();) {
      profile = profile->_profile_source == source ? profiles.erase(profile) : profile + 1;
    }
  }

  static std::vector<std::pair<int, int>> IdsAndKeyCodes(
      const std::vector<OnuAbilityProfile>& profiles) {
    std::vector<std::pair<int, int>> all;
    all.reserve(profiles.size());
    for (const OnuAbilityProfile& profile : profiles) {
      all.emplace_back(profile._id, profile._key_ability_code);
    }
    return all;
  }
};

TEST_F(TableBaseDeletionOrderTest, WhatMovesUpKeepsItsOrderAndThePlaceItsKeyCode) {
  OpenTable<OnuRealAbilityTable> table;
  table.profiles() = MakeProfiles(5, 0b01011);
  EXPECT_EQ(kOk, table.DelAll(kExternal));
  EXPECT_EQ((std::vector<std::pair<int, int>>{{22, 2000}, {24, 2001}}),
            IdsAndKeyCodes(table.profiles()));
  EXPECT_EQ(102U, NumberOf(table.profiles()[0], kRealType));
  EXPECT_EQ(104U, NumberOf(table.profiles()[1], kRealType));
}

// Every mixture of the sources of up to six profiles.
TEST_F(TableBaseDeletionOrderTest, LeavesWhatErasingOneByOneLeaves) {
  for (unsigned int count = 0; count <= 6; ++count) {
    for (unsigned int sources = 0; sources < 1U << count; ++sources) {
      OpenTable<OnuRealAbilityTable> table;
      table.profiles() = MakeProfiles(count, sources);
      std::vector<OnuAbilityProfile> expected = table.profiles();
      EraseOneByOne(expected, kDefault);
      table.DelAll(kDefault);
      ASSERT_EQ(IdsAndKeyCodes(expected), IdsAndKeyCodes(table.profiles())) << count << sources;
      for (size_t i = 0; i < expected.size(); ++i) {
        ASSERT_EQ(NumberOf(expected[i], kRealType), NumberOf(table.profiles()[i], kRealType));
      }
    }
  }
}

TEST_F(TableBaseDeletionOrderTest, ReleasesAsManyAsItDeletes) {
  OpenTable<OnuRealAbilityTable> table;
  table.profiles() = MakeProfiles(5, 0b01011);
  onu_ability_set_log_level_mask(~0U);
  ForgetSetUp();
  table.DelAll(kExternal);
  const LogLine release = Log(10, "release OnuAbilityProfile!");
  EXPECT_EQ((std::vector<LogLine>{Log(10, "OnuAbilityTableBase::Del All profile start!"), release,
                                  release, release,
                                  Log(10, "OnuAbilityTableBase::Del All profile end!")}),
            host.TakeLog());
}

TEST_F(TableBaseDeletionOrderTest, LookupsInATableOfTheManagerFindWhatIsLeft) {
  AddAll(Real(), MakeProfiles(5, 0b01011));
  Real().DelAll(kExternal);
  for (unsigned int i = 0; i < 5; ++i) {
    const bool is_left = i == 2 || i == 4;
    EXPECT_EQ(is_left ? 1U : 0U, Real().IsExist(kAll, 10 + i)) << i;
    OnuAbilityProfile profile;
    const auto type = static_cast<unsigned short>(100 + i);
    EXPECT_EQ(is_left ? kOk : kNotFound, Real().Get(kAll, type, profile)) << i;
    EXPECT_EQ(is_left ? 20 + i : 0, profile._id) << i;
  }
}

}  // namespace
}  // namespace table_test
