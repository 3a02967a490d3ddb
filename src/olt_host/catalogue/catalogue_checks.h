// What the entries of a catalogue must keep among each other. Holding these, a
// catalogue is taken by the library whole. Each check throws InputError for the
// first entry that breaks a rule.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H
#define OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H

#include "catalogue/catalogue.h"

namespace olt_host {

// Ids and names are unique; the value type is among them.
void CheckAttributes(const Catalogue& catalogue);

// Codes and names are unique; the codes that the library itself uses hold what
// it expects there, the key ability code included.
void CheckCodes(const Catalogue& catalogue);

// Keys of real profiles are unique, ids are unique within a table, and no
// profile contradicts what the library derives from it.
void CheckProfiles(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H
