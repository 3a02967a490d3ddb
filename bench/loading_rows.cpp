#include "onu_ability_common_service_cinterface.h"
#include "rows.h"
#include "world.h"

namespace {

void AddGiven(OnuAbilityProfile& profile, const Ability& ability) {
  const auto& value = ability.value;
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
    // Additions do not store a wildcard.
    if (value.ability_ushort_value == ONU_ABILITY_WILDCARD) {
      profile.UpdateInit(ability.code, value.ability_ushort_value);
    } else {
      profile.Add(ability.code, value.ability_ushort_value);
    }
  } else if (value.ability_string_value.empty()) {
    profile.UpdateInit(ability.code, value.ability_string_value);
  } else {
    profile.Add(ability.code, value.ability_string_value);
  }
}

void LoadTable(const std::vector<Description>& descriptions, ONU_ABILITY_ENUM_PROFILE_TYPE type,
               ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  for (std::size_t i = 0; i < kUsualSize; ++i) {
    OnuAbilityProfile profile;
    profile.Init(type, source, ONU_ABILITY_MATCH_TYPE_EXACT);
    for (const Ability& ability : descriptions[i].given) AddGiven(profile, ability);
    OnuAbilityTableManager::GetInstance()->Add(profile);
  }
}

// One question of each kind: what a table puts off until it is asked belongs to loading.
void AskFirstQuestions(OnuAbilityProfile& request) {
  const Description& description = RealDescriptions()[kUsualSize / 2];
  benchmark::DoNotOptimize(onu_ability_key_ability_value_is_exist(description.key));
  benchmark::DoNotOptimize(onu_ability_search_by_real_type(description.real_type));
  benchmark::DoNotOptimize(*OnuAbilityTableManager::GetInstance() == request);
}

void Require(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  RequireAgreement(profiles.size() == kUsualSize, "loading");
}

void RunLibrary(benchmark::State& state, const Setting& setting,
                ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  Apply(setting);
  const auto& real = RealDescriptions();
  const auto& match = MatchDescriptions();
  while (state.KeepRunning()) {
    UseNewTables();
    OnuAbilityProfile request;
    request.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
                 ONU_ABILITY_MATCH_TYPE_PATTERN);
    request.UpdateInit(ONU_ABILITY_CODE_DEFAULT_KEY, kUnknownType);
    const double start = ThreadSeconds();
    LoadTable(real, ONU_ABILITY_PROFILE_TYPE_REAL, source);
    LoadTable(match, ONU_ABILITY_PROFILE_TYPE_MATCH, source);
    AskFirstQuestions(request);
    state.SetIterationTime(ThreadSeconds() - start);
    Require(ONU_ABILITY_PROFILE_TYPE_REAL);
    Require(ONU_ABILITY_PROFILE_TYPE_MATCH);
    OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
    OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  }
}

void RunBare(benchmark::State& state) {
  const auto& real = RealDescriptions();
  const auto& match = MatchDescriptions();
  while (state.KeepRunning()) {
    std::vector<BareProfile> tables[2];
    const double start = ThreadSeconds();
    for (std::size_t i = 0; i < kUsualSize; ++i) InsertBare(real[i], tables[0].emplace_back());
    for (std::size_t i = 0; i < kUsualSize; ++i) InsertBare(match[i], tables[1].emplace_back());
    state.SetIterationTime(ThreadSeconds() - start);
    benchmark::DoNotOptimize(tables);
  }
}

void RegisterLibraryRow(const char* work, const Setting& setting,
                        ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  auto& row = AddRow(work, setting.contender, kUsualSize,
                     [=](benchmark::State& state) { RunLibrary(state, setting, source); });
  // A load with walks takes seconds.
  row.UseManualTime()->Iterations(1)->Repetitions(IsSlow(setting) ? 1 : 2 * kSlowRepetitions);
}

}  // namespace

void RegisterLoading() {
  for (const Setting& setting : {kLibrary, kWalk, kAllOn, kAllOff}) {
    RegisterLibraryRow("load_default", setting, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
  }
  RegisterLibraryRow("load_external", kLibrary, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  AddRow("load", "bare", kUsualSize, RunBare)
      .UseManualTime()
      ->Iterations(1)
      ->Repetitions(2 * kSlowRepetitions);
}

void RegisterHandedOutLoading() {
  RegisterLibraryRow("load_default", kHandedOut, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
}
