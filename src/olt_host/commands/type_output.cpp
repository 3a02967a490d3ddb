#include "commands/type_output.h"

#include <optional>

#include "commands/text_table.h"
#include "recognition/ability_reading.h"
#include "recognition/type_comparison.h"
#include "recognition/type_expression.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;
using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

struct Answer {
  std::vector<RealType> types;
  std::size_t all = 0;
  std::vector<NamedAbility> abilities;  // that were asked about
};

Answer Ask(const std::string& expression) {
  const AbilityNames names;
  std::optional<TypeExpression> condition;
  Answer answer;
  if (!expression.empty()) {
    condition.emplace(expression, names);
    answer.abilities = condition->abilities();
  }
  for (RealType& type : RealTypes()) {
    ++answer.all;
    if (!condition || condition->Holds(type.profile)) answer.types.push_back(std::move(type));
  }
  return answer;
}

std::string TextOf(const NamedAbility& ability, const Value* value) {
  const bool is_text = value == nullptr
                           ? ability.holds_text
                           : value->ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING;
  if (is_text) return value == nullptr ? "-" : "\"" + value->ability_string_value + "\"";
  const std::uint32_t number = value == nullptr ? 0 : value->ability_ushort_value;
  if (ability.code == ONU_ABILITY_CODE_ONU_CAPA && number <= 1) return number == 1 ? "hgu" : "sfu";
  return std::to_string(number);
}

Json JsonOf(const NamedAbility& ability, const Value* value) {
  if (value == nullptr) return ability.holds_text ? Json(nullptr) : Json(0);
  if (value->ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING) {
    return value->ability_string_value;
  }
  return value->ability_ushort_value;
}

std::string RealText(const RealType& type) {
  return type.Real() == 0 ? "-" : std::to_string(type.Real());
}

std::string NameText(const RealType& type) { return type.Name().empty() ? "-" : type.Name(); }

Json TypeJson(const RealType& type) {
  return {{"key", type.Key()},
          {"real_type", type.Real() == 0 ? Json(nullptr) : Json(type.Real())},
          {"type_name", type.Name().empty() ? Json(nullptr) : Json(type.Name())},
          {"source", type.Source()},
          {"id", type.profile._id},
          {"hidden", type.hidden}};
}

// More columns than a screen has room for would cut the names of types.
std::vector<NamedAbility> ShownAbilities(const std::vector<NamedAbility>& abilities) {
  constexpr std::size_t kRoom = 32;
  std::vector<NamedAbility> shown;
  std::size_t width = 0;
  for (const NamedAbility& ability : abilities) {
    const bool has_column =
        ability.code == ONU_ABILITY_CODE_TYPE_NAME || ability.code == ONU_ABILITY_CODE_REAL_TYPE;
    if (has_column) continue;
    width += ability.name.size() + 2;
    if (width <= kRoom) shown.push_back(ability);
  }
  return shown;
}

void WriteTypeRows(struct vty& terminal, const Answer& answer) {
  const std::vector<NamedAbility> abilities = ShownAbilities(answer.abilities);
  std::vector<std::pair<std::string, Align>> columns = {{"Key", Align::kRight},
                                                        {"Real", Align::kRight},
                                                        {"Type name", Align::kLeft},
                                                        {"From", Align::kLeft}};
  for (const NamedAbility& ability : abilities) {
    columns.emplace_back(ability.name, ability.holds_text ? Align::kLeft : Align::kRight);
  }
  TextTable table(columns);
  for (const RealType& type : answer.types) {
    TextTable::Row row = {std::to_string(type.Key()), RealText(type), NameText(type),
                          std::string(type.Source()) + (type.hidden ? "*" : "")};
    for (const NamedAbility& ability : abilities) {
      row.push_back(TextOf(ability, HeldUnder(type.profile, ability.code)));
    }
    table.Add(row);
  }
  table.Write(terminal);
}

// "A  key 1001, real type 1001, EDGG11000, shipped".
std::string TypeText(const RealType& type) {
  std::string text = "key " + std::to_string(type.Key()) + ", real type " + RealText(type);
  if (!type.Name().empty()) text += ", \"" + type.Name() + "\"";
  text += std::string(", ") + type.Source();
  return type.hidden ? text + ", hidden by a newer type" : text;
}

