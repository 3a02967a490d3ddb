// What the entries of a catalogue must keep among each other. Holding these, a
// catalogue is taken by the library whole.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H
#define OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H

#include <functional>

#include "catalogue/catalogue.h"

namespace olt_host {

// Is told of a rule that the entry with this `order` breaks; 0: none of the
// entries but the whole. May throw; otherwise the check goes on.
using RuleBreach = std::function<void(unsigned int order, const InputError& error)>;

// Ids and names are unique; the value type is among them.
void CheckAttributes(const Catalogue& catalogue, const RuleBreach& breach);

// Codes and names are unique; the codes that the library itself uses hold what
// it expects there, the key ability code included.
void CheckCodes(const Catalogue& catalogue, const RuleBreach& breach);

// Keys of real profiles are unique, ids are unique within a table, every ability
// is what its code holds, and no profile contradicts what the library derives
// from it.
void CheckProfiles(const Catalogue& catalogue, const RuleBreach& breach);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_CHECKS_H
