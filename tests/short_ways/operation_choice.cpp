#include "operation_choice.h"

Operations Collect(const std::vector<Operations>& areas) {
  Operations all;
  for (const Operations& area : areas) {
    all.insert(all.end(), area.begin(), area.end());
  }
  return all;
}

const Operation& PickOperation(const Operations& operations, RandomNumbers& random) {
  unsigned int total = 0;
  for (const Operation& operation : operations) {
    total += operation.weight;
  }
  unsigned int place = random.Below(total);
  for (const Operation& operation : operations) {
    if (place < operation.weight) {
      return operation;
    }
    place -= operation.weight;
  }
  return operations.front();
}
