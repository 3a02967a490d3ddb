#include "recognition/catalogue_exchange.h"

#include "catalogue/catalogue_profile.h"

namespace olt_host {

namespace {

// A table keeps the key ability code of its making.
void MakeTablesAnew(std::uint16_t key_ability_code) {
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(key_ability_code);
  manager->Init();
}

}  // namespace

LibraryState StateOf(const Catalogue& catalogue) {
  LibraryState state;
  for (const AttributeEntry& attribute : catalogue.attributes) {
    state.attributes.emplace(attribute.id, attribute.name);
  }
  state.codes = MakeCodes(catalogue);
  state.key_ability_code = catalogue.key_ability_code;
  state.sfu_common_type = catalogue.sfu_common_type;
  state.hgu_common_type = catalogue.hgu_common_type;
  state.match_profiles = MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_MATCH);
  state.real_profiles = MakeTable(catalogue, ONU_ABILITY_PROFILE_TYPE_REAL);
  return state;
}

void LoadInstead(const LibraryState& state) {
  if (OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode() != state.key_ability_code) {
    MakeTablesAnew(state.key_ability_code);
  }
  InstallLibrary(state);
}

void LoadInstead(const Catalogue& catalogue) { LoadInstead(StateOf(catalogue)); }

}  // namespace olt_host
