// One catalogue after another in the library of one process, to ask the same of both.
#ifndef OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H
#define OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H

#include "catalogue/catalogue.h"

namespace olt_host {

// Makes the library hold what loading `catalogue` into an empty one gives, whatever it held
// before, the tables made anew for another key ability code.
//
// REQUIRES: the tables exist, no other thread uses the library. Throws std::runtime_error
// when the library did not take it.
void LoadInstead(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CATALOGUE_EXCHANGE_H
