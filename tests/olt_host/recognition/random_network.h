// A random library and a random population for it, odd on purpose: profiles without key,
// without some codes, with unset and text values, codes that are compared or asked or
// neither, records that lack an attribute, ONUs that tell too little, too much or nothing.
// Values come from small ranges, so that profiles fit now and then.
#ifndef TESTS_OLT_HOST_RECOGNITION_RANDOM_NETWORK_H
#define TESTS_OLT_HOST_RECOGNITION_RANDOM_NETWORK_H

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "state/library_state.h"

namespace olt_host_test {

// Under sanitizers and emulators everything takes ten times as long: fewer is looked at there.
#ifdef OLT_HOST_TEST_IS_SLOW
constexpr bool kIsSlow = true;
#else
constexpr bool kIsSlow = false;
#endif
constexpr std::uint32_t AQuarterWhereSlow(std::uint32_t number) {
  return kIsSlow ? number / 4 : number;
}

class RandomNetwork {
 public:
  explicit RandomNetwork(std::uint32_t seed) : _random(seed) {}

  // A profile without key takes ONUs without type only until it is first compared: where
  // one library serves many ONUs, there should be none.
  olt_host::LibraryState Library(std::size_t patterns, bool all_with_key = false) {
    _all_with_key = all_with_key;
    olt_host::LibraryState state;
    state.attributes = {{1, "CONFIRM_TYPE"}, {3, "LAMP"}, {4, "PORT_TYPE"}, {5, "VALUE_TYPE"}};
    state.sfu_common_type = 857;
    state.hgu_common_type = 762;
    AddCodes(state);
    for (std::size_t i = 0; i < patterns; ++i) {
      state.match_profiles.push_back(Pattern(i, i * 4 >= patterns * 3));
    }
    for (unsigned int key = 0; key < kKeys; ++key) {
      if (!OneIn(5)) state.real_profiles.push_back(RealProfile(key));
    }
    return state;
  }

  olt_host::Reports Population(std::size_t onus) {
    olt_host::Reports reports;
    for (std::size_t i = 0; i < onus; ++i) {
      reports.onus.push_back(Report(i));
      reports.settings[reports.onus.back().place] = Settings();
    }
    return reports;
  }

 private:
  static constexpr unsigned int kKeys = 12;
  static constexpr unsigned short kPlainCodes = 8;

  unsigned int Below(unsigned int bound) { return static_cast<unsigned int>(_random()) % bound; }
  bool OneIn(unsigned int n) { return Below(n) == 0; }
  std::string Text() {
    constexpr const char* kTexts[] = {"", "ZKWM", "ACME", "ZK"};
    return kTexts[Below(4)];
  }
  unsigned int Number() { return OneIn(6) ? ONU_ABILITY_WILDCARD : Below(2); }
  unsigned int Type() { return 5000 + Below(kKeys + 3); }

  void AddCode(olt_host::LibraryState& state, unsigned short code, unsigned short value_type,
               unsigned short confirm_type) {
    ONU_ABILITY_CODE_ATTR_INFO record;
    record.ability_code = code;
    record.ability_name = "CODE_" + std::to_string(code);
    record.ability_attr.clear();
    record.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = value_type;
    if (confirm_type != 0 || !OneIn(3)) {
      record.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = confirm_type;
    }
    if (OneIn(3)) {
      const unsigned short port_type = OneIn(2) ? 3 : 0;
      record.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = port_type;
    }
    state.codes.push_back(record);
  }

  void AddCodes(olt_host::LibraryState& state) {
    const auto confirm_type = [this] {
      return static_cast<unsigned short>(OneIn(2) ? 3 : Below(4));
    };
    for (unsigned short code = 1; code <= kPlainCodes; ++code) {
      // One draw a statement: compilers order those of one call as they like.
      const unsigned short confirmed = confirm_type();
      AddCode(state, code, OneIn(8) ? 3 : 2, confirmed);
    }
    for (const unsigned short code : std::initializer_list<unsigned short>{48, 1002})
      AddCode(state, code, 2, 3);
    for (const unsigned short code :
         std::initializer_list<unsigned short>{1001, 1023, 1080, 1081, 1085, 65533}) {
      if (!OneIn(12)) {
        const unsigned short rarely = OneIn(6) ? 1 : 0;
        AddCode(state, code, 2, rarely);
      }
    }
    for (const unsigned short code : std::initializer_list<unsigned short>{1082, 1083}) {
      if (!OneIn(12)) AddCode(state, code, 3, 1);
    }
  }

