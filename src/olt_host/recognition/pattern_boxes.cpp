#include "recognition/pattern_boxes.h"

#include <algorithm>
#include <set>
#include <string>

#include "catalogue/catalogue.h"
#include "recognition/pattern_comparison.h"

namespace olt_host {

namespace {

// What a profile asks for: anything, a value, or to hold nothing.
enum class Asks { kAnything, kValue, kNothing };

struct Wish {
  Asks asks = Asks::kAnything;
  ReportValue value;
};

Wish WishOf(const OnuAbilityProfile& profile, std::uint16_t code, bool holds_text,
            std::uint16_t key_code) {
  const auto held = profile._common_ability.find(code);
  if (held == profile._common_ability.end()) {
    return {code == key_code ? Asks::kNothing : Asks::kAnything, {}};
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE& value = held->second;
  switch (value.ability_value_type) {
    case ONU_ABILITY_VALUE_TYPE_USHORT:
      if (holds_text || value.ability_ushort_value == kAnyNumber) return {};
      return {Asks::kValue, {value.ability_ushort_value, ""}};
    case ONU_ABILITY_VALUE_TYPE_STRING:
      if (!holds_text || value.ability_string_value.empty()) return {};
      return {Asks::kValue, {0, value.ability_string_value}};
    default:
      return {Asks::kNothing, {}};
  }
}

// Compared codes that some profile holds, and the key code.
std::set<std::uint16_t> ComparedCodes(const std::vector<OnuAbilityProfile>& profiles) {
  std::set<std::uint16_t> codes = {OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()};
  for (const OnuAbilityProfile& profile : profiles) {
    for (const auto& [code, value] : profile._common_ability) {
      codes.insert(code);
    }
  }
  for (auto code = codes.begin(); code != codes.end();) {
    code = IsCompared(*code) ? std::next(code) : codes.erase(code);
  }
  return codes;
}

// The n-th of endlessly many short texts.
std::string TextNumber(std::size_t number) {
  std::string text;
  do {
    text += static_cast<char>('A' + number % 26);
    number /= 26;
  } while (number != 0);
  return text;
}

ReportValue FreshValue(const std::map<ReportValue, int>& named, bool is_text) {
  ReportValue fresh;
  for (std::size_t number = 0; number == 0 || named.count(fresh) != 0; ++number) {
    if (is_text) {
      fresh.text = TextNumber(number);
    } else {
      fresh.number = static_cast<std::uint32_t>(number);
    }
  }
  return fresh;
}

}  // namespace

PatternBoxes::PatternBoxes(const std::vector<OnuAbilityProfile>& match_profiles,
                           const ReportSpace& space)
    : _profiles(match_profiles.size()) {
  for (const std::uint16_t code : ComparedCodes(match_profiles)) {
    if (space.Of(code) != Channel::kNothing) AddColumn(code, match_profiles, space);
  }
}

void PatternBoxes::AddColumn(std::uint16_t code, const std::vector<OnuAbilityProfile>& profiles,
                             const ReportSpace& space) {
  const std::uint16_t key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  BoxColumn column;
  column.code = code;
  column.channel = space.Of(code);
  for (const OnuAbilityProfile& profile : profiles) {
    const Wish wish = WishOf(profile, code, ReportSpace::HoldsText(column.channel), key_code);
    if (wish.asks != Asks::kValue) {
      column.cells.push_back(wish.asks == Asks::kAnything ? kAnything : kRefuses);
      column.some_refuse = column.some_refuse || wish.asks == Asks::kNothing;
      continue;
    }
    const auto [number, is_new] =
        column.numbers.emplace(wish.value, static_cast<int>(column.values.size()));
    if (is_new) {
      column.values.push_back(wish.value);
      column.can_hold.push_back(space.CanHold(code, wish.value));
    }
    column.cells.push_back(number->second);
  }
  column.fresh = FreshValue(column.numbers, ReportSpace::HoldsText(column.channel));
  if (column.channel == Channel::kCapability) {
    const auto named = std::count(column.can_hold.begin(), column.can_hold.end(), true);
    column.can_hold_fresh = static_cast<std::uint32_t>(named) <= kHighestCapability;
  }
  Passes passes{PositionSet(_profiles, true), PositionSet(_profiles), PositionSet(_profiles),
                std::vector<PositionSet>(column.values.size(), PositionSet(_profiles))};
  for (std::size_t profile = 0; profile < _profiles; ++profile) {
    const int cell = column.cells[profile];
    if (cell != kRefuses) passes.not_refusing.Insert(profile);
    if (cell == kAnything) passes.anything.Insert(profile);
    if (cell >= 0) passes.by_value[static_cast<std::size_t>(cell)].Insert(profile);
  }
  for (PositionSet& by_value : passes.by_value) {
    by_value |= passes.anything;
  }
  _columns.push_back(std::move(column));
  _passes.push_back(std::move(passes));
}

std::size_t PatternBoxes::ColumnOf(std::uint16_t code) const {
  for (std::size_t i = 0; i < _columns.size(); ++i) {
    if (_columns[i].code == code) return i;
  }
  return PositionSet::kNone;
}

const PositionSet& PatternBoxes::Passing(std::size_t column, int reported) const {
  const Passes& passes = _passes[column];
  switch (reported) {
    case kNothingThere:
      return passes.all;
    case kHeldWildcard:
      return passes.not_refusing;
    case kFresh:
      return passes.anything;
    default:
      return passes.by_value[static_cast<std::size_t>(reported)];
  }
}

BoxReport PatternBoxes::Read(const OnuAbilityProfile& gathered) const {
  BoxReport report;
  for (const BoxColumn& column : _columns) {
    const auto held = gathered._common_ability.find(column.code);
    if (held == gathered._common_ability.end()) {
      report.push_back(kNothingThere);
      continue;
    }
    const bool is_text = ReportSpace::HoldsText(column.channel);
    const ReportValue value = {is_text ? 0 : held->second.ability_ushort_value,
                               is_text ? held->second.ability_string_value : ""};
    const bool is_wildcard = is_text ? value.text.empty() : value.number == kAnyNumber;
    const auto number = column.numbers.find(value);
    report.push_back(is_wildcard                      ? kHeldWildcard
                     : number == column.numbers.end() ? kFresh
                                                      : number->second);
  }
  return report;
}

PositionSet PatternBoxes::Fitting(const BoxReport& report) const {
  PositionSet fitting(_profiles, true);
  for (std::size_t column = 0; column < _columns.size(); ++column) {
    fitting &= Passing(column, report[column]);
  }
  return fitting;
}

bool PatternBoxes::TakesUnknownTypesOnly(std::size_t profile) const {
  std::set<ReportValue> types;
  for (const BoxColumn& column : _columns) {
    const int cell = column.cells[profile];
    if (column.channel != Channel::kReportedType || cell == kAnything) continue;
    if (cell == kRefuses || !column.can_hold[static_cast<std::size_t>(cell)]) return true;
    types.insert(column.values[static_cast<std::size_t>(cell)]);
  }
  return types.size() > 1;
}

PositionSet PatternBoxes::AtLeastAsWide(std::size_t profile) const {
  const bool unknown_types_only = TakesUnknownTypesOnly(profile);
  PositionSet wide(_profiles, true);
  for (std::size_t i = 0; i < _columns.size(); ++i) {
    if (unknown_types_only && _columns[i].channel == Channel::kReportedType) continue;
    const int cell = _columns[i].cells[profile];
    if (cell == kAnything) wide &= Passing(i, kFresh);
    // Asking for what no report holds is to take reports without the code only, which
    // pass everywhere.
    if (cell >= 0 && _columns[i].can_hold[static_cast<std::size_t>(cell)]) wide &= Passing(i, cell);
  }
  return wide;
}

bool PatternBoxes::TakesEverything(std::size_t profile) const {
  return std::all_of(_columns.begin(), _columns.end(), [profile](const BoxColumn& column) {
    return column.cells[profile] == kAnything;
  });
}

}  // namespace olt_host
