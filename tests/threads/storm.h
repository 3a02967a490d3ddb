// Threads that do to the library at once what the threads of an OLT do: confirm ONUs,
// ask, add and delete profiles, type commands, turn the log up and down. Each checks
// what must hold whatever the others do, and counts what does not.
#ifndef TESTS_THREADS_STORM_H
#define TESTS_THREADS_STORM_H

#include <chrono>
#include <string>
#include <vector>

struct StormReport {
  std::vector<std::string> violations;  // the first few
  unsigned long steps = 0;              // of all threads
  std::string summary;                  // what each role did
};

// On a loaded catalogue, once a process.
StormReport RunStorm(std::chrono::milliseconds time);

#endif  // TESTS_THREADS_STORM_H
