#include "state/library_state.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "catalogue/registries.h"
#include "onu_ability_common_reg_extern_func.h"

namespace olt_host {

namespace {

bool SameCode(const ONU_ABILITY_CODE_ATTR_INFO& a, const ONU_ABILITY_CODE_ATTR_INFO& b) {
  return a.ability_code == b.ability_code && a.ability_name == b.ability_name &&
         a.ability_attr == b.ability_attr;
}

bool SameCodes(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& a,
               const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameCode);
}

bool SameProfiles(const std::vector<OnuAbilityProfile>& a,
                  const std::vector<OnuAbilityProfile>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameProfile);
}

std::vector<OnuAbilityProfile> CaptureProfiles(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

// REQUIRES: no code record is there, because it would keep its attributes.
void InstallAttributes(const std::map<unsigned short, std::string>& wanted) {
  OnuAbilityAttrInfo* registry = OnuAbilityAttrInfo::GetInstance();
  const std::map<unsigned short, std::string> held = RegisteredAttributes();
  for (const auto& [id, name] : held) {
    const auto kept = wanted.find(id);
    if (kept == wanted.end() || kept->second != name) {
      registry->Del(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
    }
  }
  for (const auto& [id, name] : wanted) {
    const auto there = held.find(id);
    if (there == held.end() || there->second != name) {
      registry->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id), name);
    }
  }
}

void InstallRegistries(const LibraryState& wanted, const LibraryState& held) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  if (wanted.attributes != held.attributes) {
    codes->Restore({});
    InstallAttributes(wanted.attributes);
    codes->Restore(wanted.codes);
  } else if (!SameCodes(wanted.codes, held.codes)) {
    codes->Restore(wanted.codes);
  }
}

void InstallTable(ONU_ABILITY_ENUM_PROFILE_TYPE type, const std::vector<OnuAbilityProfile>& wanted,
                  const std::vector<OnuAbilityProfile>& held) {
  if (SameProfiles(wanted, held)) return;
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  const auto table = tables.find(type);
  if (table == tables.end() || table->second == nullptr) {
    throw std::runtime_error("There is no table for profiles of type " + std::to_string(type));
  }
  table->second->Restore(wanted);
}

void Install(const LibraryState& wanted, const LibraryState& held) {
  InstallRegistries(wanted, held);
  InstallTable(ONU_ABILITY_PROFILE_TYPE_MATCH, wanted.match_profiles, held.match_profiles);
  InstallTable(ONU_ABILITY_PROFILE_TYPE_REAL, wanted.real_profiles, held.real_profiles);
  OnuAbilityRegExternFunc& settings = *OnuAbilityRegExternFunc::GetInstance();
  settings.SetSfuCommonType(wanted.sfu_common_type);
  settings.SetHguCommonType(wanted.hgu_common_type);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(wanted.key_ability_code);
}

// What the library does not hold as wanted, or "" when all is there.
std::string Missing(const LibraryState& wanted) {
  const LibraryState held = CaptureLibrary();
  if (held.attributes != wanted.attributes) return "the attributes";
  if (!SameCodes(held.codes, wanted.codes)) return "the codes";
  if (!SameProfiles(held.match_profiles, wanted.match_profiles)) return "the match profiles";
  if (!SameProfiles(held.real_profiles, wanted.real_profiles)) return "the real profiles";
  return SameState(held, wanted) ? "" : "the settings";
}

}  // namespace

LibraryState CaptureLibrary() {
  LibraryState state;
  state.attributes = RegisteredAttributes();
  state.codes = RegisteredCodes();
  state.key_ability_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  const OnuAbilityGlobalVar* settings = OnuAbilityGlobalVar::GetInstance();
  state.sfu_common_type = settings->_sfu_common_type;
  state.hgu_common_type = settings->_hgu_common_type;
  state.match_profiles = CaptureProfiles(ONU_ABILITY_PROFILE_TYPE_MATCH);
  state.real_profiles = CaptureProfiles(ONU_ABILITY_PROFILE_TYPE_REAL);
  return state;
}

void InstallLibrary(const LibraryState& state) {
  const LibraryState before = CaptureLibrary();
  try {
    Install(state, before);
    const std::string missing = Missing(state);
    if (!missing.empty()) {
      throw std::runtime_error("The library did not take " + missing);
    }
  } catch (...) {
    Install(before, CaptureLibrary());
    throw;
  }
}

bool SameValue(const ONU_ABILITY_COMMON_ABILITY_VALUE& a,
               const ONU_ABILITY_COMMON_ABILITY_VALUE& b) {
  return a.ability_value_type == b.ability_value_type &&
         a.ability_ushort_value == b.ability_ushort_value &&
         a.ability_string_value == b.ability_string_value;
}

bool SameProfile(const OnuAbilityProfile& a, const OnuAbilityProfile& b) {
  return a._id == b._id && a._bind_count == b._bind_count &&
         a._flag_match_type == b._flag_match_type && a._profile_type == b._profile_type &&
         a._profile_source == b._profile_source &&
         a._ability_default_value == b._ability_default_value &&
         a._common_ability_num == b._common_ability_num &&
         a._key_ability_code == b._key_ability_code && a._age_count == b._age_count &&
         std::equal(std::begin(a._reserved), std::end(a._reserved), std::begin(b._reserved)) &&
         std::equal(a._common_ability.begin(), a._common_ability.end(), b._common_ability.begin(),
                    b._common_ability.end(), [](const auto& x, const auto& y) {
                      return x.first == y.first && SameValue(x.second, y.second);
                    });
}

bool SameState(const LibraryState& a, const LibraryState& b) {
  return a.attributes == b.attributes && SameCodes(a.codes, b.codes) &&
         a.key_ability_code == b.key_ability_code && a.sfu_common_type == b.sfu_common_type &&
         a.hgu_common_type == b.hgu_common_type &&
         SameProfiles(a.match_profiles, b.match_profiles) &&
         SameProfiles(a.real_profiles, b.real_profiles);
}

bool AnyHolds(const std::vector<OnuAbilityProfile>& profiles, unsigned short code) {
  return std::any_of(profiles.begin(), profiles.end(), [code](const OnuAbilityProfile& profile) {
    return profile._common_ability.count(code) != 0;
  });
}

}  // namespace olt_host
