// One call of the library, and what can be seen of the library once it is over. Calls
// are made in child processes, so that each of them starts from the same state.
#ifndef TESTS_FAULTS_OBSERVED_CALL_H
#define TESTS_FAULTS_OBSERVED_CALL_H

#include <functional>
#include <string>
#include <vector>

#include "observed_state.h"

// One call of the library, ready to be made. Memory is short, and the host at fault,
// only while it is run.
struct Call {
  std::function<unsigned long long()> run;  // the operation and its result
  // What it changes beside the library's own state, and changes as a whole or not at
  // all; null when there is none.
  std::function<std::string()> object = nullptr;
  // What it writes for its caller: as it should be once the operation completed.
  std::function<std::string()> outputs = nullptr;
  // Makes its caller's own values what they were, for a second call; null when a call
  // leaves them alone.
  std::function<void()> rewind = nullptr;
};

// What can be seen once a call is over.
struct Observation {
  std::vector<StatePart> parts;  // the library's and the object
  std::string outputs;           // and the result
};

Observation Observe(const Call& call, unsigned long long result);

// Makes the call in a child process, under the conditions that `begin` sets. What was wrong
// with the process itself, or what fault the host found, is all there is of the outputs.
Observation ObserveInChild(const Call& call, const std::function<void()>& begin = nullptr);

// What a child process says; of one that does not end well, or in which the host found a
// fault, what was wrong.
std::string InChild(const std::function<std::string()>& work);

// The first line of `now` that is not that of `other`.
std::string Difference(const std::string& now, const std::string& other);

// The parts and outputs that differ; empty when there are none.
std::string Differences(const Observation& now, const Observation& expected);

#endif  // TESTS_FAULTS_OBSERVED_CALL_H
