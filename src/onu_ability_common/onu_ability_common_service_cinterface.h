/** @file
 * The query functions: what other modules of the OLT ask about ONU types.
 * They ask the real profiles of every source, so built-in and operator's
 * profiles alike. Compiles as C too.
 *
 * A profile is found by its key ability value (the value of the key ability
 * code, 1085 unless changed) or by its ONU real type (code 1081); where several
 * qualify, the one added last answers.
 *
 * Any thread may call these at any time once start-up is over: tables made, hooks
 * registered. onu_ability_search_by_real_type takes no lock of the host's. Every failure
 * is logged: at level 1, and a null pointer at level 13. The road through manager and table
 * adds their lines: hits at level 9, entry and exit at level 10.
 *
 * When the memory does not suffice, std::bad_alloc passes through them, and through a module
 * in C on its way to whoever catches it.
 */
#ifndef ONU_ABILITY_COMMON_SERVICE_CINTERFACE_H
#define ONU_ABILITY_COMMON_SERVICE_CINTERFACE_H

#include "onu_ability_common_global/api.h"
#include "onu_ability_common_global/log_settings.h"
#include "onu_ability_common_global/status_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1 when some real profile has this key ability value, else 0. */
ONU_ABILITY_API unsigned int onu_ability_key_ability_value_is_exist(unsigned int key_ability_value);

/** 0 when some real profile has this real type, else
 * ONU_ABILITY_RET_INVALID_PARAM. */
ONU_ABILITY_API unsigned int onu_ability_search_by_real_type(unsigned short real_type);

/** The number value of a code of the profile with this key ability value, 32 bits, or 0
 * on any failure (no such profile, no such code in it, a string): a stored 0 and a
 * failure look the same. */
ONU_ABILITY_API unsigned int onu_ability_get_onu_ability_value_by_key_value(
    unsigned int key_ability_value, unsigned short ability_code);

/** @{ */
/** Write the type name (code 1083), cut to `size` - 1 bytes, and a terminator
 * into `buffer`. `size` counts bytes; 0 is not guarded and copies the whole
 * name. Return 0, ONU_ABILITY_RET_NULL_PTR for a null buffer, or
 * ONU_ABILITY_RET_NOT_FOUND with the buffer untouched when no profile has a name. What
 * was written is logged at level 5. */
ONU_ABILITY_API unsigned int onu_ability_get_onu_type_name_by_key_value(
    unsigned int key_ability_value, char* buffer, unsigned int size);
ONU_ABILITY_API unsigned int onu_ability_get_onu_type_name_by_realtype(unsigned short real_type,
                                                                       char* buffer,
                                                                       unsigned int size);
/** @} */

/** @{ */
/** The lamps of a type: the sum of the low 8 bits of each number whose code counts lamps.
 * 0 when there is no such profile, and, at level 13, when there is no real table. Before
 * Init they leave an empty entry for the real table in the manager's map. */
ONU_ABILITY_API unsigned int onu_ability_get_onu_lamp_total_num(unsigned short real_type);
ONU_ABILITY_API unsigned int onu_ability_get_onu_lamp_total_num_by_key_ability(
    unsigned int key_ability_value);
/** @} */

#ifdef __cplusplus
}
#endif

#endif /* ONU_ABILITY_COMMON_SERVICE_CINTERFACE_H */
