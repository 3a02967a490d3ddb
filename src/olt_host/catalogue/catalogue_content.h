// What a catalogue comes to in the library, in a form that can be compared: made
// of a catalogue, or read from the library as it is.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_CONTENT_H
#define OLT_HOST_CATALOGUE_CATALOGUE_CONTENT_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace olt_host {

struct ContentEntry {
  unsigned int key = 0;  // id, code or key; 0 of a setting
  std::string name;      // may be empty
  // What it holds, as text by what it is called: attributes, abilities, settings.
  std::map<std::string, std::string> values;
};

struct CatalogueContent {
  std::vector<ContentEntry> settings;
  std::vector<ContentEntry> attributes;  // by id
  std::vector<ContentEntry> codes;
  std::vector<ContentEntry> real_profiles;
  std::vector<ContentEntry> match_profiles;
};

CatalogueContent ContentOf(const Catalogue& catalogue);

// Of the library: both registries, the settings and the profiles of source 0, which
// are those of catalogues. On the command thread. Codes and attributes are called by
// the names in `names` where it has them, as ContentOf(names) does.
CatalogueContent ContentOfLibrary(const Catalogue& names);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_CONTENT_H
