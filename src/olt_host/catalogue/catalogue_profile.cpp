#include "catalogue/catalogue_profile.h"

#include <map>
#include <set>
#include <string>

namespace olt_host {

namespace {

using CodeRecords = std::map<unsigned short, const ONU_ABILITY_CODE_ATTR_INFO*>;

void Store(OnuAbilityProfile& profile, const AbilityEntry& ability) {
  const bool is_default = ability.kind == AbilityKind::kNumber && ability.number == 0 &&
                          profile._ability_default_value == 0;
  if (ability.kind == AbilityKind::kAny && ability.holds_text) {
    profile.UpdateInit(ability.code, std::string());
  } else if (ability.kind == AbilityKind::kAny) {
    profile.UpdateInit(ability.code, kAnyNumber);
  } else if (ability.kind == AbilityKind::kText) {
    profile.UpdateInit(ability.code, ability.text);
  } else if (!is_default) {
    profile.UpdateInit(ability.code, ability.number);
  }
}

unsigned short AttributeOf(const CodeRecords& records, unsigned short code, unsigned short id) {
  const auto record = records.find(code);
  if (record == records.end()) {
    return ONU_ABILITY_INVALID_ID;
  }
  const auto& attributes = record->second->ability_attr;
  const auto value = attributes.find(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
  return value == attributes.end() ? 0 : value->second;
}

void DeriveTotal(OnuAbilityProfile& profile, const CodeRecords& records,
                 unsigned short total_code) {
  unsigned int sum = 0;
  bool derived = false;
  for (const auto& [code, value] : profile._common_ability) {
    const unsigned short port_type = AttributeOf(records, code, kPortTypeAttribute);
    const bool is_number = AttributeOf(records, code, kValueTypeAttribute) == kNumberValueType;
    const bool counts = total_code == kAllLanCode
                            ? port_type == kLanPort
                            : is_number && (port_type == kLanPort || port_type == kOtherDataUni);
    if (counts && value.ability_ushort_value != 0 && value.ability_ushort_value != kAnyNumber) {
      sum += value.ability_ushort_value;
      derived = true;
    }
  }
  if (derived) {
    profile.UpdateInit(total_code, sum);
  }
}

// As the library does when it takes a profile.
void DeriveTotals(OnuAbilityProfile& profile, const CodeRecords& records) {
  DeriveTotal(profile, records, kAllLanCode);
  DeriveTotal(profile, records, kDataUniCode);
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
}

}  // namespace

std::vector<ONU_ABILITY_CODE_ATTR_INFO> MakeCodes(const Catalogue& catalogue) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  codes.reserve(catalogue.codes.size());
  for (const CodeEntry& entry : catalogue.codes) {
    ONU_ABILITY_CODE_ATTR_INFO record;
    record.ability_code = entry.code;
    record.ability_name = entry.name;
    record.ability_attr.clear();
    for (const AttributeEntry& attribute : catalogue.attributes) {
      record.ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.id)] =
          entry.Attribute(attribute.id);
    }
    codes.push_back(record);
  }
  return codes;
}

OnuAbilityProfile MakeProfile(const ProfileEntry& entry, ONU_ABILITY_ENUM_PROFILE_TYPE type,
                              unsigned short key_ability_code) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile._id = entry.id;
  profile._key_ability_code = key_ability_code;
  profile.UpdateInit(key_ability_code, entry.key);
  for (const AbilityEntry& ability : entry.abilities) {
    Store(profile, ability);
  }
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  return profile;
}

std::vector<OnuAbilityProfile> MakeTable(const Catalogue& catalogue,
                                         ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const auto& entries =
      type == ONU_ABILITY_PROFILE_TYPE_REAL ? catalogue.real_profiles : catalogue.match_profiles;
  const std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes = MakeCodes(catalogue);
  CodeRecords records;
  for (const ONU_ABILITY_CODE_ATTR_INFO& code : codes) {
    records.emplace(code.ability_code, &code);
  }
  std::vector<OnuAbilityProfile> profiles;
  profiles.reserve(entries.size());
  std::set<unsigned short> ids;
  unsigned short next = kFirstGivenId;
  for (const ProfileEntry& entry : entries) {
    profiles.push_back(MakeProfile(entry, type, catalogue.key_ability_code));
    DeriveTotals(profiles.back(), records);
    while (entry.id == 0 && ids.count(next) != 0) {
      ++next;
    }
    profiles.back()._id = entry.id == 0 ? next : entry.id;
    ids.insert(profiles.back()._id);
  }
  return profiles;
}

}  // namespace olt_host
