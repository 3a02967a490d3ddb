// Starts the library in the order that it wants: hooks and settings, tables, attributes and
// ability codes, the types of ONU, the commands. No other thread uses it before that.
#include <string>

#include "minimal_host.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"

enum : unsigned short { kLamps = 7, kPorts = 24 };  // two ability codes of this host's own

// What the library asks and tells about one ONU. Here all have four ports and do not know
// their type; yours ask the ONU at (place, onu). The port template has all their arguments.
static void RegisterHooks(OnuAbilityRegExternFunc& hooks) {
  constexpr auto nothing = [](auto...) { return 0U; };
  hooks._get_vendor_id = [](unsigned short, unsigned char, char* text) {
    return std::string("XMPL").copy(text, 4) == 4 ? 0U : 1U;
  };
  hooks._get_report_type = [](unsigned short, unsigned char) { return ONU_ABILITY_WILDCARD; };
  hooks._get_private_capability = nothing;  // it stays unknown
  hooks._get_device_name = nothing;
  hooks._get_identify_setting = nothing;
  hooks._read_one_by_one = [](unsigned short, unsigned char) { return 1U; };
  hooks._get_ability_value = [](unsigned short, unsigned char, unsigned short code,
                                unsigned int* value) { return code == kPorts ? *value = 4 : 1; };
  hooks._hand_over_profile = nothing;
  hooks._set_real_type = nothing;
  hooks._set_report_type = nothing;
}

static void DefineCode(unsigned short code, const char* name,
                       ONU_ABILITY_ENUM_ABILITY_ATTR_ID attribute, unsigned short value) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  info.ability_attr[attribute] = value;
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

// What the ONUs of a type can do (real), or what they are recognised by (match).
static void LoadType(ONU_ABILITY_ENUM_PROFILE_TYPE kind, unsigned int type, const char* name,
                     unsigned int ports, unsigned int lamps) {
  OnuAbilityProfile profile;
  profile.Init(kind, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile.Add(type);  // under the key ability code
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, type);
  profile.Add(ONU_ABILITY_CODE_TYPE_NAME, std::string(name));
  profile.Add(kPorts, ports);
  profile.Add(kLamps, lamps);
  OnuAbilityTableManager::GetInstance()->Add(profile);
}

void start_host() {
  OnuAbilityRegExternFunc::GetInstance()->SetModuleId(77);
  RegisterHooks(*OnuAbilityRegExternFunc::GetInstance());
  OnuAbilityTableManager::GetInstance()->Init();
  for (const int id : {1, 3, 4, 5}) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id),
                                           "ATTRIBUTE" + std::to_string(id));
  }
  DefineCode(kLamps, "LAMPS", ONU_ABILITY_ATTR_LAMP, 1);
  DefineCode(kPorts, "PORTS", ONU_ABILITY_ATTR_CONFIRM_TYPE, 3);  // asked, and compared
  DefineCode(ONU_ABILITY_CODE_REAL_TYPE, "REAL_TYPE", ONU_ABILITY_ATTR_VALUE_TYPE, 2);
  DefineCode(ONU_ABILITY_CODE_TYPE_NAME, "TYPE_NAME", ONU_ABILITY_ATTR_VALUE_TYPE, 3);
  DefineCode(ONU_ABILITY_CODE_DEFAULT_KEY, "TYPE_KEY", ONU_ABILITY_ATTR_VALUE_TYPE, 2);
  LoadType(ONU_ABILITY_PROFILE_TYPE_REAL, 500, "BRIDGE-4", 4, 9);
  LoadType(ONU_ABILITY_PROFILE_TYPE_REAL, 501, "BRIDGE-1", 1, 4);
  LoadType(ONU_ABILITY_PROFILE_TYPE_MATCH, 500, "", 4, ONU_ABILITY_WILDCARD);
  onu_ability_service_cbb_cli_init();
}
