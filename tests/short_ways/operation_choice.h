// Lists of operations, and a choice among them by weight.
#ifndef TESTS_SHORT_WAYS_OPERATION_CHOICE_H
#define TESTS_SHORT_WAYS_OPERATION_CHOICE_H

#include <vector>

#include "stage.h"

using Operations = std::vector<Operation>;

Operations Collect(const std::vector<Operations>& areas);
const Operation& PickOperation(const Operations& operations, RandomNumbers& random);

#endif  // TESTS_SHORT_WAYS_OPERATION_CHOICE_H
