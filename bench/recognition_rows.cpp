#include "rows.h"
#include "world.h"

namespace {

constexpr std::size_t kSizes[] = {200, 2000, 10000};
// Requests between two looks at the clock. Recognition overwrites its profile, so each
// batch is restored beforehand, outside of the time that counts.
constexpr std::size_t kBatch = kReports;
constexpr int kBatches = 16;

using Reports = const std::vector<Report>& (World::*)() const;

OnuAbilityProfile ProfileOf(const Report& report) {
  OnuAbilityProfile profile;
  profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
               ONU_ABILITY_MATCH_TYPE_PATTERN);
  profile.UpdateInit(ONU_ABILITY_CODE_VENDOR_ID, report.vendor);
  profile.UpdateInit(ONU_ABILITY_CODE_DEFAULT_KEY, kUnknownType);
  profile.UpdateInit(ONU_ABILITY_CODE_REPORT_TYPE, kUnknownType);
  for (std::size_t i = 0; i + 1 < kAskedCodes; ++i) {
    profile.UpdateInit(static_cast<unsigned short>(kFirstAskedCode + i), report.asked[i]);
  }
  profile.UpdateInit(ONU_ABILITY_CODE_ONU_CAPA, report.asked.back());
  profile.UpdateInit(ONU_ABILITY_CODE_TYPE_NAME, report.device_name);
  profile.Update();
  return profile;
}

std::vector<OnuAbilityProfile> ProfilesOf(const std::vector<Report>& reports) {
  std::vector<OnuAbilityProfile> profiles;
  profiles.reserve(reports.size());
  for (const Report& report : reports) profiles.push_back(ProfileOf(report));
  return profiles;
}

void RunLibrary(benchmark::State& state, std::size_t size, const Setting& setting,
                Reports reports) {
  const World& world = WorldOf(size);
  world.Use();
  Apply(setting);
  const auto originals = ProfilesOf((world.*reports)());
  std::vector<OnuAbilityProfile> requests(IsSlow(setting) ? 1 : kBatch);
  std::size_t next = 0;
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  while (state.KeepRunningBatch(static_cast<benchmark::IterationCount>(requests.size()))) {
    for (auto& request : requests) {
      request = originals[next];
      if (++next == originals.size()) next = 0;
    }
    const double start = ThreadSeconds();
    for (auto& request : requests) benchmark::DoNotOptimize(manager == request);
    state.SetIterationTime(ThreadSeconds() - start);
  }
}

void RunSqlite(benchmark::State& state, std::size_t size, Reports reports) {
  World& world = WorldOf(size);
  const auto& requests = (world.*reports)();
  std::size_t next = 0;
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(world.Sqlite().Recognise(requests[next]));
    if (++next == requests.size()) next = 0;
  }
}

void RegisterLibraryRow(const char* work, const Setting& setting, std::size_t size,
                        Reports reports) {
  auto& row = AddRow(work, setting.contender, size,
                     [=](benchmark::State& state) { RunLibrary(state, size, setting, reports); });
  row.UseManualTime();
  if (IsSlow(setting)) {
    row.Iterations(kReports)->Repetitions(kSlowRepetitions);
  } else {
    row.Iterations(kBatch * kBatches);
  }
}

void RequireSameAnswers(const char* work, Reports reports) {
  World& world = WorldOf(kUsualSize);
  world.Use();
  for (const Setting& setting : {kLibrary, kWalk, kAllOn}) {
    Apply(setting);
    for (const Report& report : (world.*reports)()) {
      const int place = world.Sqlite().Recognise(report);
      OnuAbilityProfile profile = ProfileOf(report);
      const unsigned int found = *OnuAbilityTableManager::GetInstance() == profile;
      unsigned int key = 0;
      profile.Get(ONU_ABILITY_CODE_DEFAULT_KEY, key);
      const unsigned int expected =
          place < 0 ? kUnknownType : MatchDescriptions()[static_cast<std::size_t>(place)].key;
      RequireAgreement((found != 0) == (place >= 0) && key == expected, work);
    }
  }
}

void RegisterWork(const char* work, Reports reports) {
  RequireSameAnswers(work, reports);
  for (const std::size_t size : kSizes) {
    RegisterLibraryRow(work, kLibrary, size, reports);
    RegisterLibraryRow(work, kWalk, size, reports);
    AddRow(work, "sqlite", size, [=](benchmark::State& state) { RunSqlite(state, size, reports); })
        .Iterations(kReports)
        ->Repetitions(kSlowRepetitions);
  }
  RegisterLibraryRow(work, kAllOn, kUsualSize, reports);
  RegisterLibraryRow(work, kAllOff, kUsualSize, reports);
}

}  // namespace

void RegisterRecognition() {
  RegisterWork("recognise_middle", &World::Middle);
  RegisterWork("recognise_none", &World::Unknown);
}

void RegisterHandedOutRecognition() {
  RegisterLibraryRow("recognise_middle", kHandedOut, kUsualSize, &World::Middle);
  RegisterLibraryRow("recognise_none", kHandedOut, kUsualSize, &World::Unknown);
}
