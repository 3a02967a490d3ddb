#include "sequence.h"

#include <vector>

#include "operation_choice.h"
#include "texts.h"
#include "twin_runs.h"

namespace {

const Operations& AllOperations(bool records_handed_out) {
  static const Operations trusted =
      Collect({RegistryOperations(), ProfileOperations(), ProfileValueOperations(),
               TableOperations(), StoredProfileOperations(), MatchOperations(), LoadOperations(),
               LookupOperations(), QueryOperations(), RepeatedQuestions(), ConfirmationOperations(),
               CommandOperations(), SettingOperations()});
  static const Operations all = Collect({trusted, RecordOperations()});
  return records_handed_out ? all : trusted;
}

const Operation& OperationNamed(const std::string& name) {
  for (const Operation& operation : AllOperations(true)) {
    if (name == operation.name) {
      return operation;
    }
  }
  return AllOperations(true).front();
}

// How a sequence goes on.
struct Course {
  const Operations& operations;
  bool settled;      // nothing unsettles it
  bool over_tables;  // also what goes over whole tables
};

const Operation& PickOperation(const Course& course, HostileInput& random) {
  while (true) {
    const Operation& operation = PickOperation(course.operations, random);
    if ((!operation.unsettles || !course.settled) &&
        (!operation.goes_over_tables || course.over_tables)) {
      return operation;
    }
  }
}

const Operation kLoud = {"loud mask", 0, ListenLoudly};
const Operation kQuiet = {"quiet mask", 0, ListenQuietly};

// Most sequences start with a catalogue, tables, hooks and profiles, some from nothing.
void Begin(std::vector<Step>& steps, HostileInput& random, bool settled) {
  steps.push_back({kQuiet, random.Next()});
  if (settled) {
    steps.push_back({{"whole catalogue", 0, DefineWholeCatalogue}, random.Next()});
  } else if (!random.OneIn(10)) {
    steps.push_back({{"catalogue", 0, DefineCatalogue}, random.Next()});
  }
  if (random.OneIn(8)) {
    steps.push_back({OperationNamed("key code"), random.Next()});
  }
  if (settled || !random.OneIn(10)) {
    steps.push_back({{"tables", 0, InitTables}, random.Next()});
    steps.push_back({OperationNamed("hook registration"), random.Next()});
  }
  for (unsigned int i = 0; i < kSlots; ++i) {
    steps.push_back({OperationNamed("profile fill"), random.Next()});
  }
  steps.push_back({OperationNamed("load"), random.Next()});
  if (random.OneIn(2)) {
    steps.push_back({OperationNamed("load"), random.Next()});
  }
}

// A quiet host that now and then listens to one operation.
void BeQuiet(std::vector<Step>& steps, HostileInput& random, const Course& course,
             unsigned int length) {
  for (unsigned int i = 0; i < length; ++i) {
    const bool listens = course.over_tables && random.OneIn(10);
    if (listens) {
      steps.push_back({kLoud, random.Next()});
    }
    const Operation& operation = PickOperation(course, random);
    steps.push_back({operation, random.Next()});
    if (listens) {
      steps.push_back({kQuiet, random.Next()});
    }
  }
}

void BeLoud(std::vector<Step>& steps, HostileInput& random, const Course& course) {
  const unsigned int length = 20 + random.Below(30);
  for (unsigned int i = 0; i < length; ++i) {
    if (random.OneIn(6)) {
      steps.push_back({random.OneIn(3) ? kQuiet : kLoud, random.Next()});
    }
    const Operation& operation = PickOperation(course, random);
    steps.push_back({operation, random.Next()});
  }
}

// Most tables are small; now and then one has more than 64 or 2,000 profiles.
std::vector<Step> Generate(std::uint64_t seed, bool records_handed_out) {
  HostileInput random(seed);
  const unsigned int size = random.Below(64);
  const Course course = {AllOperations(records_handed_out), random.OneIn(2), size >= 8};
  std::vector<Step> steps;
  Begin(steps, random, course.settled);
  if (size == 0) {
    steps.push_back({{"large load", 0, LoadLarge}, random.Next()});
    BeQuiet(steps, random, course, 40);
  } else if (size < 8) {
    steps.push_back({{"medium load", 0, LoadMedium}, random.Next()});
    BeQuiet(steps, random, course, 60);
    steps.push_back({{"medium load", 0, LoadMedium}, random.Next()});
    BeQuiet(steps, random, course, 20);
  } else if (size < 14) {
    BeLoud(steps, random, course);
  } else {
    BeQuiet(steps, random, course, 40 + random.Below(80));
  }
  steps.push_back({OperationNamed("state"), 0});
  return steps;
}

// Drops runs of steps, long ones first, as long as some difference stays.
std::vector<Step> Shrink(std::vector<Step> steps, bool records_handed_out) {
  for (size_t run = steps.size() / 2; run > 0; run /= 2) {
    for (size_t from = 0; from + run < steps.size();) {
      std::vector<Step> fewer = steps;
      fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(from),
                  fewer.begin() + static_cast<std::ptrdiff_t>(from + run));
      if (RunTwice(fewer, records_handed_out).differs) {
        steps = fewer;
      } else {
        from += run;
      }
    }
  }
  return steps;
}

}  // namespace

std::string RunSequence(std::uint64_t seed, bool records_handed_out) {
  std::vector<Step> steps = Generate(seed, records_handed_out);
  Outcome outcome = RunTwice(steps, records_handed_out);
  if (!outcome.differs) {
    return "";
  }
  std::string report =
      Words("seed ", seed, records_handed_out ? " (records handed out)" : " (trusted registry)",
            ", step ", outcome.step, ": ", steps[outcome.step].operation.name, "\n  ",
            outcome.difference, "\n");
  steps.resize(outcome.step + 1);
  outcome = RunTwice(Shrink(steps, records_handed_out), records_handed_out);
  report += "  shortest run found, differing\n    " + outcome.difference + "\n";
  for (const std::string& operation : outcome.history) {
    report += "    - " + operation + "\n";
  }
  return report;
}
