#include "recognition/exercised_profiles.h"

#include "recognition/silent_observer.h"

namespace olt_host {

std::set<ProfileIdentity> FindExercised(const Population& population) {
  SilentObserver observer;
  const ScopedHookContext context(population, observer);
  std::set<ProfileIdentity> exercised;
  for (const OnuReport& report : population.Onus()) {
    ConfirmOnuType confirmed(report.place, report.onu);
    confirmed.Init();
    if (confirmed.IsValidOnuType() != ONU_ABILITY_RET_OK) confirmed.ConfirmOnuTypeByAbilities();
    // Only what a profile of the table overwrote is compared exactly.
    if (confirmed._flag_match_type == ONU_ABILITY_MATCH_TYPE_EXACT) {
      exercised.emplace(confirmed._profile_source, confirmed._id);
    }
  }
  return exercised;
}

}  // namespace olt_host
