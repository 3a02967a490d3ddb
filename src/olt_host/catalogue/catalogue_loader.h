// Puts a checked catalogue into the library and makes sure that it arrived.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H
#define OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H

#include "catalogue/catalogue.h"
#include "catalogue/load_verification.h"

namespace olt_host {

// Registers attributes and codes, sets the key ability code and adds every
// profile as a default one, then reads all of it back.
//
// REQUIRES: the tables exist, both registries and both tables are empty, no
// other thread uses the library yet. Throws LoadError.
void LoadCatalogue(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H
