#include "recognition/ability_names.h"

#include <algorithm>
#include <functional>

#include "catalogue/catalogue.h"
#include "catalogue/input_error.h"
#include "catalogue/nearest_name.h"
#include "onu_ability_common_table.h"
#include "recognition/letter_case.h"
#include "text/number.h"

namespace olt_host {

namespace {

bool BeginsWith(const std::string& text, const std::string& beginning) {
  return text.compare(0, beginning.size(), beginning) == 0;
}

// "ge" begins GE_PORTS with a whole word, GE10_PORTS not.
bool BeginsWithWords(const std::string& text, const std::string& words) {
  return BeginsWith(text, words) && text.size() > words.size() && text[words.size()] == '_';
}

bool HoldsText(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  const auto type = record.ability_attr.find(ONU_ABILITY_ATTR_VALUE_TYPE);
  return type != record.ability_attr.end() && type->second == kTextValueType;
}

// The code that a text of digits states; false for any other text.
bool ReadCode(const std::string& text, std::uint16_t& code) {
  unsigned int number = 0;
  if (!ReadNumber(text, number) || number > 0xFFFF) return false;
  code = static_cast<std::uint16_t>(number);
  return true;
}

}  // namespace

const std::vector<std::pair<std::string, std::uint16_t>>& AbilityNames::ShortWords() {
  static const std::vector<std::pair<std::string, std::uint16_t>> words = {
      {"lan", ONU_ABILITY_CODE_ALL_LAN},       {"uni", ONU_ABILITY_CODE_DATA_UNI},
      {"capa", ONU_ABILITY_CODE_ONU_CAPA},     {"vendor", ONU_ABILITY_CODE_VENDOR_ID},
      {"name", ONU_ABILITY_CODE_TYPE_NAME},    {"real", ONU_ABILITY_CODE_REAL_TYPE},
      {"report", ONU_ABILITY_CODE_REPORT_TYPE}};
  return words;
}

AbilityNames::AbilityNames() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    _abilities.push_back({record.ability_code, record.ability_name, HoldsText(record)});
  }
}

const NamedAbility* AbilityNames::Find(std::uint16_t code) const {
  const auto found =
      std::find_if(_abilities.begin(), _abilities.end(),
                   [code](const NamedAbility& ability) { return ability.code == code; });
  return found == _abilities.end() ? nullptr : &*found;
}

// The closest kind of call that fits any ability counts.
std::vector<const NamedAbility*> AbilityNames::Called(const std::string& text) const {
  const std::string wanted = LowerCase(text);
  using Rule = std::function<bool(const NamedAbility&)>;
  const auto is_short_word = [&wanted](const NamedAbility& ability) {
    const auto& words = ShortWords();
    return std::find(words.begin(), words.end(), std::pair(wanted, ability.code)) != words.end();
  };
  const Rule rules[] = {
      [&text](const NamedAbility& ability) { return ability.name == text; },
      [&wanted](const NamedAbility& ability) { return LowerCase(ability.name) == wanted; },
      is_short_word,
      [&wanted](const NamedAbility& ability) {
        return BeginsWithWords(LowerCase(ability.name), wanted);
      },
      [&wanted](const NamedAbility& ability) {
        return BeginsWith(LowerCase(ability.name), wanted);
      },
  };
  std::vector<const NamedAbility*> called;
  for (const Rule& rule : rules) {
    for (const NamedAbility& ability : _abilities) {
      if (rule(ability)) called.push_back(&ability);
    }
    if (!called.empty()) break;
  }
  return called;
}

const NamedAbility* AbilityNames::Find(const std::string& text, std::string& problem,
                                       std::string& expectation) const {
  std::uint16_t code = 0;
  if (ReadCode(text, code)) {
    const NamedAbility* ability = Find(code);
    problem = "there is no ability code " + text;
    expectation = "a code that \"show ability code\" lists";
    return ability;
  }
  const std::vector<const NamedAbility*> called =
      text.empty() ? std::vector<const NamedAbility*>() : Called(text);
  if (called.size() == 1) return called.front();
  if (called.empty()) {
    std::vector<std::string> names;
    for (const auto& [word, word_code] : ShortWords()) names.push_back(word);
    for (const NamedAbility& ability : _abilities) names.push_back(ability.name);
    const std::string nearest = NearestName(text, names);
    problem = Quoted(text) + " is no ability";
    expectation = nearest.empty() ? "a name that \"show ability code\" lists" : Quoted(nearest);
    return nullptr;
  }
  problem = Quoted(text) + " may be ";
  for (const NamedAbility* ability : called) {
    problem += (ability == called.front() ? "" : ", ") + ability->name;
  }
  expectation = "more of the name";
  return nullptr;
}

}  // namespace olt_host