struct Comparison {
  RealType a;
  RealType b;
  std::vector<AbilityDifference> abilities;
};

// REQUIRES: the result is not copied; its abilities point into its types.
void Compare(const std::string& a, const std::string& b, Comparison& comparison) {
  const std::vector<RealType> types = RealTypes();
  comparison.a = FindType(types, a);
  comparison.b = FindType(types, b);
  comparison.abilities = CompareTypes(comparison.a, comparison.b, AbilityNames());
}

void WriteAlike(struct vty& terminal, const std::vector<AbilityDifference>& abilities) {
  std::string alike;
  std::size_t count = 0;
  for (const AbilityDifference& ability : abilities) {
    if (!ability.same) continue;
    ++count;
    alike += (alike.empty() ? "" : ", ") + ability.ability.name + " " +
             TextOf(ability.ability, ability.a != nullptr ? ability.a : ability.b);
  }
  if (count == 0) return;
  const std::string lines = "\r\n" + Wrap("Alike in " + std::to_string(count) + ": ", alike, 2);
  terminal.Write(lines.data(), lines.size());
}

}  // namespace

void WriteTypes(struct vty& terminal, const std::string& expression) {
  const Answer answer = Ask(expression);
  if (!answer.types.empty()) WriteTypeRows(terminal, answer);
  std::string last = (answer.types.empty() ? "" : "\n") + std::to_string(answer.types.size()) +
                     " of " + std::to_string(answer.all) + " types\n";
  for (const RealType& type : answer.types) {
    if (type.hidden) {
      last += "* hidden: a newer type has the same key, and queries read that one\n";
      break;
    }
  }
  WriteLines(terminal, last);
}

Json TypesJson(const std::string& expression) {
  const Answer answer = Ask(expression);
  Json types = Json::array();
  for (const RealType& type : answer.types) {
    Json entry = TypeJson(type);
    Json abilities = Json::object();
    for (const NamedAbility& ability : answer.abilities) {
      abilities[ability.name] = JsonOf(ability, HeldUnder(type.profile, ability.code));
    }
    entry["abilities"] = abilities;
    types.push_back(entry);
  }
  return {{"where", expression.empty() ? Json(nullptr) : Json(expression)},
          {"count", answer.types.size()},
          {"of", answer.all},
          {"types", types}};
}

void WriteTypeComparison(struct vty& terminal, const std::string& a, const std::string& b) {
  Comparison comparison;
  Compare(a, b, comparison);
  WritePairs(terminal, {{"A", TypeText(comparison.a)}, {"B", TypeText(comparison.b)}});
  WriteLines(terminal, "\n");
  TextTable table({{"Code", Align::kRight},
                   {"Ability", Align::kLeft},
                   {"A", Align::kLeft},
                   {"B", Align::kLeft}});
  bool differs = false;
  for (const AbilityDifference& ability : comparison.abilities) {
    if (ability.same) continue;
    differs = true;
    table.Add({std::to_string(ability.ability.code), ability.ability.name,
               TextOf(ability.ability, ability.a), TextOf(ability.ability, ability.b)});
  }
  if (differs) {
    table.Write(terminal);
  } else {
    WriteLines(terminal, "They differ in nothing\n");
  }
  WriteAlike(terminal, comparison.abilities);
}

Json TypeComparisonJson(const std::string& a, const std::string& b) {
  Comparison comparison;
  Compare(a, b, comparison);
  Json abilities = Json::array();
  for (const AbilityDifference& ability : comparison.abilities) {
    abilities.push_back({{"code", ability.ability.code},
                         {"name", ability.ability.name},
                         {"a", JsonOf(ability.ability, ability.a)},
                         {"b", JsonOf(ability.ability, ability.b)},
                         {"same", ability.same}});
  }
  return {{"a", TypeJson(comparison.a)}, {"b", TypeJson(comparison.b)}, {"abilities", abilities}};
}

}  // namespace olt_host
