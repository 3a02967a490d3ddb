#include "catalogue/catalogue_loader.h"

#include <string>

#include "catalogue/catalogue_profile.h"
#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

void LoadAttributes(const Catalogue& catalogue) {
  for (const AttributeEntry& attribute : catalogue.attributes) {
    OnuAbilityAttrInfo::GetInstance()->Add(
        static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.id), attribute.name);
  }
}

void LoadCodes(const Catalogue& catalogue) {
  for (const CodeEntry& code : catalogue.codes) {
    ONU_ABILITY_CODE_ATTR_INFO info;
    info.ability_code = code.code;
    info.ability_name = code.name;
    for (const auto& [id, value] : code.attributes) {
      info.ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id)] = value;
    }
    OnuAbilityCodeInfo::GetInstance()->Update(info);
  }
}

// A table learns the key ability code when it is made, so a catalogue with
// another one needs tables made after the change.
void SetKeyAbilityCode(unsigned short code) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  if (codes->GetKeyAbilityCode() == code) {
    return;
  }
  codes->SetKeyAbilityCode(code);
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  manager->Init();
}

void LoadProfile(const ProfileEntry& entry, ONU_ABILITY_ENUM_PROFILE_TYPE type,
                 unsigned short key_ability_code) {
  OnuAbilityProfile profile = MakeProfile(entry, type, key_ability_code);
  const unsigned int status = OnuAbilityTableManager::GetInstance()->Add(profile);
  if (status != ONU_ABILITY_RET_OK) {
    throw LoadError(ToText(entry.position) + ": the library refused the profile with key " +
                    std::to_string(entry.key));
  }
}

}  // namespace

void LoadCatalogue(const Catalogue& catalogue) {
  LoadAttributes(catalogue);
  LoadCodes(catalogue);
  SetKeyAbilityCode(catalogue.key_ability_code);
  for (const ProfileEntry& profile : catalogue.match_profiles) {
    LoadProfile(profile, ONU_ABILITY_PROFILE_TYPE_MATCH, catalogue.key_ability_code);
  }
  for (const ProfileEntry& profile : catalogue.real_profiles) {
    LoadProfile(profile, ONU_ABILITY_PROFILE_TYPE_REAL, catalogue.key_ability_code);
  }
  VerifyLoaded(catalogue);
}

}  // namespace olt_host
