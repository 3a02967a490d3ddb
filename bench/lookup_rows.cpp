#include <array>

#include "onu_ability_common_service_cinterface.h"
#include "rows.h"
#include "world.h"

namespace {

constexpr std::size_t kSizes[] = {10, 200, 2000, 10000};
constexpr unsigned int kBufferSize = 32;
// The number that is asked for, where it is not any one of a profile's.
constexpr unsigned short kNumber = ONU_ABILITY_CODE_ALL_LAN;
// Of a repetition: as many as there are profiles in the largest population.
constexpr int kQuestions = 10000;
// Profiles that a walk looks at in a repetition.
constexpr std::size_t kWalked = 2000000;

using Buffer = std::array<char, kBufferSize>;

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

// Status or answer of the library for one question.

unsigned int NumberByKey(World& /*world*/, const Query& query) {
  return onu_ability_get_onu_ability_value_by_key_value(query.key, kNumber);
}

unsigned int AnyNumberByKey(World& /*world*/, const Query& query) {
  return onu_ability_get_onu_ability_value_by_key_value(query.key, query.code);
}

unsigned int NumberByKeyFromManager(World& /*world*/, const Query& query) {
  unsigned int value = 0;
  Manager().Get(ONU_ABILITY_PROFILE_TYPE_REAL, query.key, kNumber, value);
  return value;
}

unsigned int NumberByRealType(World& /*world*/, const Query& query) {
  unsigned int value = 0;
  Manager().Get(ONU_ABILITY_PROFILE_TYPE_REAL, query.real_type, kNumber, value);
  return value;
}

unsigned int SearchByRealType(World& /*world*/, const Query& query) {
  return onu_ability_search_by_real_type(query.real_type);
}

unsigned int KeyExists(World& /*world*/, const Query& query) {
  return onu_ability_key_ability_value_is_exist(query.key);
}

unsigned int NameByKey(World& /*world*/, const Query& query) {
  Buffer buffer;
  const unsigned int ret =
      onu_ability_get_onu_type_name_by_key_value(query.key, buffer.data(), kBufferSize);
  benchmark::DoNotOptimize(buffer);
  return ret;
}

unsigned int NameByRealType(World& /*world*/, const Query& query) {
  Buffer buffer;
  const unsigned int ret =
      onu_ability_get_onu_type_name_by_realtype(query.real_type, buffer.data(), kBufferSize);
  benchmark::DoNotOptimize(buffer);
  return ret;
}

unsigned int LampsByKey(World& /*world*/, const Query& query) {
  return onu_ability_get_onu_lamp_total_num_by_key_ability(query.key);
}

unsigned int LampsByRealType(World& /*world*/, const Query& query) {
  return onu_ability_get_onu_lamp_total_num(query.real_type);
}

// The references.

unsigned int FloorNumber(World& world, const Query& query) {
  return world.Floor().Number(query.key, kNumber);
}

unsigned int FloorAnyNumber(World& world, const Query& query) {
  return world.Floor().Number(query.key, query.code);
}

unsigned int FloorName(World& world, const Query& query) {
  Buffer buffer;
  const unsigned int ret =
      world.Floor().Text(query.key, ONU_ABILITY_CODE_TYPE_NAME, buffer.data(), kBufferSize);
  benchmark::DoNotOptimize(buffer);
  return ret;
}

// Its one lookup is that of a code which no profile holds, so that the sum is the total.
unsigned int FloorLamps(World& world, const Query& query) {
  return world.Floor().Lamps(query.key, ONU_ABILITY_CODE_PRIVATE_CAPABILITY_KNOWN);
}

unsigned int SqliteNumber(World& world, const Query& query) {
  return world.Sqlite().Number(query.key, kNumber);
}

unsigned int SqliteAnyNumber(World& world, const Query& query) {
  return world.Sqlite().Number(query.key, query.code);
}

unsigned int SqliteName(World& world, const Query& query) {
  Buffer buffer;
  const unsigned int ret =
      world.Sqlite().Text(query.key, ONU_ABILITY_CODE_TYPE_NAME, buffer.data(), kBufferSize);
  benchmark::DoNotOptimize(buffer);
  return ret;
}

unsigned int LmdbNumber(World& world, const Query& query) {
  return world.Lmdb().Number(query.key, kNumber);
}

unsigned int LmdbAnyNumber(World& world, const Query& query) {
  return world.Lmdb().Number(query.key, query.code);
}

unsigned int LmdbName(World& world, const Query& query) {
  Buffer buffer;
  const unsigned int ret =
      world.Lmdb().Text(query.key, ONU_ABILITY_CODE_TYPE_NAME, buffer.data(), kBufferSize);
  benchmark::DoNotOptimize(buffer);
  return ret;
}

using AskFunction = unsigned int (*)(World&, const Query&);

template <AskFunction Ask>
void Run(benchmark::State& state, std::size_t size, const Setting& setting) {
  World& world = WorldOf(size);
  world.Use();
  Apply(setting);
  const auto& queries = world.Queries();
  // The row before this one asked another population. A walk reads all of it each time.
  if (!IsSlow(setting)) {
    for (const Query& query : queries) benchmark::DoNotOptimize(Ask(world, query));
  }
  std::size_t next = 0;
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(Ask(world, queries[next]));
    if (++next == queries.size()) next = 0;
  }
}

