#include "recognition/near_profiles.h"

#include <algorithm>
#include <numeric>

#include "recognition/ability_reading.h"

namespace olt_host {

namespace {

// Of nothing but one value, or of none at all.
OnuAbilityProfile ProfileOf(std::uint16_t code, const ONU_ABILITY_COMMON_ABILITY_VALUE* value) {
  OnuAbilityProfile profile;
  profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  if (value != nullptr) profile._common_ability[code] = *value;
  return profile;
}

std::map<std::uint32_t, std::string> TypeNames() {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(ONU_ABILITY_PROFILE_TYPE_REAL,
                                                ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  std::map<std::uint32_t, std::string> names;
  for (const OnuAbilityProfile& profile : profiles) {
    names[NameOf(profile).key] = TextUnder(profile, ONU_ABILITY_CODE_TYPE_NAME);
  }
  return names;
}

}  // namespace

NearProfiles::NearProfiles() : _profiles(MatchProfiles()), _names(TypeNames()) {}

std::vector<NearProfile> NearProfiles::Of(const OnuAbilityProfile& report, std::size_t count) {
  const std::vector<Distance> distances = DistancesTo(report);
  std::vector<std::size_t> order(_profiles.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto is_nearer = [&distances](std::size_t a, std::size_t b) {
    return std::make_tuple(distances[a].against, distances[b].agrees, b) <
           std::make_tuple(distances[b].against, distances[a].agrees, a);
  };
  const auto end = order.begin() + static_cast<std::ptrdiff_t>(std::min(count, order.size()));
  std::partial_sort(order.begin(), end, order.end(), is_nearer);
  const ComparedReport compared(report);
  std::vector<NearProfile> nearest;
  for (auto i = order.begin(); i != end; ++i) {
    nearest.push_back(Describe(compared, _profiles[*i]));
  }
  return nearest;
}

NearProfiles::ValueKey NearProfiles::KeyOf(const Value& value) {
  return {value.ability_value_type, value.ability_ushort_value, value.ability_string_value};
}

NearProfiles::Column& NearProfiles::ColumnOf(std::uint16_t code) {
  const auto known = _columns.find(code);
  if (known != _columns.end()) return known->second;
  return _columns.emplace(code, MakeColumn(code)).first->second;
}

NearProfiles::Column NearProfiles::MakeColumn(std::uint16_t code) const {
  Column column;
  column.held.push_back(ProfileOf(code, nullptr));
  std::map<ValueKey, std::size_t> known;
  for (const OnuAbilityProfile& profile : _profiles) {
    std::size_t place = 0;
    if (const Value* value = HeldUnder(profile, code)) {
      place = known.try_emplace(KeyOf(*value), column.held.size()).first->second;
      if (place == column.held.size()) column.held.push_back(ProfileOf(code, value));
    }
    column.held_by.push_back(place);
  }
  return column;
}

const std::vector<AbilityVerdict>& NearProfiles::VerdictsOn(Column& column, std::uint16_t code,
                                                            const Value& value) {
  const auto [entry, is_new] = column.reported.try_emplace(KeyOf(value));
  if (!is_new) return entry->second;
  const ComparedReport report(ProfileOf(code, &value));
  for (OnuAbilityProfile& held : column.held) {
    entry->second.push_back(report.Compare(held).front().verdict);
  }
  return entry->second;
}

std::vector<NearProfiles::Distance> NearProfiles::DistancesTo(const OnuAbilityProfile& report) {
  std::vector<Distance> distances(_profiles.size());
  for (const auto& [code, value] : report._common_ability) {
    if (!IsCompared(code)) continue;
    Column& column = ColumnOf(code);
    const std::vector<AbilityVerdict>& verdicts = VerdictsOn(column, code, value);
    for (std::size_t i = 0; i < _profiles.size(); ++i) {
      const AbilityVerdict verdict = verdicts[column.held_by[i]];
      distances[i].against += verdict == AbilityVerdict::kDecidesAgainst ? 1 : 0;
      distances[i].agrees += verdict == AbilityVerdict::kAgrees ? 1 : 0;
    }
  }
  return distances;
}

NearProfile NearProfiles::Describe(const ComparedReport& report, OnuAbilityProfile& profile) const {
  NearProfile near;
  near.profile = NameOf(profile);
  const auto name = _names.find(near.profile.key);
  if (name != _names.end()) near.name = name->second;
  near.tally = report.Tally(profile);
  for (const AbilityComparison& comparison : report.Compare(profile)) {
    if (comparison.verdict == AbilityVerdict::kDecidesAgainst) near.against.push_back(comparison);
  }
  return near;
}

}  // namespace olt_host
