#include "onu_ability_common_global/log.h"
#include "rows.h"

namespace {

// Lines to one turn of Google Benchmark's own loop.
constexpr unsigned int kLines = 256;

void RunNothing(benchmark::State& state) {
  Apply(kLibrary);
  while (state.KeepRunningBatch(kLines)) {
    for (unsigned int i = 0; i < kLines; ++i) benchmark::DoNotOptimize(i);
  }
}

void RunLine(benchmark::State& state) {
  Apply(kLibrary);
  while (state.KeepRunningBatch(kLines)) {
    for (unsigned int i = 0; i < kLines; ++i) {
      benchmark::DoNotOptimize(i);
      ONU_ABILITY_LOG(10, "number:%u", i);
    }
  }
}

}  // namespace

void RegisterLogging() {
  AddRow("log_line", "floor", 1, RunNothing);
  AddRow("log_line", "library", 1, RunLine);
}
