// Reading of the entries of a catalogue file: an attribute, a code, a profile.
#ifndef OLT_HOST_CATALOGUE_ENTRY_READER_H
#define OLT_HOST_CATALOGUE_ENTRY_READER_H

#include "catalogue/ability_reader.h"
#include "catalogue/catalogue.h"
#include "catalogue/yaml_view.h"

namespace olt_host {

// What an entry may refer to.
struct KnownEntries {
  const Catalogue& catalogue;
  const RefusedNames& refused_attributes;
  const RefusedNames& refused_codes;
};

// Each throws InputError for the first thing that is wrong with the entry itself;
// what entries must keep among each other is catalogue_checks.h.
AttributeEntry ReadAttribute(const YamlView& item);
CodeEntry ReadCode(const YamlView& item, const KnownEntries& known);
ProfileEntry ReadRealProfile(const YamlView& item, const KnownEntries& known);
ProfileEntry ReadMatchProfile(const YamlView& item, const KnownEntries& known);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_ENTRY_READER_H
