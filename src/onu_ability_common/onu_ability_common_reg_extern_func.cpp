#include "onu_ability_common_reg_extern_func.h"

#include "onu_ability_common_global/common_types.h"
#include "onu_ability_common_global/log.h"

namespace {

template <typename Function>
void Store(OnuAbilityHook<Function>& hook, void* func) {
  hook = reinterpret_cast<Function>(func);
}

}  // namespace

OnuAbilityRegExternFunc* OnuAbilityRegExternFunc::GetInstance() {
  static OnuAbilityRegExternFunc instance;
  return &instance;
}

OnuAbilityRegExternFunc::~OnuAbilityRegExternFunc() = default;

void OnuAbilityRegExternFunc::RegisterExternFunc(unsigned short id, void* func) {
  if (func == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return;
  }
  switch (id) {
    case 0:
      Store(_get_vendor_id, func);
      break;
    case 1:
      Store(_get_report_type, func);
      break;
    case 2:
      Store(_get_private_capability, func);
      break;
    case 3:
      Store(_hand_over_profile, func);
      break;
    case 4:
      Store(_set_real_type, func);
      break;
    case 5:
      Store(_set_report_type, func);
      break;
    case 6:
      Store(_get_ability_value, func);
      break;
    case 7:
      Store(_get_identify_setting, func);
      break;
    case 8:
      Store(_read_one_by_one, func);
      break;
    case 9:
      Store(_get_device_name, func);
      break;
    default:
      break;  // any other id is ignored without a word
  }
}

bool OnuAbilityRegExternFunc::WhetherExternFuncRegistered() const {
  return _get_vendor_id != nullptr && _get_report_type != nullptr &&
         _get_private_capability != nullptr && _get_device_name != nullptr &&
         _hand_over_profile != nullptr && _set_real_type != nullptr &&
         _set_report_type != nullptr && _get_ability_value != nullptr &&
         _get_identify_setting != nullptr && _read_one_by_one != nullptr;
}

void OnuAbilityRegExternFunc::SetModuleId(unsigned int module_id) {
  onu_ability_module_id.store(module_id, std::memory_order_relaxed);
}

unsigned int OnuAbilityRegExternFunc::GetModuleId() const { return onu_ability_get_module_id(); }

void OnuAbilityRegExternFunc::SetSfuCommonType(unsigned short type) { ::SetSfuCommonType(type); }

void OnuAbilityRegExternFunc::SetHguCommonType(unsigned short type) { ::SetHguCommonType(type); }

void onu_ability_register_extern_func(unsigned short id, void* func) {
  OnuAbilityRegExternFunc::GetInstance()->RegisterExternFunc(id, func);
}
