// The bytes inside a Variant, for a host that keeps or moves them.
//
// Every item is framed, so that a reader who asks for another type or length
// than was written is refused instead of misled. Numbers are little-endian on
// every machine:
//
//   0x02 low high                  a 16-bit number
//   0x04 b0 b1 b2 b3               a 32-bit number
//   0x53 l0 l1 l2 l3 bytes...      a byte string of length l
#ifndef OLT_HOST_PLATFORM_VARIANT_BYTES_H
#define OLT_HOST_PLATFORM_VARIANT_BYTES_H

#include <vector>

#include "variant.h"

namespace olt_host {

enum ItemTag : unsigned char { kShortItem = 0x02, kIntItem = 0x04, kBytesItem = 0x53 };

// The bytes written so far, whatever was read of them.
const std::vector<unsigned char>& VariantBytes(const Variant& variant);

// Replaces everything in `variant`; reading starts at the first byte.
void SetVariantBytes(Variant& variant, std::vector<unsigned char> bytes);

// Whether every byte has been read.
bool IsReadToEnd(const Variant& variant);

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_VARIANT_BYTES_H
