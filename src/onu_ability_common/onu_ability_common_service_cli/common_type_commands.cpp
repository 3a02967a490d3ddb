// The commands for the common SFU and HGU types, and the one that does nothing.
#include "bep.h"
#include "onu_ability_common_global/common_types.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_service_cli/command_arguments.h"

int cl_set_onu_common_type_fun(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const CommandArguments arguments(argc, argv);
  const int type = arguments.Number(1);
  if (bep_StrCmp(arguments.Text(0), "sfu") == 0) {
    SetSfuCommonType(static_cast<unsigned short>(type));
  } else {
    // Whatever else the word is, as meant.
    SetHguCommonType(static_cast<unsigned short>(type));
  }
  vty_out(vty, "set onu common type ok!common_type:%d\r\n", type);
  return 0;
}

int cl_get_onu_common_type_fun(cmd_element* /*element*/, struct vty* vty, int /*argc*/,
                               char** /*argv*/) {
  const auto [sfu_type, hgu_type] = CommonTypes();
  vty_out(vty, "common_sfu_type:%10d\r\n", sfu_type);
  vty_out(vty, "common_hgu_type:%10d\r\n", hgu_type);
  return 0;
}

int cl_test_onu_ability_fun(cmd_element* /*element*/, struct vty* /*vty*/, int /*argc*/,
                            char** /*argv*/) {
  return 0;
}

cmd_element cl_set_onu_common_type_cmd = {"set onu_common_type [sfu|hgu] <value>",
                                          cl_set_onu_common_type_fun,
                                          "set onu common type\r\n"
                                          "onu common type\r\n"
                                          "sfu\r\n"
                                          "hgu\r\n"
                                          "onu type code\r\n"};

cmd_element cl_get_onu_common_type_cmd = {"show onu_common_type", cl_get_onu_common_type_fun,
                                          "show onu common type\r\n"
                                          "onu common type\r\n"};

cmd_element cl_test_onu_ability_cmd = {"test ability", cl_test_onu_ability_fun,
                                       "test ability\r\n"
                                       "ability\r\n"};
