#include "recognition/fit_index.h"

#include <algorithm>
#include <utility>

#include "recognition/pattern_comparison.h"

namespace olt_host {

namespace {

// So many verdicts are cheaper to ask for at once than one by one.
constexpr std::size_t kFewValues = 32;

enum Verdict : char { kNotAsked, kFits, kDoesNotFit };

OnuAbilityProfile MakePattern() {
  OnuAbilityProfile pattern;
  pattern.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  // The library gives a pattern its entry for the key code before it looks at a value.
  pattern._common_ability.try_emplace(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode());
  return pattern;
}

OnuAbilityProfile MakeReport(std::uint16_t code, const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
              ONU_ABILITY_MATCH_TYPE_PATTERN);
  report._common_ability[code] = value;
  return report;
}

}  // namespace

FitIndex::FitIndex(const std::vector<OnuAbilityProfile>& patterns) : _patterns(patterns) {
  const std::uint16_t key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  for (OnuAbilityProfile& pattern : _patterns) pattern._common_ability.try_emplace(key_code);
}

std::vector<std::size_t> FitIndex::Fitting(const OnuAbilityProfile& report) {
  PositionSet fitting(_patterns.size(), true);
  std::vector<std::pair<Column*, Reported*>> steps;
  for (const auto& [code, value] : report._common_ability) {
    Column& column = ColumnOf(code);
    if (column.is_compared) steps.emplace_back(&column, &ReportedIn(column, code, value));
  }
  // Codes of many values last: few patterns are left then to be asked about.
  std::stable_sort(steps.begin(), steps.end(), [](const auto& one, const auto& other) {
    return one.first->held.size() < other.first->held.size();
  });
  for (const auto& [column, reported] : steps) KeepFitting(*column, *reported, fitting);
  return fitting.Positions();
}

std::size_t FitIndex::Remembered() const {
  std::size_t values = 0;
  for (const auto& entry : _columns) values += entry.second.reported.size();
  return values;
}

FitIndex::Column& FitIndex::ColumnOf(std::uint16_t code) {
  const auto known = _columns.find(code);
  if (known != _columns.end()) return known->second;
  return _columns.emplace(code, MakeColumn(code)).first->second;
}

FitIndex::Column FitIndex::MakeColumn(std::uint16_t code) const {
  Column column;
  column.is_compared = IsCompared(code);
  if (!column.is_compared) return column;
  std::map<ValueKey, std::uint32_t> known;
  const std::uint32_t nobody = 0xFFFFFFFFU;
  std::uint32_t lacking = nobody;
  for (std::size_t i = 0; i < _patterns.size(); ++i) {
    const auto ability = _patterns[i]._common_ability.find(code);
    const bool lacks = ability == _patterns[i]._common_ability.end();
    std::uint32_t& place = lacks ? lacking
                                 : known
                                       .try_emplace({ability->second.ability_value_type,
                                                     ability->second.ability_ushort_value,
                                                     ability->second.ability_string_value},
                                                    nobody)
                                       .first->second;
    if (place == nobody) {
      place = static_cast<std::uint32_t>(column.held.size());
      Held held{MakePattern(), PositionSet(_patterns.size())};
      if (!lacks) held.profile._common_ability[code] = ability->second;
      column.held.push_back(std::move(held));
    }
    column.held[place].patterns.Insert(i);
    column.held_by.push_back(place);
  }
  return column;
}

FitIndex::Reported& FitIndex::ReportedIn(Column& column, std::uint16_t code, const Value& value) {
  ValueKey key{value.ability_value_type, value.ability_ushort_value, value.ability_string_value};
  const auto known = column.reported.find(key);
  if (known != column.reported.end()) return known->second;
  if (column.reported.size() == kMostReported) column.reported.clear();
  Reported& reported = column.reported[std::move(key)];
  reported.report = MakeReport(code, value);
  reported.verdicts.assign(column.held.size(), kNotAsked);
  if (column.held.size() > kFewValues || column.held.empty()) return reported;
  reported.fitting = PositionSet(column.held_by.size());
  for (std::size_t held = 0; held < column.held.size(); ++held) {
    if (FitsHeld(column, reported, held)) *reported.fitting |= column.held[held].patterns;
  }
  return reported;
}

bool FitIndex::FitsHeld(Column& column, Reported& reported, std::size_t held) {
  char& verdict = reported.verdicts[held];
  if (verdict == kNotAsked) {
    verdict = (column.held[held].profile == reported.report) != 0 ? kFits : kDoesNotFit;
  }
  return verdict == kFits;
}

void FitIndex::KeepFitting(Column& column, Reported& reported, PositionSet& fitting) {
  if (reported.fitting) {
    fitting &= *reported.fitting;
    return;
  }
  fitting.ForEach([&](std::size_t position) {
    if (!FitsHeld(column, reported, column.held_by[position])) fitting.Remove(position);
  });
}

}  // namespace olt_host
