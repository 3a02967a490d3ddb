#include "commands/onu_binding.h"

#include <optional>
#include <string>
#include <vector>

#include "commands/onu_argument.h"
#include "commands/onu_listing.h"
#include "onu_ability_common_table.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

std::string Name(const OnuReport& report) {
  return "ONU " + std::to_string(report.place) + "/" + std::to_string(report.onu);
}

// The key of the real profile that the ONU was confirmed as; nothing, and the
// command refused, when there is none.
std::optional<std::uint32_t> ConfirmedKey(struct vty& terminal, const OnuReport& report) {
  const ConfirmedOnu* confirmed = ConfirmedOf(report);
  if (confirmed == nullptr) {
    terminal.Refuse(Name(report) + " is not confirmed yet");
  } else if (!confirmed->result.real_type) {
    terminal.Refuse(Name(report) + " was not recognised, so it has no real profile");
  } else if (confirmed->key == 0) {
    terminal.Refuse("No real profile has the real type " +
                    std::to_string(*confirmed->result.real_type) + " of " + Name(report));
  } else {
    return confirmed->key;
  }
  return std::nullopt;
}

// The bind count of the profile that the table counts on: the first of an operator
// with this key. Nothing, and the command refused, when there is none.
std::optional<std::uint32_t> BindCount(struct vty& terminal, std::uint32_t key) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL,
                                             ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, key, profiles);
  if (!profiles.empty()) {
    return profiles.back()._bind_count;  // the newest comes first
  }
  const bool shipped =
      OnuAbilityTableManager::GetInstance()->IsExist(ONU_ABILITY_PROFILE_TYPE_REAL,
                                                     ONU_ABILITY_PROFILE_SOURCE_DEFAULT, key) != 0;
  terminal.Refuse("The real profile with key " + std::to_string(key) +
                  (shipped ? " is a shipped one, only an operator's are bound"
                           : " is gone, confirm the ONU again"));
  return std::nullopt;
}

int ChangeBindCount(struct vty& terminal, char** argv, bool raise) {
  const OnuReport* report = FindOnuArgument(terminal, argv);
  const auto key = report == nullptr ? std::nullopt : ConfirmedKey(terminal, *report);
  const auto before = key ? BindCount(terminal, *key) : std::nullopt;
  if (!before) {
    return -1;
  }
  const std::string profile = "real profile with key " + std::to_string(*key);
  if (!raise && *before == 0) {
    return terminal.Refuse("The " + profile + " is not bound");
  }
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  const unsigned int status = raise ? manager->AddBindCount(ONU_ABILITY_PROFILE_TYPE_REAL, *key)
                                    : manager->MinusBindCount(ONU_ABILITY_PROFILE_TYPE_REAL, *key);
  const auto after = BindCount(terminal, *key);
  if (status != ONU_ABILITY_RET_OK || !after) {
    return terminal.Refuse("The " + profile + " was not found for counting");
  }
  // Only a number is kept: not by which ONUs.
  vty_out(&terminal, "The %s is bound %u %s\r\n", profile.c_str(), *after,
          *after == 1 ? "time" : "times");
  return 0;
}

}  // namespace

int BindOnu(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  return ChangeBindCount(*vty, argv, true);
}

int UnbindOnu(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  return ChangeBindCount(*vty, argv, false);
}

}  // namespace olt_host
