// Reading of `abilities: {CODE: value, ...}`, which profiles and reports share.
#ifndef OLT_HOST_CATALOGUE_ABILITY_READER_H
#define OLT_HOST_CATALOGUE_ABILITY_READER_H

#include <map>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/yaml_view.h"

namespace olt_host {

// Names and numbers of entries that were left out, and where they stand.
using RefusedNames = std::map<std::string, SourcePosition>;

struct AbilityRules {
  bool any_allowed = true;    // the word `any`, a wildcard
  bool texts_allowed = true;  // codes that hold texts
  // Numbers of codes that are not defined: ONUs tell what no catalogue knows.
  bool unknown_codes_allowed = false;
  const RefusedNames* refused_codes = nullptr;
};

// Codes stand by name or number and must be defined in `catalogue`: in the same
// file above their use. Every code only once.
std::vector<AbilityEntry> ReadAbilities(const YamlView& abilities, const Catalogue& catalogue,
                                        const AbilityRules& rules);

// A definition must stand above its use in the same file, and anywhere in
// another one.
bool IsDefinedAbove(const SourcePosition& definition, const SourcePosition& use);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_ABILITY_READER_H
