#include "catalogue/catalogue_reader.h"

#include "catalogue/ability_reader.h"
#include "catalogue/catalogue_checks.h"
#include "catalogue/nearest_name.h"
#include "catalogue/yaml_document.h"

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

void ReadHeader(const YamlMap& root, Catalogue& catalogue) {
  const YamlMap header = root.Get("catalogue", "a map with name and version")
                             .Named("the catalogue header")
                             .Map({"name", "version"});
  catalogue.name = header.Get("name", "a text").Text();
  catalogue.version = header.Get("version", "a text").Text();
  if (const auto types = root.Find("common_types")) {
    const YamlMap map = types->Map({"sfu", "hgu"});
    if (const auto sfu = map.Find("sfu")) {
      catalogue.sfu_common_type = sfu->Number16(0, 65535);
    }
    if (const auto hgu = map.Find("hgu")) {
      catalogue.hgu_common_type = hgu->Number16(0, 65535);
    }
  }
}

AttributeEntry ReadAttribute(const YamlView& item) {
  const YamlMap map = item.Map({"id", "name"});
  AttributeEntry attribute;
  attribute.position = item.Position();
  attribute.id = map.Get("id", "a number from 1 to 65535").Number16(1, 65535);
  attribute.name = ReadName(map.Get("name", "a name"));
  return attribute;
}

const AttributeEntry& ResolveAttribute(const YamlView& key, const std::string& text,
                                       const Catalogue& catalogue) {
  const AttributeEntry* attribute = key.LooksLikeNumber()
                                        ? catalogue.FindAttribute(key.Number16(1, 65535))
                                        : catalogue.FindAttribute(text);
  if (attribute == nullptr) {
    std::vector<std::string> names;
    for (const AttributeEntry& entry : catalogue.attributes) {
      names.push_back(entry.name);
    }
    key.Fail("attribute " + text + " is not defined", ExpectedName(text, names));
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

CodeEntry ReadCode(const YamlView& item, const Catalogue& catalogue) {
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
      const AttributeEntry& attribute = ResolveAttribute(key, value.Name(), catalogue);
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

ProfileEntry ReadProfile(const YamlView& item, const Catalogue& catalogue, bool any_allowed) {
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
  profile.abilities =
      ReadAbilities(map.Get("abilities", "a map of codes and values"), catalogue, rules);
  return profile;
}

std::vector<ProfileEntry> ReadProfiles(const YamlMap& root, const Catalogue& catalogue,
                                       const std::string& section, const std::string& item_name,
                                       bool any_allowed) {
  std::vector<ProfileEntry> profiles;
  if (const auto list = root.Find(section)) {
    for (const YamlView& item : list->Items(item_name)) {
      profiles.push_back(ReadProfile(item, catalogue, any_allowed));
    }
  }
  return profiles;
}

}  // namespace

Catalogue ReadCatalogue(const std::string& file) {
  const YamlView document = OpenYaml(file, "a catalogue");
  const YamlMap root = document.Map({"catalogue", "key_ability_code", "common_types", "attributes",
                                     "codes", "real_profiles", "match_profiles"});
  Catalogue catalogue;
  catalogue.position = document.Position();
  catalogue.key_ability_code_position = document.Position();
  ReadHeader(root, catalogue);
  if (const auto key_code = root.Find("key_ability_code")) {
    catalogue.key_ability_code = key_code->Number16(0, 65534);
    catalogue.key_ability_code_position = key_code->Position();
  }
  for (const YamlView& item :
       root.Get("attributes", "a list of attributes").Items("an attribute")) {
    catalogue.attributes.push_back(ReadAttribute(item));
  }
  CheckAttributes(catalogue);
  for (const YamlView& item : root.Get("codes", "a list of codes").Items("a code")) {
    catalogue.codes.push_back(ReadCode(item, catalogue));
  }
  CheckCodes(catalogue);
  catalogue.real_profiles = ReadProfiles(root, catalogue, "real_profiles", "a real profile", false);
  catalogue.match_profiles =
      ReadProfiles(root, catalogue, "match_profiles", "a match profile", true);
  CheckProfiles(catalogue);
  return catalogue;
}

}  // namespace olt_host
