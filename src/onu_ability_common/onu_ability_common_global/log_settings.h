/* What the library logs with: the module id of every line, and the mask of the
 * levels that are handed to the host at all.
 *
 * Compiles as C too. Any thread may call these at any time. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H
#define ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H

#include "onu_ability_common_global/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The module id that the host registered, 19 until then: the first argument of
 * every ulogPrintf call of the library. */
ONU_ABILITY_API unsigned int onu_ability_get_module_id(void);

/* Bit n of the mask is level n; every bit is set at first. A line whose bit is
 * clear is neither formatted nor handed over and its arguments are not
 * evaluated, so the lines that fetching them would have caused are absent with
 * it. Nothing but log lines depends on the mask. */
ONU_ABILITY_API void onu_ability_set_log_level_mask(unsigned int mask);
ONU_ABILITY_API unsigned int onu_ability_get_log_level_mask(void);

#ifdef __cplusplus
}
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H */
