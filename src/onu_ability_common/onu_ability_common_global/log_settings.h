/** @file
 * What the library logs with: the module id of every line, and the mask of the
 * levels that are handed to the host at all. The levels, as the headers name them:
 *
 * - 0: input that breaks a rule is rejected;
 * - 1: a lookup found nothing, a query failed, an ordinary refusal;
 * - 4: progress and comparisons of profiles and of a confirmation;
 * - 5: results handed back and values compared;
 * - 6: the steps of walks through the registries, derived counts;
 * - 9: a find or a hit;
 * - 10: the trace, "function start!" and "function end!" or the like, of nearly every
 *   operation of a class: the headers do not repeat it;
 * - 13: a null pointer, a profile that could not be packed or unpacked.
 *
 * Compiles as C too. Any thread may call these at any time; they log nothing. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H
#define ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H

#include "onu_ability_common_global/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/** The module id that the host registered, 19 until then: the first argument of
 * every ulogPrintf call of the library. */
ONU_ABILITY_API unsigned int onu_ability_get_module_id(void);

/** Sets the mask: bit n is level n, every bit is set at first. A line whose bit is
 * clear is neither formatted nor handed over and its arguments are not
 * evaluated, so the lines that fetching them would have caused are absent with
 * it. Nothing but log lines depends on the mask. */
ONU_ABILITY_API void onu_ability_set_log_level_mask(unsigned int mask);
/** The mask that was set last. */
ONU_ABILITY_API unsigned int onu_ability_get_log_level_mask(void);

#ifdef __cplusplus
}
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_LOG_SETTINGS_H */
