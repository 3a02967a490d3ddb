#include "confirmation.h"

#include "tables.h"

namespace model {

Confirmation::Confirmation(u16 new_place, u8 new_onu, const Report& report)
    : place(new_place), onu(new_onu), report_(report) {
  MODEL_LOG(10, "ConfirmOnuType init!");
  Init(2, 2, 1);
}

Confirmation::~Confirmation() { MODEL_LOG(10, "release ConfirmOnuType!\r\n"); }

void Confirmation::CallHook(int hook, u32 argument) {
  TheRecord().hooks.push_back({hook, place, hook == 7 ? -1 : onu, argument});
}

void Confirmation::HandOver(u32 stage) {
  CallHook(3, stage);
  handed_over.push_back(*this);
}

u32 Confirmation::Perform() {
  if (!AllHooksRegistered()) {
    MODEL_LOG(13, "there is null pointer!");
    return kNullPointer;
  }
  Gather();
  u32 ret = IsValidOnuType();
  if (ret != 0) {
    MODEL_LOG(4, "IsValidOnuType failed!type_from_onu_report:%d, ret:0x%x",
              static_cast<int>(type_from_report), ret);
    type_from_report = 0xFFFFFFFFU;
    MODEL_LOG(4, "type_from_onu_report:%d", static_cast<int>(type_from_report));
    ConfirmByAbilities();
  }
  Translate();
  GetKeyValue(key_value);
  std::string name;
  ret = Manager().GetTextByKey(1, key_value, 1083, name);
  if (ret != 0) {
    MODEL_LOG(4, "get onu type name failed!_key_ability_value:%d, ret:0x%x",
              static_cast<int>(key_value), ret);
    name = "";
  }
  AddText(1083, name);
  HandOver(2);
  u32 real_type = 0;
  GetNumber(1081, real_type);
  CallHook(4, real_type & 0xFFFFU);
  CallHook(5, report_type & 0xFFFFU);
  return 0;
}

void Confirmation::Gather() {
  for (u32 index = 0; index < 4; ++index) {
    CallHook(7, index);
    settings[index] = report_.settings[index];
  }
  CallHook(0);
  if (report_.vendor_status == 0) {
    AddText(1082, report_.vendor_id);
  }
  CallHook(1);
  type_from_report = report_.reported_type;
  MODEL_LOG(4, "type_from_onu_report:%d", static_cast<int>(type_from_report));
  AddKey(type_from_report);
  AddNumber(1080, type_from_report);
  CallHook(8);
  if (report_.read_one_by_one != 0) {
    GatherAbilities();
  }
  HandOver(0);
}

void Confirmation::GatherAbilities() {
  for (CodeRecord& record : Codes().records) {
    const u16 confirm_type = record.attributes[1];
    const u16 value_type = record.attributes[5];
    MODEL_LOG(4, "confirm_type_attr_value:%d, ability_value_type_attr_value:%d", confirm_type,
              value_type);
    if (value_type != 2 || (confirm_type & 2U) == 0) {
      continue;
    }
    u32 value = 0xFFFFFFFFU;
    CallHook(6, record.code);
    if (report_.values.count(record.code) != 0) {
      value = report_.values[record.code];
    }
    if (record.code == 1002) {
      private_capability = static_cast<u8>(value);
    }
    MODEL_LOG(4, "ability_code:%d, ability_name:%s, ability_value:%d", record.code,
              MODEL_NAME(record.code), static_cast<int>(value));
    AddNumber(record.code, value);
  }
  CallHook(2, settings[3]);
  if (report_.sets_private_capability) {
    private_capability = report_.private_capability;
  }
  AddNumber(1002, private_capability == 0xFF ? 0xFFFFFFFFU : private_capability);
  MODEL_LOG(4, "onu_capa_private:%d", private_capability);
  CallHook(9, 20);
  if (report_.device_name_status == 0) {
    AddText(1083, report_.device_name);
    MODEL_LOG(4, "onu_device_name:%s.", report_.device_name.c_str());
  }
}

u32 Confirmation::IsValidOnuType() {
  const u32 ret = Manager().GetByKey(2, 2, type_from_report, *this);
  if (ret != 0) {
    MODEL_LOG(4, "get match profile failed!onu_type:%d, ret:0x%x",
              static_cast<int>(type_from_report), ret);
  }
  return ret;
}

u32 Confirmation::ConfirmByAbilities() {
  UpdateCapability();
  if (Manager().Recognise(*this) == 0) {
    MODEL_LOG(4, "SearchForAuth failed!");
  }
  return 0;
}

u32 Confirmation::UpdateCapability() {
  if (private_capability != 0xFF) {
    AddNumber(1002, private_capability);
    AddNumber(48, 0xFFFFFFFFU);
  } else {
    AddNumber(1002, 0xFFFFFFFFU);
  }
  u32 capability = 0;
  GetNumber(1002, capability);
  MODEL_LOG(4, "onu_match_ability.onu_ability_main_part.onu_capa:%hu",
            static_cast<u16>(capability));
  return 0;
}

u32 Confirmation::Translate() {
  GetKeyValue(key_value);
  GetNumber(1080, report_type);
  u32 capability = 0;
  if (Manager().GetNumberByKey(1, key_value, 1002, capability) != 0) {
    capability = 0;
    MODEL_LOG(4, "GetOnucapa failed!onu_capa:%d", static_cast<int>(capability));
  }
  MODEL_LOG(4, "onu_capa:%hu,sfu_identify_mode:%hu,hgu_identify_mode:%hu",
            static_cast<u16>(capability), settings[0], settings[2]);
  u32 flag = 0;
  if (Manager().GetNumberByKey(1, key_value, 1023, flag) != 0) {
    flag = 0;
  }
  MODEL_LOG(4, "(before trans type)_key_ability_value:%d,onu_reporttype:%d, trans_type_by_hsw:%d",
            static_cast<int>(key_value), static_cast<int>(report_type), static_cast<int>(flag));
  report_type = Translated(capability, flag);
  UpdateNumber(1080, report_type);
  MODEL_LOG(4, "(after trans type)onu_realtype:%d,onu_reporttype:%d", static_cast<int>(key_value),
            static_cast<int>(report_type));
  return 0;
}

u32 Confirmation::Translated(u32 capability, u32 flag) {
  const u32 sfu = TheSettings().sfu_common_type;
  const u32 hgu = TheSettings().hgu_common_type;
  if (flag == 0) {
    return report_type;
  }
  if (capability == 0) {
    return settings[0] == 1 ? sfu : report_type;
  }
  if (capability == 1) {
    switch (settings[2]) {
      case 1:
        return sfu;
      case 2:
        return hgu;
      case 3:
        return HasVendor("ZKWM") != 0 ? report_type : hgu;
      case 4:
        return HasVendor("ZKWM") != 0 ? hgu : report_type;
      default:
        return report_type;
    }
  }
  return report_type;
}

}  // namespace model
