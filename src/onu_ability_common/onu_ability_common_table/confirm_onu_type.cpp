#include "onu_ability_common_table/confirm_onu_type.h"

#include <cstring>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/ability_name.h"
#include "onu_ability_common_table/onu_ability_table_manager.h"
#include "onu_ability_common_table/registered_codes.h"

namespace {

constexpr unsigned int kStageGathered = 0;
constexpr unsigned int kStageConfirmed = 2;
constexpr unsigned int kVendorIdLength = 4;
constexpr unsigned int kDeviceNameLength = 20;
constexpr unsigned char kUnknownCapability = 0xFF;

OnuAbilityRegExternFunc& Hooks() { return *OnuAbilityRegExternFunc::GetInstance(); }

// The text in a buffer that a hook filled, also when the hook left no
// terminator.
std::string BufferText(const char* buffer, std::size_t size) {
  return std::string(buffer, strnlen(buffer, size));
}

}  // namespace

ConfirmOnuType::ConfirmOnuType(unsigned short place, unsigned char onu) : _place(place), _onu(onu) {
  ONU_ABILITY_LOG(10, "ConfirmOnuType init!");
  Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
       ONU_ABILITY_MATCH_TYPE_PATTERN);
}

ConfirmOnuType::~ConfirmOnuType() { ONU_ABILITY_LOG(10, "release ConfirmOnuType!\r\n"); }

unsigned int ConfirmOnuType::Perform() {
  if (!Hooks().WhetherExternFuncRegistered()) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return ONU_ABILITY_RET_NULL_PTR;
  }
  Init();
  unsigned int ret = IsValidOnuType();
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "IsValidOnuType failed!type_from_onu_report:%d, ret:0x%x",
                    _type_from_onu_report, ret);
    _type_from_onu_report = ONU_ABILITY_WILDCARD;
    ONU_ABILITY_LOG(4, "type_from_onu_report:%d", _type_from_onu_report);
    ret = ConfirmOnuTypeByAbilities();
    if (ret != ONU_ABILITY_RET_OK) {
      ONU_ABILITY_LOG(4, "ConfirmOnuTypeByAbilities failed!ret:0x%x", ret);
      return ret;
    }
  }
  TransOnutypeByHswSwitch();
  HandOver();
  return ONU_ABILITY_RET_OK;
}

void ConfirmOnuType::HandOver() {
  Get(_key_ability_value);
  std::string type_name;
  const unsigned int ret = OnuAbilityTableManager::GetInstance()->Get(
      ONU_ABILITY_PROFILE_TYPE_REAL, _key_ability_value, ONU_ABILITY_CODE_TYPE_NAME, type_name);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG_FOR("Perform", 4, "get onu type name failed!_key_ability_value:%d, ret:0x%x",
                        _key_ability_value, ret);
    type_name.clear();
  }
  Add(ONU_ABILITY_CODE_TYPE_NAME, type_name);
  Hooks()._hand_over_profile(_place, _onu, kStageConfirmed, this);
  unsigned int real_type = 0;
  Get(ONU_ABILITY_CODE_REAL_TYPE, real_type);
  Hooks()._set_real_type(_place, _onu, static_cast<unsigned short>(real_type));
  Hooks()._set_report_type(_place, _onu, static_cast<unsigned short>(_report_type));
}

void ConfirmOnuType::Init() {
  for (unsigned int index = 0; index < 4; ++index) {
    Hooks()._get_identify_setting(index, _place, &_identify_setting[index]);
  }
  char vendor_id[kVendorIdLength + 1] = {};
  if (Hooks()._get_vendor_id(_place, _onu, vendor_id) == ONU_ABILITY_RET_OK) {
    Add(ONU_ABILITY_CODE_VENDOR_ID, BufferText(vendor_id, sizeof(vendor_id)));
  }
  _type_from_onu_report = Hooks()._get_report_type(_place, _onu);
  ONU_ABILITY_LOG(4, "type_from_onu_report:%d", _type_from_onu_report);
  Add(_type_from_onu_report);
  Add(ONU_ABILITY_CODE_REPORT_TYPE, _type_from_onu_report);
  if (Hooks()._read_one_by_one(_place, _onu) != 0) {
    GatherAbilities();
  }
  Hooks()._hand_over_profile(_place, _onu, kStageGathered, this);
}

