// One file of a catalogue: what it states, before it is laid over the files that
// come earlier.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_LAYER_H
#define OLT_HOST_CATALOGUE_CATALOGUE_LAYER_H

#include <optional>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/yaml_view.h"

namespace olt_host {

struct CatalogueLayer {
  std::string file;
  std::string sha256;  // of the file's bytes, lower-case hex
  bool has_header = false;
  std::string name;
  std::string version;
  SourcePosition position;  // of the file's beginning
  std::optional<std::uint16_t> key_ability_code;
  SourcePosition key_ability_code_position;
  std::optional<std::uint16_t> sfu_common_type;
  std::optional<std::uint16_t> hgu_common_type;
  std::vector<AttributeEntry> attributes;
  std::vector<CodeEntry> codes;
  std::vector<ProfileEntry> real_profiles;
  std::vector<ProfileEntry> match_profiles;
};

// A file whose header and settings have been read, and its entries as they stand.
struct CatalogueDocument {
  CatalogueLayer layer;
  std::vector<YamlView> attributes;
  std::vector<YamlView> codes;
  std::vector<YamlView> real_profiles;
  std::vector<YamlView> match_profiles;
};

// Whether a file must state what only the earlier ones could spare it.
struct CatalogueNeeds {
  bool header = true;
  bool attributes = true;
  bool codes = true;
};

// Throws InputError when the file cannot be read, is no catalogue, or when its
// header, its settings or a section as a whole is wrong.
CatalogueDocument OpenCatalogue(const std::string& file, const CatalogueNeeds& needs);

// The layers as one catalogue, the later ones over the earlier ones by key:
// attributes by id, codes by number and real profiles by key take the place of
// what they override; match profiles with a key put away all earlier ones with
// it and come behind the rest, where they are tried first. Name and version are
// those of the first header; without one "none" and "".
Catalogue MergeLayers(const std::vector<CatalogueLayer>& layers);
// The same without the profiles.
Catalogue MergeDefinitions(const std::vector<CatalogueLayer>& layers);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_LAYER_H
