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

}  // namespace

const ConfirmedOnu& ConfirmLiveOnu(const OnuReport& report) {
  ConfirmedOnu onu;
  onu.result = ConfirmOnu(*Host().population, report);
  if (onu.result.real_type) onu.key = KeyOfType(*onu.result.real_type);
  onu.when = std::chrono::system_clock::now();
  return Host().confirmed[{report.place, report.onu}] = onu;
}

}  // namespace olt_host
