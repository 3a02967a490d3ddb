#include "commands/statistics_report.h"

#include <algorithm>
#include <map>
#include <utility>

#include "commands/host_context.h"
#include "confirmation/match_profile_names.h"
#include "onu_ability_common_table.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

using Profiles = std::vector<OnuAbilityProfile>;

// Oldest first.
Profiles AllOf(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  Profiles profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

std::uint32_t KeyOf(const OnuAbilityProfile& profile) {
  unsigned int key = 0;
  return profile.Get(Host().catalogue.catalogue.key_ability_code, key) == ONU_ABILITY_RET_OK ? key
                                                                                             : 0;
}

// By key; the newest profile answers for its key.
std::map<std::uint32_t, std::string> TypeNames() {
  std::map<std::uint32_t, std::string> names;
  for (const OnuAbilityProfile& profile : AllOf(ONU_ABILITY_PROFILE_TYPE_REAL)) {
    std::string& name = names[KeyOf(profile)];
    name.clear();
    profile.Get(ONU_ABILITY_CODE_TYPE_NAME, name);
  }
  return names;
}

bool StandsBefore(const CountedProfile& a, const CountedProfile& b) {
  if (a.wins.wins != b.wins.wins) return a.wins.wins > b.wins.wins;
  if (a.wins.last != b.wins.last) return a.wins.last > b.wins.last;
  return a.name < b.name;
}

}  // namespace

StatisticsReport ReportStatistics() {
  const UndisturbedLibrary undisturbed;
  StatisticsReport report{Host().statistics, std::chrono::system_clock::now(), {}, 0, 0};
  std::map<MatchProfileName, CountedProfile> profiles;
  for (const auto& [name, wins] : report.counts.wins()) {
    profiles[name] = {name, wins.type_name, false, wins};
  }
  report.won = profiles.size();
  const std::map<std::uint32_t, std::string> type_names = TypeNames();
  for (const MatchProfileName& name : MatchProfileNames(
           AllOf(ONU_ABILITY_PROFILE_TYPE_MATCH), Host().catalogue.catalogue.key_ability_code)) {
    CountedProfile& profile = profiles[name];
    const auto type_name = type_names.find(name.key);
    profile.name = name;
    profile.type_name = type_name == type_names.end() ? "" : type_name->second;
    profile.is_in_table = true;
  }
  for (auto& [name, profile] : profiles) {
    if (!profile.is_in_table) ++report.gone;
    report.profiles.push_back(std::move(profile));
  }
  std::sort(report.profiles.begin(), report.profiles.end(), StandsBefore);
  return report;
}

std::string KeyText(const MatchProfileName& name) {
  const std::string key = name.key == 0 ? "-" : std::to_string(name.key);
  return name.number == 1 ? key : key + " (" + std::to_string(name.number) + ")";
}

const char* SourceText(const MatchProfileName& name) {
  return name.source == ONU_ABILITY_PROFILE_SOURCE_DEFAULT ? "shipped" : "operator";
}

}  // namespace olt_host
