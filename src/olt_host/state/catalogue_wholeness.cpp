#include "state/catalogue_wholeness.h"

#include <optional>
#include <utility>
#include <vector>

#include "catalogue/catalogue_checks.h"
#include "catalogue/catalogue_layer.h"
#include "catalogue/entry_reader.h"
#include "state/state_file.h"

namespace olt_host {

namespace {

// The attributes and codes of all files, read as strictly as can be.
class DefinitionReader {
 public:
  // Throws InputError for what is wrong with one, or when the file is another one now.
  void Take(const CatalogueFile& file) {
    const CatalogueDocument document = OpenCatalogue(file.file, {false, false, false});
    if (document.layer.sha256 != file.sha256) {
      throw InputError({file.file, 0}, "has changed since it was read", "the same file");
    }
    _layers.push_back(document.layer);
    for (const YamlView& item : document.attributes) {
      Add(_layers.back().attributes, ReadAttribute(item));
    }
    const Catalogue with_attributes = MergeDefinitions(_layers);
    CheckAttributes(with_attributes);
    const RefusedNames none;
    for (const YamlView& item : document.codes) {
      Add(_layers.back().codes, ReadCode(item, {with_attributes, none, none}));
    }
    CheckCodes(MergeDefinitions(_layers));
  }

 private:
  template <typename Entry>
  void Add(std::vector<Entry>& entries, Entry entry) {
    entry.order = ++_order;
    entries.push_back(std::move(entry));
  }

  std::vector<CatalogueLayer> _layers;
  unsigned int _order = 0;
};

bool HasAllDefinitions(const LoadedCatalogue& loaded) {
  try {
    DefinitionReader reader;
    for (const CatalogueFile& file : loaded.files) reader.Take(file);
    return true;
  } catch (const InputError&) {
    return false;
  }
}

}  // namespace

void RequireWholeCatalogue(const LoadedCatalogue& loaded) {
  // Its files may be edited while it stays loaded.
  static std::optional<std::pair<std::chrono::system_clock::time_point, bool>> last;
  const char* const expected = "; expected a catalogue that is taken whole";
  if (!loaded.refused_files.empty()) {
    throw StateError("the catalogue was taken without some of its files" + std::string(expected));
  }
  if (loaded.refused_entries == 0) return;
  if (!last || last->first != loaded.read_at) last = {loaded.read_at, HasAllDefinitions(loaded)};
  if (!last->second) {
    throw StateError("the catalogue was taken without some of its attributes or codes" +
                     std::string(expected));
  }
}

}  // namespace olt_host
