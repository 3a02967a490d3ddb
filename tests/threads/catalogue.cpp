#include "catalogue.h"

#include <map>

#include "onu_ability_common_reg_extern_func.h"

namespace {

thread_local unsigned int real_type_told = 0;

void DefineCode(unsigned short code, const char* name, const std::map<int, unsigned short>& with) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  for (const auto& [id, value] : with) {
    info.ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id)] = value;
  }
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

void DefineCodes() {
  for (const int id : {1, 3, 4, 5}) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id),
                                           "ATTRIBUTE" + std::to_string(id));
  }
  DefineCode(48, "PRIVATE_CAPABILITY_KNOWN", {});
  DefineCode(1001, "ALL_LAN", {});
  DefineCode(1002, "ONU_CAPA", {{1, 3}});
  DefineCode(kFePorts, "FE_PORTS", {{4, 3}});
  DefineCode(kGePorts, "GE_PORTS", {{4, 3}});
  DefineCode(1023, "TRANS_TYPE", {});
  DefineCode(kLamp, "POWER_LAMP", {{3, 1}});
  DefineCode(kSerialPorts, "SERIAL_PORTS", {{1, 3}});
  DefineCode(1080, "REPORT_TYPE", {});
  DefineCode(1081, "REAL_TYPE", {});
  DefineCode(1082, "VENDOR_ID", {{5, 3}});
  DefineCode(1083, "TYPE_NAME", {{5, 3}});
  DefineCode(1085, "KEY_VALUE", {});
  DefineCode(65533, "DATA_UNI_TOTAL", {});
}

// --- The hooks. The ONU at a place is of a type of its own; every second one reports it,
// the others are known by their serial ports.

unsigned int GetVendorId(unsigned short, unsigned char, char* vendor_id) {
  std::string("ZKWM").copy(vendor_id, 4);
  return 0;
}
unsigned int GetReportType(unsigned short place, unsigned char) {
  return place % 2 == 0 ? TypeOfOnu(place) : 60000;
}
unsigned int GetPrivateCapability(unsigned short, unsigned char, unsigned short,
                                  unsigned char* private_capability) {
  *private_capability = 0xFF;
  return 0;
}
unsigned int HandOverProfile(unsigned short, unsigned char, unsigned int, ConfirmOnuType*) {
  return 0;
}
unsigned int SetRealType(unsigned short, unsigned char, unsigned short real_type) {
  real_type_told = real_type;
  return 0;
}
unsigned int SetReportType(unsigned short, unsigned char, unsigned short) { return 0; }
unsigned int GetAbilityValue(unsigned short place, unsigned char, unsigned short code,
                             unsigned int* value) {
  if (code == kSerialPorts) {
    *value = TypeOfOnu(place);
  }
  return 0;
}
unsigned int GetIdentifySetting(unsigned int, unsigned short, unsigned short* setting) {
  *setting = 0;
  return 0;
}
unsigned int ReadOneByOne(unsigned short, unsigned char) { return 1; }
unsigned int GetDeviceName(unsigned short, unsigned char, unsigned int, char* device_name) {
  std::string("A-DEVICE").copy(device_name, 20);
  return 0;
}

template <typename Function>
void Register(unsigned short id, Function function) {
  onu_ability_register_extern_func(id, reinterpret_cast<void*>(function));
}

}  // namespace

void RegisterHooks() {
  Register(0, GetVendorId);
  Register(1, GetReportType);
  Register(2, GetPrivateCapability);
  Register(3, HandOverProfile);
  Register(4, SetRealType);
  Register(5, SetReportType);
  Register(6, GetAbilityValue);
  Register(7, GetIdentifySetting);
  Register(8, ReadOneByOne);
  Register(9, GetDeviceName);
}

unsigned int TypeOfOnu(unsigned short place) { return kFirstType + place; }
unsigned int RealTypeTold() { return real_type_told; }
std::string NameOfType(unsigned int type) { return "TYPE-" + std::to_string(type); }

OnuAbilityProfile EmptyProfile(int type, int source) {
  OnuAbilityProfile profile;
  profile.Init(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type),
               static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source), ONU_ABILITY_MATCH_TYPE_NONE);
  return profile;
}

OnuAbilityProfile RealProfile(unsigned int key, int source, unsigned int fe_ports,
                              unsigned int ge_ports) {
  OnuAbilityProfile profile = EmptyProfile(ONU_ABILITY_PROFILE_TYPE_REAL, source);
  profile.Add(ONU_ABILITY_CODE_DEFAULT_KEY, key);
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, key);
  profile.Add(ONU_ABILITY_CODE_TYPE_NAME, NameOfType(key));
  profile.Add(kFePorts, fe_ports);
  profile.Add(kGePorts, ge_ports);
  profile.Add(kLamp, kLampsOfEach);
  return profile;
}

OnuAbilityProfile Pattern(unsigned int key, int source, unsigned int serial_ports) {
  OnuAbilityProfile profile = EmptyProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, source);
  profile.Add(ONU_ABILITY_CODE_DEFAULT_KEY, key);
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, key);
  profile.Add(kSerialPorts, serial_ports);
  return profile;
}

OnuRealAbilityTable& RestoredTable() {
  static OnuRealAbilityTable table;
  return table;
}

void LoadCatalogue() {
  DefineCodes();
  RegisterHooks();
  OnuAbilityTableManager& tables = *OnuAbilityTableManager::GetInstance();
  tables.Init();
  for (unsigned int type = kFirstType; type < kFirstType + kTypes; ++type) {
    OnuAbilityProfile real = RealProfile(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 4, 1);
    tables.Add(real);
    OnuAbilityProfile pattern = Pattern(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, type);
    tables.Add(pattern);
  }
  OnuAbilityProfile shared = RealProfile(kSharedKey, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, 1, 1);
  tables.Add(shared);
  RestoredTable().Restore({RealProfile(kFirstType, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 4, 1)});
}
