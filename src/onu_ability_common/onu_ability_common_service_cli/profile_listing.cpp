// The listing of one profile on a terminal, apart from the profile itself: it
// asks the query interface, which builds on the tables.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/source_filter.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_table.h"
#include "onu_ability_common_table/ability_name.h"
#include "vty.h"

namespace {

constexpr unsigned int kCellsALine = 3;

void ShowOnu(struct vty* terminal, const ONU_ABILITY_PHYSICAL_SN& sn, unsigned char omci_mode) {
  vty_out(terminal, "onu_sn:%s%02x%02x%02x%02x%02x%02x\r\n", sn.vendor_id.c_str(), sn.serial[0],
          sn.serial[1], sn.serial[2], sn.serial[3], sn.serial[4], sn.serial[5]);
  if (sn.pon_no != 0xFFFF) {
    vty_out(terminal, "pon_no:                %-30d\r\n", sn.pon_no);
  }
  if (sn.onu_id != 0xFF) {
    vty_out(terminal, "onu_id:                %-30d\r\n", sn.onu_id);
  }
  if (omci_mode != ONU_ABILITY_NO_OMCI_MODE) {
    vty_out(terminal, "omci_mode:             %-30d\r\n", omci_mode);
  }
}

// 65535 stands for an unknown code or attribute: not a lamp.
bool IsLamp(unsigned short code) {
  const unsigned short lamp = OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_LAMP);
  return lamp != 0 && lamp != ONU_ABILITY_INVALID_ID;
}

void ShowCell(struct vty* terminal, unsigned short code,
              const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    if (IsLamp(code)) {
      vty_out(terminal, "%-12.12s\t0x%-6.04x\t", AbilityName(code).c_str(),
              value.ability_ushort_value);
    } else {
      vty_out(terminal, "%-12.12s\t0x%-8x\t", AbilityName(code).c_str(),
              value.ability_ushort_value);
    }
  } else if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    vty_out(terminal, "%-12.12s\t%-8s\t", AbilityName(code).c_str(),
            value.ability_string_value.c_str());
  } else {
    // Numbers, not the name, as meant.
    vty_out(terminal, "%-12.12d\t%-8d\t", value.ability_value_type, code);
  }
}

}  // namespace

void OnuAbilityProfile::Show(void* vty, ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int flag,
                             ONU_ABILITY_PHYSICAL_SN& sn, unsigned char omci_mode) {
  auto* terminal = static_cast<struct vty*>(vty);
  if (terminal == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return;
  }
  if (!PassesFilter(source, _profile_source)) {
    ONU_ABILITY_LOG(0, "profile source don't match!_profile_source:%d, profile_source:%d",
                    _profile_source, source);
    return;
  }
  vty_out(terminal, "********************************************\r\n");
  vty_out(terminal, "id:                    %-30d\r\n", _id);
  ShowOnu(terminal, sn, omci_mode);
  ShowHeader(terminal);
  ShowAbilities(terminal, flag);
  vty_out(terminal, "\r\n********************************************\r\n\r\n\r\n");
}

void OnuAbilityProfile::ShowHeader(struct vty* terminal) const {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  Get(ONU_ABILITY_CODE_REPORT_TYPE, value);
  vty_out(terminal, "reporttype:            %-30d\r\n", value.ability_ushort_value);
  Get(ONU_ABILITY_CODE_REAL_TYPE, value);
  const auto real_type = static_cast<unsigned short>(value.ability_ushort_value);
  Get(ONU_ABILITY_CODE_VENDOR_ID, value);
  vty_out(terminal, "vendor id:             %-30s\r\n", value.ability_string_value.c_str());
  Get(ONU_ABILITY_CODE_PROFILE_NAME, value);
  vty_out(terminal, "ability profile name:  %-30s\r\n", value.ability_string_value.c_str());
  vty_out(terminal, "default value:         %-30d\r\n", _ability_default_value);
  vty_out(terminal, "flag_match_type:       %-30d\r\n", _flag_match_type);
  vty_out(terminal, "profile_type:          %-30d\r\n", _profile_type);
  vty_out(terminal, "profile_source:        %-30d\r\n", _profile_source);
  Get(ONU_ABILITY_CODE_DATA_UNI, value);
  vty_out(terminal, "data uni total num:    %-30d\r\n", value.ability_ushort_value);
  Get(ONU_ABILITY_CODE_DATA_UNI, value);  // a second time, unused: only its log line counts
  vty_out(terminal, "total lamp num:        %-30d\r\n",
          onu_ability_get_onu_lamp_total_num(real_type));
  vty_out(terminal, "bind count:            %-30d\r\n", _bind_count);
  vty_out(terminal, "age_count:             %-30d\r\n", _age_count);
  vty_out(terminal, "size:                  %-30d\r\n", GetSize());
  vty_out(terminal, "common_ability_num:    %-30d\r\n", _common_ability_num);
}

void OnuAbilityProfile::ShowAbilities(struct vty* terminal, unsigned int flag) const {
  vty_out(terminal, "--------------common ability----------------\r\n");
  vty_out(terminal, "ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n");
  unsigned int cells = 0;
  for (const auto& [code, value] : _common_ability) {
    if (flag == 0 && value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
        value.ability_ushort_value == _ability_default_value) {
      continue;
    }
    ShowCell(terminal, code, value);
    if (++cells % kCellsALine == 0) {
      vty_out(terminal, "\r\n");
    }
  }
}
