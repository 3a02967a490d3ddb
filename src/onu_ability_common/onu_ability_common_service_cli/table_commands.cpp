// The commands that list, delete and update the profiles of the tables.
#include "bep.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_service_cli/command_arguments.h"
#include "onu_ability_common_table.h"

int cl_show_onu_ability_table_cmd_fun(cmd_element* /*element*/, struct vty* vty, int argc,
                                      char** argv) {
  const CommandArguments arguments(argc, argv);
  const int type = bep_StrCmp(arguments.Text(0), "match") == 0 ? ONU_ABILITY_PROFILE_TYPE_MATCH
                                                               : ONU_ABILITY_PROFILE_TYPE_REAL;
  const int source = arguments.Number(1);
  const int flag = arguments.Number(2);
  if (argc >= 4) {
    onu_ability_show_item(type, source, flag, arguments.Short(4), vty);
  } else {
    onu_ability_show_all_onucapa_table(type, source, flag, vty);
  }
  vty_out(vty, "\r\n");
  return 0;
}

int cl_del_onutype_capa_table_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                   char** argv) {
  const CommandArguments arguments(argc, argv);
  const unsigned int key = arguments.Key(0);
  const auto type = static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(arguments.Number(1));
  const auto source = static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(arguments.Number(2));
  if (OnuAbilityTableManager::GetInstance()->Del(source, type, key) != ONU_ABILITY_RET_OK) {
    vty_out(vty, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del failed\r\n");
  } else {
    vty_out(vty, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n");
  }
  return 0;
}

int cl_update_uint_ability_value_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                      char** argv) {
  const CommandArguments arguments(argc, argv);
  const unsigned int key = arguments.Key(0);
  const auto type = static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(arguments.Number(1));
  const auto source = static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(arguments.Number(2));
  if (OnuAbilityTableManager::GetInstance()->Add(type, source, key, arguments.Short(3),
                                                 arguments.Unsigned(4)) != ONU_ABILITY_RET_OK) {
    vty_out(vty, "Add ability value failed!\r\n");
  } else {
    vty_out(vty, "Add ability value ok!\r\n");
  }
  return 0;
}

int cl_update_string_ability_value_func(cmd_element* /*element*/, struct vty* vty, int argc,
                                        char** argv) {
  const CommandArguments arguments(argc, argv);
  const unsigned int key = arguments.Unsigned(0);  // by atoi, unlike the other commands: meant
  const auto type = static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(arguments.Number(1));
  const auto source = static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(arguments.Number(2));
  const std::string value = arguments.Text(4);
  if (OnuAbilityTableManager::GetInstance()->Add(type, source, key, arguments.Short(3), value) !=
      ONU_ABILITY_RET_OK) {
    vty_out(vty, "Add ability value failed!\r\n");
  } else {
    vty_out(vty, "Add ability value ok!\r\n");
  }
  return 0;
}

cmd_element cl_show_onu_ability_table_cmd = {
    "show onucapa_table [match|real] <0-2> flag <0-1> {[real_type] <value>}*1",
    cl_show_onu_ability_table_cmd_fun,
    "show onucapa_table\r\n"
    "onu capability table \r\n"
    "match -- match table of onu ability;\r\n"
    "real -- real table of onu ability\r\n"
    "0:table items which are added at init time;1:table items which are added by cmd "
    "manually;2:all table items\r\n"
    "flag:whether show default ability value?\r\n"
    "0:don't show default value;1:show default value\r\n"};

cmd_element cl_del_onutype_capa_table_cmd = {
    "del onu_ability_profile key <value> profile_type <1-2> profile_source <0-1>",
    cl_del_onutype_capa_table_func,
    "delete onu_ability_profile\r\n"
    "onu_ability_profile\r\n"
    "key ability value\r\n"
    "key ability value\r\n"
    "onu ability profile type(onu_match_table or onu_real_table)\r\n"
    "1:onu_real_profile;2:onu_match_profile\r\n"
    "profile source(from default or extenal)\r\n"
    "0:from default;1:from external"};  // no final line break, as meant

cmd_element cl_update_uint_ability_value_cmd = {
    "update onu_ability_profile key <value> profile_type <1-2> profile_source <0-1> ability_code "
    "<value> uint_ability_value <value>",
    cl_update_uint_ability_value_func,
    "update onu_ability_profile\r\n"
    "onu_ability_profile\r\n"
    "key_ability_value\r\n"
    "key_ability_value\r\n"
    "profile_type\r\n"
    "1:onu_real_profile;2:onu_match_profile\r\n"
    "profile_source\r\n"
    "0:profile added by default;1:profile added by external\r\n"
    "ability code\r\n"
    "ability code\r\n"
    "unsigned short ability value\r\n"
    "unsigned short ability value\r\n"};

cmd_element cl_update_string_ability_value_cmd = {
    "update onu_ability_profile id <value> profile_type <1-2> profile_source <0-1> ability_code "
    "<value> string_ability_value <string>",
    cl_update_string_ability_value_func,
    "update onu_ability_profile\r\n"
    "onu_ability_profile\r\n"
    "profile index\r\n"
    "profile index\r\n"
    "profile_type\r\n"
    "1:onu_real_profile;2:onu_match_profile\r\n"
    "profile_source\r\n"
    "0:profile added by default;1:profile added by external\r\n"
    "ability code\r\n"
    "ability code\r\n"
    "string ability value\r\n"
    "string ability value\r\n"};
