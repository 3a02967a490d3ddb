// The model's serialisation buffer, with the faults that a host can have.
#ifndef TESTS_MODEL_SERIALISATION_H
#define TESTS_MODEL_SERIALISATION_H

#include <string>
#include <vector>

#include "record.h"

namespace model {

struct Item {
  enum Kind { kShort, kInt, kBytes } kind;
  u32 number;
  std::string bytes;
};

class Buffer {
 public:
  // False on failure; a refused fetch leaves the cursor.
  bool Append(const Item& item);
  bool Fetch(Item::Kind kind, Item& item);
  bool FetchBytes(u32 length, std::string& bytes);

  std::vector<Item> items;
  size_t cursor = 0;
  // The k-th call from now on fails; 0 never.
  u32 fail_append = 0;
  u32 fail_fetch = 0;
  u32 fail_allocation = 0;
};

}  // namespace model

#endif  // TESTS_MODEL_SERIALISATION_H
