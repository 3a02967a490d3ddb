// Construction of a code record, apart from the vocabulary that declares it: it
// asks the attribute registry, which builds on the vocabulary.
#include "onu_ability_common_table/onu_ability_attr_info.h"

ONU_ABILITY_CODE_ATTR_INFO::ONU_ABILITY_CODE_ATTR_INFO() : ability_code(ONU_ABILITY_CODE_ALL_LAN) {
  const OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
  {
    const ReadScope scope(onu_ability_settings_guard);
    for (const auto& entry : attributes._map_ability_attr) {
      ability_attr.emplace(entry.first, static_cast<unsigned short>(0));
    }
  }
  ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = ONU_ABILITY_VALUE_TYPE_USHORT;
}
