#include "catalogue/catalogue_content.h"

#include "catalogue/catalogue_profile.h"
#include "catalogue/registries.h"

namespace olt_host {

namespace {

using CodeRecords = std::vector<ONU_ABILITY_CODE_ATTR_INFO>;

ContentEntry Setting(const std::string& name, unsigned int value) {
  return {0, name, {{"value", std::to_string(value)}}};
}

std::vector<ContentEntry> SettingsContent(unsigned int key_code, unsigned int sfu,
                                          unsigned int hgu) {
  return {Setting("key ability code", key_code), Setting("common SFU type", sfu),
          Setting("common HGU type", hgu)};
}

// An attribute that a record does not list reads as 0.
std::vector<ContentEntry> CodesContent(const CodeRecords& records, const Catalogue& names) {
  std::vector<ContentEntry> entries;
  entries.reserve(records.size());
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    ContentEntry entry{record.ability_code, record.ability_name, {}};
    entry.values["name"] = record.ability_name;
    for (const auto& [id, value] : record.ability_attr) {
      const auto number = static_cast<std::uint16_t>(id);
      const AttributeEntry* attribute = names.FindAttribute(number);
      if (value != 0) {
        entry.values[attribute != nullptr ? attribute->name : std::to_string(number)] =
            std::to_string(value);
      }
    }
    entries.push_back(entry);
  }
  return entries;
}

std::string ValueText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    return Quoted(value.ability_string_value);
  }
  return std::to_string(value.ability_ushort_value);
}

// In a pattern 0xFFFFFFFF and the empty text are the wildcards.
bool IsWildcard(const OnuAbilityProfile& profile, const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return profile._profile_type == ONU_ABILITY_PROFILE_TYPE_MATCH &&
         (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
              ? value.ability_string_value.empty()
              : value.ability_ushort_value == kAnyNumber);
}

ContentEntry ProfileContent(const OnuAbilityProfile& profile, const Catalogue& names) {
  ContentEntry entry;
  // The profile's own key code: operators may have set the registry's since.
  profile.Get(profile._key_ability_code, entry.key);
  for (const auto& [code, value] : profile._common_ability) {
    const CodeEntry* known = names.FindCode(code);
    const std::string name = known != nullptr ? known->name : std::to_string(code);
    entry.values[name] = IsWildcard(profile, value) ? "any" : ValueText(value);
    if (code == kTypeNameCode) {
      entry.name = value.ability_string_value;
    }
  }
  // An id that the library gave says where the profile stands, no more.
  if (profile._id < kFirstGivenId) {
    entry.values["id"] = std::to_string(profile._id);
  }
  return entry;
}

std::vector<ContentEntry> ProfilesContent(const std::vector<OnuAbilityProfile>& profiles,
                                          const Catalogue& names) {
  std::vector<ContentEntry> entries;
  entries.reserve(profiles.size());
  for (const OnuAbilityProfile& profile : profiles) {
    entries.push_back(ProfileContent(profile, names));
  }
  return entries;
}

std::vector<ContentEntry> AttributesContent(const std::map<unsigned short, std::string>& names) {
  std::vector<ContentEntry> entries;
  entries.reserve(names.size());
  for (const auto& [id, name] : names) {
    entries.push_back({id, name, {{"name", name}}});
  }
  return entries;
}

std::vector<ContentEntry> LibraryProfiles(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                                          const Catalogue& names) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, profiles);
  return ProfilesContent(profiles, names);
}

}  // namespace

CatalogueContent ContentOf(const Catalogue& catalogue) {
  CatalogueContent content;
  content.settings = SettingsContent(catalogue.key_ability_code, catalogue.sfu_common_type,
                                     catalogue.hgu_common_type);
  std::map<unsigned short, std::string> attributes;
  for (const AttributeEntry& attribute : catalogue.attributes) {
    attributes[attribute.id] = attribute.name;
  }
  content.attributes = AttributesContent(attributes);
  content.codes = CodesContent(MakeCodes(catalogue), catalogue);
  content.real_profiles =
      ProfilesContent(MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_REAL), catalogue);
  content.match_profiles =
      ProfilesContent(MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_MATCH), catalogue);
  return content;
}

CatalogueContent ContentOfLibrary(const Catalogue& names) {
  CatalogueContent content;
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  const OnuAbilityGlobalVar* settings = OnuAbilityGlobalVar::GetInstance();
  content.settings = SettingsContent(codes->GetKeyAbilityCode(), settings->_sfu_common_type,
                                     settings->_hgu_common_type);
  content.attributes = AttributesContent(RegisteredAttributes());
  content.codes = CodesContent(RegisteredCodes(), names);
  content.real_profiles = LibraryProfiles(ONU_ABILITY_PROFILE_TYPE_REAL, names);
  content.match_profiles = LibraryProfiles(ONU_ABILITY_PROFILE_TYPE_MATCH, names);
  return content;
}

}  // namespace olt_host
