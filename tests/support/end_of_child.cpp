#include "support/end_of_child.h"

#include <unistd.h>

// There only in programs that clang has instrumented for it.
extern "C" __attribute__((weak)) int
__llvm_profile_write_file();  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c)

void EndChild(int status) {
  if (__llvm_profile_write_file != nullptr) {
    __llvm_profile_write_file();
  }
  _exit(status);
}
