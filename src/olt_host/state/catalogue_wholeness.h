// Whether a catalogue was taken whole, apart from profiles. Where codes of it are
// missing, a state would take the others' place: codes that only repeated the catalogue
// would count as an operator's own, or as deleted.
#ifndef OLT_HOST_STATE_CATALOGUE_WHOLENESS_H
#define OLT_HOST_STATE_CATALOGUE_WHOLENESS_H

#include "catalogue/catalogue_files.h"

namespace olt_host {

// Throws StateError when a file of the catalogue, an attribute or a code was left out.
void RequireWholeCatalogue(const LoadedCatalogue& loaded);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_CATALOGUE_WHOLENESS_H
