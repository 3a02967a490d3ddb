// The tables' own operations are measured through the manager, which forwards to each.
#include "footprint/board.h"
#include "population.h"

namespace {

constexpr auto kReal = ONU_ABILITY_PROFILE_TYPE_REAL;
constexpr auto kMatch = ONU_ABILITY_PROFILE_TYPE_MATCH;
constexpr auto kAll = ONU_ABILITY_PROFILE_SOURCE_ALL;
constexpr auto kDefault = ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
constexpr unsigned short kNumber = kFirstComparedCode;
constexpr unsigned short kText = ONU_ABILITY_CODE_TYPE_NAME;

struct Materials {
  unsigned int key = RealDescriptions()[kProfiles / 2].key;
  unsigned short real_type = RealDescriptions()[kProfiles / 2].real_type;
  OnuAbilityProfile real = NewProfile(kReal);
  OnuAbilityProfile same_key = NewProfile(kReal);  // without id, so found by its key
  OnuAbilityProfile match = NewProfile(kMatch);
  OnuAbilityProfile request = Request();
  OnuAbilityProfile found;
  std::vector<OnuAbilityProfile> many;
  std::string text = "a text of thirty bytes or more";
  unsigned int number = 0;
  unsigned short id = 0;
};

Materials& Given() {
  static Materials materials;
  return materials;
}

std::vector<Operation> Reading() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  Materials& given = Given();
  return {
      {"IsExist(source, key)", [&] { manager.IsExist(kReal, kAll, given.key); }},
      {"IsEqual(source, code, number)", [&] { manager.IsEqual(kReal, kAll, kNumber, 1); }},
      {"Get, a free id", [&] { manager.Get(kReal, kDefault, given.id); }},
      {"Get, profiles by key", [&] { manager.Get(kReal, kAll, given.key, given.many); }},
      {"Get, profiles by real type",
       [&] { manager.Get(kReal, kAll, given.real_type, given.many); }},
      {"Get, the newest by key", [&] { manager.Get(kReal, kAll, given.key, given.found); }},
      {"Get, the newest by real type",
       [&] { manager.Get(kReal, kAll, given.real_type, given.found); }},
      {"Get, a number by key", [&] { manager.Get(kReal, given.key, kNumber, given.number); }},
      {"Get, a string by key", [&] { manager.Get(kReal, given.key, kText, given.text); }},
      {"Get, a number by real type",
       [&] { manager.Get(kReal, given.real_type, kNumber, given.number); }},
      {"Get, a string by real type",
       [&] { manager.Get(kReal, given.real_type, kText, given.text); }},
      {"GetAll, 100 profiles", [&] { manager.GetAll(kReal, kAll, given.many); }},
      {"== recognising a report", [&] { static_cast<void>(manager == given.request); }},
      {"the table's IsExist(code)", [&] { manager._map_table[kReal]->IsExist(kNumber); }},
      {"the table's GetLampTotalNum(key)",
       [&] { manager._map_table[kReal]->GetLampTotalNum(given.key); }},
      {"the table's GetLampTotalNum(real type)",
       [&] { manager._map_table[kReal]->GetLampTotalNum(given.real_type); }},
  };
}

std::vector<Operation> Changing() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  Materials& given = Given();
  return {
      {"Add, a real profile", [&] { manager.Add(given.real); }},
      {"Add, a pattern", [&] { manager.Add(given.match); }},
      {"Add, a number under a key", [&] { manager.Add(kReal, kAll, given.key, kNumber, 7U); }},
      {"Add, a string under a key",
       [&] { manager.Add(kReal, kAll, given.key, kText, given.text); }},
      {"AddBindCount", [&] { manager.AddBindCount(kReal, given.key); }},
      {"MinusBindCount", [&] { manager.MinusBindCount(kReal, given.key); }},
      {"Del, a real profile", [&] { manager.Del(given.same_key); }},
      {"Del, a pattern", [&] { manager.Del(given.match); }},
      {"Del(source, type, key)", [&] { manager.Del(kDefault, kReal, given.key); }},
      {"DelAll, 100 profiles", [&] { manager.DelAll(kDefault, kReal); }},
      {"the table's Restore, 100 profiles",
       [&] { manager._map_table[kReal]->Restore(given.many); }},
      {"DelOnuAbilityTable", [&] { manager.DelOnuAbilityTable(kReal); }},
      {"AddOnuAbilityTable", [&] { manager.AddOnuAbilityTable(kReal); }},
      {"Init, both tables there", [&] { manager.Init(); }},
  };
}

}  // namespace

std::vector<Operation> TableOperations() {
  std::vector<Operation> operations = Reading();
  for (Operation& operation : Changing()) operations.push_back(std::move(operation));
  for (Operation& operation : operations) operation.name = "manager: " + operation.name;
  return operations;
}
