#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>
#include <vector>

#include "onu_ability_common_reg_extern_func.h"
#include "rows.h"
#include "world.h"

namespace {

constexpr unsigned int kStormOnus = 8192;
constexpr unsigned int kOnusOfPlace = 128;
constexpr int kConfirmations = 8 * kReports;  // of a repetition

// Which of the ONUs report a type that the match table knows.
enum class Known { kNone, kAll, kEverySecond };

struct Ground {
  std::vector<Report> reports;
  Known known = Known::kNone;
};

// What the hooks answer from; set before any thread confirms.
Ground& CurrentGround() {
  static Ground ground;
  return ground;
}

unsigned int NumberOf(unsigned short place, unsigned char onu) {
  return place * kOnusOfPlace + onu;
}

const Report& ReportOf(unsigned short place, unsigned char onu) {
  const auto& reports = CurrentGround().reports;
  return reports[NumberOf(place, onu) % reports.size()];
}

unsigned int VendorId(unsigned short place, unsigned char onu, char* vendor_id) {
  std::memcpy(vendor_id, ReportOf(place, onu).vendor.data(), 4);
  return 0;
}

unsigned int ReportedType(unsigned short place, unsigned char onu) {
  const Known known = CurrentGround().known;
  const bool reports_known =
      known == Known::kAll || (known == Known::kEverySecond && NumberOf(place, onu) % 2 == 1);
  return reports_known ? ReportOf(place, onu).known_type : kUnknownType;
}

unsigned int PrivateCapability(unsigned short place, unsigned char onu, unsigned short /*setting*/,
                               unsigned char* capability) {
  *capability = static_cast<unsigned char>(ReportOf(place, onu).asked.back());
  return 0;
}

unsigned int HandOver(unsigned short /*place*/, unsigned char /*onu*/, unsigned int /*stage*/,
                      ConfirmOnuType* profile) {
  benchmark::DoNotOptimize(profile);
  return 0;
}

unsigned int TakeType(unsigned short /*place*/, unsigned char /*onu*/, unsigned short type) {
  benchmark::DoNotOptimize(type);
  return 0;
}

unsigned int AbilityValue(unsigned short place, unsigned char onu, unsigned short code,
                          unsigned int* value) {
  const auto& asked = ReportOf(place, onu).asked;
  const std::size_t at =
      std::min<std::size_t>(static_cast<unsigned int>(code) - kFirstAskedCode, asked.size() - 1);
  *value = asked[at];
  return 0;
}

unsigned int IdentifySetting(unsigned int /*index*/, unsigned short /*place*/,
                             unsigned short* setting) {
  *setting = 1;
  return 0;
}

unsigned int ReadOneByOne(unsigned short /*place*/, unsigned char /*onu*/) { return 1; }

unsigned int DeviceName(unsigned short place, unsigned char onu, unsigned int length, char* name) {
  ReportOf(place, onu).device_name.copy(name, length);
  return 0;
}

template <typename Hook>
void RegisterHook(unsigned short id, Hook hook) {
  onu_ability_register_extern_func(id, reinterpret_cast<void*>(hook));
}

void RegisterHooks() {
  RegisterHook(0, &VendorId);
  RegisterHook(1, &ReportedType);
  RegisterHook(2, &PrivateCapability);
  RegisterHook(3, &HandOver);
  RegisterHook(4, &TakeType);
  RegisterHook(5, &TakeType);
  RegisterHook(6, &AbilityValue);
  RegisterHook(7, &IdentifySetting);
  RegisterHook(8, &ReadOneByOne);
  RegisterHook(9, &DeviceName);
}

void Prepare(const Setting& setting, Known known) {
  World& world = WorldOf(kUsualSize);
  world.Use();
  CurrentGround() = {world.Middle(), known};
  Apply(setting);
}

unsigned int Confirm(unsigned int number) {
  ConfirmOnuType confirmation(static_cast<unsigned short>(number / kOnusOfPlace),
                              static_cast<unsigned char>(number % kOnusOfPlace));
  confirmation.Perform();
  return confirmation._key_ability_value;
}

void RunPerform(benchmark::State& state, const Setting& setting, Known known) {
  Prepare(setting, known);
  unsigned int number = 0;
  for (int i = 0; i < kReports; ++i) benchmark::DoNotOptimize(Confirm(number++));
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(Confirm(number));
    number = (number + 1) % kStormOnus;
  }
}

void RunStorm(benchmark::State& state, unsigned int thread_count) {
  Prepare(kLibrary, Known::kEverySecond);
  double seconds = 0;
  TakeWaitedNanoseconds();
  while (state.KeepRunning()) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> threads;
    for (unsigned int first = 0; first < thread_count; ++first) {
      threads.emplace_back([=] {
        for (unsigned int number = first; number < kStormOnus; number += thread_count) {
          benchmark::DoNotOptimize(Confirm(number));
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(lasted.count());
    seconds += lasted.count();
  }
  state.counters["waited_share"] =
      static_cast<double>(TakeWaitedNanoseconds()) * 1e-9 / (seconds * thread_count);
}

void RequireSameAnswers() {
  for (const Setting& setting : {kLibrary, kWalk, kAllOn}) {
    for (const Known known : {Known::kNone, Known::kAll}) {
      Prepare(setting, known);
      World& world = WorldOf(kUsualSize);
      for (unsigned int number = 0; number < 8; ++number) {
        const Report& report = world.Middle()[number];
        const auto place = static_cast<std::size_t>(world.Sqlite().Recognise(report));
        const unsigned int expected =
            known == Known::kAll ? report.known_type : MatchDescriptions()[place].key;
        RequireAgreement(Confirm(number) == expected, "perform");
      }
    }
  }
}

void RegisterPerform(const char* work, const Setting& setting, Known known) {
  auto& row = AddRow(work, setting.contender, kUsualSize,
                     [=](benchmark::State& state) { RunPerform(state, setting, known); });
  if (IsSlow(setting)) {
    row.Iterations(kReports)->Repetitions(kSlowRepetitions);
  } else {
    row.Iterations(kConfirmations);
  }
}

}  // namespace

void RegisterConfirmation() {
  RegisterHooks();
  RequireSameAnswers();
  for (const Setting& setting : {kLibrary, kWalk, kAllOn, kAllOff}) {
    RegisterPerform("perform_by_abilities", setting, Known::kNone);
    RegisterPerform("perform_by_type", setting, Known::kAll);
  }
  for (const unsigned int threads : {1U, 2U, 4U}) {
    AddRow("storm", "library", threads, [=](benchmark::State& state) { RunStorm(state, threads); })
        .UseManualTime()
        ->Iterations(1)
        ->Repetitions(kSlowRepetitions);
  }
}

void RegisterHandedOutConfirmation() {
  RegisterPerform("perform_by_abilities", kHandedOut, Known::kNone);
  RegisterPerform("perform_by_type", kHandedOut, Known::kAll);
}
