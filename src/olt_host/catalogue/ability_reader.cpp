#include "catalogue/ability_reader.h"

#include <map>

#include "catalogue/nearest_name.h"

namespace olt_host {

namespace {

[[noreturn]] void FailUndefined(const YamlView& key, const std::string& text,
                                const Catalogue& catalogue, const RefusedNames* refused) {
  const std::string name = key.LooksLikeNumber() ? std::to_string(key.Number16(0, 65534)) : text;
  if (refused != nullptr && refused->count(name) != 0) {
    key.FailUnknown(
        "code " + text + " was refused in " + RelativeText(refused->at(name), key.Position()),
        "a code that is taken");
  }
  std::vector<std::string> names;
  for (const CodeEntry& entry : catalogue.codes) {
    names.push_back(entry.name);
  }
  const std::string nearest = key.LooksLikeNumber() ? "" : NearestName(text, names);
  key.FailUnknown("code " + text + " is not defined",
                  nearest.empty() ? "a code that is defined under codes" : Quoted(nearest));
}

CodeEntry ResolveCode(const YamlView& key, const std::string& text, const Catalogue& catalogue,
                      const AbilityRules& rules) {
  const CodeEntry* code =
      key.LooksLikeNumber() ? catalogue.FindCode(key.Number16(0, 65534)) : catalogue.FindCode(text);
  if (code == nullptr && rules.unknown_codes_allowed && key.LooksLikeNumber()) {
    CodeEntry unknown;
    unknown.code = key.Number16(0, 65534);
    unknown.name = "not defined";
    return unknown;
  }
  if (code == nullptr) {
    FailUndefined(key, text, catalogue, rules.refused_codes);
  }
  if (!IsDefinedAbove(code->position, key.Position())) {
    key.Fail("code " + text + " is used before its definition in line " +
                 std::to_string(code->position.line),
             "codes above everything that uses them");
  }
  return *code;
}

// Nothing behind the colon may mean any of three things.
[[noreturn]] void FailEmpty(const YamlView& value, const CodeEntry& code,
                            const AbilityRules& rules) {
  const std::string a_value = code.HoldsText() ? "a text" : "a number";
  if (!rules.texts_allowed) {
    value.FailValue("a number, any (told as unknown) or no entry (not told)");
  }
  value.FailValue(rules.any_allowed
                      ? a_value + ", any (fits every value) or no entry (not compared)"
                      : a_value + (code.HoldsText() ? ", \"\" (an empty one)" : ", 0 (none)") +
                            " or no entry (not known)");
}

std::string ReadText(const YamlView& value, const CodeEntry& code, const AbilityRules& rules) {
  std::string text;
  if (code.code == kVendorIdCode) {
    text = value.TextUpTo(kVendorIdBytes);
  } else if (code.code == kTypeNameCode) {
    text = value.TextUpTo(kTypeNameBytes);
  } else {
    text = value.Text();
  }
  // The library takes an empty text in a pattern for the wildcard.
  if (text.empty() && rules.any_allowed) {
    value.Fail(value.Name() + " is an empty text, which no pattern can ask for",
               "a text, any (fits every value) or no entry (not compared)");
  }
  return text;
}

AbilityEntry ReadAbility(const YamlView& value, const CodeEntry& code, const AbilityRules& rules) {
  AbilityEntry ability;
  ability.code = code.code;
  ability.holds_text = code.HoldsText();
  ability.position = value.Position();
  if (code.HoldsText() && !rules.texts_allowed) {
    value.Fail(value.Name() + " holds a text", "a code that holds a number");
  }
  if (value.IsEmpty()) {
    FailEmpty(value, code, rules);
  }
  if (value.IsWord("any")) {
    if (!rules.any_allowed) {
      value.Fail(value.Name() + " is any in a real profile",
                 std::string("a ") + (code.HoldsText() ? "text" : "number") +
                     "; only match profiles take any");
    }
    ability.kind = AbilityKind::kAny;
  } else if (code.HoldsText()) {
    ability.kind = AbilityKind::kText;
    ability.text = ReadText(value, code, rules);
  } else {
    ability.number = value.Number(0, kAnyNumber, rules.any_allowed ? ", or any" : "");
  }
  return ability;
}

}  // namespace

bool IsDefinedAbove(const SourcePosition& definition, const SourcePosition& use) {
  return definition.file != use.file || definition.line <= use.line;
}

std::vector<AbilityEntry> ReadAbilities(const YamlView& abilities, const Catalogue& catalogue,
                                        const AbilityRules& rules) {
  std::vector<AbilityEntry> result;
  std::map<std::uint16_t, unsigned int> seen;
  for (const auto& [key, value] : abilities.Entries("a map of codes and values")) {
    const CodeEntry code = ResolveCode(key, value.Name(), catalogue, rules);
    const auto [earlier, is_new] = seen.emplace(code.code, key.Position().line);
    if (!is_new) {
      key.Fail("code " + std::to_string(code.code) + " (" + code.name +
                   ") stands twice, first in line " + std::to_string(earlier->second),
               "every code once");
    }
    result.push_back(ReadAbility(value, code, rules));
  }
  return result;
}

}  // namespace olt_host
