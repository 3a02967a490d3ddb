// Reading the catalogue again and putting what changed in it into the running
// library.
#ifndef OLT_HOST_COMMANDS_CATALOGUE_RELOAD_H
#define OLT_HOST_COMMANDS_CATALOGUE_RELOAD_H

#include <string>
#include <vector>

#include "catalogue/catalogue_difference.h"
#include "catalogue/catalogue_files.h"
#include "state/library_state.h"

namespace olt_host {

// What the library holds once `newer` has taken the place of `older` in it, as
// after a start with `newer` and a restored state:
// - profiles of source 0 are those of `newer`, below the operators' own;
// - codes, attributes and settings that operators changed stay as they are, all
//   others are those of `newer`;
// - what only `older` had goes, unless something of the operators' uses it: then it
//   stays, and `remarks` says so.
// Changes nothing. Throws StateError when what operators made and `newer` exclude
// each other.
LibraryState StateAfterReload(const LibraryState& current, const Catalogue& older,
                              const Catalogue& newer, std::vector<std::string>& remarks);

struct ReloadResult {
  CatalogueDifference difference;  // of the library before and after
  std::vector<std::string> remarks;
};

// Reads the files of Host() again, checks everything and installs it in the library
// and in Host(): all of it or nothing. Throws std::runtime_error with a message for
// the operator.
ReloadResult ReloadCatalogue();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_CATALOGUE_RELOAD_H
