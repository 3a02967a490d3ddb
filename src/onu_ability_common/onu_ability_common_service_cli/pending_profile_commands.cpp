// The commands by which an operator builds a profile and adds it to a table:
// "add" starts the pending profile, "set" fills it, "apply" hands it over.
#include "bep.h"
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_service_cli/command_arguments.h"
#include "onu_ability_common_table.h"
#include "onu_type_help.h"

namespace {

constexpr unsigned int kVendorIdLength = 4;
constexpr unsigned int kTypeNameLength = 20;

OnuAbilityProfile* Pending() { return OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile; }

bool IsNull(const char* text) { return bep_StrCmp(text, "null") == 0; }

// The argument cut to `maximum` characters (at most 20); "null" is empty.
std::string NameArgument(char* text, unsigned int maximum) {
  char name[kTypeNameLength + 1] = {};
  if (!IsNull(text)) {
    OnuAbilityGlobalVar::char_to_string(text, name, maximum);
  }
  return name;
}

}  // namespace

unsigned int char_to_onucapa_num(char* text) {
  if (IsNull(text)) {
    ONU_ABILITY_LOG(4, "ch_temp is null!");
    return ONU_ABILITY_WILDCARD;
  }
  const int number = atoi(text);
  ONU_ABILITY_LOG(4, "atoi:%d", number);
  return static_cast<unsigned int>(number);
}

int cl_add_onutype_capa_table_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                   char** argv) {
  const CommandArguments arguments(argc, argv);
  const unsigned int key = arguments.Key(0);
  OnuAbilityProfile*& pending = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  if (pending == nullptr) {
    pending = new OnuAbilityProfile;  // reused by later commands, never freed
  }
  pending->Init(static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(arguments.Number(1)),
                ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_MATCH_TYPE_EXACT);
  pending->Add(key);
  pending->Add(ONU_ABILITY_CODE_REPORT_TYPE, arguments.Unsigned(2));
  pending->Add(ONU_ABILITY_CODE_REAL_TYPE, arguments.Unsigned(3));
  pending->Add(ONU_ABILITY_CODE_VENDOR_ID, NameArgument(arguments.Text(4), kVendorIdLength));
  pending->Add(ONU_ABILITY_CODE_TYPE_NAME, NameArgument(arguments.Text(5), kTypeNameLength));
  vty_out(vty, "onu ability item set ok!key_ability_value:%u\r\n", key);
  return 0;
}

int cl_set_onutype_capa_table_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                   char** argv) {
  const CommandArguments arguments(argc, argv);
  const unsigned int key = arguments.Key(1);
  OnuAbilityProfile* pending = Pending();
  if (pending == nullptr) {
    return 0;
  }
  if ((*pending == key) == 0) {
    unsigned int valid_key = 0;
    pending->Get(valid_key);
    vty_out(vty,
            "key_ability_value invalid,invalid key_ability_value:%u, valid "
            "key_ability_value:%u\r\n",
            key, valid_key);
    return 0;
  }
  for (int i = 2; i + 1 < argc; i += 2) {
    pending->Add(arguments.Short(i), char_to_onucapa_num(arguments.Text(i + 1)));
  }
  vty_out(vty, "set onu_ability_profile ok!\r\n");
  return 0;
}

int cl_apply_add_onutype_capa_table_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                         char** argv) {
  const unsigned int key = CommandArguments(argc, argv).Key(0);
  OnuAbilityProfile* pending = Pending();
  if (pending == nullptr) {
    return 0;
  }
  if ((*pending == key) == 0) {
    unsigned int valid_key = 0;
    pending->Get(valid_key);
    vty_out(vty,
            "key_ability_value is not exist!invalid key_ability_value:%u,valid "
            "key_ability_value:%u\r\n",
            key, valid_key);
    return static_cast<int>(ONU_ABILITY_RET_INVALID_PARAM);
  }
  if (OnuAbilityTableManager::GetInstance()->Add(*pending) != ONU_ABILITY_RET_OK) {
    vty_out(vty, "ONU_ABILITY_INSTANCE_TABLE_MGR.Add failed\r\n");
    return static_cast<int>(ONU_ABILITY_RET_OPERATE_FAILED);
  }
  vty_out(vty, "add ability profile successfully,key_ability_value:%u\r\n", key);
  return 0;
}

int cl_show_onu_ability_table_by_manual_fun(cmd_element* /*element*/, struct vty* vty, int argc,
                                            char** argv) {
  const unsigned int flag = CommandArguments(argc, argv).Unsigned(0);
  OnuAbilityProfile* pending = Pending();
  if (pending != nullptr) {
    ONU_ABILITY_PHYSICAL_SN no_onu;
    pending->Show(vty, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, flag, no_onu, ONU_ABILITY_NO_OMCI_MODE);
  }
  vty_out(vty, "\r\n");
  return 0;
}

cmd_element cl_add_onutype_capa_table_cmd = {
    "add onu_ability_profile key <value> profile_type <1-2> reporttype <onutype_code> realtype "
    "<onutype_code> vendorid [<string>|null] onu_type_name [<string>|null] ",
    cl_add_onutype_capa_table_func,
    "add onu_ability_profile\r\n"
    "onu_ability_profile\r\n"
    "key ability value\r\n"
    "key ability value\r\n"
    "onu ability profile type(onu_real_profile or onu_match_profile)\r\n"
    "1:onu_real_profile;2:onu_match_profile\r\n"
    "onu_reporttype\r\n" ONU_TYPE_HELP
    "\r\n"
    "onu_realtype\r\n" ONU_TYPE_HELP
    "\r\n"
    "vendorid\r\n"
    "VENDORID,such as:ZKWM\r\n"
    "null:don't care vendorid\r\n"
    "onu type name\r\n"};

cmd_element cl_set_onutype_capa_table_cmd = {
    "set onu_ability_profile [key] <value> {<value> [<0-65535>|null]}*8",
    cl_set_onutype_capa_table_func,
    "set onu_ability_profile\r\n"
    "onu_ability_profile\r\n"
    "key_ability_value\r\n"
    "key ability value\r\n"
    "ability code\r\n"
    "0-254:num of the capa\r\n"
    "null:don't care num of the capa\r\n"};

cmd_element cl_apply_add_onutype_capa_table_cmd = {"apply onu_ability_profile key <value>",
                                                   cl_apply_add_onutype_capa_table_func,
                                                   "apply onu_ability_profile\r\n"
                                                   "onu_ability_profile\r\n"
                                                   "key ability value\r\n"
                                                   "key ability value\r\n"};

cmd_element cl_show_onu_ability_table_by_manual_cmd = {
    "show onucapa_table_by_manual_cmd flag <0-1>", cl_show_onu_ability_table_by_manual_fun,
    "show onucapa_table_by_manual_cmd\r\n"
    "onucapa_table_by_manual_cmd\r\n"
    "flag:whether show default ability value?\r\n"
    "0:don't show default value;1:show default value\r\n"};
