// The commands for the registry of ability codes.
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_service_cli/command_arguments.h"
#include "onu_ability_common_table.h"

int cl_show_onu_ability_code_info_fun(cmd_element* /*element*/, struct vty* vty, int argc,
                                      char** argv) {
  const CommandArguments arguments(argc, argv);
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  if (argc < 1) {
    codes->Show(vty);
    return 0;
  }
  const std::string text = arguments.Text(0);
  if (OnuAbilityGlobalVar::IsDigit(text) != 0) {
    codes->Show(vty, arguments.Short(0));
  } else {
    codes->Show(vty, text);
  }
  return 0;
}

int cl_set_onu_ability_code_info_fun(cmd_element* /*element*/, struct vty* vty, int argc,
                                     char** argv) {
  const CommandArguments arguments(argc, argv);
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_code = arguments.Short(0);
  info.ability_name = arguments.Text(1);
  for (int i = 2; i + 1 < argc; i += 2) {
    const auto attr =
        info.ability_attr.find(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(arguments.Number(i)));
    if (attr != info.ability_attr.end()) {
      attr->second = arguments.Short(i + 1);
    }
  }
  // "ok" whether or not the registry took the record, as meant.
  OnuAbilityCodeInfo::GetInstance()->Update(info);
  vty_out(vty, "set ability code ok!\r\n");
  return 0;
}

int cl_del_onu_ability_code_info_fun(cmd_element* /*element*/, struct vty* vty, int argc,
                                     char** argv) {
  const unsigned short code = CommandArguments(argc, argv).Short(0);
  if (OnuAbilityCodeInfo::GetInstance()->Del(code) != ONU_ABILITY_RET_OK) {
    vty_out(vty, "del ability code failed!\r\n");
  } else {
    vty_out(vty, "del ability code ok!\r\n");
  }
  return 0;
}

int cl_set_key_ability_code_fun(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const unsigned short code = CommandArguments(argc, argv).Short(0);
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  codes->SetKeyAbilityCode(code);
  vty_out(vty, "set key_ability_code ok!key_ability_code:%d, ability_name:%s\r\n", code,
          codes->Get(code).c_str());
  return 0;
}

int cl_get_key_ability_code_fun(cmd_element* /*element*/, struct vty* vty, int /*argc*/,
                                char** /*argv*/) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  const unsigned short code = codes->GetKeyAbilityCode();
  vty_out(vty, "key_ability_code:%10d\r\nability_name: %10s\r\n", code, codes->Get(code).c_str());
  return 0;
}

cmd_element cl_show_onu_ability_code_info_cmd = {"show ability code {<value>}*1",
                                                 cl_show_onu_ability_code_info_fun,
                                                 "show ability code\r\n"
                                                 "ability code\r\n"
                                                 "ability code\r\n"
                                                 "ability code value or name\r\n"};

cmd_element cl_set_onu_ability_code_info_cmd = {
    "set ability_code <value> name <string> {<value> <value>}*8", cl_set_onu_ability_code_info_fun,
    "set ability code\r\n"
    "ability code\r\n"
    "ability code value\r\n"
    "ability name\r\n"
    "ability name string\r\n"
    "ability attribute id\r\n"
    "ability attribute value\r\n"};

cmd_element cl_del_onu_ability_code_info_cmd = {"del ability code <value>",
                                                cl_del_onu_ability_code_info_fun,
                                                "delete ability code\r\n"
                                                "ability code\r\n"
                                                "ability code\r\n"
                                                "ability code value\r\n"};

cmd_element cl_set_key_ability_code_cmd = {"set key_ability_code <value>",
                                           cl_set_key_ability_code_fun,
                                           "set key_ability_code\r\n"
                                           "key_ability_code\r\n"
                                           "key ability code\r\n"};

cmd_element cl_get_key_ability_code_cmd = {"show key_ability_code", cl_get_key_ability_code_fun,
                                           "show key_ability_code\r\n"
                                           "key_ability_code\r\n"};