  OnuAbilityProfile Pattern(std::size_t index, bool of_operator) {
    OnuAbilityProfile profile;
    profile.Init(
        ONU_ABILITY_PROFILE_TYPE_MATCH,
        of_operator ? ONU_ABILITY_PROFILE_SOURCE_EXTERNAL : ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
        ONU_ABILITY_MATCH_TYPE_EXACT);
    profile._id = static_cast<unsigned short>(30001 + index);
    const unsigned int key = 5000 + Below(kKeys);
    if (_all_with_key || !OneIn(15)) profile.UpdateInit(1085, key);
    if (!OneIn(10)) profile.UpdateInit(1080, OneIn(5) ? Type() : key);
    if (!OneIn(10)) profile.UpdateInit(1081, key);
    for (unsigned short code = 1; code <= kPlainCodes; ++code) {
      if (OneIn(2)) profile.UpdateInit(code, Number());
    }
    if (OneIn(3)) profile.UpdateInit(1002, Number());
    if (OneIn(3)) profile.UpdateInit(48, Number());
    if (OneIn(3)) profile.UpdateInit(1082, Text());
    if (OneIn(4)) profile.UpdateInit(1083, Text());
    if (OneIn(12))
      profile._common_ability[static_cast<unsigned short>(1 + Below(kPlainCodes))] = {};
    if (OneIn(12)) {
      const std::string text = Text();
      profile.UpdateInit(static_cast<unsigned short>(1 + Below(kPlainCodes)), text);
    }
    profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
    return profile;
  }

  OnuAbilityProfile RealProfile(unsigned int key) {
    OnuAbilityProfile profile;
    profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                 ONU_ABILITY_MATCH_TYPE_EXACT);
    profile._id = static_cast<unsigned short>(30001 + key);
    profile.UpdateInit(1085, 5000 + key);
    profile.UpdateInit(1081, 5000 + key);
    if (!OneIn(4)) profile.UpdateInit(1083, "TYPE-" + std::to_string(5000 + key));
    if (!OneIn(4)) profile.UpdateInit(1002, Below(3));
    if (!OneIn(4)) profile.UpdateInit(1023, Below(3));
    if (OneIn(15)) profile.UpdateInit(1023, std::string("1"));
    profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
    return profile;
  }

  olt_host::OnuReport Report(std::size_t index) {
    olt_host::OnuReport report;
    report.place = static_cast<std::uint16_t>(1 + index / 128);
    report.onu = static_cast<std::uint8_t>(index % 128);
    if (!OneIn(3)) report.vendor_id = Text();
    if (!OneIn(4)) report.reported_type = OneIn(3) ? Type() : 40000 + Below(20000);
    report.read_abilities = !OneIn(8);
    constexpr std::uint8_t kCapabilities[] = {0, 1, 2, 255};
    if (OneIn(2)) report.private_capability = kCapabilities[Below(4)];
    if (OneIn(2)) report.device_name = Text();
    for (unsigned short code = 1; code <= kPlainCodes + 2; ++code) {
      if (!OneIn(3)) report.abilities[code] = Number();
    }
    if (OneIn(2)) report.abilities[48] = Number();
    if (OneIn(3)) report.abilities[1002] = Number();
    return report;
  }

  olt_host::IdentifySettings Settings() {
    olt_host::IdentifySettings settings;
    settings.sfu_mode = static_cast<std::uint16_t>(Below(3));
    settings.setting_1 = static_cast<std::uint16_t>(Below(3));
    settings.hgu_mode = static_cast<std::uint16_t>(Below(6));
    settings.setting_3 = static_cast<std::uint16_t>(Below(3));
    return settings;
  }

  std::mt19937 _random;
  bool _all_with_key = false;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_RECOGNITION_RANDOM_NETWORK_H
