#include "footprint/board.h"

#include <algorithm>

#include "bench_host.h"
#include "onu_ability_common_reg_extern_func.h"
#include "population.h"

namespace {

struct Kept {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  std::vector<OnuAbilityProfile> real;
  std::vector<OnuAbilityProfile> match;
};

Kept& KeptBoard() {
  static Kept kept;
  return kept;
}

Report& OneReport() {
  static Report report = MiddleReports(kProfiles, 1).front();
  return report;
}

unsigned int VendorId(unsigned short /*place*/, unsigned char /*onu*/, char* vendor_id) {
  OneReport().vendor.copy(vendor_id, 4);
  return 0;
}

unsigned int ReportedType(unsigned short /*place*/, unsigned char /*onu*/) { return kUnknownType; }

unsigned int PrivateCapability(unsigned short /*place*/, unsigned char /*onu*/,
                               unsigned short /*setting*/, unsigned char* private_capability) {
  *private_capability = 1;
  return 0;
}

unsigned int HandOver(unsigned short /*place*/, unsigned char /*onu*/, unsigned int /*stage*/,
                      ConfirmOnuType* /*profile*/) {
  return 0;
}

unsigned int TakeType(unsigned short /*place*/, unsigned char /*onu*/, unsigned short /*type*/) {
  return 0;
}

unsigned int AbilityValue(unsigned short /*place*/, unsigned char /*onu*/, unsigned short code,
                          unsigned int* value) {
  const auto place = static_cast<std::size_t>(code - kFirstAskedCode);
  *value = OneReport().asked[std::min(place, kAskedCodes - 1)];
  return 0;
}

unsigned int IdentifySetting(unsigned int /*index*/, unsigned short /*place*/,
                             unsigned short* setting) {
  *setting = 1;
  return 0;
}

unsigned int ReadOneByOne(unsigned short /*place*/, unsigned char /*onu*/) { return 1; }

unsigned int DeviceName(unsigned short /*place*/, unsigned char /*onu*/, unsigned int length,
                        char* name) {
  OneReport().device_name.copy(name, length);
  return 0;
}

template <typename Hook>
void RegisterHook(unsigned short id, Hook hook) {
  onu_ability_register_extern_func(id, reinterpret_cast<void*>(hook));
}

void RegisterHooks() {
  RegisterHook(0, &VendorId);
  RegisterHook(1, &ReportedType);
  RegisterHook(2, &PrivateCapability);
  RegisterHook(3, &HandOver);
  RegisterHook(4, &TakeType);
  RegisterHook(5, &TakeType);
  RegisterHook(6, &AbilityValue);
  RegisterHook(7, &IdentifySetting);
  RegisterHook(8, &ReadOneByOne);
  RegisterHook(9, &DeviceName);
}

OnuAbilityProfile Described(const Description& description, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
  for (const auto& [code, value] : description.given) {
    if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      profile.UpdateInit(code, value.ability_ushort_value);
    } else {
      profile.UpdateInit(code, value.ability_string_value);
    }
  }
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  return profile;
}

const std::vector<Description>& DescriptionsOf(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  return type == ONU_ABILITY_PROFILE_TYPE_REAL ? RealDescriptions() : MatchDescriptions();
}

}  // namespace

void MakeBoard() {
  onu_ability_set_log_level_mask(kProduction);
  DefineRegistry();
  RegisterHooks();
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  manager.Init();
  for (const auto type : {ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_TYPE_REAL}) {
    for (std::size_t i = 0; i < kProfiles; ++i) {
      OnuAbilityProfile profile = Described(DescriptionsOf(type)[i], type);
      manager.Add(profile);
    }
  }
  Kept& kept = KeptBoard();
  onu_ability_get_all_ability_attr_info(kept.codes);
  manager.GetAll(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_ALL, kept.real);
  manager.GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, kept.match);
}

void RestoreBoard() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  for (const auto type : {ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_TYPE_REAL}) {
    manager.DelOnuAbilityTable(type);
    manager.AddOnuAbilityTable(type);
    const bool real = type == ONU_ABILITY_PROFILE_TYPE_REAL;
    manager._map_table[type]->Restore(real ? KeptBoard().real : KeptBoard().match);
  }
  OnuAbilityCodeInfo::GetInstance()->Restore(KeptBoard().codes);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(ONU_ABILITY_CODE_DEFAULT_KEY);
}

OnuAbilityProfile NewProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  return Described(DescriptionsOf(type)[kProfiles], type);
}

OnuAbilityProfile Request() {
  OnuAbilityProfile request;
  request.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
               ONU_ABILITY_MATCH_TYPE_PATTERN);
  for (std::size_t i = 0; i < kComparedNumbers; ++i) {
    request.UpdateInit(static_cast<unsigned short>(kFirstComparedCode + i),
                       OneReport().compared[i]);
  }
  request.UpdateInit(ONU_ABILITY_CODE_VENDOR_ID, OneReport().vendor);
  return request;
}
