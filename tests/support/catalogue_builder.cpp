#include "catalogue_builder.h"

#include <gtest/gtest.h>

namespace {

constexpr int kConfirmType = ONU_ABILITY_ATTR_CONFIRM_TYPE;
constexpr int kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr int kPortType = ONU_ABILITY_ATTR_PORT_TYPE;
constexpr int kValueType = ONU_ABILITY_ATTR_VALUE_TYPE;

}  // namespace

void RegisterAttributes() {
  OnuAbilityAttrInfo* registry = OnuAbilityAttrInfo::GetInstance();
  registry->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "CONFIRM_TYPE");
  registry->Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
  registry->Add(ONU_ABILITY_ATTR_PORT_TYPE, "PORT_TYPE");
  registry->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
}

void DefineCode(unsigned short code, const std::string& name,
                const std::map<int, unsigned short>& attributes) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = code;
  info.ability_name = name;
  for (const auto& [id, value] : attributes) {
    info.ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id)] = value;
  }
  OnuAbilityCodeInfo::GetInstance()->Update(info);
}

void DefineUsualCodes() {
  RegisterAttributes();
  DefineCode(1001, "ALL_LAN");
  DefineCode(1002, "ONU_CAPA", {{kConfirmType, 3}});
  DefineCode(1010, "FE_PORTS", {{kConfirmType, 3}, {kPortType, 3}});
  DefineCode(1011, "GE_PORTS", {{kConfirmType, 3}, {kPortType, 3}});
  DefineCode(1012, "WIFI_UNI", {{kPortType, 7}});
  DefineCode(1020, "POTS_PORTS", {{kConfirmType, 3}});
  DefineCode(1030, "POWER_LAMP", {{kLamp, 1}});
  DefineCode(1031, "LAN_LAMP", {{kLamp, 1}});
  DefineCode(1080, "REPORT_TYPE");
  DefineCode(1081, "REAL_TYPE");
  DefineCode(1082, "VENDOR_ID", {{kConfirmType, 3}, {kValueType, 3}});
  DefineCode(1083, "TYPE_NAME", {{kValueType, 3}});
  DefineCode(1085, "KEY_VALUE");
  DefineCode(1093, "PROFILE_NAME", {{kValueType, 3}});
  DefineCode(65533, "DATA_UNI_TOTAL");
}

OnuAbilityProfile MakeProfile(int type, int source) {
  OnuAbilityProfile profile;
  profile.Init(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type),
               static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source), ONU_ABILITY_MATCH_TYPE_NONE);
  return profile;
}

OnuAbilityProfile MakeRealProfile(unsigned int key, unsigned short real_type, int source) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL, source);
  profile.Add(key);
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, static_cast<unsigned int>(real_type));
  return profile;
}

OnuAbilityProfile MakeMatchProfile(unsigned int key, unsigned short real_type, int source) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, source);
  profile.Add(key);
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, static_cast<unsigned int>(real_type));
  return profile;
}

void InitTables() { OnuAbilityTableManager::GetInstance()->Init(); }

void AddToTable(const OnuAbilityProfile& profile) {
  OnuAbilityProfile copy = profile;
  EXPECT_EQ(0U, OnuAbilityTableManager::GetInstance()->Add(copy))
      << "the table refused a profile of the set-up";
}

std::vector<OnuAbilityProfile> TableOf(int type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type),
                                                ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}
