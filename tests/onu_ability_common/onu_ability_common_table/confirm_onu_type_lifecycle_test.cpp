// A confirmation as an object: what it starts with and what it logs.
#include <memory>

#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeLifecycleTest : public ConfirmOnuTypeTest {};

TEST_F(ConfirmOnuTypeLifecycleTest, StartsAsAnUnansweredReport) {
  const ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu._place, kPlace);
  EXPECT_EQ(onu._onu, kOnu);
  EXPECT_EQ(onu._key_ability_value, 0U);
  EXPECT_EQ(onu._report_type, 0U);
  for (const unsigned short setting : onu._identify_setting) {
    EXPECT_EQ(setting, 0U);
  }
  EXPECT_EQ(onu._type_from_onu_report, 0U);
  EXPECT_EQ(onu._private_capability, 0xFFU);
  EXPECT_TRUE(Hooks().calls.empty());
}

TEST_F(ConfirmOnuTypeLifecycleTest, IsAnEmptyPatternOfTheMatchTable) {
  const ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu._profile_type, ONU_ABILITY_PROFILE_TYPE_MATCH);
  EXPECT_EQ(onu._profile_source, ONU_ABILITY_PROFILE_SOURCE_ALL);
  EXPECT_EQ(onu._flag_match_type, ONU_ABILITY_MATCH_TYPE_PATTERN);
  EXPECT_EQ(onu._ability_default_value, 0xFFFFFFFFU);
  EXPECT_EQ(onu._id, 0xFFFFU);
  EXPECT_TRUE(onu._common_ability.empty());
}

TEST_F(ConfirmOnuTypeLifecycleTest, ConstructionIsLoggedBeforeTheProfileIsInitialised) {
  const ConfirmOnuType onu(kPlace, kOnu);
  const std::vector<LogLine> log = host.TakeLog();
  ASSERT_GE(log.size(), 3U);
  EXPECT_EQ(log[0], Log(10, "OnuAbilityProfile start!\r\n"));
  EXPECT_EQ(log[1], Log(10, "ConfirmOnuType init!"));
  std::vector<LogLine> level_4;
  for (std::size_t i = 2; i < log.size(); ++i) {
    if (log[i].level == 4) {
      level_4.push_back(log[i]);
    }
  }
  EXPECT_EQ(level_4,
            std::vector<LogLine>{Log(4,
                                     "profile_type:2, profile_source:2, flag_match_type:1, "
                                     "ability_init_value:-1")});
}

// The line break inside the text is meant.
TEST_F(ConfirmOnuTypeLifecycleTest, ReleaseIsLoggedBeforeThatOfTheProfile) {
  auto onu = std::make_unique<ConfirmOnuType>(kPlace, kOnu);
  host.ForgetLog();
  onu.reset();
  EXPECT_EQ(host.TakeLog(), (std::vector<LogLine>{Log(10, "release ConfirmOnuType!\r\n"),
                                                  Log(10, "release OnuAbilityProfile!")}));
}

// A confirmation destroyed through the profile it is leaves the same trace.
TEST_F(ConfirmOnuTypeLifecycleTest, ReleasesThroughTheProfile) {
  std::unique_ptr<OnuAbilityProfile> onu = std::make_unique<ConfirmOnuType>(kPlace, kOnu);
  host.ForgetLog();
  onu.reset();
  EXPECT_TRUE(host.ClaimLog(10, "release ConfirmOnuType!\r\n"));
}

TEST_F(ConfirmOnuTypeLifecycleTest, GatheringAddsToTheProfileWithoutClearingIt) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Add(1023, 6U);
  onu.Init();
  EXPECT_EQ(Number(onu, 1023), 6U);
}

}  // namespace
