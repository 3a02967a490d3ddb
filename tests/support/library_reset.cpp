#include "support/library_reset.h"

#include "onu_ability_common_reg_extern_func.h"

namespace {

void ResetTables() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  manager.DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  manager.DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  manager._map_table.clear();
}

void ResetSettings() {
  OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  delete settings._onu_ability_profile;
  settings._onu_ability_profile = nullptr;
  settings._sfu_common_type = 857;
  settings._hgu_common_type = 762;
  OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  hooks.SetModuleId(19);
  hooks.SetCmdNode(26);
  hooks._get_vendor_id = nullptr;
  hooks._get_report_type = nullptr;
  hooks._get_private_capability = nullptr;
  hooks._get_device_name = nullptr;
  hooks._hand_over_profile = nullptr;
  hooks._set_real_type = nullptr;
  hooks._set_report_type = nullptr;
  hooks._get_ability_value = nullptr;
  hooks._get_identify_setting = nullptr;
  hooks._read_one_by_one = nullptr;
}

}  // namespace

void ResetLibrary(const std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>& attribute_ids) {
  ResetTables();
  OnuAbilityCodeInfo::GetInstance()->Restore({});
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(ONU_ABILITY_CODE_DEFAULT_KEY);
  for (const auto id : attribute_ids) {
    OnuAbilityAttrInfo::GetInstance()->Del(id);
  }
  ResetSettings();
}
