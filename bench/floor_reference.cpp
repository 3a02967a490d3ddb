#include "floor_reference.h"

#include <algorithm>

#include "bep.h"
#include "host_lock.h"

namespace {

bool IsLampCode(unsigned short code) {
  return code >= kFirstLampCode && code < kFirstLampCode + kLampCodes;
}

unsigned int NumberIn(const BareProfile& profile, unsigned short code) {
  const auto ability = profile.find(code);
  return ability != profile.end() &&
                 ability->second.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT
             ? ability->second.ability_ushort_value
             : 0;
}

}  // namespace

void InsertBare(const Description& description, BareProfile& profile) {
  for (const auto* abilities : {&description.given, &description.derived}) {
    for (const Ability& ability : *abilities) {
      profile.emplace(ability.code, ability.value);
    }
  }
}

FloorReference::FloorReference(std::size_t profiles) : _profiles(profiles) {
  for (std::size_t i = 0; i < profiles; ++i) {
    const Description& description = RealDescriptions()[i];
    Profile& profile = _profiles[i];
    InsertBare(description, profile.abilities);
    for (const auto& ability : profile.abilities) {
      if (IsLampCode(ability.first)) profile.lamp_codes.push_back(ability.first);
    }
    _by_key.emplace(description.key, &profile);
  }
}

unsigned int FloorReference::Number(unsigned int key, unsigned short code) {
  const HostLock lock(_mutex);
  const auto profile = _by_key.find(key);
  return profile == _by_key.end() ? 0 : NumberIn(profile->second->abilities, code);
}

unsigned int FloorReference::Text(unsigned int key, unsigned short code, char* buffer,
                                  unsigned int size) {
  const HostLock lock(_mutex);
  const auto profile = _by_key.find(key);
  if (profile == _by_key.end()) return 1;
  const auto ability = profile->second->abilities.find(code);
  if (ability == profile->second->abilities.end() ||
      ability->second.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
    return 1;
  }
  const std::string& text = ability->second.ability_string_value;
  const unsigned int count = std::min(size - 1, static_cast<unsigned int>(text.size()));
  bep_memCpyEx(buffer, size - 1, text.data(), count);
  buffer[count] = '\0';
  return 0;
}

unsigned int FloorReference::Lamps(unsigned int key, unsigned short code) {
  const HostLock lock(_mutex);
  const auto profile = _by_key.find(key);
  if (profile == _by_key.end()) return 0;
  unsigned int total = NumberIn(profile->second->abilities, code);
  for (const unsigned short lamp_code : profile->second->lamp_codes) {
    total += NumberIn(profile->second->abilities, lamp_code) & 0xFFU;
  }
  return total;
}
