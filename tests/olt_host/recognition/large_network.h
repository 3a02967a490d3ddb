// A library of thousands of patterns and a population for it, made in no time: names and
// vendors by the thousand, ports in small numbers, ONUs that are what a pattern says, or
// nearly, or tell half of it.
#ifndef TESTS_OLT_HOST_RECOGNITION_LARGE_NETWORK_H
#define TESTS_OLT_HOST_RECOGNITION_LARGE_NETWORK_H

#include <initializer_list>
#include <memory>
#include <random>
#include <string>

#include "catalogue/reports.h"
#include "confirmation/population.h"
#include "recognition/population_outcome.h"
#include "state/library_state.h"

namespace olt_host_test {

class LargeNetwork {
 public:
  explicit LargeNetwork(std::uint32_t seed) : _random(seed) {}

  olt_host::LibraryState Library(unsigned int patterns) {
    olt_host::LibraryState state;
    state.attributes = {{1, "CONFIRM_TYPE"}, {3, "LAMP"}, {4, "PORT_TYPE"}, {5, "VALUE_TYPE"}};
    for (const unsigned short code : kPorts) AddCode(state, code, 2, 3);
    for (const unsigned short code :
         std::initializer_list<unsigned short>{1001, 1023, 1080, 1081, 1085, 65533}) {
      AddCode(state, code, 2, 0);
    }
    for (const unsigned short code : std::initializer_list<unsigned short>{1082, 1083}) {
      AddCode(state, code, 3, 1);
    }
    for (unsigned int i = 0; i < patterns; ++i) {
      state.match_profiles.push_back(Pattern(i));
      state.real_profiles.push_back(RealProfile(i));
    }
    return state;
  }

  // The same with every tenth pattern changed, dropped or moved to the end.
  olt_host::LibraryState Changed(const olt_host::LibraryState& library) {
    olt_host::LibraryState changed = library;
    changed.match_profiles.clear();
    std::vector<OnuAbilityProfile> moved;
    for (const OnuAbilityProfile& pattern : library.match_profiles) {
      const unsigned int lot = Below(30);
      if (lot == 0) continue;
      (lot == 1 ? moved : changed.match_profiles).push_back(pattern);
      if (lot == 2) changed.match_profiles.back().UpdateInit(kPorts[0], Below(5));
    }
    for (const OnuAbilityProfile& pattern : moved) changed.match_profiles.push_back(pattern);
    return changed;
  }

  olt_host::Reports Reports(const olt_host::LibraryState& library, unsigned int onus) {
    olt_host::Reports reports;
    reports.default_settings.hgu_mode = 2;
    for (unsigned int i = 0; i < onus; ++i) {
      const auto& patterns = library.match_profiles;
      reports.onus.push_back(Report(patterns[Below(static_cast<unsigned int>(patterns.size()))]));
      reports.onus.back().place = static_cast<std::uint16_t>(i / 128 + 1);
      reports.onus.back().onu = static_cast<std::uint8_t>(i % 128);
    }
    return reports;
  }

 private:
  static constexpr unsigned short kPorts[] = {24, 32, 38, 47, 48, 49, 50, 1002, 1010, 1011};
  static constexpr unsigned short kTypes[] = {1080, 1081, 1085};
  static constexpr unsigned int kFirstKey = 1000;

  unsigned int Below(unsigned int bound) { return static_cast<unsigned int>(_random()) % bound; }

  static void AddCode(olt_host::LibraryState& state, unsigned short code, unsigned short value_type,
                      unsigned short confirm_type) {
    ONU_ABILITY_CODE_ATTR_INFO record;
    record.ability_code = code;
    record.ability_name = "CODE_" + std::to_string(code);
    record.ability_attr = {{ONU_ABILITY_ATTR_CONFIRM_TYPE, confirm_type},
                           {ONU_ABILITY_ATTR_LAMP, 0},
                           {ONU_ABILITY_ATTR_PORT_TYPE, 0},
                           {ONU_ABILITY_ATTR_VALUE_TYPE, value_type}};
    state.codes.push_back(record);
  }

  OnuAbilityProfile Pattern(unsigned int index) {
    OnuAbilityProfile profile;
    profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                 ONU_ABILITY_MATCH_TYPE_EXACT);
    profile._id = static_cast<unsigned short>(30001 + index);
    for (const unsigned short code : kTypes) profile.UpdateInit(code, kFirstKey + index);
    for (const unsigned short code : kPorts) {
      if (Below(3) != 0) profile.UpdateInit(code, Below(8) == 0 ? 0xFFFFFFFFU : Below(3));
    }
    if (Below(4) != 0) profile.UpdateInit(1082, "V" + std::to_string(Below(60)));
    if (Below(4) != 0) profile.UpdateInit(1083, "MODEL-" + std::to_string(index));
    return profile;
  }

  OnuAbilityProfile RealProfile(unsigned int index) {
    OnuAbilityProfile profile;
    profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                 ONU_ABILITY_MATCH_TYPE_EXACT);
    profile._id = static_cast<unsigned short>(30001 + index);
    for (const unsigned short code : kTypes) profile.UpdateInit(code, kFirstKey + index);
    if (Below(2) == 0) profile.UpdateInit(1002, 1U);
    if (Below(2) == 0) profile.UpdateInit(1023, 1U);
    profile.UpdateInit(1083, "MODEL-" + std::to_string(index));
    return profile;
  }

  // An ONU for which the pattern was made.
  olt_host::OnuReport Report(const OnuAbilityProfile& pattern) {
    olt_host::OnuReport report;
    unsigned int key = 0;
    pattern.Get(key);
    report.reported_type = Below(3) == 0 ? key : 900000 + Below(1000);
    std::string text;
    pattern.Get(1082, text);
    if (!text.empty()) report.vendor_id = text;
    text.clear();
    pattern.Get(1083, text);
    if (!text.empty() && Below(4) != 0) {
      report.device_name = Below(12) == 0 ? "ODD-" + std::to_string(Below(10000)) : text;
    }
    for (const unsigned short code : kPorts) {
      if (Below(6) == 0) continue;
      unsigned int value = Below(3);
      pattern.Get(code, value);
      report.abilities[code] = Below(25) == 0 ? 9 : value;
    }
    return report;
  }

  std::mt19937 _random;
};

inline olt_host::Populations OnePopulation(olt_host::Reports reports) {
  return {std::make_shared<const olt_host::Population>(std::move(reports))};
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_RECOGNITION_LARGE_NETWORK_H
