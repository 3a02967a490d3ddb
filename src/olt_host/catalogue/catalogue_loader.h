// Puts a checked catalogue into the library and makes sure that it arrived.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H
#define OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H

#include <stdexcept>

#include "catalogue/catalogue.h"

namespace olt_host {

// The library did not take something of a catalogue that passed its checks.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Registers attributes and codes, sets the key ability code and adds every
// profile as a default one, then reads all of it back.
//
// REQUIRES: the tables exist, both registries and both tables are empty, no
// other thread uses the library yet. Throws LoadError.
void LoadCatalogue(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_LOADER_H
