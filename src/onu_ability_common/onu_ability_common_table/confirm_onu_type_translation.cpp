// Translation of the reported type by the identify modes: operators may have
// SFUs and HGUs of known types served as the common types.
#include "onu_ability_common_global/common_types.h"
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/confirm_onu_type.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"

namespace {

constexpr unsigned int kSfu = 0;
constexpr unsigned int kHgu = 1;

}  // namespace

unsigned int ConfirmOnuType::TransOnutypeByHswSwitch() {
  Get(_key_ability_value);
  Get(ONU_ABILITY_CODE_REPORT_TYPE, _report_type);
  OnuAbilityTableManager* tables = OnuAbilityTableManager::GetInstance();
  unsigned int onu_capa = 0;
  if (tables->Get(ONU_ABILITY_PROFILE_TYPE_REAL, _key_ability_value, ONU_ABILITY_CODE_ONU_CAPA,
                  onu_capa) != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "GetOnucapa failed!onu_capa:%d", onu_capa);
    onu_capa = 0;
  }
  ONU_ABILITY_LOG(4, "onu_capa:%hu,sfu_identify_mode:%hu,hgu_identify_mode:%hu",
                  static_cast<unsigned short>(onu_capa), _identify_setting[0],
                  _identify_setting[2]);
  unsigned int trans_type = 0;
  tables->Get(ONU_ABILITY_PROFILE_TYPE_REAL, _key_ability_value, ONU_ABILITY_CODE_TRANS_TYPE,
              trans_type);
  ONU_ABILITY_LOG(
      4, "(before trans type)_key_ability_value:%d,onu_reporttype:%d, trans_type_by_hsw:%d",
      _key_ability_value, _report_type, trans_type);
  if (trans_type != 0) {
    _report_type = TranslatedReportType(onu_capa);
  }
  Update(ONU_ABILITY_CODE_REPORT_TYPE, _report_type);
  ONU_ABILITY_LOG(4, "(after trans type)onu_realtype:%d,onu_reporttype:%d", _key_ability_value,
                  _report_type);
  return ONU_ABILITY_RET_OK;
}

unsigned int ConfirmOnuType::TranslatedReportType(unsigned int onu_capa) const {
  const auto [sfu_common_type, hgu_common_type] = CommonTypes();
  if (onu_capa == kSfu) {
    return _identify_setting[0] == 1 ? sfu_common_type : _report_type;
  }
  if (onu_capa != kHgu) {
    return _report_type;
  }
  switch (_identify_setting[2]) {
    case 1:
      return sfu_common_type;
    case 2:
      return hgu_common_type;
    case 3:
      return *this == std::string("ZKWM") ? _report_type : hgu_common_type;
    case 4:
      return *this == std::string("ZKWM") ? hgu_common_type : _report_type;
    default:
      return _report_type;
  }
}
