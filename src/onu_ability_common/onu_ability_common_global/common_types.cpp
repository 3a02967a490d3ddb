#include "onu_ability_common_global/common_types.h"

#include "onu_ability_common_global/global_var.h"
#include "onu_ability_common_global/reader_writer_guard.h"

OnuCommonTypes CommonTypes() {
  const OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  const ReadScope scope(onu_ability_settings_guard);
  return {settings._sfu_common_type, settings._hgu_common_type};
}

void SetSfuCommonType(unsigned short type) {
  OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  const WriteScope scope(onu_ability_settings_guard);
  settings._sfu_common_type = type;
}

void SetHguCommonType(unsigned short type) {
  OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  const WriteScope scope(onu_ability_settings_guard);
  settings._hgu_common_type = type;
}
