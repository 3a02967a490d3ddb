// What boards of different byte order and width hand to each other, with content that
// would show it: every number with different bytes, texts beside them.
#ifndef TESTS_EXCHANGE_EXCHANGED_CONTENT_H
#define TESTS_EXCHANGE_EXCHANGED_CONTENT_H

#include <string>

#include "catalogue/catalogue.h"
#include "onu_ability_common_table.h"

namespace exchange {

// Fills the library: attributes and codes, which every test needs, and profiles of both
// tables with `FillTables`.
void FillRegistries();
void FillTables();

// What the codes were compared with when the state file was written.
olt_host::Catalogue CatalogueOfTheBoard();

OnuAbilityProfile SerialisedProfile();

// The bytes of the files as this machine makes them, from the library as it is filled.
std::string ProfileBytes();
std::string StateBytes();

}  // namespace exchange

#endif  // TESTS_EXCHANGE_EXCHANGED_CONTENT_H
