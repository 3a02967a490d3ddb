/* The results of operations that report a status. 32 bits, 0 is success; logs
 * print them as "ret:0x%x". Yes/no questions answer 1 or 0 instead.
 *
 * Compiles as C too, for the modules that call the query functions. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_STATUS_CODES_H
#define ONU_ABILITY_COMMON_GLOBAL_STATUS_CODES_H

/* OK: success.
 * NULL_PTR: a required pointer is null, or a host callback is missing.
 * INVALID_PARAM: an argument is out of range or refers to nothing.
 * OPERATE_FAILED: a change is refused, or the value of a profile that was found
 *   is unreadable.
 * NOT_FOUND: a lookup finds nothing, or a value of the other type. */
#ifdef __cplusplus
constexpr unsigned int ONU_ABILITY_RET_OK = 0;
constexpr unsigned int ONU_ABILITY_RET_NULL_PTR = 0x80000001U;
constexpr unsigned int ONU_ABILITY_RET_INVALID_PARAM = 0x80000002U;
constexpr unsigned int ONU_ABILITY_RET_OPERATE_FAILED = 0x80000003U;
constexpr unsigned int ONU_ABILITY_RET_NOT_FOUND = 0x80000004U;
#else
/* No constants of C but macros can be of this width and stand in a case label. */
#define ONU_ABILITY_RET_OK 0U
#define ONU_ABILITY_RET_NULL_PTR 0x80000001U
#define ONU_ABILITY_RET_INVALID_PARAM 0x80000002U
#define ONU_ABILITY_RET_OPERATE_FAILED 0x80000003U
#define ONU_ABILITY_RET_NOT_FOUND 0x80000004U
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_STATUS_CODES_H */
