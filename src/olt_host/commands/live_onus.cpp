#include "commands/live_onus.h"

#include "commands/host_context.h"
#include "confirmation/confirmer.h"
#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

// The key of the newest real profile of a type; 0 without one. The table finds and counts
// profiles by the key ability code that it was made with, the catalogue's, whatever
// operators set since.
unsigned int KeyOfType(std::uint16_t real_type) {
  OnuAbilityProfile profile;
  unsigned int key = 0;
  if (OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL,
                                                 ONU_ABILITY_PROFILE_SOURCE_ALL, real_type,
                                                 profile) == ONU_ABILITY_RET_OK) {
    profile.Get(Host().catalogue.catalogue.key_ability_code, key);
  }
  return key;
}

MatchProfileName NameOf(const OnuAbilityProfile& winner) {
  MatchProfileName name;
  name.source = static_cast<unsigned int>(winner._profile_source);
  if (winner.Get(Host().catalogue.catalogue.key_ability_code, name.key) != ONU_ABILITY_RET_OK) {
    name.key = 0;
  }
  // Those without a key count as one.
  if (name.key == 0) return name;
  std::vector<OnuAbilityProfile> newest_first;
  OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_MATCH, winner._profile_source,
                                             name.key, newest_first);
  for (std::size_t i = 0; i < newest_first.size(); ++i) {
    if (newest_first[i]._id != winner._id) continue;
    name.number = static_cast<unsigned int>(newest_first.size() - i);
    break;
  }
  return name;
}

}  // namespace

const ConfirmedOnu& ConfirmLiveOnu(const OnuReport& report) {
  ConfirmedOnu onu;
  ConfirmationTrace trace;
  const auto start = std::chrono::steady_clock::now();
  onu.result = ConfirmOnu(*Host().population, report, &trace);
  const auto duration = std::chrono::steady_clock::now() - start;
  if (onu.result.real_type) onu.key = KeyOfType(*onu.result.real_type);
  onu.when = std::chrono::system_clock::now();
  std::optional<MatchProfileName> winner;
  if (trace.winner) winner = NameOf(*trace.winner);
  Host().statistics.Count(onu.result, winner, trace.hook_calls, duration, onu.when);
  return Host().confirmed[{report.place, report.onu}] = onu;
}

}  // namespace olt_host
