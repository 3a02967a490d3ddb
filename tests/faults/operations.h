// The exported operations of the library, by area, each as one call in the state of
// prepared_library.h.
#ifndef TESTS_FAULTS_OPERATIONS_H
#define TESTS_FAULTS_OPERATIONS_H

#include <vector>

#include "exhaustion.h"

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

#endif  // TESTS_FAULTS_OPERATIONS_H
