#include <malloc.h>

#include <string>
#include <vector>

#include "onu_ability_common_service_cinterface.h"
#include "rows.h"
#include "world.h"

namespace {

// What is allocated at this moment.
double HeapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

// Asks every profile for everything, so that every index is there.
void AskAll() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  std::string text;
  char buffer[32];
  for (std::size_t i = 0; i < kUsualSize; ++i) {
    const Description& description = RealDescriptions()[i];
    onu_ability_key_ability_value_is_exist(description.key);
    onu_ability_search_by_real_type(description.real_type);
    onu_ability_get_onu_type_name_by_key_value(description.key, buffer, sizeof buffer);
    onu_ability_get_onu_lamp_total_num_by_key_ability(description.key);
    for (const auto& record : codes) {
      onu_ability_get_onu_ability_value_by_key_value(description.key, record.ability_code);
      manager.Get(ONU_ABILITY_PROFILE_TYPE_REAL, description.key, record.ability_code, text);
    }
  }
}

void RecogniseOne() {
  OnuAbilityProfile request;
  request.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
               ONU_ABILITY_MATCH_TYPE_PATTERN);
  for (std::size_t i = 0; i < kComparedNumbers; ++i) {
    request.UpdateInit(static_cast<unsigned short>(kFirstComparedCode + i), 1);
  }
  request.UpdateInit(ONU_ABILITY_CODE_VENDOR_ID, VendorName(1));
  benchmark::DoNotOptimize(*OnuAbilityTableManager::GetInstance() == request);
}

// The values that a table holds now, in bare containers that grow as it did.
double BareBytes(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  const double before = HeapBytes();
  std::vector<BareProfile> bare;
  for (const OnuAbilityProfile& profile : profiles) {
    BareProfile& abilities = bare.emplace_back();
    for (const auto& [code, value] : profile._common_ability) abilities.emplace(code, value);
  }
  return HeapBytes() - before;
}

void Run(benchmark::State& state, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  Apply(kLibrary);
  const bool is_real = type == ONU_ABILITY_PROFILE_TYPE_REAL;
  const auto& descriptions = is_real ? RealDescriptions() : MatchDescriptions();
  double table = 0;
  double bare = 0;
  while (state.KeepRunning()) {
    const double before = HeapBytes();
    UseNewTables();
    for (std::size_t i = 0; i < kUsualSize; ++i) {
      Store(descriptions[i], type, static_cast<unsigned short>(i + 1));
    }
    if (is_real) {
      AskAll();
    } else {
      RecogniseOne();
    }
    table = HeapBytes() - before;
    bare = BareBytes(type);
    OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
    OnuAbilityTableManager::GetInstance()->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  }
  state.counters["table_bytes"] = table / kUsualSize;
  state.counters["bare_bytes"] = bare / kUsualSize;
}

}  // namespace

void RegisterMemory() {
  for (const auto type : {ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_TYPE_MATCH}) {
    const char* work = type == ONU_ABILITY_PROFILE_TYPE_REAL ? "memory_real" : "memory_match";
    AddRow(work, "library", kUsualSize, [=](benchmark::State& state) { Run(state, type); })
        .Iterations(1)
        ->Repetitions(1);
  }
}
