// One catalogue after another in the library of one process, to ask the same of both.
#ifndef OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H
#define OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H

#include "catalogue/catalogue.h"
#include "state/library_state.h"

namespace olt_host {

// What the library holds after loading `catalogue` into an empty one.
LibraryState StateOf(const Catalogue& catalogue);

// Makes the library hold that, whatever it held before, the tables made anew for another
// key ability code.
//
// REQUIRES: the tables exist, no other thread uses the library. Throws std::runtime_error
// when the library did not take it.
void LoadInstead(const LibraryState& state);
void LoadInstead(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H
