#include "prepared_library.h"

#include "observed_state.h"
#include "onu_ability_common_reg_extern_func.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"
#include "support/scripted_hooks.h"

namespace {

constexpr unsigned int kHeardByAll = 0xFFFFFFFFU;

void DefineLongNames() {
  OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(40),
                                         "ATTRIBUTE_OF_THE_HOST_ITSELF");
  DefineCode(1002, "ONU_CAPABILITY_SFU_OR_HGU", {{ONU_ABILITY_ATTR_CONFIRM_TYPE, 3}});
  DefineCode(1023, "TRANSLATION_OF_THE_REPORTED_TYPE");
  DefineCode(48, "PRIVATE_CAPABILITY_IS_KNOWN", {{ONU_ABILITY_ATTR_CONFIRM_TYPE, 1}});
}

OnuAbilityProfile Filled(ONU_ABILITY_ENUM_PROFILE_TYPE type, int source, unsigned int key,
                         unsigned int fe_ports) {
  OnuAbilityProfile profile = MakeProfile(type, source);
  profile.Add(key);
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, key + 1000);
  profile.Add(ONU_ABILITY_CODE_REPORT_TYPE, key);
  profile.Add(ONU_ABILITY_CODE_ONU_CAPA, 1U);
  profile.Add(1010, fe_ports);
  profile.Add(1030, 2U);
  profile.Add(ONU_ABILITY_CODE_VENDOR_ID, std::string("ABCD"));
  profile.Add(ONU_ABILITY_CODE_TYPE_NAME, LongName());
  return profile;
}

void DescribeOnu() {
  ScriptedOnu& onu = Hooks().onu;
  onu.values = {{1002, 1}, {1010, 4}, {1011, 1}, {1020, 2}};
  onu.device_name = "A-DEVICE-NAMED-IN-20";
  onu.reported_type = 777;
  onu.private_capability = 1;
  onu.set_private_capability = true;
}

}  // namespace

const std::string& LongName() {
  static const std::string* name = new std::string("A-TYPE-NAME-OF-MORE-THAN-SIXTEEN");
  return *name;
}

OnuAbilityProfile NewProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key) {
  return Filled(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, key, 24);
}

OnuAbilityProfile NewReport() {
  OnuAbilityProfile report = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  report._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  report.Add(ONU_ABILITY_CODE_ONU_CAPA, 1U);
  report.Add(1010, 4U);
  report.Add(1011, 1U);
  report.Add(ONU_ABILITY_CODE_VENDOR_ID, std::string("ABCD"));
  return report;
}

void PrepareLibrary(Service service) {
  DefineUsualCodes();
  DefineLongNames();
  RegisterHooks();
  DescribeOnu();
  InitTables();
  // Four of each: the next one makes a table grow.
  for (unsigned int i = 0; i < 4; ++i) {
    const int source = static_cast<int>(i % 2);
    AddToTable(Filled(ONU_ABILITY_PROFILE_TYPE_REAL, source, 100 + i, i));
    AddToTable(Filled(ONU_ABILITY_PROFILE_TYPE_MATCH, source, 200 + i, i == 2 ? 4 : 50 + i));
  }
  if (service == Service::kInUse) {
    AskEverything();
  }
  onu_ability_set_log_level_mask(service == Service::kHeard ? kHeardByAll : 0);
  RecordingHost::Instance().ForgetLog();
}
