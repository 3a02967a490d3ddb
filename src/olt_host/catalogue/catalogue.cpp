#include "catalogue/catalogue.h"

#include <algorithm>

namespace olt_host {

namespace {

template <typename Entry, typename Predicate>
const Entry* FindEntry(const std::vector<Entry>& entries, Predicate predicate) {
  const auto found = std::find_if(entries.begin(), entries.end(), predicate);
  return found == entries.end() ? nullptr : &*found;
}

}  // namespace

std::string NameAndVersion(const std::string& name, const std::string& version) {
  return version.empty() ? name : name + ", version " + version;
}

std::uint16_t CodeEntry::Attribute(std::uint16_t id) const {
  const auto found = attributes.find(id);
  if (found != attributes.end()) {
    return found->second;
  }
  return id == kValueTypeAttribute ? kNumberValueType : 0;
}

bool CodeEntry::HoldsText() const { return Attribute(kValueTypeAttribute) == kTextValueType; }

const AttributeEntry* Catalogue::FindAttribute(std::uint16_t id) const {
  return FindEntry(attributes, [&](const AttributeEntry& entry) { return entry.id == id; });
}

const AttributeEntry* Catalogue::FindAttribute(const std::string& attribute_name) const {
  return FindEntry(attributes,
                   [&](const AttributeEntry& entry) { return entry.name == attribute_name; });
}

const CodeEntry* Catalogue::FindCode(std::uint16_t code) const {
  return FindEntry(codes, [&](const CodeEntry& entry) { return entry.code == code; });
}

const CodeEntry* Catalogue::FindCode(const std::string& code_name) const {
  return FindEntry(codes, [&](const CodeEntry& entry) { return entry.name == code_name; });
}

}  // namespace olt_host
