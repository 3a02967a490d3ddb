#include "operations.h"

const Operations& EveryOperation() {
  static const Operations* all = [] {
    auto* operations = new Operations;
    for (const Operations& area :
         {RegistryOperations(), SettingOperations(), ProfileFillings(), ProfileQuestions(),
          TableChanges(), TableQuestions(), ConfirmationOperations(), QueryOperations(),
          CommandOperations()}) {
      operations->insert(operations->end(), area.begin(), area.end());
    }
    return operations;
  }();
  return *all;
}
