// The listings of whole tables and of the profiles of one real type.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"

namespace {

bool IsTable(int match_or_real) {
  return match_or_real == ONU_ABILITY_PROFILE_TYPE_REAL ||
         match_or_real == ONU_ABILITY_PROFILE_TYPE_MATCH;
}

void ShowProfiles(std::vector<OnuAbilityProfile>& profiles, int source, int flag, void* vty) {
  ONU_ABILITY_PHYSICAL_SN no_onu;
  for (auto& profile : profiles) {
    profile.Show(vty, static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source),
                 static_cast<unsigned int>(flag), no_onu, ONU_ABILITY_NO_OMCI_MODE);
  }
}

}  // namespace

void onu_ability_show_all_onucapa_table(int match_or_real, int source, int flag, void* vty) {
  if (vty == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return;
  }
  if (!IsTable(match_or_real)) {
    ONU_ABILITY_LOG(0, "flag_match_or_real is invalid,flag_match_or_real:%d", match_or_real);
    return;
  }
  // Profiles of another source are asked, too, and refuse with a log line.
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(
      static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(match_or_real), ONU_ABILITY_PROFILE_SOURCE_ALL,
      profiles);
  ShowProfiles(profiles, source, flag, vty);
}

void onu_ability_show_item(int match_or_real, int source, int flag, unsigned short real_type,
                           void* vty) {
  if (vty == nullptr) {
    ONU_ABILITY_LOG(13, "there is null pointer!");
    return;
  }
  if (!IsTable(match_or_real)) {
    ONU_ABILITY_LOG(0, "profile_type is invalid,flag_match_or_real:%d", match_or_real);
    return;
  }
  std::vector<OnuAbilityProfile> profiles;
  if (OnuAbilityTableManager::GetInstance()->Get(
          static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(match_or_real),
          static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source), real_type,
          profiles) != ONU_ABILITY_RET_OK) {
    vty_out(static_cast<struct vty*>(vty), "GetOnuAllAbilityValue failed!onu_real_type:%u\r\n",
            real_type);
    return;
  }
  ShowProfiles(profiles, source, flag, vty);
}
