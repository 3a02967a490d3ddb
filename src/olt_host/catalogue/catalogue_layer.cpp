#include "catalogue/catalogue_layer.h"

#include <map>

#include "catalogue/hash.h"
#include "catalogue/yaml_document.h"

namespace olt_host {

namespace {

void ReadHeader(const YamlView& view, CatalogueLayer& layer) {
  const YamlMap header = view.Named("the catalogue header").Map({"name", "version"});
  layer.has_header = true;
  layer.name = header.Get("name", "a text").Text();
  layer.version = header.Get("version", "a text").Text();
}

void ReadSettings(const YamlMap& root, CatalogueLayer& layer) {
  if (const auto types = root.Find("common_types")) {
    const YamlMap map = types->Map({"sfu", "hgu"});
    if (const auto sfu = map.Find("sfu")) {
      layer.sfu_common_type = sfu->Number16(0, 65535);
    }
    if (const auto hgu = map.Find("hgu")) {
      layer.hgu_common_type = hgu->Number16(0, 65535);
    }
  }
  if (const auto key_code = root.Find("key_ability_code")) {
    layer.key_ability_code = key_code->Number16(0, 65534);
    layer.key_ability_code_position = key_code->Position();
  }
}

// The members of a section; none when it may be absent and is.
std::vector<YamlView> ReadSection(const YamlMap& root, const std::string& section,
                                  const std::string& item_name, bool needed) {
  if (const auto list = root.Find(section)) {
    return list->Items(item_name);
  }
  return needed ? root.Get(section, "a list of " + section).Items(item_name)
                : std::vector<YamlView>();
}

// The entries of one section of all layers, later ones in the place of earlier ones
// with the same key, which `key_of` tells. One that repeats a key of its own file is
// kept beside the first, for the checks to find.
template <typename Entry, typename KeyOf>
std::vector<Entry> Overlay(const std::vector<CatalogueLayer>& layers,
                           std::vector<Entry> CatalogueLayer::*section, KeyOf key_of) {
  struct Place {
    std::size_t index;
    const CatalogueLayer* layer;
  };
  std::vector<Entry> entries;
  std::map<unsigned int, Place> places;
  for (const CatalogueLayer& layer : layers) {
    for (const Entry& entry : layer.*section) {
      const auto [place, is_new] = places.try_emplace(key_of(entry), Place{entries.size(), &layer});
      if (is_new || place->second.layer == &layer) {
        entries.push_back(entry);
      } else {
        entries[place->second.index] = entry;
        place->second.layer = &layer;
      }
    }
  }
  return entries;
}

// Of each key the profiles of the last layer that has it.
std::vector<ProfileEntry> OverlayMatchProfiles(const std::vector<CatalogueLayer>& layers) {
  std::map<unsigned int, const CatalogueLayer*> last;
  for (const CatalogueLayer& layer : layers) {
    for (const ProfileEntry& profile : layer.match_profiles) {
      last[profile.key] = &layer;
    }
  }
  std::vector<ProfileEntry> profiles;
  for (const CatalogueLayer& layer : layers) {
    for (const ProfileEntry& profile : layer.match_profiles) {
      if (last[profile.key] == &layer) {
        profiles.push_back(profile);
      }
    }
  }
  return profiles;
}

void OverrideSettings(Catalogue& catalogue, const CatalogueLayer& layer) {
  if (layer.key_ability_code) {
    catalogue.key_ability_code = *layer.key_ability_code;
    catalogue.key_ability_code_position = layer.key_ability_code_position;
  }
  catalogue.sfu_common_type = layer.sfu_common_type.value_or(catalogue.sfu_common_type);
  catalogue.hgu_common_type = layer.hgu_common_type.value_or(catalogue.hgu_common_type);
}

}  // namespace

CatalogueDocument OpenCatalogue(const std::string& file, const CatalogueNeeds& needs) {
  const std::string text = ReadYaml(file);
  const YamlView view = ParseYaml(file, text, "a catalogue");
  const YamlMap root = view.Map({"catalogue", "key_ability_code", "common_types", "attributes",
                                 "codes", "real_profiles", "match_profiles"});
  CatalogueDocument document;
  document.layer.file = file;
  document.layer.sha256 = Sha256(text);
  document.layer.position = view.Position();
  if (const auto header = root.Find("catalogue")) {
    ReadHeader(*header, document.layer);
  } else if (needs.header) {
    root.Get("catalogue", "a map with name and version");
  }
  ReadSettings(root, document.layer);
  document.attributes = ReadSection(root, "attributes", "an attribute", needs.attributes);
  document.codes = ReadSection(root, "codes", "a code", needs.codes);
  document.real_profiles = ReadSection(root, "real_profiles", "a real profile", false);
  document.match_profiles = ReadSection(root, "match_profiles", "a match profile", false);
  return document;
}

Catalogue MergeDefinitions(const std::vector<CatalogueLayer>& layers) {
  Catalogue catalogue;
  catalogue.name = "none";
  bool has_header = false;
  if (!layers.empty()) {
    catalogue.position = layers.front().position;
    catalogue.key_ability_code_position = layers.front().position;
  }
  for (const CatalogueLayer& layer : layers) {
    if (layer.has_header && !has_header) {
      has_header = true;
      catalogue.name = layer.name;
      catalogue.version = layer.version;
    }
    OverrideSettings(catalogue, layer);
  }
  catalogue.attributes =
      Overlay(layers, &CatalogueLayer::attributes, [](const auto& entry) { return entry.id; });
  catalogue.codes =
      Overlay(layers, &CatalogueLayer::codes, [](const auto& entry) { return entry.code; });
  return catalogue;
}

Catalogue MergeLayers(const std::vector<CatalogueLayer>& layers) {
  Catalogue catalogue = MergeDefinitions(layers);
  catalogue.real_profiles =
      Overlay(layers, &CatalogueLayer::real_profiles, [](const auto& entry) { return entry.key; });
  catalogue.match_profiles = OverlayMatchProfiles(layers);
  return catalogue;
}

}  // namespace olt_host
