// The operator's command line: the sixteen commands, their registration with
// the host's vty framework, and the listings of profiles.
//
// Handlers run on the host's CLI thread. They take arguments as text in the
// order of the syntax string; numbers that are none read as 0, a missing
// argument as the empty text. They return 0 unless said otherwise.
#ifndef ONU_ABILITY_COMMON_SERVICE_CLI_H
#define ONU_ABILITY_COMMON_SERVICE_CLI_H

#include "onu_ability_common_global/api.h"
#include "vty.h"

extern "C" {

// Registers the module "onu_ability" with the framework. Call it last at
// start-up, after the command node is set. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_init(void);
// Installs the sixteen commands under the host's command node. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_install_element(void);
// Writes nothing: no configuration is saved this way. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_showrun(void);

// The commands in installation order.

extern ONU_ABILITY_API struct cmd_element cl_show_onu_ability_table_cmd;
extern ONU_ABILITY_API struct cmd_element cl_add_onutype_capa_table_cmd;
extern ONU_ABILITY_API struct cmd_element cl_set_onutype_capa_table_cmd;
extern ONU_ABILITY_API struct cmd_element cl_apply_add_onutype_capa_table_cmd;
extern ONU_ABILITY_API struct cmd_element cl_show_onu_ability_table_by_manual_cmd;
extern ONU_ABILITY_API struct cmd_element cl_del_onutype_capa_table_cmd;
extern ONU_ABILITY_API struct cmd_element cl_show_onu_ability_code_info_cmd;
extern ONU_ABILITY_API struct cmd_element cl_set_onu_ability_code_info_cmd;
extern ONU_ABILITY_API struct cmd_element cl_del_onu_ability_code_info_cmd;
extern ONU_ABILITY_API struct cmd_element cl_update_uint_ability_value_cmd;
extern ONU_ABILITY_API struct cmd_element cl_update_string_ability_value_cmd;
extern ONU_ABILITY_API struct cmd_element cl_set_onu_common_type_cmd;
extern ONU_ABILITY_API struct cmd_element cl_get_onu_common_type_cmd;
extern ONU_ABILITY_API struct cmd_element cl_set_key_ability_code_cmd;
extern ONU_ABILITY_API struct cmd_element cl_get_key_ability_code_cmd;
extern ONU_ABILITY_API struct cmd_element cl_test_onu_ability_cmd;

// match|real, source, flag[, "real_type", real type]
ONU_ABILITY_API int cl_show_onu_ability_table_cmd_fun(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
// key, profile type, report type, real type, vendor id|null, type name|null:
// starts the pending profile.
ONU_ABILITY_API int cl_add_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
// "key", key, then pairs of code and value|null, for the pending profile.
ONU_ABILITY_API int cl_set_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
// key: stores the pending profile. Returns ONU_ABILITY_RET_INVALID_PARAM for
// another key, ONU_ABILITY_RET_OPERATE_FAILED when the table refuses.
ONU_ABILITY_API int cl_apply_add_onutype_capa_table_func(struct cmd_element* element,
                                                         struct vty* vty, int argc, char** argv);
// flag
ONU_ABILITY_API int cl_show_onu_ability_table_by_manual_fun(struct cmd_element* element,
                                                            struct vty* vty, int argc, char** argv);
// key, profile type, source
ONU_ABILITY_API int cl_del_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
// [code or name]
ONU_ABILITY_API int cl_show_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
// code, name, then pairs of attribute id and value
ONU_ABILITY_API int cl_set_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                     int argc, char** argv);
// code
ONU_ABILITY_API int cl_del_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                     int argc, char** argv);
// key, profile type, source, code, number
ONU_ABILITY_API int cl_update_uint_ability_value_func(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
// key, profile type, source, code, string
ONU_ABILITY_API int cl_update_string_ability_value_func(struct cmd_element* element,
                                                        struct vty* vty, int argc, char** argv);
// sfu|hgu, type
ONU_ABILITY_API int cl_set_onu_common_type_fun(struct cmd_element* element, struct vty* vty,
                                               int argc, char** argv);
ONU_ABILITY_API int cl_get_onu_common_type_fun(struct cmd_element* element, struct vty* vty,
                                               int argc, char** argv);
// code
ONU_ABILITY_API int cl_set_key_ability_code_fun(struct cmd_element* element, struct vty* vty,
                                                int argc, char** argv);
ONU_ABILITY_API int cl_get_key_ability_code_fun(struct cmd_element* element, struct vty* vty,
                                                int argc, char** argv);
ONU_ABILITY_API int cl_test_onu_ability_fun(struct cmd_element* element, struct vty* vty, int argc,
                                            char** argv);

// The number of an ability as an operator types it: "null" (don't care) is
// 0xFFFFFFFF, anything else what atoi makes of it.
ONU_ABILITY_API unsigned int char_to_onucapa_num(char* text);

// List the profiles of a table (1 real, 2 match) on the terminal: all, or those
// of one real type. `source` filters (2 is all); `flag` 0 hides numbers equal
// to the default. A null `vty` and any other table are logged.
ONU_ABILITY_API void onu_ability_show_all_onucapa_table(int match_or_real, int source, int flag,
                                                        void* vty);
ONU_ABILITY_API void onu_ability_show_item(int match_or_real, int source, int flag,
                                           unsigned short real_type, void* vty);

}  // extern "C"

#endif  // ONU_ABILITY_COMMON_SERVICE_CLI_H
