// A population of one size in every contender: the library's tables, the bare
// containers, SQLite and LMDB, with the questions that are asked of all of them.
#ifndef BENCH_WORLD_H
#define BENCH_WORLD_H

#include <cstddef>
#include <map>
#include <vector>

#include "floor_reference.h"
#include "lmdb_reference.h"
#include "population.h"
#include "sqlite_reference.h"

// About a profile: each is asked equally often, in an order in which caches cannot
// foresee the next one.
struct Query {
  unsigned int key;
  unsigned short real_type;
  unsigned short code;  // of any number that the profile holds
};

// Reports of each kind in a population; each is recognised equally often.
constexpr int kReports = 64;

using Tables = std::map<ONU_ABILITY_ENUM_PROFILE_TYPE, OnuAbilityTableBase*>;

// Gives the manager a pair of new tables. The old ones stay with whoever kept them.
void UseNewTables();

// Sets every ability of `abilities` in the profile, then adds it through the manager.
void Store(const Description& description, ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short id);

class World {
 public:
  explicit World(std::size_t size);

  // Makes these the tables of the library.
  void Use() const;

  const std::vector<Query>& Queries() const { return _queries; }
  const std::vector<Report>& Middle() const { return _middle; }
  const std::vector<Report>& Unknown() const { return _unknown; }
  FloorReference& Floor() { return _floor; }
  SqliteReference& Sqlite() { return _sqlite; }
  LmdbReference& Lmdb() { return _lmdb; }

 private:
  Tables _tables;
  std::vector<Query> _queries;
  std::vector<Report> _middle;
  std::vector<Report> _unknown;
  FloorReference _floor;
  SqliteReference _sqlite;
  LmdbReference _lmdb;
};

// The world of a size, made when it is first asked for.
World& WorldOf(std::size_t size);

#endif  // BENCH_WORLD_H
