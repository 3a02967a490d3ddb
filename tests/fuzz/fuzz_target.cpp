#include "fuzz_target.h"

#include <cstdio>
#include <cstdlib>

// Targets take sizes from their input. No host has memory for all of them, so the
// sanitizer's allocator has none either, and says so instead of ending the process.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
  return "allocator_may_return_null=1:max_allocation_size_mb=256";
}

extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }

void Fail(const std::string& what) {
  std::fprintf(stderr, "wrong result: %s\n", what.c_str());
  std::abort();
}

void Hold(bool holds, const std::string& what) {
  if (!holds) Fail(what);
}

void HoldSame(const std::string& what, const std::string& expected, const std::string& was) {
  if (was != expected) Fail(what + "\n  expected: " + expected + "\n  was:      " + was);
}
