// The recording host's Variant, opened up: what was appended to it, item by
// item, and items put into it by hand.
#ifndef TESTS_SUPPORT_VARIANT_ITEMS_H
#define TESTS_SUPPORT_VARIANT_ITEMS_H

#include <ostream>
#include <string>
#include <vector>

#include "variant.h"

struct VariantItem {
  enum Kind { kShort, kInt, kBytes } kind;
  unsigned int number;  // of kShort and kInt
  std::string bytes;    // of kBytes
  unsigned int index;   // last argument of the call that wrote it
};

VariantItem ShortItem(unsigned short number);  // index 0xFFFF
VariantItem IntItem(unsigned int number);
VariantItem BytesItem(std::string bytes);
bool operator==(const VariantItem& a, const VariantItem& b);
std::ostream& operator<<(std::ostream& out, const VariantItem& item);

// All items of the buffer, from its start, wherever its read cursor stands.
std::vector<VariantItem> ItemsOf(const Variant& variant);
// Appends items without counting as an Append of the library.
void PutItems(Variant& variant, const std::vector<VariantItem>& items);
// Items not yet fetched.
unsigned int ItemsLeft(const Variant& variant);

#endif  // TESTS_SUPPORT_VARIANT_ITEMS_H
