// A stored state and a catalogue: which entries operators changed, and what comes of
// them over the catalogue of today.
#ifndef OLT_HOST_STATE_STATE_MERGE_H
#define OLT_HOST_STATE_STATE_MERGE_H

#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "state/library_state.h"
#include "state/stored_state.h"

namespace olt_host {

// Marks what differs from the catalogue. Profiles of source 0 are left out.
StoredState CompareWithCatalogue(const LibraryState& state, const Catalogue& catalogue);

// What operators changed as they made it, the rest as the catalogue has it, the profiles
// of source 0 from `current`. Adds to `remarks` what could not be as stored and is no
// reason to refuse. Throws StateError when the two contradict each other.
LibraryState MergeWithCatalogue(const StoredState& stored, const Catalogue& catalogue,
                                const LibraryState& current, std::vector<std::string>& remarks);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STATE_MERGE_H
