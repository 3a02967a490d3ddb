// The library of a board as the footprint is measured on it: a registry of 120 codes,
// a hundred real profiles and a hundred patterns of 60 abilities each, an ONU that
// answers every hook.
#ifndef BENCH_FOOTPRINT_BOARD_H
#define BENCH_FOOTPRINT_BOARD_H

#include <functional>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

constexpr std::size_t kProfiles = 100;

struct Operation {
  std::string name;
  std::function<void()> call;
};

// Fills the library; once a process.
void MakeBoard();
// Puts back what operations have changed of it; whatever was derived is forgotten.
void RestoreBoard();

// A profile like those of the tables, which is in none of them.
OnuAbilityProfile NewProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type);
// What a report looks like to the patterns; fits one in the middle.
OnuAbilityProfile Request();

// The exported operations.
std::vector<Operation> VocabularyOperations();
std::vector<Operation> RegistryOperations();
std::vector<Operation> ProfileOperations();
std::vector<Operation> TableOperations();
std::vector<Operation> QueryAndConfirmationOperations();
std::vector<Operation> CommandOperations();

#endif  // BENCH_FOOTPRINT_BOARD_H
