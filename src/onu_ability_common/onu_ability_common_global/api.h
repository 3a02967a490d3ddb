/** @file
 * Marks what the shared library exports, and the private operations of an
 * exported class that stay hidden like everything else. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_API_H
#define ONU_ABILITY_COMMON_GLOBAL_API_H

#if defined(__GNUC__)
/** Of what a host may call. */
#define ONU_ABILITY_API __attribute__((visibility("default")))
/** Of what only the library itself calls. */
#define ONU_ABILITY_LOCAL __attribute__((visibility("hidden")))
#else
#define ONU_ABILITY_API
#define ONU_ABILITY_LOCAL
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_API_H */