template <AskFunction Ask>
void Register(const char* work, const Setting& setting, std::size_t size) {
  auto& row = AddRow(work, setting.contender, size,
                     [=](benchmark::State& state) { Run<Ask>(state, size, setting); });
  if (IsSlow(setting)) {
    row.Iterations(static_cast<int>(kWalked / size))->Repetitions(kSlowRepetitions);
  } else {
    row.Iterations(kQuestions);
  }
}

// `reference` must give the same answers to the first questions, the walk as well.
template <AskFunction Ask, AskFunction Reference>
void RequireSameAnswers(const char* work) {
  constexpr std::size_t kSample = 100;
  World& world = WorldOf(kUsualSize);
  world.Use();
  for (const Setting& setting : {kLibrary, kWalk, kAllOn}) {
    Apply(setting);
    for (std::size_t i = 0; i < kSample; ++i) {
      const Query& query = world.Queries()[i];
      RequireAgreement(Ask(world, query) == Reference(world, query), work);
    }
  }
}

template <AskFunction Ask>
void RegisterLibrary(const char* work) {
  for (const std::size_t size : kSizes) {
    Register<Ask>(work, kLibrary, size);
  }
  for (const Setting& setting : {kWalk, kAllOn, kAllOff}) {
    Register<Ask>(work, setting, kUsualSize);
  }
}

template <AskFunction Ask>
void RegisterReference(const char* work, const char* contender) {
  for (const std::size_t size : kSizes) {
    Register<Ask>(work, {contender, false, kProduction}, size);
  }
}

unsigned int Zero(World& /*world*/, const Query& /*query*/) { return 0; }
unsigned int One(World& /*world*/, const Query& /*query*/) { return 1; }

void CheckAnswers() {
  RequireSameAnswers<NumberByKey, FloorNumber>("number_by_key");
  RequireSameAnswers<NumberByKey, SqliteNumber>("number_by_key");
  RequireSameAnswers<NumberByKey, LmdbNumber>("number_by_key");
  RequireSameAnswers<NumberByKeyFromManager, FloorNumber>("number_by_key_manager");
  RequireSameAnswers<AnyNumberByKey, FloorAnyNumber>("any_number_by_key");
  RequireSameAnswers<AnyNumberByKey, SqliteAnyNumber>("any_number_by_key");
  RequireSameAnswers<AnyNumberByKey, LmdbAnyNumber>("any_number_by_key");
  RequireSameAnswers<NumberByRealType, FloorNumber>("number_by_real_type");
  RequireSameAnswers<SearchByRealType, Zero>("search_by_real_type");
  RequireSameAnswers<KeyExists, One>("key_exists");
  RequireSameAnswers<NameByKey, Zero>("name_by_key");
  RequireSameAnswers<NameByRealType, Zero>("name_by_real_type");
  RequireSameAnswers<LampsByKey, FloorLamps>("lamps_by_key");
  RequireSameAnswers<LampsByRealType, FloorLamps>("lamps_by_real_type");
}

void RegisterReferences() {
  RegisterReference<FloorNumber>("number", "floor");
  RegisterReference<FloorAnyNumber>("any_number", "floor");
  RegisterReference<FloorName>("name", "floor");
  RegisterReference<FloorLamps>("lamps", "floor");
  RegisterReference<SqliteNumber>("number", "sqlite");
  RegisterReference<LmdbNumber>("number", "lmdb");
  Register<SqliteAnyNumber>("any_number", {"sqlite", false, kProduction}, kUsualSize);
  Register<LmdbAnyNumber>("any_number", {"lmdb", false, kProduction}, kUsualSize);
  Register<SqliteName>("name", {"sqlite", false, kProduction}, kUsualSize);
  Register<LmdbName>("name", {"lmdb", false, kProduction}, kUsualSize);
}

}  // namespace

void RegisterLookups() {
  CheckAnswers();
  RegisterReferences();
  RegisterLibrary<NumberByKey>("number_by_key");
  RegisterLibrary<NumberByKeyFromManager>("number_by_key_manager");
  RegisterLibrary<AnyNumberByKey>("any_number_by_key");
  RegisterLibrary<NumberByRealType>("number_by_real_type");
  RegisterLibrary<SearchByRealType>("search_by_real_type");
  RegisterLibrary<KeyExists>("key_exists");
  RegisterLibrary<NameByKey>("name_by_key");
  RegisterLibrary<NameByRealType>("name_by_real_type");
  RegisterLibrary<LampsByKey>("lamps_by_key");
  RegisterLibrary<LampsByRealType>("lamps_by_real_type");
  for (const std::size_t size : kSizes) {
    if (size != kUsualSize) Register<NumberByKey>("number_by_key", kWalk, size);
  }
}

void RegisterHandedOutLookups() {
  Register<NumberByKey>("number_by_key", kHandedOut, kUsualSize);
  Register<NameByKey>("name_by_key", kHandedOut, kUsualSize);
  Register<LampsByKey>("lamps_by_key", kHandedOut, kUsualSize);
}
