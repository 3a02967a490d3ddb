// The exported operations of the library, by area, each as one call in the state of
// prepared_library.h.
#ifndef TESTS_FAULTS_OPERATIONS_H
#define TESTS_FAULTS_OPERATIONS_H

#include <functional>
#include <string>
#include <vector>

#include "observed_call.h"

struct Operation {
  std::string name;
  std::function<Call()> prepare;
  // Does more than one thing, each of which is done whole or not at all, or fills the
  // pending profile value by value.
  bool in_steps = false;
};

using Operations = std::vector<Operation>;

Operations RegistryOperations();
Operations SettingOperations();
Operations ProfileFillings();
Operations ProfileQuestions();
Operations TableChanges();
Operations TableQuestions();
Operations ConfirmationOperations();
Operations QueryOperations();
Operations CommandOperations();

// All of these, in this order.
const Operations& EveryOperation();

#endif  // TESTS_FAULTS_OPERATIONS_H
