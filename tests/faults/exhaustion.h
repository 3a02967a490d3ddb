// Lets an operation run out of memory at each of its requests, one after another, and
// says what was wrong afterwards.
#ifndef TESTS_FAULTS_EXHAUSTION_H
#define TESTS_FAULTS_EXHAUSTION_H

#include <functional>
#include <string>
#include <vector>

// One call of the library, ready to be made. Neither the preparation nor the outputs
// run out of memory.
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

struct Operation {
  std::string name;
  std::function<Call()> prepare;
  // Does more than one thing, each of which is done whole or not at all, or fills the
  // pending profile value by value.
  bool in_steps = false;
};

struct Exhaustion {
  unsigned int requests = 0;  // of the operation: so many failed in turn
  std::vector<std::string> faults;
};

// Each request fails in a process of its own, which starts from the same state.
Exhaustion RunOutOfMemory(const Operation& operation);

#endif  // TESTS_FAULTS_EXHAUSTION_H
