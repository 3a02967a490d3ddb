#include "state/catalogue_wholeness.h"

#include "state/state_file.h"

namespace olt_host {

void RequireWholeCatalogue(const LoadedCatalogue& loaded) {
  if (loaded.refused_files.empty() && !loaded.refused_definitions) return;
  const char* const missing = loaded.refused_files.empty() ? "attributes or codes" : "files";
  throw StateError(std::string("the catalogue was taken without some of its ") + missing +
                   "; expected a catalogue that is taken whole");
}

}  // namespace olt_host
