// The rows of the benchmark. A row is named work/contender/size; report.py reads the
// names. Contenders: the library with its short ways (library), with walks only (walk),
// with every level on (all_on) or off (all_off), and the references: floor, sqlite,
// lmdb, bare.
#ifndef BENCH_ROWS_H
#define BENCH_ROWS_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>

#include "bench_host.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table.h"

struct Setting {
  const char* contender;
  bool walks_only;
  unsigned int mask;
};

constexpr Setting kLibrary = {"library", false, kProduction};
constexpr Setting kWalk = {"walk", true, kProduction};
constexpr Setting kAllOn = {"all_on", false, kEverything};
constexpr Setting kAllOff = {"all_off", false, kNothing};
// After somebody took the records of the code registry for direct change.
constexpr Setting kHandedOut = {"handed_out", false, kProduction};

// The population of most rows.
constexpr std::size_t kUsualSize = 2000;

// Rows that are held against each other do the same number of steps, so that what other
// programs leave in the caches costs each of them the same. Slow rows (microseconds a
// step and more) are repeated less often.
constexpr int kSlowRepetitions = 9;

// Whether the library goes through all profiles with each question.
inline bool IsSlow(const Setting& setting) {
  return setting.walks_only || setting.mask == kEverything;
}

// Each row sets what it needs: rows take turns in an order that nobody knows.
inline void Apply(const Setting& setting) {
  SetWalksOnly(setting.walks_only);
  onu_ability_set_log_level_mask(setting.mask);
}

using RowBody = std::function<void(benchmark::State&)>;

// Adds the row work/contender/size.
benchmark::internal::Benchmark& AddRow(const std::string& work, const std::string& contender,
                                       std::size_t size, RowBody body);

// A figure for a wrong answer is worth nothing.
inline void RequireAgreement(bool agree, const std::string& row) {
  if (!agree) throw std::runtime_error(row + ": the contenders do not agree");
}

// Lookups in the real table, of all contenders and sizes.
void RegisterLookups();
void RegisterHandedOutLookups();

// Recognition of an ONU of unknown type among the patterns.
void RegisterRecognition();
void RegisterHandedOutRecognition();

// Whole confirmations: one after the other, and a restart of the OLT.
void RegisterConfirmation();
void RegisterHandedOutConfirmation();

// Filling the tables, and the memory that they take then.
void RegisterLoading();
void RegisterHandedOutLoading();
void RegisterMemory();

// A log line whose level is off.
void RegisterLogging();

#endif  // BENCH_ROWS_H
