// A profile remembers where its ports stand from one filling to the next. Whatever happens
// to it between two, it derives and says what the walks do.
#include <functional>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "onu_ability_common_global/short_ways.h"
#include "profile_expectations.h"

namespace {

constexpr unsigned short kUnknown = 2000;
constexpr unsigned short kCodes[] = {kAllLan,    kFePorts,  kGePorts,  kWifiUni,  kPotsPorts,
                                     kPowerLamp, kRealType, kTypeName, kDataUnis, kUnknown};
constexpr unsigned int kNumbers[] = {0, 1, 4, 700, kWildcard};

struct Choice {
  unsigned short code;
  unsigned int number;
};

using Step = void (*)(OnuAbilityProfile& profile, const Choice& choice);

// Operations of the profile, and what else may happen to its public members.
const Step kSteps[] = {
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.Add(choice.code, choice.number);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.Add(choice.code, Value(2, choice.number));
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.Add(choice.code, std::string("text"));
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.Update(choice.code, choice.number);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.UpdateInit(choice.code, choice.number);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile.UpdateInit(choice.code, std::string("text"));
    },
    [](OnuAbilityProfile& profile, const Choice& choice) { profile.Add(choice.number); },
    [](OnuAbilityProfile& profile, const Choice& choice) { profile.Del(choice.code); },
    [](OnuAbilityProfile& profile, const Choice&) { profile.Update(); },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile._common_ability.erase(choice.code);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      profile._common_ability[choice.code] = Value(2, choice.number);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      const auto held = profile._common_ability.find(choice.code);
      if (held != profile._common_ability.end()) held->second.ability_ushort_value = choice.number;
    },
    // As many codes as before, but another one.
    [](OnuAbilityProfile& profile, const Choice& choice) {
      if (profile._common_ability.erase(choice.code) != 0) {
        profile._common_ability[kUnknown] = Value(2, choice.number);
      }
    },
    [](OnuAbilityProfile& profile, const Choice&) {
      const OnuAbilityProfile copy =
          profile;  // NOLINT(performance-unnecessary-copy-initialization)
      profile.Clear();
      profile = copy;
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      OnuAbilityProfile other = std::move(profile);
      other.Add(choice.code, choice.number);
      profile = std::move(other);
    },
    [](OnuAbilityProfile& profile, const Choice& choice) {
      AbilityMap other = {{choice.code, Value(2, choice.number)}, {kFePorts, Value(2, 3)}};
      profile._common_ability.swap(other);
    },
};

class HeldPortsTest : public LibraryTest {
 protected:
  struct Outcome {
    Content content;
    unsigned int count = 0;
    std::vector<LogLine> lines;
  };

  Outcome Take(OnuAbilityProfile& profile, Step step, const Choice& choice, bool walks_only) {
    SetWalksOnly(walks_only);
    host.ForgetLog();
    step(profile, choice);
    return {ContentOf(profile), profile._common_ability_num, host.TakeLog()};
  }

  template <std::size_t kSize>
  unsigned int OneOf(const unsigned int (&values)[kSize]) {
    return values[random() % kSize];
  }

  Choice NextChoice() { return {kCodes[random() % std::size(kCodes)], OneOf(kNumbers)}; }

  // What happens to the registry happens to both profiles at once.
  void MaybeChangeRegistry() {
    if (random() % 12 == 0) {
      DefineCode(kPotsPorts, "POTS_PORTS", {{4, random() % 2 == 0 ? 3 : 1}});
    }
    if (random() % 30 == 0) {
      OnuAbilityCodeInfo::GetInstance()->Del(kPowerLamp);
    } else if (random() % 30 == 0) {
      DefineCode(kPowerLamp, "POWER_LAMP", {{4, 7}});
    }
  }

  std::mt19937 random{7};  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
};

TEST_F(HeldPortsTest, WhateverHappensBetweenTwoFillings) {
  DefineUsualCodes();
  onu_ability_set_log_level_mask(LogLevels(0, 1, 13));
  for (int sequence = 0; sequence < 400; ++sequence) {
    OnuAbilityProfile remembering = MakeProfile(sequence % 2 == 0 ? kReal : kMatch);
    OnuAbilityProfile walking = remembering;
    for (int step = 0; step < 40; ++step) {
      MaybeChangeRegistry();
      const Choice choice = NextChoice();
      const Step taken = kSteps[random() % std::size(kSteps)];
      const Outcome walked = Take(walking, taken, choice, true);
      const Outcome remembered = Take(remembering, taken, choice, false);
      const auto where = ::testing::Message() << sequence << "." << step;
      ASSERT_EQ(walked.content, remembered.content) << where;
      ASSERT_EQ(walked.count, remembered.count) << where;
      ASSERT_EQ(walked.lines, remembered.lines) << where;
    }
  }
}

TEST_F(HeldPortsTest, AMapThatWasHandedOutIsLookedThroughEachTime) {
  DefineUsualCodes();
  onu_ability_set_log_level_mask(LogLevels(0, 1, 13));
  OnuAbilityProfile profile = MakeProfile(kReal);
  profile.Add(kFePorts, 4U);
  AbilityMap::Map& abilities = profile._common_ability;
  profile.Add(kGePorts, 2U);
  EXPECT_EQ(NumberEntry(6), ContentOf(profile)[kAllLan]);
  abilities.erase(kFePorts);
  abilities[kUnknown] = Value(2, 1);
  host.ForgetLog();
  profile.Update();
  EXPECT_EQ(NumberEntry(2), ContentOf(profile)[kAllLan]);
  EXPECT_TRUE(Contains(host.TakeLog(), NameUnknown(kUnknown)));
}

TEST_F(HeldPortsTest, RecordsHandedOutMayChangeAtAnyMoment) {
  DefineUsualCodes();
  onu_ability_set_log_level_mask(LogLevels(0, 1, 13));
  OnuAbilityProfile profile = MakeProfile(kReal);
  profile.Add(kFePorts, 4U);
  profile.Add(kPotsPorts, 2U);
  EXPECT_EQ(NumberEntry(4), ContentOf(profile)[kAllLan]);
  auto& records = OnuAbilityCodeInfo::GetInstance()->Get();
  profile.Update();
  for (ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    if (record.ability_code == kPotsPorts) {
      record.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = 3;
    }
  }
  profile.Update();
  EXPECT_EQ(NumberEntry(6), ContentOf(profile)[kAllLan]);
}

}  // namespace
