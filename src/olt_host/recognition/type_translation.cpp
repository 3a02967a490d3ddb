#include "recognition/type_translation.h"

#include <string>

namespace olt_host {

namespace {

constexpr unsigned int kSfu = 0;
constexpr unsigned int kHgu = 1;

// The number that a real profile has under the code, read as the library reads it; 0
// without one.
unsigned int RealNumber(std::uint32_t key, unsigned short code) {
  unsigned int number = 0;
  const unsigned int ret =
      OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL, key, code, number);
  return ret == ONU_ABILITY_RET_OK ? number : 0;
}

std::optional<OnuAbilityProfile> RealProfile(std::uint32_t key) {
  OnuAbilityProfile profile;
  const unsigned int ret = OnuAbilityTableManager::GetInstance()->Get(
      ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_ALL, key, profile);
  return ret == ONU_ABILITY_RET_OK ? std::optional(profile) : std::nullopt;
}

// What the mode for HGUs asks for.
CommonType CommonTypeOfHgu(std::uint16_t mode, bool is_vendor_apart) {
  switch (mode) {
    case 1:
      return CommonType::kSfu;
    case 2:
      return CommonType::kHgu;
    case 3:
      return is_vendor_apart ? CommonType::kNone : CommonType::kHgu;
    case 4:
      return is_vendor_apart ? CommonType::kHgu : CommonType::kNone;
    default:
      return CommonType::kNone;
  }
}

void Decide(const ConfirmOnuType& recognised, TypeTranslation& translation) {
  if (translation.trans_type == 0) return;
  if (translation.capability == kSfu) {
    translation.setting = IdentifySetting::kSfuMode;
    translation.mode = recognised._identify_setting[0];
    translation.common = translation.mode == 1 ? CommonType::kSfu : CommonType::kNone;
  } else if (translation.capability == kHgu) {
    translation.setting = IdentifySetting::kHguMode;
    translation.mode = recognised._identify_setting[2];
    if (translation.mode == 3 || translation.mode == 4) {
      translation.is_vendor_apart = (recognised == std::string(kVendorApart)) != 0;
    }
    translation.common =
        CommonTypeOfHgu(translation.mode, translation.is_vendor_apart.value_or(false));
  }
}

std::uint16_t NumberOf(CommonType type) {
  const OnuAbilityGlobalVar* settings = OnuAbilityGlobalVar::GetInstance();
  switch (type) {
    case CommonType::kSfu:
      return settings->_sfu_common_type;
    case CommonType::kHgu:
      return settings->_hgu_common_type;
    case CommonType::kNone:
      break;
  }
  return 0;
}

}  // namespace

const char* ToText(IdentifySetting setting) {
  switch (setting) {
    case IdentifySetting::kSfuMode:
      return "sfu_mode";
    case IdentifySetting::kHguMode:
      return "hgu_mode";
    case IdentifySetting::kNone:
      break;
  }
  return "none";
}

const char* ToText(CommonType type) {
  switch (type) {
    case CommonType::kSfu:
      return "sfu";
    case CommonType::kHgu:
      return "hgu";
    case CommonType::kNone:
      break;
  }
  return "none";
}

TypeTranslation Translate(ConfirmOnuType& recognised) {
  TypeTranslation translation;
  recognised.Get(ONU_ABILITY_CODE_REPORT_TYPE, translation.before);
  recognised.Get(translation.key);
  translation.real_profile = RealProfile(translation.key);
  translation.trans_type = RealNumber(translation.key, ONU_ABILITY_CODE_TRANS_TYPE);
  translation.capability = RealNumber(translation.key, ONU_ABILITY_CODE_ONU_CAPA);
  Decide(recognised, translation);
  translation.common_type = NumberOf(translation.common);
  recognised.TransOnutypeByHswSwitch();
  translation.after = recognised._report_type;
  return translation;
}

}  // namespace olt_host
