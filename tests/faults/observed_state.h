// What can be seen of the library from outside: what it holds, part by part, and its
// answers to every question about what it holds.
#ifndef TESTS_FAULTS_OBSERVED_STATE_H
#define TESTS_FAULTS_OBSERVED_STATE_H

#include <string>
#include <vector>

// One thing that an operation changes as a whole or not at all.
struct StatePart {
  std::string name;
  std::string text;
};

// The part that an operator's commands fill value by value.
constexpr char kPending[] = "the pending profile";

// The registries, the settings, the hooks, each table. Nobody listens meanwhile.
std::vector<StatePart> ObserveState();

// Every question, asked once with the short ways open and once with walks only; nobody
// listens. Changes what the questions themselves change.
struct Answers {
  std::string short_ways;
  std::string walks;
};
Answers AskEverything();

#endif  // TESTS_FAULTS_OBSERVED_STATE_H
