#include "onu_ability_common_global/text_utilities.h"

#include <cctype>
#include <cstdio>

#include "bep.h"
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/status_codes.h"

namespace {

// Positions in the hex text are counted in 8 bits.
constexpr unsigned short kMaxHexDigits = 255;

// The value of a hex digit, -1 for any other character. Digits are the same in
// every locale.
int HexDigitValue(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  if (c >= 'A' && c <= 'F') {
    return c - 'A' + 10;
  }
  if (c >= 'a' && c <= 'f') {
    return c - 'a' + 10;
  }
  return -1;
}

unsigned int ConvertCase(char* str, int (*convert)(int)) {
  if (str == nullptr) {
    return ONU_ABILITY_RET_NULL_PTR;
  }
  for (; *str != '\0'; ++str) {
    *str = static_cast<char>(convert(static_cast<unsigned char>(*str)));
  }
  return ONU_ABILITY_RET_OK;
}

}  // namespace

unsigned int onu_ability_trans_str_lower_to_upper(char* str) { return ConvertCase(str, toupper); }

unsigned int onu_ability_trans_str_upper_to_lower(char* str) { return ConvertCase(str, tolower); }

unsigned int filter_nohexchar(char* str) {
  if (str == nullptr) {
    puts("input parm 'str_src' is NULL\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  const auto length = static_cast<unsigned short>(bep_StrLen(str));
  unsigned short kept = 0;
  for (unsigned short i = 0; i < length; ++i) {
    if (HexDigitValue(str[i]) >= 0) {
      str[kept++] = str[i];
    }
  }
  // Every place given up becomes a terminator.
  for (unsigned short i = kept; i < length; ++i) {
    str[i] = '\0';
  }
  return ONU_ABILITY_RET_OK;
}

unsigned int char_to_hex(unsigned char* dst, char* src, unsigned short dst_len) {
  if (dst == nullptr) {
    puts("input parm 'dst' is NULL\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  if (src == nullptr) {
    puts("input parm 'src' is NULL\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  if (filter_nohexchar(src) != ONU_ABILITY_RET_OK) {
    puts("filter_nohexchar failed\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  const auto src_len = static_cast<unsigned short>(bep_StrLen(src));
  bep_memSetEx(dst, dst_len, 0, dst_len);
  if (dst_len == 0 || dst_len < src_len / 2) {
    puts("src_len is greater than dst_len !\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  if (src_len > kMaxHexDigits) {
    puts("src_len is greater than 255 !\r");
    return ONU_ABILITY_RET_INVALID_PARAM;
  }
  // An odd last digit may land one byte behind dst_len: the test above rounds
  // down, as meant, and callers give room for the rounded-up half.
  for (unsigned short i = 0; i < src_len; ++i) {
    const auto digit = static_cast<unsigned int>(HexDigitValue(src[i]));
    if (i % 2 == 0) {
      dst[i / 2] = static_cast<unsigned char>(digit << 4U);
    } else {
      dst[i / 2] = static_cast<unsigned char>(dst[i / 2] | digit);
    }
  }
  return ONU_ABILITY_RET_OK;
}

unsigned int all_1_onetype_to_twotype(unsigned char value, unsigned short* out) {
  if (out == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return ONU_ABILITY_RET_NULL_PTR;
  }
  *out = value == 0xFF ? static_cast<unsigned short>(0xFFFF) : value;
  return ONU_ABILITY_RET_OK;
}

unsigned int trans_1_type_to_4_type(unsigned char value) {
  return value == 0xFF ? 0xFFFFFFFFU : value;
}
