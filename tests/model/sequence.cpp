#include "sequence.h"

#include <vector>

#include "both_sides.h"

namespace {

struct Step {
  Operation operation;
  std::uint64_t seed;  // of the operation's arguments, so that steps can be dropped
};

struct Outcome {
  size_t step = 0;  // of the difference
  std::string difference;
  std::vector<std::string> history;  // the operations up to it
};

const std::vector<Operation>& AllOperations() {
  static const std::vector<Operation> operations = [] {
    std::vector<Operation> all;
    for (const auto& area : {RegistryOperations(), ProfileOperations(), MatchingOperations(),
                             TableOperations(), LookupOperations(), ConfirmationOperations(),
                             QueryOperations(), CommandOperations(), TextOperations()}) {
      all.insert(all.end(), area.begin(), area.end());
    }
    return all;
  }();
  return operations;
}

const Operation& PickOperation(RandomInput& random) {
  unsigned int total = 0;
  for (const Operation& operation : AllOperations()) {
    total += operation.weight;
  }
  unsigned int place = random.Below(total);
  for (const Operation& operation : AllOperations()) {
    if (place < operation.weight) {
      return operation;
    }
    place -= operation.weight;
  }
  return AllOperations().front();
}

const Operation& OperationNamed(const std::string& name) {
  for (const Operation& operation : AllOperations()) {
    if (name == operation.name) {
      return operation;
    }
  }
  return AllOperations().front();
}

// Most sequences start with a catalogue, tables and hooks, some from nothing.
std::vector<Step> Generate(std::uint64_t seed) {
  RandomInput random(seed);
  std::vector<Step> steps;
  if (!random.OneIn(8)) {
    steps.push_back({{"catalogue", 0, DefineCatalogue}, random.Next()});
  }
  if (!random.OneIn(8)) {
    steps.push_back({OperationNamed("table creation"), random.Next()});
    steps.push_back({OperationNamed("table creation"), random.Next()});
    steps.push_back({OperationNamed("hook registration"), random.Next()});
  }
  for (unsigned int i = 0; i < kSlots; ++i) {
    steps.push_back({OperationNamed("profile fill"), random.Next()});
  }
  const unsigned int length = 40 + random.Below(160);
  for (unsigned int i = 0; i < length; ++i) {
    const Operation& operation = PickOperation(random);
    steps.push_back({operation, random.Next()});
  }
  return steps;
}

Outcome Run(const std::vector<Step>& steps, size_t state_every) {
  BothSides both;
  Outcome outcome;
  for (size_t i = 0; i < steps.size(); ++i) {
    RandomInput random(steps[i].seed);
    steps[i].operation.run(both, random);
    outcome.history.push_back(both.description());
    both.CompareRecords();
    if ((i + 1) % state_every == 0 || i + 1 == steps.size()) {
      both.CompareState();
    }
    if (!both.difference().empty()) {
      outcome.step = i;
      outcome.difference = both.difference();
      return outcome;
    }
  }
  return outcome;
}

// Drops runs of operations, long ones first, as long as some difference stays.
std::vector<Step> Shrink(std::vector<Step> steps) {
  for (size_t run = steps.size() / 2; run > 0; run /= 2) {
    for (size_t from = 0; from + run < steps.size();) {
      std::vector<Step> fewer = steps;
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(from),
                  fewer.begin() + static_cast<std::ptrdiff_t>(from + run));
      if (Run(fewer, 1).difference.empty()) {
        from += run;
      } else {
        steps = fewer;
      }
    }
  }
  return steps;
}

}  // namespace

std::string RunSequence(std::uint64_t seed) {
  constexpr size_t kStateEvery = 16;
  std::vector<Step> steps = Generate(seed);
  Outcome outcome = Run(steps, kStateEvery);
  if (outcome.difference.empty()) {
    return "";
  }
  std::string report = "seed " + std::to_string(seed) + ", step " + std::to_string(outcome.step) +
                       ": " + outcome.history.back() + "\n  " + outcome.difference + "\n";
  steps.resize(outcome.step + 1);
  outcome = Run(Shrink(steps), 1);
  report += "  shortest run found, differing in " + outcome.difference + "\n";
  for (const std::string& operation : outcome.history) {
    report += "    " + operation + "\n";
  }
  return report;
}
