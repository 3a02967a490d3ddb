/** @file
 * The results of operations that report a status. 32 bits, 0 is success; logs
 * print them as `ret:0x%x`. Yes/no questions answer 1 or 0 instead.
 *
 * Compiles as C too, for the modules that call the query functions. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_STATUS_CODES_H
#define ONU_ABILITY_COMMON_GLOBAL_STATUS_CODES_H

#ifdef __cplusplus
/** Success. */
constexpr unsigned int ONU_ABILITY_RET_OK = 0;
/** A required pointer is null, or a host callback is missing. */
constexpr unsigned int ONU_ABILITY_RET_NULL_PTR = 0x80000001U;
/** An argument is out of range or refers to nothing. */
constexpr unsigned int ONU_ABILITY_RET_INVALID_PARAM = 0x80000002U;
/** A change is refused, or the value of a profile that was found is unreadable. */
constexpr unsigned int ONU_ABILITY_RET_OPERATE_FAILED = 0x80000003U;
/** A lookup finds nothing, or a value of the other type. */
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
