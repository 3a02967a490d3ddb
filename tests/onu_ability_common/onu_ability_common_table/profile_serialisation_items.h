// The serialised form of a profile as the tests of both directions write it
// down: items, and the messages of the items that can fail.
#ifndef TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_SERIALISATION_ITEMS_H
#define TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_SERIALISATION_ITEMS_H

#include <string>
#include <vector>

#include "support/variant_items.h"

using Items = std::vector<VariantItem>;

struct SerialisedHeader {
  unsigned short id = 21;
  unsigned int bind_count = 3;
  unsigned int match_type = 2;
  unsigned int profile_type = 1;
  unsigned int source = 1;
  unsigned int default_value = 0;
  unsigned int count = 0;
};

inline Items HeaderItems(const SerialisedHeader& header) {
  return {ShortItem(header.id),         IntItem(header.bind_count), IntItem(header.match_type),
          IntItem(header.profile_type), IntItem(header.source),     IntItem(header.default_value),
          IntItem(header.count)};
}

// The items of one ability.
inline Items RecordItems(unsigned int code, unsigned int tag, unsigned int number,
                         const std::string& text = "") {
  Items items = {IntItem(code), IntItem(tag), IntItem(number),
                 IntItem(static_cast<unsigned int>(text.size()))};
  if (!text.empty()) items.push_back(BytesItem(text));
  return items;
}

inline Items operator+(Items items, const Items& more) {
  items.insert(items.end(), more.begin(), more.end());
  return items;
}

// The item that each call handles, for a number and then a string.
inline const std::vector<std::string>& FieldsOfNumberAndString() {
  static const std::vector<std::string> fields = {"_id",
                                                  "_bind_count",
                                                  "_flag_match_type",
                                                  "_profile_type",
                                                  "_profile_source",
                                                  "_ability_default_value",
                                                  "_common_ability_num",
                                                  "ability_code",
                                                  "ability_value_type",
                                                  "ability_ushort_value",
                                                  "ability_string_len",
                                                  "ability_code",
                                                  "ability_value_type",
                                                  "ability_ushort_value",
                                                  "ability_string_len",
                                                  "ability_string_value"};
  return fields;
}

#endif  // TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_SERIALISATION_ITEMS_H
