/** @file
 * Case conversion, hex text and the widening of all-ones markers.
 *
 * No state: any thread may call these at any time, each on text of its own. Lengths are
 * those of terminated text. Nothing is logged unless said so. */
#ifndef ONU_ABILITY_COMMON_GLOBAL_TEXT_UTILITIES_H
#define ONU_ABILITY_COMMON_GLOBAL_TEXT_UTILITIES_H

#include "onu_ability_common_global/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @{ */
/** Convert in place, character by character in the C library's locale. Return 0, or
 * ONU_ABILITY_RET_NULL_PTR for null. */
ONU_ABILITY_API unsigned int onu_ability_trans_str_lower_to_upper(char* str);
ONU_ABILITY_API unsigned int onu_ability_trans_str_upper_to_lower(char* str);
/** @} */

/** Removes in place every character that is not a hex digit, keeping the order
 * of the others. The length is kept in 16 bits. Returns 0; null writes a line
 * to standard output and returns ONU_ABILITY_RET_INVALID_PARAM. */
ONU_ABILITY_API unsigned int filter_nohexchar(char* str);

/** Converts hex text to bytes, the first digit of each pair being the high
 * nibble; an odd last digit leaves a low nibble of 0. `src` is filtered in
 * place first. `dst_len` bytes of `dst` are zeroed before anything is written.
 *
 * `dst_len` counts whole pairs: a caller gives room for one byte more when the
 * number of digits may be odd. Up to 255 digits.
 *
 * Returns 0, or ONU_ABILITY_RET_INVALID_PARAM, with a line on standard output,
 * for a null argument, a `dst_len` of 0 or below half the digits, and for more
 * digits than 255. */
ONU_ABILITY_API unsigned int char_to_hex(unsigned char* dst, char* src, unsigned short dst_len);

/** Stores `value` widened, 255 (not set, or every) as 0xFFFF. Returns 0, or
 * ONU_ABILITY_RET_NULL_PTR for a null `out`, which is logged at level 13. */
ONU_ABILITY_API unsigned int all_1_onetype_to_twotype(unsigned char value, unsigned short* out);

/** `value` widened, 255 as 0xFFFFFFFF. */
ONU_ABILITY_API unsigned int trans_1_type_to_4_type(unsigned char value);

#ifdef __cplusplus
}
#endif

#endif /* ONU_ABILITY_COMMON_GLOBAL_TEXT_UTILITIES_H */
