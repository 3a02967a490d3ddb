/* Marks what the shared library exports; everything else stays hidden. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_API_H
#define ONU_ABILITY_COMMON_GLOBAL_API_H

#if defined(__GNUC__)
#define ONU_ABILITY_API __attribute__((visibility("default")))
#else
#define ONU_ABILITY_API
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_API_H */
