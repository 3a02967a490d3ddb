// The listings of the ability code registry on a terminal, from a copy: a terminal may
// take its time.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"
#include "onu_ability_common_table/onu_ability_code_info.h"
#include "vty.h"

namespace {

void ShowRecord(struct vty* terminal, const ONU_ABILITY_CODE_ATTR_INFO& record) {
  vty_out(terminal, "\r\n****************************************\r\n");
  vty_out(terminal, "ability_name:%s\r\n", record.ability_name.c_str());
  vty_out(terminal, "ability_code:%d\r\n", record.ability_code);
  for (const auto& [id, value] : record.ability_attr) {
    vty_out(terminal, "ability_attr_id:%d\r\n", id);
    vty_out(terminal, "ability_attr_name:%s\r\n",
            OnuAbilityAttrInfo::GetInstance()->Get(id).c_str());
    vty_out(terminal, "ability_attr_value:%d\r\n", value);
  }
  vty_out(terminal, "\r\n****************************************\r\n\r\n");
}

}  // namespace

void OnuAbilityCodeInfo::Show(void* vty) {
  ONU_ABILITY_LOG(10, "function start!");
  auto* terminal = static_cast<struct vty*>(vty);
  if (terminal == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  vty_out(terminal, "\r\n########################################\r\n");
  const Records records = CopyRecords();
  vty_out(terminal, "_vec_ability_attr:%d\r\n", static_cast<int>(records.size()));
  for (const auto& record : records) {
    ShowRecord(terminal, record);
  }
  vty_out(terminal, "########################################\r\n");
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityCodeInfo::Show(void* vty, unsigned short code) {
  ONU_ABILITY_LOG(10, "function start!");
  auto* terminal = static_cast<struct vty*>(vty);
  if (terminal == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  for (const auto& record : CopyRecords()) {
    if (record.ability_code == code) {
      ShowRecord(terminal, record);
      break;
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityCodeInfo::Show(void* vty, std::string text) {
  ONU_ABILITY_LOG(10, "function start!");
  auto* terminal = static_cast<struct vty*>(vty);
  if (terminal == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    ONU_ABILITY_LOG(10, "function end!");
    return;
  }
  // Only the text is converted: a name stored in lower case is never found, as
  // meant.
  onu_ability_trans_str_lower_to_upper(text.data());
  for (const auto& record : CopyRecords()) {
    if (Get(record.ability_code).find(text) != std::string::npos) {
      ShowRecord(terminal, record);
    }
  }
  ONU_ABILITY_LOG(10, "function end!");
}
