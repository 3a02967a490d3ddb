// Registration of the command line with the host's framework.
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"

int onu_ability_service_cbb_cli_init() {
  cl_install_module("onu_ability", onu_ability_service_cbb_cli_install_element,
                    onu_ability_service_cbb_cli_showrun);
  return 0;
}

int onu_ability_service_cbb_cli_install_element() {
  static cmd_element* const commands[] = {
      &cl_show_onu_ability_table_cmd,
      &cl_add_onutype_capa_table_cmd,
      &cl_set_onutype_capa_table_cmd,
      &cl_apply_add_onutype_capa_table_cmd,
      &cl_show_onu_ability_table_by_manual_cmd,
      &cl_del_onutype_capa_table_cmd,
      &cl_show_onu_ability_code_info_cmd,
      &cl_set_onu_ability_code_info_cmd,
      &cl_del_onu_ability_code_info_cmd,
      &cl_update_uint_ability_value_cmd,
      &cl_update_string_ability_value_cmd,
      &cl_set_onu_common_type_cmd,
      &cl_get_onu_common_type_cmd,
      &cl_set_key_ability_code_cmd,
      &cl_get_key_ability_code_cmd,
      &cl_test_onu_ability_cmd,
  };
  const unsigned int node = OnuAbilityRegExternFunc::GetInstance()->GetCmdNode();
  for (cmd_element* command : commands) {
    install_element(node, command);
  }
  return 0;
}

int onu_ability_service_cbb_cli_showrun() { return 0; }
