// A catalogue that is spread over several files: shipped ones, local ones, and
// folders of either. Later files override earlier ones by key; local files come
// after shipped ones, and their patterns are tried before those.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_FILES_H
#define OLT_HOST_CATALOGUE_CATALOGUE_FILES_H

#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace olt_host {

struct CatalogueRequest {
  // Files, or folders whose *.yaml files are taken in the order of their names.
  // Empty: a catalogue without anything in it.
  std::vector<std::string> shipped;
  std::vector<std::string> local;
  // Leaves out each entry that is refused instead of taking nothing.
  bool keep_going = false;
};

struct CatalogueFile {
  std::string file;
  std::string name;  // of its header
  std::string version;
  std::string sha256;  // of its bytes, lower-case hex
};

struct LoadedCatalogue {
  Catalogue catalogue;               // merged; the name and version of the first file
  std::vector<CatalogueFile> files;  // in the order taken
  std::string sha256;                // over all files
  // Messages of the entries that keep_going left out: "FILE:LINE: problem; expected ...".
  std::vector<std::string> refused;
};

// Reads and checks everything; what it returns can be loaded. Throws InputError.
LoadedCatalogue ReadCatalogueFiles(const CatalogueRequest& request);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_FILES_H
