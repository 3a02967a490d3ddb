#include "catalogue/entry_reader.h"

#include "catalogue/nearest_name.h"

namespace olt_host {

namespace {

// A name that also works where a number may stand in its place.
std::string ReadName(const YamlView& value) {
  std::string name = value.Text("a name");
  if (name.empty() || name.find_first_not_of("0123456789") == std::string::npos ||
      name.find_first_of(" \t") != std::string::npos) {
    value.FailValue("a name of one word that is no number");
  }
  return name;
}

const AttributeEntry& ResolveAttribute(const YamlView& key, const std::string& text,
                                       const KnownEntries& known) {
  const Catalogue& catalogue = known.catalogue;
  const AttributeEntry* attribute = key.LooksLikeNumber()
                                        ? catalogue.FindAttribute(key.Number16(1, 65535))
                                        : catalogue.FindAttribute(text);
  if (attribute == nullptr) {
    const auto refused = known.refused_attributes.find(text);
    if (refused != known.refused_attributes.end()) {
      key.FailUnknown(
          "attribute " + text + " was refused in " + RelativeText(refused->second, key.Position()),
          "an attribute that is taken");
    }
    std::vector<std::string> names;
    for (const AttributeEntry& entry : catalogue.attributes) {
      names.push_back(entry.name);
    }
    key.FailUnknown("attribute " + text + " is not defined", ExpectedName(text, names));
  }
  if (!IsDefinedAbove(attribute->position, key.Position())) {
    key.Fail("attribute " + text + " is used before its definition in line " +
                 std::to_string(attribute->position.line),
             "attributes above everything that uses them");
  }
  return *attribute;
}

std::uint16_t ReadAttributeValue(const YamlView& value, std::uint16_t attribute_id) {
  if (attribute_id != kValueTypeAttribute) {
    return value.Number16(0, 65534);
  }
  if (value.IsWord("number")) {
    return kNumberValueType;
  }
  if (value.IsWord("string")) {
    return kTextValueType;
  }
  if (!value.LooksLikeNumber() || (value.Number(0, kAnyNumber) != kNumberValueType &&
                                   value.Number(0, kAnyNumber) != kTextValueType)) {
    value.FailValue("number (2) or string (3)");
  }
  return value.Number16(kNumberValueType, kTextValueType);
}

ProfileEntry ReadProfile(const YamlView& item, const KnownEntries& known, bool any_allowed) {
  const YamlMap map = item.Map({"key", "id", "source", "abilities"});
  ProfileEntry profile;
  profile.position = item.Position();
  profile.key = map.Get("key", "a number from 1 to 4294967294").Number(1, kAnyNumber - 1);
  if (const auto id = map.Find("id")) {
    profile.id = id->Number16(1, 65534);
  }
  if (const auto source = map.Find("source")) {
    profile.source = source->Text();
  }
  AbilityRules rules;
  rules.any_allowed = any_allowed;
  rules.refused_codes = &known.refused_codes;
  profile.abilities =
      ReadAbilities(map.Get("abilities", "a map of codes and values"), known.catalogue, rules);
  return profile;
}

}  // namespace

AttributeEntry ReadAttribute(const YamlView& item) {
  const YamlMap map = item.Map({"id", "name"});
  AttributeEntry attribute;
  attribute.position = item.Position();
  attribute.id = map.Get("id", "a number from 1 to 65535").Number16(1, 65535);
  attribute.name = ReadName(map.Get("name", "a name"));
  return attribute;
}

CodeEntry ReadCode(const YamlView& item, const KnownEntries& known) {
  const YamlMap map = item.Map({"code", "name", "attributes", "help"});
  CodeEntry code;
  code.position = item.Position();
  code.code = map.Get("code", "a number from 0 to 65534").Number16(0, 65534);
  code.name = ReadName(map.Get("name", "a name"));
  if (const auto help = map.Find("help")) {
    code.help = help->Text();
  }
  if (const auto attributes = map.Find("attributes")) {
    for (const auto& [key, value] : attributes->Entries("a map of attributes and values")) {
      const AttributeEntry& attribute = ResolveAttribute(key, value.Name(), known);
      if (code.attributes.count(attribute.id) != 0) {
        key.Fail(
            "attribute " + std::to_string(attribute.id) + " (" + attribute.name + ") stands twice",
            "every attribute once");
      }
      code.attributes[attribute.id] = ReadAttributeValue(value, attribute.id);
    }
  }
  return code;
}

ProfileEntry ReadRealProfile(const YamlView& item, const KnownEntries& known) {
  return ReadProfile(item, known, false);
}

ProfileEntry ReadMatchProfile(const YamlView& item, const KnownEntries& known) {
  return ReadProfile(item, known, true);
}

}  // namespace olt_host
