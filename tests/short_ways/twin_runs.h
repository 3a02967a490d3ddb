// The two runs of one sequence, in a child process or in this one, and their first
// difference.
#ifndef TESTS_SHORT_WAYS_TWIN_RUNS_H
#define TESTS_SHORT_WAYS_TWIN_RUNS_H

#include <cstdint>
#include <string>
#include <vector>

#include "stage.h"

struct Step {
  Operation operation;
  std::uint64_t seed;      // of the operation's arguments, so that steps can be dropped
  std::string drawn = {};  // bytes that they are drawn from first
};

struct Outcome {
  bool differs = false;
  size_t step = 0;                   // of the difference; of a crash, unknown: the last
  std::string difference;            // both sides of it
  std::vector<std::string> history;  // what the steps did, up to it
};

Outcome RunTwice(const std::vector<Step>& steps, bool records_handed_out);

// In this process, whose library is reset before each run; a crash is the process's. No
// step may ask for the records of the code registry.
Outcome RunTwiceHere(const std::vector<Step>& steps);

#endif  // TESTS_SHORT_WAYS_TWIN_RUNS_H
