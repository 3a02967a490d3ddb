// Random sequences of operations, each run twice in this process: with the library's
// short ways open, and with walks only. What the operations are and what their
// arguments are is drawn from the input.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "short_ways/operation_choice.h"
#include "short_ways/twin_runs.h"
#include "support/scripted_hooks.h"

namespace {

// A large table costs a tenth of a second, which other inputs have a better use for.
constexpr std::size_t kMostSteps = 40;
constexpr std::size_t kMostLoads = 6;

// All but those that ask for the records of the code registry, after which the library
// would not take its short ways in this process any more.
const Operations& AllOperations() {
  static const Operations operations = Collect({RegistryOperations(),
                                                ProfileOperations(),
                                                ProfileValueOperations(),
                                                TableOperations(),
                                                StoredProfileOperations(),
                                                MatchOperations(),
                                                LoadOperations(),
                                                LookupOperations(),
                                                QueryOperations(),
                                                RepeatedQuestions(),
                                                ConfirmationOperations(),
                                                CommandOperations(),
                                                SettingOperations(),
                                                {{"loud mask", 1, ListenLoudly}}});
  return operations;
}

void RegisterAllHooks(Stage& stage, HostileInput& /*random*/) {
  stage.Say("register every hook");
  RegisterHooks();
}

// What most sequences begin with, by the bits of a byte.
std::vector<Step> Beginning(unsigned int choice, std::uint64_t seed) {
  std::vector<Step> steps = {{{"quiet mask", 0, ListenQuietly}, seed}};
  if ((choice & 1U) == 0) steps.push_back({{"whole catalogue", 0, DefineWholeCatalogue}, seed});
  if ((choice & 2U) != 0) steps.push_back({{"catalogue", 0, DefineCatalogue}, seed});
  if ((choice & 4U) == 0) steps.push_back({{"tables", 0, InitTables}, seed});
  if ((choice & 8U) == 0) steps.push_back({{"load", 0, Load}, seed});
  if ((choice & 16U) == 0) steps.push_back({{"hooks", 0, RegisterAllHooks}, seed});
  if ((choice & 0xF0U) == 0xE0U) steps.push_back({{"medium load", 0, LoadMedium}, seed});
  return steps;
}

bool IsLoad(const Operation& operation) {
  const Operations loads = LoadOperations();
  return std::any_of(loads.begin(), loads.end(),
                     [&operation](const Operation& load) { return load.run == operation.run; });
}

std::vector<Step> TakeSteps(InputBytes& input) {
  const unsigned int choice = input.Byte();
  std::vector<Step> steps = Beginning(choice, input.Byte());
  const Operations& operations = AllOperations();
  std::size_t loads = 0;
  while (!input.empty() && steps.size() < kMostSteps) {
    const Operation& operation = operations[input.Byte() % operations.size()];
    const std::string drawn(input.Text());
    if (IsLoad(operation) && ++loads > kMostLoads) continue;
    steps.push_back({operation, drawn.size(), drawn});
  }
  return steps;
}

std::string Report(const Outcome& outcome, const std::vector<Step>& steps) {
  std::string report = "short ways and walks differ at step " + std::to_string(outcome.step) +
                       ", " + steps[outcome.step].operation.name + "\n  " + outcome.difference;
  for (const std::string& operation : outcome.history) report += "\n    - " + operation;
  return report;
}

}  // namespace

// Two bytes for the beginning; then steps: a byte for the operation, a length, and the
// bytes that its arguments are drawn from.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  std::vector<Step> steps = TakeSteps(input);
  steps.push_back({SettingOperations().back(), 0});
  const Outcome outcome = RunTwiceHere(steps);
  if (outcome.differs) Fail(Report(outcome, steps));
  return 0;
}
