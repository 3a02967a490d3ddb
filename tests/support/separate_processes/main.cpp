// The main of the test programs. Without arguments of its own it is the test
// framework's, and CTest starts it once a test; with --separate-processes it runs all
// that is selected, each test in a process of its own.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/separate_processes/separate_processes.h"

namespace {

[[noreturn]] void ShowUsage(const char* argument) {
  std::fprintf(stderr,
               "unknown argument: %s\n"
               "usage: [--separate-processes [--jobs N] [--timeout SECONDS]] [--gtest_...]\n",
               argument);
  std::exit(2);
}

unsigned int Number(const char* option, const char* text) {
  char* end = nullptr;
  const unsigned long number = text != nullptr ? std::strtoul(text, &end, 10) : 0;
  if (text == nullptr || *end != '\0' || number == 0 || number > 1000000) {
    ShowUsage(option);
  }
  return static_cast<unsigned int>(number);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  SeparateProcesses wanted;
  bool separately = false;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--separate-processes") {
      separately = true;
    } else if (argument == "--jobs") {
      wanted.jobs = Number(argv[i], argv[i + 1]);
      ++i;
    } else if (argument == "--timeout") {
      wanted.timeout = std::chrono::seconds(Number(argv[i], argv[i + 1]));
      ++i;
    } else {
      ShowUsage(argv[i]);
    }
  }
  // Listing is the framework's own, with either.
  if (separately && !GTEST_FLAG_GET(list_tests)) {
    return RunTestsInSeparateProcesses(wanted);
  }
  return RUN_ALL_TESTS();
}
