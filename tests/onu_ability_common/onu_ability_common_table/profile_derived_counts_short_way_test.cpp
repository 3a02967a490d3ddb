// The derived counts from one pass over the codes: what the two walks derive, acquire
// and say in production.
#include <functional>
#include <ostream>

#include "onu_ability_common_global/short_ways.h"
#include "profile_expectations.h"

namespace {

constexpr int kPortType = ONU_ABILITY_ATTR_PORT_TYPE;
constexpr int kValueType = ONU_ABILITY_ATTR_VALUE_TYPE;
constexpr unsigned short kUnknown = 2000;

std::vector<ONU_ABILITY_CODE_ATTR_INFO> Records() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  return records;
}

// Takes the attribute from one code, or from all when `code` is 0.
void TakeAttribute(unsigned short code, int id) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records = Records();
  for (ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    if (code == 0 || record.ability_code == code) {
      record.ability_attr.erase(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
    }
  }
  OnuAbilityCodeInfo::GetInstance()->Restore(records);
}

void Unregister(int id) {
  TakeAttribute(0, id);
  OnuAbilityAttrInfo::GetInstance()->Del(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
}

// A change of the usual registry.
struct Registry {
  const char* name;
  void (*change)();
};

std::ostream& operator<<(std::ostream& out, const Registry& registry) {
  return out << registry.name;
}

const Registry kRegistries[] = {
    {"Usual", [] {}},
    {"LanTotalIsALanPort",
     [] {
       DefineCode(kAllLan, "ALL_LAN", {{kPortType, 3}});
     }},
    {"LanTotalIsADataUni",
     [] {
       DefineCode(kAllLan, "ALL_LAN", {{kPortType, 7}});
     }},
    {"LanTotalIsAText",
     [] {
       DefineCode(kAllLan, "ALL_LAN", {{kPortType, 7}, {kValueType, 3}});
     }},
    {"LanTotalIsUnknown", [] { OnuAbilityCodeInfo::GetInstance()->Del(kAllLan); }},
    {"LanTotalLacksItsPortType", [] { TakeAttribute(kAllLan, kPortType); }},
    {"DataUniTotalIsADataUni",
     [] {
       DefineCode(kDataUnis, "DATA_UNI", {{kPortType, 7}});
     }},
    {"PortsAreTexts",
     [] {
       DefineCode(kFePorts, "FE_PORTS", {{kPortType, 3}, {kValueType, 3}});
     }},
    {"PortsLackTheirPortType", [] { TakeAttribute(kFePorts, kPortType); }},
    {"PortsLackTheirValueType", [] { TakeAttribute(kWifiUni, kValueType); }},
    {"NoPortTypeIsRegistered", [] { Unregister(kPortType); }},
    {"NoValueTypeIsRegistered", [] { Unregister(kValueType); }},
    {"NoCodeIsKnown", [] { OnuAbilityCodeInfo::GetInstance()->Restore({}); }},
};

class DerivedCountsShortWayTest : public LibraryTest,
                                  public ::testing::WithParamInterface<Registry> {
 protected:
  // What an update leaves and says.
  struct Outcome {
    Content content;
    unsigned int count = 0;
    std::vector<LogLine> lines;
    std::vector<std::size_t> attributes;  // of each code
  };

  static OnuAbilityProfile MakePorts(unsigned int entries) {
    const std::function<void(OnuAbilityProfile&)> all[] = {
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kAllLan, 9U); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kFePorts, 4U); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kGePorts, kWildcard); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kWifiUni, 2U); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kTypeName, std::string("X")); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kUnknown, 5U); },
        [](OnuAbilityProfile& profile) { profile.UpdateInit(kDataUnis, 1U); },
        // With another tag the number beside it counts all the same.
        [](OnuAbilityProfile& profile) { profile._common_ability[kGePorts] = Value(3, 7, "Y"); },
    };
    OnuAbilityProfile profile = MakeProfile(kReal);
    for (unsigned int entry = 0; entry < kEntries; ++entry) {
      if ((entries >> entry & 1U) != 0) {
        all[entry](profile);
      }
    }
    profile._common_ability_num = 40;
    return profile;
  }

  Outcome OutcomeOf(OnuAbilityProfile profile, bool walks_only) {
    OnuAbilityCodeInfo::GetInstance()->Restore(records);
    SetWalksOnly(walks_only);
    host.ForgetLog();
    profile.Update();
    Outcome outcome;
    outcome.content = ContentOf(profile);
    outcome.count = profile._common_ability_num;
    outcome.lines = host.TakeLog();
    for (const ONU_ABILITY_CODE_ATTR_INFO& record : Records()) {
      outcome.attributes.push_back(record.ability_attr.size());
    }
    return outcome;
  }

  static constexpr unsigned int kEntries = 8;
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
};

// Every profile of some of eight abilities.
TEST_P(DerivedCountsShortWayTest, GivesWhatTheWalksGive) {
  DefineUsualCodes();
  GetParam().change();
  records = Records();
  onu_ability_set_log_level_mask(LogLevels(0, 1, 13));
  for (unsigned int entries = 0; entries < 1U << kEntries; ++entries) {
    const OnuAbilityProfile profile = MakePorts(entries);
    const Outcome walked = OutcomeOf(profile, true);
    const Outcome derived = OutcomeOf(profile, false);
    ASSERT_EQ(walked.content, derived.content) << entries;
    ASSERT_EQ(walked.count, derived.count) << entries;
    ASSERT_EQ(walked.lines, derived.lines) << entries;
    ASSERT_EQ(walked.attributes, derived.attributes) << entries;
  }
}

INSTANTIATE_TEST_SUITE_P(AllRegistries, DerivedCountsShortWayTest, ::testing::ValuesIn(kRegistries),
                         [](const auto& test) { return std::string(test.param.name); });

class DerivedCountsLinesTest : public LibraryTest {};

// Who listens to what the walks say of each code hears it.
TEST_F(DerivedCountsLinesTest, AreSaidToWhoListens) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(kReal);
  profile.UpdateInit(kFePorts, 4U);
  for (const unsigned int level : {6U, 9U, 10U}) {
    onu_ability_set_log_level_mask(1U << level);
    host.ForgetLog();
    profile.Update();
    EXPECT_FALSE(host.TakeLog().empty()) << level;
  }
  onu_ability_set_log_level_mask(LogLevels(0, 1, 13));
  profile.Update();
  EXPECT_TRUE(host.TakeLog().empty());
}

}  // namespace
