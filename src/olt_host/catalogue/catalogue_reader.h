// Reads a catalogue file and checks all of it: what it returns can be loaded.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_READER_H
#define OLT_HOST_CATALOGUE_CATALOGUE_READER_H

#include <string>

#include "catalogue/catalogue.h"

namespace olt_host {

// Throws InputError for the first thing that is wrong.
Catalogue ReadCatalogue(const std::string& file);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_READER_H
