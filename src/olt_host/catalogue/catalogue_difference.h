// How two catalogues differ in what they come to in the library, or a catalogue and
// the library: as data, as counts, and as lines for an operator.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_DIFFERENCE_H
#define OLT_HOST_CATALOGUE_CATALOGUE_DIFFERENCE_H

#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/catalogue_content.h"

namespace olt_host {

enum class EntryKind { kSetting, kAttribute, kCode, kRealProfile, kMatchProfile };
// kMoved: as it was, but behind or before others than before.
enum class ChangeKind { kAdded, kRemoved, kChanged, kMoved };

// "setting", "attribute", "code", "real profile", "match profile".
const char* ToText(EntryKind kind);
// "added", "removed", "changed", "moved".
const char* ToText(ChangeKind kind);

struct CatalogueChange {
  EntryKind entry = EntryKind::kSetting;
  unsigned int key = 0;  // id, code or key; 0 of a setting
  std::string name;      // of it, or its type name; may be empty
  ChangeKind kind = ChangeKind::kChanged;
  std::vector<std::string> details;  // "GE_PORTS 4 to 2", "VEIP none to 1"
};

// Settings, attributes, codes, real profiles, match profiles: of each what changed,
// moved or is new in the order of the later content, then what is gone.
using CatalogueDifference = std::vector<CatalogueChange>;

CatalogueDifference Compare(const CatalogueContent& before, const CatalogueContent& after);

// "2 real profiles added, 1 changed; 1 code removed"; "" for no difference.
std::string CountsText(const CatalogueDifference& difference);

// Lines of at most 80 columns for one change:
// "  real profile 1002 (HGU-4GE): changed, GE_PORTS 4 to 2".
std::vector<std::string> ChangeLines(const CatalogueChange& change);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_DIFFERENCE_H
