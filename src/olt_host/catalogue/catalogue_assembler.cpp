#include "catalogue/catalogue_assembler.h"

#include <algorithm>
#include <set>

#include "catalogue/entry_reader.h"

namespace olt_host {

namespace {

// Names and number under which others may refer to the entry.
void Remember(RefusedNames& names, const AttributeEntry& entry) {
  names.emplace(entry.name, entry.position);
  names.emplace(std::to_string(entry.id), entry.position);
}

void Remember(RefusedNames& names, const CodeEntry& entry) {
  names.emplace(entry.name, entry.position);
  names.emplace(std::to_string(entry.code), entry.position);
}

// The same for an entry that could not be read.
void RememberUnread(RefusedNames& names, const YamlView& item) {
  for (const char* key : {"name", "id", "code"}) {
    const std::string text = item.ScalarOf(key);
    if (!text.empty()) {
      names.emplace(text, item.Position());
    }
  }
}

template <typename Entry>
void Drop(std::vector<Entry>& entries, const std::vector<unsigned int>& orders,
          RefusedNames* names) {
  const auto is_dropped = [&](const Entry& entry) {
    return std::find(orders.begin(), orders.end(), entry.order) != orders.end();
  };
  if constexpr (!std::is_same_v<Entry, ProfileEntry>) {
    for (const Entry& entry : entries) {
      if (is_dropped(entry)) {
        Remember(*names, entry);
      }
    }
  }
  entries.erase(std::remove_if(entries.begin(), entries.end(), is_dropped), entries.end());
}

}  // namespace

void CatalogueAssembler::Take(const std::string& file) {
  const std::size_t layers = _layers.size();
  try {
    TakeLayer(file);
  } catch (const InputError& error) {
    RefuseFile(error);
    _layers.resize(layers);
    _merged = MergeDefinitions(_layers);
  }
  _is_first = false;
}

void CatalogueAssembler::RefuseFile(const InputError& error) {
  Refuse(error);
  _refused_files.emplace_back(error.what());
}

void CatalogueAssembler::Refuse(const InputError& error) {
  if (!_keep_going) {
    throw InputError(error);
  }
  _refusals.Add(error);
}

void CatalogueAssembler::Finish() {
  _first_order = 1;
  Settle(MergeLayers, CheckProfiles);
}

void CatalogueAssembler::TakeLayer(const std::string& file) {
  CatalogueNeeds needs;
  needs.header = _is_first;
  needs.attributes = _merged.attributes.empty();
  needs.codes = _merged.codes.empty();
  const CatalogueDocument document = OpenCatalogue(file, needs);
  _first_order = _order + 1;
  _layers.push_back(document.layer);
  const KnownEntries known{_merged, _refused_attributes, _refused_codes};
  ReadEntries(document.attributes, &CatalogueLayer::attributes, &_refused_attributes,
              ReadAttribute);
  Settle(MergeDefinitions, CheckAttributes);
  ReadEntries(document.codes, &CatalogueLayer::codes, &_refused_codes,
              [&](const YamlView& item) { return ReadCode(item, known); });
  Settle(MergeDefinitions, CheckCodes);
  ReadEntries(document.real_profiles, &CatalogueLayer::real_profiles, nullptr,
              [&](const YamlView& item) { return ReadRealProfile(item, known); });
  ReadEntries(document.match_profiles, &CatalogueLayer::match_profiles, nullptr,
              [&](const YamlView& item) { return ReadMatchProfile(item, known); });
}

template <typename Entry, typename Read>
void CatalogueAssembler::ReadEntries(const std::vector<YamlView>& items,
                                     std::vector<Entry> CatalogueLayer::*entries,
                                     RefusedNames* refused_names, Read read) {
  for (const YamlView& item : items) {
    try {
      Entry entry = read(item);
      entry.order = ++_order;
      (_layers.back().*entries).push_back(std::move(entry));
    } catch (const InputError& error) {
      Refuse(error);
      if (refused_names != nullptr) {
        _has_unread_definitions = true;
        RememberUnread(*refused_names, item);
      }
    }
  }
}

// Merges anew until no entry breaks a rule: one that is left out may give back
// the earlier one that it overrode. Entries before _first_order were settled; when
// one of them breaks a rule now, the file taken last is at fault as a whole.
void CatalogueAssembler::Settle(Merge merge, Check check) {
  std::vector<unsigned int> refused;
  do {
    refused.clear();
    _merged = merge(_layers);
    check(_merged, [&](unsigned int order, const InputError& error) {
      if (!_keep_going || order < _first_order) {
        throw InputError(error);
      }
      if (std::find(refused.begin(), refused.end(), order) == refused.end()) {
        refused.push_back(order);
        _refusals.Add(error);
      }
    });
    DropEntries(refused);
  } while (!refused.empty());
}

void CatalogueAssembler::DropEntries(const std::vector<unsigned int>& orders) {
  for (CatalogueLayer& layer : _layers) {
    Drop(layer.attributes, orders, &_refused_attributes);
    Drop(layer.codes, orders, &_refused_codes);
    Drop(layer.real_profiles, orders, nullptr);
    Drop(layer.match_profiles, orders, nullptr);
  }
}

}  // namespace olt_host
