// The benchmark: everything in one run, so that each figure can be held against named
// references that were measured beside it.
//
//   onu_ability_bench --out=FILE [options of Google Benchmark]
//
// Writes JSON to FILE. By default rows take turns at random, 41 times each and slow ones
// nine times, because machines are shared and not always equally fast. The last rows come
// in a second turn: they measure what remains once the registry's records were handed out
// for direct change, which cannot be taken back.
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "population.h"
#include "rows.h"

namespace {

// One JSON document of several turns.
class Results : public benchmark::JSONReporter {
 public:
  explicit Results(std::ostream& out) { SetOutputStream(&out); }

  bool ReportContext(const Context& context) override {
    const bool is_first = !_is_open;
    _is_open = true;
    return !is_first || JSONReporter::ReportContext(context);
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    JSONReporter::ReportRuns(runs);
    if (!runs.empty() && runs.front().run_type == Run::RT_Iteration) {
      std::cerr << runs.front().benchmark_name() << '\n';
    }
  }

  void Finalize() override {}
  void Close() {
    if (_is_open) JSONReporter::Finalize();
  }

 private:
  bool _is_open = false;
};

// Takes --out=FILE out of the arguments.
std::string TakeOutput(std::vector<char*>& arguments) {
  constexpr char kOption[] = "--out=";
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (std::strncmp(*argument, kOption, sizeof kOption - 1) == 0) {
      std::string file = *argument + sizeof kOption - 1;
      arguments.erase(argument);
      return file;
    }
  }
  return "onu_ability_bench.json";
}

void RegisterFirstTurn() {
  RegisterLookups();
  RegisterRecognition();
  RegisterConfirmation();
  RegisterLoading();
  RegisterMemory();
  RegisterLogging();
}

void RegisterSecondTurn() {
  RegisterHandedOutLookups();
  RegisterHandedOutRecognition();
  RegisterHandedOutConfirmation();
  RegisterHandedOutLoading();
}

int Measure(std::vector<char*> arguments) {
  const std::string file = TakeOutput(arguments);
  char repetitions[] = "--benchmark_repetitions=41";
  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  char least_time[] = "--benchmark_min_time=0.01";
  // What the caller gives comes later and counts.
  arguments.insert(arguments.begin() + 1, {repetitions, interleaving, least_time});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  std::ofstream out(file);
  Results results(out);
  // Set-up is not measured, and quiet.
  Apply(kLibrary);
  DefineRegistry();
  RegisterFirstTurn();
  benchmark::RunSpecifiedBenchmarks(&results);
  benchmark::ClearRegisteredBenchmarks();
  OnuAbilityCodeInfo::GetInstance()->Get();
  RegisterSecondTurn();
  benchmark::RunSpecifiedBenchmarks(&results);
  results.Close();
  out.flush();
  if (!out) {
    std::cerr << "cannot write " << file << '\n';
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Measure(std::vector<char*>(argv, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << "onu_ability_bench: " << error.what() << '\n';
    return 1;
  }
}