void ConfirmOnuType::GatherAbilities() {
  RegisteredCodes registered;
  for (unsigned short code = 0; registered.Next(code);) {
    if (IsAsked(registered, code)) {
      AskAbility(code);
    }
  }
  Hooks()._get_private_capability(_place, _onu, _identify_setting[3], &_private_capability);
  Add(ONU_ABILITY_CODE_ONU_CAPA, trans_1_type_to_4_type(_private_capability));
  ONU_ABILITY_LOG_FOR("Init", 4, "onu_capa_private:%d", _private_capability);
  char device_name[kDeviceNameLength + 1] = {};
  if (Hooks()._get_device_name(_place, _onu, kDeviceNameLength, device_name) ==
      ONU_ABILITY_RET_OK) {
    const std::string name = BufferText(device_name, sizeof(device_name));
    Add(ONU_ABILITY_CODE_TYPE_NAME, name);
    ONU_ABILITY_LOG_FOR("Init", 4, "onu_device_name:%s.", name.c_str());
  }
}

bool ConfirmOnuType::IsAsked(RegisteredCodes& registered, unsigned short code) {
  constexpr AbilityTraits kAskedSilently = kHoldsConfirmType | kHoldsValueType;
  constexpr AbilityTraits kAsked = kConfirmedByOnu | kNumber;
  const AbilityCodeIndex* index = AbilityCodeReader().Index();
  if (index != nullptr && NobodyListensTo(LogLevels(4))) {
    const AbilityTraits traits = index->Traits(code);
    if ((traits & kAskedSilently) == kAskedSilently) {
      return (traits & kAsked) == kAsked;
    }
  }
  // Reading an absent attribute adds it to the record with the value 0.
  const unsigned short confirm_type = registered.Acquire(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  const unsigned short value_type = registered.Acquire(ONU_ABILITY_ATTR_VALUE_TYPE);
  ONU_ABILITY_LOG_FOR("Init", 4, "confirm_type_attr_value:%d, ability_value_type_attr_value:%d",
                      confirm_type, value_type);
  return value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
         (confirm_type & ONU_ABILITY_CONFIRM_ASKED) != 0;
}

void ConfirmOnuType::AskAbility(unsigned short code) {
  unsigned int value = ONU_ABILITY_WILDCARD;
  Hooks()._get_ability_value(_place, _onu, code, &value);
  if (code == ONU_ABILITY_CODE_ONU_CAPA) {
    _private_capability = static_cast<unsigned char>(value);
  }
  ONU_ABILITY_LOG_FOR("Init", 4, "ability_code:%d, ability_name:%s, ability_value:%d", code,
                      AbilityName(code).c_str(), value);
  Add(code, value);
}

unsigned int ConfirmOnuType::IsValidOnuType() {
  const unsigned int ret = OnuAbilityTableManager::GetInstance()->Get(
      ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, _type_from_onu_report, *this);
  if (ret != ONU_ABILITY_RET_OK) {
    ONU_ABILITY_LOG(4, "get match profile failed!onu_type:%d, ret:0x%x", _type_from_onu_report,
                    ret);
  }
  return ret;
}

unsigned int ConfirmOnuType::ConfirmOnuTypeByAbilities() {
  UpdateOnucapaFromSpecialMe();
  if (*OnuAbilityTableManager::GetInstance() == *this) {
    return ONU_ABILITY_RET_OK;
  }
  ONU_ABILITY_LOG(4, "SearchForAuth failed!");
  return ONU_ABILITY_RET_OK;
}

unsigned int ConfirmOnuType::UpdateOnucapaFromSpecialMe() {
  if (_private_capability != kUnknownCapability) {
    Add(ONU_ABILITY_CODE_ONU_CAPA, static_cast<unsigned int>(_private_capability));
    Add(ONU_ABILITY_CODE_PRIVATE_CAPABILITY_KNOWN, ONU_ABILITY_WILDCARD);
  } else {
    Add(ONU_ABILITY_CODE_ONU_CAPA, ONU_ABILITY_WILDCARD);
  }
  unsigned int onu_capa = 0;
  Get(ONU_ABILITY_CODE_ONU_CAPA, onu_capa);
  ONU_ABILITY_LOG(4, "onu_match_ability.onu_ability_main_part.onu_capa:%hu",
                  static_cast<unsigned short>(onu_capa));
  return ONU_ABILITY_RET_OK;
}
