#include "commands/operator_register.h"

#include <vector>

#include "recognition/undisturbed_library.h"

namespace olt_host {

OperatorRegister::Entries::key_type OperatorRegister::KeyOf(const OnuAbilityProfile& profile) {
  return {profile._profile_type, profile._id};
}

void OperatorRegister::Take(ONU_ABILITY_ENUM_PROFILE_TYPE type, const OperatorNote& note,
                            Entries& entries) const {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                                                profiles);
  for (const OnuAbilityProfile& profile : profiles) {
    const std::optional<OperatorNote> known = Of(profile);
    entries.insert_or_assign(KeyOf(profile), Entry{profile, known.value_or(note)});
  }
}

void OperatorRegister::Look(const OperatorNote& note) {
  const UndisturbedLibrary undisturbed;
  Entries entries;
  Take(ONU_ABILITY_PROFILE_TYPE_MATCH, note, entries);
  Take(ONU_ABILITY_PROFILE_TYPE_REAL, note, entries);
  _entries = std::move(entries);
}

std::optional<OperatorNote> OperatorRegister::Of(const OnuAbilityProfile& profile) const {
  const auto entry = _entries.find(KeyOf(profile));
  const bool known = entry != _entries.end() && SameAbilities(entry->second.profile, profile);
  return known ? std::optional(entry->second.note) : std::nullopt;
}

}  // namespace olt_host
