#include "commands/rebuilt_table.h"

#include <algorithm>
#include <set>

#include "commands/profile_lines.h"
#include "commands/running_config_text.h"

namespace olt_host {

namespace {

constexpr unsigned short kFirstNewId = 30001;

// As the table's commands look it up.
unsigned int KeyUnder(unsigned short key_code, const OnuAbilityProfile& profile) {
  const auto held = profile._common_ability.find(key_code);
  if (held == profile._common_ability.end()) return profile._ability_default_value;
  const bool is_number = held->second.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT;
  return is_number ? held->second.ability_ushort_value : 0;
}

std::string ValueText(const OnuAbilityProfile& profile, unsigned short code) {
  const auto held = profile._common_ability.find(code);
  if (held == profile._common_ability.end()) return "absent";
  const ONU_ABILITY_COMMON_ABILITY_VALUE& value = held->second;
  const std::string text =
      value.ability_string_value.empty() ? "" : " " + InRemark(value.ability_string_value);
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    return std::to_string(value.ability_ushort_value) + text;
  }
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    return "text" + (text.empty() ? " \"\"" : text);
  }
  return "unset" + text;
}

// What the lines leave different.
std::vector<std::string> Differences(const OnuAbilityProfile& wanted,
                                     const OnuAbilityProfile& built) {
  std::vector<std::string> differences;
  const auto compare = [&differences](const std::string& what, unsigned int from, unsigned int to) {
    if (from != to) {
      differences.push_back(what + " " + std::to_string(from) + " becomes " + std::to_string(to));
    }
  };
  compare("id", wanted._id, built._id);
  compare("bind count", wanted._bind_count, built._bind_count);
  compare("ability count", wanted._common_ability_num, built._common_ability_num);
  std::set<unsigned short> codes;
  for (const auto& ability : wanted._common_ability) codes.insert(ability.first);
  for (const auto& ability : built._common_ability) codes.insert(ability.first);
  for (const unsigned short code : codes) {
    if (SameUnder(code, wanted, built)) continue;
    differences.push_back("code " + std::to_string(code) + " " + ValueText(wanted, code) +
                          " becomes " + ValueText(built, code));
  }
  return differences;
}

}  // namespace

// The table of an empty host looks at the default key ability code, and at it alone: ids
// are given anew.
bool RebuiltTable::Refuses(const OnuAbilityProfile& profile) const {
  if (_type != ONU_ABILITY_PROFILE_TYPE_REAL) return false;
  ONU_ABILITY_COMMON_ABILITY_VALUE key;
  profile.Get(ONU_ABILITY_CODE_DEFAULT_KEY, key);
  return std::any_of(_built.begin(), _built.end(), [&key](const OnuAbilityProfile& other) {
    return other.IsEqual(ONU_ABILITY_CODE_DEFAULT_KEY, key) != 0;
  });
}

// Updates go to the oldest profile with the key.
bool RebuiltTable::IsOldest(const OnuAbilityProfile& profile) const {
  const unsigned short key_code = profile._key_ability_code;
  return std::none_of(_built.begin(), _built.end(), [&](const OnuAbilityProfile& other) {
    return KeyUnder(key_code, other) == KeyUnder(key_code, profile);
  });
}

unsigned short RebuiltTable::NextId() const {
  return static_cast<unsigned short>(kFirstNewId + _built.size());
}

void RebuiltTable::Add(const OnuAbilityProfile& wanted, std::vector<std::string>& lines) {
  ProfileLines building(wanted);
  building.Build();
  const std::string subject =
      std::string("! ") + (_type == ONU_ABILITY_PROFILE_TYPE_REAL ? "real" : "match") +
      " profile " + std::to_string(++_seen) + " (key " + std::to_string(building.key()) + "): ";
  if (!building.KeepsItsKey() || Refuses(building.built())) {
    lines.push_back(subject + "left out, " +
                    (building.KeepsItsKey() ? "its key is taken" : "its key cannot be typed"));
    return;
  }
  if (IsOldest(building.built())) building.Update();
  OnuAbilityProfile built(building.built());
  built._id = NextId();
  for (const std::string& difference : Differences(wanted, built)) {
    lines.push_back(subject + difference);
  }
  lines.insert(lines.end(), building.lines().begin(), building.lines().end());
  _built.push_back(built);
}

}  // namespace olt_host
