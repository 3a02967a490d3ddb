#include "world.h"

#include <memory>

#include "dice.h"

namespace {

constexpr std::size_t kLeastQueries = 8192;
constexpr std::size_t kFewestPatterns = 200;

std::vector<Query> MakeQueries(std::size_t size) {
  Dice dice(5);
  std::vector<std::size_t> places(size);
  for (std::size_t i = 0; i < size; ++i) places[i] = i;
  std::vector<Query> queries;
  while (queries.size() < kLeastQueries) {
    dice.Shuffle(places);
    for (const std::size_t place : places) {
      const Description& profile = RealDescriptions()[place];
      const Ability* ability = nullptr;
      do {
        ability = &profile.given[dice.Below(profile.given.size())];
      } while (ability->value.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT);
      queries.push_back({profile.key, profile.real_type, ability->code});
    }
  }
  return queries;
}

Tables MakeTables(std::size_t size) {
  UseNewTables();
  for (std::size_t i = 0; i < size; ++i) {
    const auto id = static_cast<unsigned short>(i + 1);
    Store(RealDescriptions()[i], ONU_ABILITY_PROFILE_TYPE_REAL, id);
    Store(MatchDescriptions()[i], ONU_ABILITY_PROFILE_TYPE_MATCH, id);
  }
  return OnuAbilityTableManager::GetInstance()->_map_table;
}

}  // namespace

void UseNewTables() {
  OnuAbilityTableManager::GetInstance()->_map_table.clear();
  OnuAbilityTableManager::GetInstance()->Init();
}

void Store(const Description& description, ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short id) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile._id = id;
  for (const auto& [code, value] : description.given) {
    if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT) {
      profile.UpdateInit(code, value.ability_ushort_value);
    } else {
      profile.UpdateInit(code, value.ability_string_value);
    }
  }
  OnuAbilityTableManager::GetInstance()->Add(profile);
}

World::World(std::size_t size)
    : _tables(MakeTables(size)),
      _queries(MakeQueries(size)),
      _floor(size),
      _sqlite(size),
      _lmdb(size) {
  if (size >= kFewestPatterns) {
    _middle = MiddleReports(size, kReports);
    _unknown = UnknownReports(size, kReports);
  }
}

void World::Use() const { OnuAbilityTableManager::GetInstance()->_map_table = _tables; }

World& WorldOf(std::size_t size) {
  static std::map<std::size_t, std::unique_ptr<World>> worlds;
  auto& world = worlds[size];
  if (world == nullptr) world = std::make_unique<World>(size);
  return *world;
}
