// What the log level mask takes away from a profile's lines, and what it does
// not: results and changes are the same under every mask.
#include "profile_expectations.h"
#include "profile_serialisation_items.h"

namespace {

constexpr unsigned int kAllLevels = 0xFFFFFFFFU;

class ProfileLogMaskTest : public LibraryTest {
 protected:
  ProfileLogMaskTest() {
    DefineUsualCodes();
    host.ForgetLog();
  }

  OnuAbilityProfile profile = MakeProfile(kReal);
};

TEST_F(ProfileLogMaskTest, NameIsAskedOnlyForALineThatIsWritten) {
  unsigned int number = 0;
  onu_ability_set_log_level_mask(kAllLevels & ~(1U << 1));

  profile.Get(kPotsPorts, number);
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());

  onu_ability_set_log_level_mask(kAllLevels & ~(1U << 9));
  profile.Get(kPotsPorts, number);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{Log(1, "get null!ability_code:1020, ability_name:POTS_PORTS")});
}

TEST_F(ProfileLogMaskTest, DefaultLineTakesItsNameAlongWhenItIsMasked) {
  onu_ability_set_log_level_mask(kAllLevels & ~(1U << 4));

  profile.Add(kPotsPorts, 0);

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{CodeRegistered(1020), NameAsked(1020, "POTS_PORTS"),
                                  NotHeld(1020, "POTS_PORTS")}));
}

// A whole profile's life, the same under every mask.
struct Outcome {
  Content content;
  unsigned int count = 0;
  std::vector<unsigned int> results;
  Items items;
};

Outcome Live(unsigned int mask) {
  onu_ability_set_log_level_mask(mask);
  Outcome outcome;
  OnuAbilityProfile profile = MakeProfile(kReal);
  OnuAbilityProfile input = MakeProfile(kMatch);
  input._flag_match_type = MatchType(1);
  input.UpdateInit(kFePorts, 4);
  profile.Add(kFePorts, 4);
  profile.Add(kPotsPorts, 0);
  profile.Add(kTypeName, std::string("SFU-4"));
  profile.Update(kTypeName, 5);
  profile.Add(ProfileType(kMatch), 2U);
  profile.Del(kGePorts);
  outcome.results.push_back(profile == input);
  input._flag_match_type = MatchType(2);
  outcome.results.push_back(profile == input);
  outcome.results.push_back(profile.IsEqual(kFePorts, 4));
  outcome.results.push_back(profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP));
  Variant buffer;
  profile.Serialize(buffer);
  profile.UnSerialize(buffer);
  outcome.content = ContentOf(profile);
  outcome.count = profile._common_ability_num;
  outcome.items = ItemsOf(buffer);
  return outcome;
}

TEST_F(ProfileLogMaskTest, ResultsAndChangesAreTheSameUnderEveryMask) {
  const Outcome expected = Live(kAllLevels);
  EXPECT_EQ(expected.content.count(kKeyValue), 1U) << "the pattern comparison inserts it";
  for (const unsigned int mask : {0U, 1U << 0, 1U << 4, 1U << 6, 1U << 9, ~(1U << 6), ~(1U << 9)}) {
    const Outcome outcome = Live(mask);
    EXPECT_EQ(outcome.content, expected.content) << "mask " << mask;
    EXPECT_EQ(outcome.count, expected.count) << "mask " << mask;
    EXPECT_EQ(outcome.results, expected.results) << "mask " << mask;
    EXPECT_EQ(outcome.items, expected.items) << "mask " << mask;
  }
  host.ForgetLog();
}

TEST_F(ProfileLogMaskTest, ZeroMaskWritesNothing) {
  Live(0);
  EXPECT_TRUE(host.TakeLog().empty());
}

}  // namespace
