// A catalogue that is spread over several files: shipped ones, local ones, and
// folders of either. Later files override earlier ones by key; local files come
// after shipped ones, and their patterns are tried before those.
//
// The first file must have a header, the others may. Hidden files and folders in a
// folder are not looked at. Nothing is read twice: the hashes are those of the
// bytes that were taken.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_FILES_H
#define OLT_HOST_CATALOGUE_CATALOGUE_FILES_H

#include <chrono>
#include <cstddef>
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
  // How many entries of the merged catalogue came from it.
  std::size_t attributes = 0;
  std::size_t codes = 0;
  std::size_t real_profiles = 0;
  std::size_t match_profiles = 0;
};

struct LoadedCatalogue {
  Catalogue catalogue;               // merged; the name and version of the first file
  std::vector<CatalogueFile> files;  // in the order taken
  std::string sha256;                // over all files
  // Messages of the entries that keep_going left out: "FILE:LINE: problem; expected ...".
  // An unknown name that stands in several of them is told once.
  std::vector<std::string> refused;
  std::size_t refused_entries = 0;
  // Those of files and folders that were left out whole, which `refused` has too.
  std::vector<std::string> refused_files;
  // Whether an attribute or a code is among the entries left out.
  bool refused_definitions = false;
  std::chrono::system_clock::time_point read_at;
};

// Reads and checks everything; what it returns can be loaded. Throws InputError,
// nothing taken; keeping going, a file or folder that cannot be read is left out
// like an entry.
LoadedCatalogue ReadCatalogueFiles(const CatalogueRequest& request);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_FILES_H
