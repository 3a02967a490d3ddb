// Compares what the library holds with the catalogue that was loaded.
#ifndef OLT_HOST_CATALOGUE_LOAD_VERIFICATION_H
#define OLT_HOST_CATALOGUE_LOAD_VERIFICATION_H

#include <stdexcept>

#include "catalogue/catalogue.h"

namespace olt_host {

// The library did not take something of a catalogue that passed its checks.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws LoadError for the first attribute, code or profile of the catalogue
// that the library does not hold as stated. The number 0 is not stored in a real
// profile, where it is the default, which is the same.
void VerifyLoaded(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_LOAD_VERIFICATION_H
