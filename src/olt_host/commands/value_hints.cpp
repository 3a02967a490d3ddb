// What the host knows for the values of commands: its own and the library's, told
// apart by their help lines.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "catalogue/registries.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "onu_ability_common_table.h"
#include "recognition/ability_reading.h"
#include "vty/value_hints.h"

namespace olt_host {

namespace {

using Hints = std::vector<ValueHint>;

// By number, so that they are offered in order.
Hints ToHints(const std::map<unsigned int, std::string>& values) {
  Hints hints;
  for (const auto& [value, help] : values) {
    hints.push_back({std::to_string(value), help});
  }
  return hints;
}

Hints Codes() {
  std::map<unsigned int, std::string> codes;
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : RegisteredCodes()) {
    codes.emplace(record.ability_code, record.ability_name);
  }
  return ToHints(codes);
}

Hints CodesAndNames() {
  Hints hints = Codes();
  const std::size_t codes = hints.size();
  for (std::size_t i = 0; i < codes; ++i) {
    hints.push_back({hints[i].help, "code " + hints[i].value});
  }
  return hints;
}

Hints Attributes() {
  const auto attributes = RegisteredAttributes();
  return ToHints({attributes.begin(), attributes.end()});
}

std::vector<OnuAbilityProfile> Profiles(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

std::string TypeName(const OnuAbilityProfile& profile) {
  const auto* name = HeldUnder(profile, ONU_ABILITY_CODE_TYPE_NAME);
  return name == nullptr ? "" : name->ability_string_value;
}

// The numbers that profiles hold under a code, with the type name of the profile.
void AddNumbers(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short code,
                std::map<unsigned int, std::string>& values) {
  for (const OnuAbilityProfile& profile : Profiles(type)) {
    const auto* value = HeldUnder(profile, code);
    if (value != nullptr && value->ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      values.emplace(value->ability_ushort_value, TypeName(profile));
    }
  }
}

// Real profiles first: they are the ones that have names.
Hints Keys() {
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  std::map<unsigned int, std::string> keys;
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_REAL, key_code, keys);
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_MATCH, key_code, keys);
  return ToHints(keys);
}

Hints RealTypeHints() {
  std::map<unsigned int, std::string> types;
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_CODE_REAL_TYPE, types);
  return ToHints(types);
}

Hints OnuTypes() {
  std::map<unsigned int, std::string> types;
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_CODE_REAL_TYPE, types);
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_CODE_REAL_TYPE, types);
  AddNumbers(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_CODE_REPORT_TYPE, types);
  constexpr unsigned int kHighestType = 65535;
  types.erase(types.upper_bound(kHighestType), types.end());
  return ToHints(types);
}

Hints Places() {
  std::map<unsigned int, unsigned int> onus;
  if (Host().population != nullptr) {
    for (const OnuReport& report : Host().population->Onus()) {
      ++onus[report.place];
    }
  }
  Hints hints;
  for (const auto& [place, count] : onus) {
    hints.push_back(
        {std::to_string(place), std::to_string(count) + (count == 1 ? " ONU" : " ONUs")});
  }
  return hints;
}

// Of all places: which one the operator means is not known here.
Hints OnuNumbers() {
  std::set<unsigned int> numbers;
  if (Host().population != nullptr) {
    for (const OnuReport& report : Host().population->Onus()) {
      numbers.insert(report.onu);
    }
  }
  Hints hints;
  for (const unsigned int number : numbers) {
    hints.push_back({std::to_string(number), ""});
  }
  return hints;
}

Hints Nothing() { return {}; }

}  // namespace

void OfferValues() {
  ValueHints& hints = ValueHints::Instance();
  hints.Offer("<value>", "ability code", Codes);
  hints.Offer("<value>", "ability code value", Codes);
  hints.Offer("<value>", "key ability code", Codes);
  hints.Offer("<value>", "ability code value or name", CodesAndNames);
  hints.Offer("<value>", "ability attribute id", Attributes);
  hints.Offer("<value>", "key ability value", Keys);
  hints.Offer("<value>", "key_ability_value", Keys);
  hints.Offer("<value>", "profile index", Keys);  // which is the key all the same
  hints.Offer("<value>", "onu type code", OnuTypes);
  hints.Offer("<onutype_code>", "", OnuTypes);
  // The real type of "show onucapa_table" is the one value without a help line. What
  // is offered for it counts for every line not named here, so these have to be.
  hints.Offer("<value>", "", RealTypeHints);
  hints.Offer("<value>", "ability attribute value", Nothing);
  hints.Offer("<value>", "unsigned short ability value", Nothing);
  hints.Offer("<0-65535>", "place of the ONU", Places);
  hints.Offer("<0-255>", "number of the ONU", OnuNumbers);
}

}  // namespace olt_host
