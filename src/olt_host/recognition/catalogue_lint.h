// Lint: what is wrong or odd with a catalogue, found by reasoning over all reports that
// there can be and not by trying some. docs/lint.md tells of every kind of finding.
#ifndef OLT_HOST_RECOGNITION_CATALOGUE_LINT_H
#define OLT_HOST_RECOGNITION_CATALOGUE_LINT_H

#include <string>

#include "catalogue/catalogue.h"
#include "confirmation/population.h"
#include "recognition/lint_finding.h"

namespace olt_host {

// Of what the library holds now, `catalogue` having been loaded into it and operators
// having changed it since; `population` may be null. The library stays as it is.
//
// REQUIRES: the hooks are registered. On the thread that works with the library.
LintResult LintCatalogue(const Catalogue& catalogue, const Population* population);

// "2 errors and 1 warning", "" for none of either: the same without the notes, which take
// longest.
std::string CountGraveFindings(const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CATALOGUE_LINT_H
