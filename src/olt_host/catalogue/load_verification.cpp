#include "catalogue/load_verification.h"

#include <string>
#include <vector>

#include "catalogue/registries.h"
#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

[[noreturn]] void Fail(const SourcePosition& position, const std::string& what) {
  throw LoadError(ToText(position) + ": the library did not take " + what);
}

void VerifyAttributes(const Catalogue& catalogue) {
  for (const AttributeEntry& attribute : catalogue.attributes) {
    const auto id = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.id);
    if (OnuAbilityAttrInfo::GetInstance()->Get(id) != attribute.name) {
      Fail(attribute.position, "attribute " + attribute.name);
    }
  }
}

void VerifyCodes(const Catalogue& catalogue) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  if (RegisteredCodes().size() != catalogue.codes.size()) {
    Fail(catalogue.position, "every code");
  }
  for (const CodeEntry& code : catalogue.codes) {
    if (codes->IsExist(code.code) == 0 || codes->Get(code.code) != code.name) {
      Fail(code.position, "code " + code.name);
    }
    for (const AttributeEntry& attribute : catalogue.attributes) {
      const auto id = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.id);
      if (codes->Get(code.code, id) != code.Attribute(attribute.id)) {
        Fail(code.position, "attribute " + attribute.name + " of code " + code.name);
      }
    }
  }
  if (codes->GetKeyAbilityCode() != catalogue.key_ability_code) {
    Fail(catalogue.key_ability_code_position, "the key ability code");
  }
}

bool Holds(const OnuAbilityProfile& profile, const AbilityEntry& ability) {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  const unsigned int status = profile.Get(ability.code, value);
  switch (ability.kind) {
    case AbilityKind::kNumber:
      // An absent code reads as the default, which is not stored.
      return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
             value.ability_ushort_value == ability.number;
    case AbilityKind::kText:
      return status == ONU_ABILITY_RET_OK &&
             value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING &&
             value.ability_string_value == ability.text;
    case AbilityKind::kAny:
      break;
  }
  return status == ONU_ABILITY_RET_OK &&
         (ability.holds_text ? value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING &&
                                   value.ability_string_value.empty()
                             : value.ability_ushort_value == kAnyNumber);
}

void VerifyProfiles(const SourcePosition& beginning, const std::vector<ProfileEntry>& entries,
                    ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> stored;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, stored);
  if (stored.size() != entries.size()) {
    Fail(beginning, "every profile");
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const ProfileEntry& entry = entries[i];
    const std::string what = "the profile with key " + std::to_string(entry.key);
    unsigned int key = 0;
    if (stored[i].Get(key) != ONU_ABILITY_RET_OK || key != entry.key || stored[i]._id == 0 ||
        (entry.id != 0 && stored[i]._id != entry.id)) {
      Fail(entry.position, what);
    }
    for (const AbilityEntry& ability : entry.abilities) {
      if (!Holds(stored[i], ability)) {
        Fail(ability.position, "code " + std::to_string(ability.code) + " of " + what);
      }
    }
  }
}

}  // namespace

void VerifyLoaded(const Catalogue& catalogue) {
  VerifyAttributes(catalogue);
  VerifyCodes(catalogue);
  VerifyProfiles(catalogue.position, catalogue.match_profiles, ONU_ABILITY_PROFILE_TYPE_MATCH);
  VerifyProfiles(catalogue.position, catalogue.real_profiles, ONU_ABILITY_PROFILE_TYPE_REAL);
}

}  // namespace olt_host
