#include "catalogue/registries.h"

#include "onu_ability_common_table.h"

namespace olt_host {

std::map<unsigned short, std::string> RegisteredAttributes() {
  OnuAbilityAttrInfo* registry = OnuAbilityAttrInfo::GetInstance();
  std::map<unsigned short, std::string> attributes;
  // A new code record has an entry for every registered id, and for the value type
  // even where that is not registered.
  for (const auto& [id, value] : ONU_ABILITY_CODE_ATTR_INFO().ability_attr) {
    if (registry->IsExist(id) != 0) {
      attributes[static_cast<unsigned short>(id)] = registry->Get(id);
    }
  }
  return attributes;
}

std::vector<ONU_ABILITY_CODE_ATTR_INFO> RegisteredCodes() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  return codes;
}

}  // namespace olt_host
