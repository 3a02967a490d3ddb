// Lets an operation run out of memory at each of its requests, one after another, and
// says what was wrong afterwards.
#ifndef TESTS_FAULTS_EXHAUSTION_H
#define TESTS_FAULTS_EXHAUSTION_H

#include <string>
#include <vector>

#include "operations.h"

struct Exhaustion {
  unsigned int requests = 0;  // of the operation: so many failed in turn
  std::vector<std::string> faults;
};

// Each request fails in a process of its own, which starts from the same state.
Exhaustion RunOutOfMemory(const Operation& operation);

#endif  // TESTS_FAULTS_EXHAUSTION_H
