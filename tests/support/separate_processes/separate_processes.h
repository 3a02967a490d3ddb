// Runs each test of a program in a process of its own, forked from one that is already
// loaded. CTest gives the tests the same by starting the program once a test; this is
// for where starting it is what costs: under an emulator, an instrumenting debugger, or
// once for every change that is tried on the sources.
//
// A test's output is kept to itself and shown when the test fails. A test fails, too,
// when its process ends by a signal, ends before the test does, or takes too long; then
// whatever it started ends with it.
#ifndef TESTS_SUPPORT_SEPARATE_PROCESSES_SEPARATE_PROCESSES_H
#define TESTS_SUPPORT_SEPARATE_PROCESSES_SEPARATE_PROCESSES_H

#include <chrono>

struct SeparateProcesses {
  unsigned int jobs = 1;              // processes at a time
  std::chrono::seconds timeout{300};  // for one test
};

// Runs the tests that the filter, the shard and the other flags of the test framework
// select, stops at the first failure when they say so, and returns the exit status of
// the program: 0 when every test passed. Returns in each of the processes: the caller
// ends the process with what it gets. REQUIRES: the framework is initialised and the
// process has one thread.
int RunTestsInSeparateProcesses(const SeparateProcesses& wanted);

#endif  // TESTS_SUPPORT_SEPARATE_PROCESSES_SEPARATE_PROCESSES_H
