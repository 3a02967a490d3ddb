/// @file
/// The operator's command line: the sixteen commands, their registration with
/// the host's vty framework, and the listings of profiles.
///
/// Handlers run on the host's CLI thread. They take arguments as text in the
/// order of the syntax string; numbers that are none read as 0, a missing
/// argument as the empty text. Codes and types are cut to 16 bits, keys and other numbers
/// have 32. They return 0 unless said otherwise, and write to `vty` what came of it; what
/// the operations behind them log is said where those are declared. When the memory does not
/// suffice, they throw std::bad_alloc.
#ifndef ONU_ABILITY_COMMON_SERVICE_CLI_H
#define ONU_ABILITY_COMMON_SERVICE_CLI_H

#include "onu_ability_common_global/api.h"
#include "vty.h"

extern "C" {

/// Registers the module "onu_ability" with the framework. Call it last at
/// start-up, after the command node is set. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_init(void);
/// Installs the sixteen commands under the host's command node. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_install_element(void);
/// Writes nothing: no configuration is saved this way. Returns 0.
ONU_ABILITY_API int onu_ability_service_cbb_cli_showrun(void);

/// @{
/// A command: syntax, handler and help. They stand here in the order of installation.
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
/// @}

/// `match`|`real`, source (0 to 2), flag (0 or 1)[, "real_type", real type]: lists a table,
/// or its profiles of one real type.
ONU_ABILITY_API int cl_show_onu_ability_table_cmd_fun(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
/// key, profile type, report type, real type, vendor id|`null`, type name|`null`:
/// starts the pending profile, or starts it again. The vendor identifier is cut to 4
/// characters, the name to 20; `null` is an empty one.
ONU_ABILITY_API int cl_add_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
/// "key", key, then pairs of code and value|`null`, for the pending profile: adds each.
/// Another key than the pending profile's changes nothing, and without one nothing is
/// written.
ONU_ABILITY_API int cl_set_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
/// key: stores a copy of the pending profile, which stays. Returns ONU_ABILITY_RET_INVALID_PARAM
/// for another key, ONU_ABILITY_RET_OPERATE_FAILED when the table refuses, and 0 without a pending
/// profile.
ONU_ABILITY_API int cl_apply_add_onutype_capa_table_func(struct cmd_element* element,
                                                         struct vty* vty, int argc, char** argv);
/// flag (0 or 1): lists the pending profile, if there is one.
ONU_ABILITY_API int cl_show_onu_ability_table_by_manual_fun(struct cmd_element* element,
                                                            struct vty* vty, int argc, char** argv);
/// key, profile type, source (0 or 1): deletes the newest unbound real profile; match
/// profiles are not deleted this way. Written as done also when there was none; failed only for a
/// profile type without a table.
ONU_ABILITY_API int cl_del_onutype_capa_table_func(struct cmd_element* element, struct vty* vty,
                                                   int argc, char** argv);
/// [code or name]: lists all ability codes, the one with this code, or those whose name
/// contains the text in upper case.
ONU_ABILITY_API int cl_show_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
/// code, name, then pairs of attribute id and value (16 bits): defines the code. Unknown
/// attribute ids are skipped; written as done also when the registry refused it.
ONU_ABILITY_API int cl_set_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                     int argc, char** argv);
/// code: deletes the code unless a real profile holds it.
ONU_ABILITY_API int cl_del_onu_ability_code_info_fun(struct cmd_element* element, struct vty* vty,
                                                     int argc, char** argv);
/// key, profile type, source (0 or 1), code, number: adds the value to the oldest profile
/// that has the key.
ONU_ABILITY_API int cl_update_uint_ability_value_func(struct cmd_element* element, struct vty* vty,
                                                      int argc, char** argv);
/// The same with a string.
ONU_ABILITY_API int cl_update_string_ability_value_func(struct cmd_element* element,
                                                        struct vty* vty, int argc, char** argv);
/// `sfu`|`hgu`, type: sets a common type; whatever is not `sfu` sets that of HGUs.
ONU_ABILITY_API int cl_set_onu_common_type_fun(struct cmd_element* element, struct vty* vty,
                                               int argc, char** argv);
/// No arguments: writes both common types.
ONU_ABILITY_API int cl_get_onu_common_type_fun(struct cmd_element* element, struct vty* vty,
                                               int argc, char** argv);
/// code: makes it the key ability code, registered or not.
ONU_ABILITY_API int cl_set_key_ability_code_fun(struct cmd_element* element, struct vty* vty,
                                                int argc, char** argv);
/// No arguments: writes the key ability code and its name.
ONU_ABILITY_API int cl_get_key_ability_code_fun(struct cmd_element* element, struct vty* vty,
                                                int argc, char** argv);
/// Does nothing.
ONU_ABILITY_API int cl_test_onu_ability_fun(struct cmd_element* element, struct vty* vty, int argc,
                                            char** argv);

/// The number of an ability as an operator types it: `null` (don't care) is
/// 0xFFFFFFFF, anything else what atoi makes of it. `text` is never null. Says at level 4
/// what it made of it.
ONU_ABILITY_API unsigned int char_to_onucapa_num(char* text);

/// @{
/// List the profiles of a table (1 real, 2 match) on the terminal: all, or those
/// of one real type. `source` filters (2 is all); `flag` 0 hides numbers equal
/// to the default. A null `vty` is logged at level 13, any other table at level 0, and
/// nothing listed.
ONU_ABILITY_API void onu_ability_show_all_onucapa_table(int match_or_real, int source, int flag,
                                                        void* vty);
ONU_ABILITY_API void onu_ability_show_item(int match_or_real, int source, int flag,
                                           unsigned short real_type, void* vty);
/// @}

}  // extern "C"

#endif  // ONU_ABILITY_COMMON_SERVICE_CLI_H
