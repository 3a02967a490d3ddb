#include "commands/explanation_translation.h"

#include "commands/explanation_words.h"

namespace olt_host {

namespace {

std::string SettingText(const TypeTranslation& translation) {
  return std::string(translation.setting == IdentifySetting::kSfuMode ? "SFU" : "HGU") + " mode " +
         std::to_string(translation.mode);
}

std::string CommonText(const TypeTranslation& translation) {
  return std::string("the common ") + (translation.common == CommonType::kSfu ? "SFU" : "HGU") +
         " type, " + std::to_string(translation.common_type);
}

std::string FirstStep(const Explanation& explanation) {
  const std::uint32_t before = explanation.translation.before;
  const std::string of_whom =
      explanation.winner ? " of the winner" : ", the type that the ONU reported";
  return "It begins with " + TypeText(before) + ", " + AbilityText(ONU_ABILITY_CODE_REPORT_TYPE) +
         of_whom + ".";
}

std::string ProfileStep(const Explanation& explanation) {
  const TypeTranslation& translation = explanation.translation;
  const std::string key = "the key " + TypeText(translation.key);
  if (!translation.real_profile) return "No real profile has " + key + ", so the type stays.";
  return "The real profile with " + key + " (" + OriginText(explanation.real_origin) +
         ") says whether it is translated.";
}

std::string WhetherStep(const TypeTranslation& translation) {
  const std::string said = "Its " + AbilityText(ONU_ABILITY_CODE_TRANS_TYPE) + " is " +
                           std::to_string(translation.trans_type);
  return said + (translation.trans_type == 0
                     ? ", so the identify modes do not apply: the type stays."
                     : ", so the identify modes apply.");
}

std::string CapabilityStep(const Explanation& explanation) {
  const TypeTranslation& translation = explanation.translation;
  const std::string said = "Its " + AbilityText(ONU_ABILITY_CODE_ONU_CAPA) + " is " +
                           std::to_string(translation.capability);
  if (translation.setting == IdentifySetting::kNone) {
    return said + ", neither SFU (0) nor HGU (1): the type stays.";
  }
  const bool is_sfu = translation.setting == IdentifySetting::kSfuMode;
  return said + (is_sfu ? ", an SFU, so the SFU mode" : ", an HGU, so the HGU mode") +
         " of place " + std::to_string(explanation.report.place) + " decides, which is " +
         std::to_string(translation.mode) + ".";
}

// What the mode means for this ONU.
std::string ModeStep(const TypeTranslation& translation) {
  const std::string mode = SettingText(translation);
  if (translation.is_vendor_apart) {
    const std::string apart = std::string(kVendorApart);
    const std::string rule = translation.mode == 3 ? " is for HGUs of other vendors than "
                                                   : " is for HGUs of the vendor ";
    return mode + rule + apart + ", and the vendor identifier that counts here " +
           (*translation.is_vendor_apart ? "stands" : "does not stand") + " for it: " +
           (translation.common == CommonType::kNone ? "the type stays."
                                                    : CommonText(translation) + ".");
  }
  if (translation.common == CommonType::kNone) return mode + " lets the type stay.";
  return mode + " asks for " + CommonText(translation) + ".";
}

}  // namespace

std::string OutcomeText(const Explanation& explanation) {
  const TypeTranslation& translation = explanation.translation;
  const std::string told = std::to_string(explanation.report_type);
  if (!translation.Translated()) {
    return told + (translation.after == kUnknownReportedType ? ", as no type is known" : "");
  }
  return told + " instead of " + TypeText(translation.before) + ", by " + SettingText(translation);
}

std::vector<std::string> TranslationSteps(const Explanation& explanation) {
  const TypeTranslation& translation = explanation.translation;
  std::vector<std::string> steps = {FirstStep(explanation), ProfileStep(explanation)};
  if (translation.real_profile) steps.push_back(WhetherStep(translation));
  if (translation.trans_type != 0) {
    steps.push_back(CapabilityStep(explanation));
    if (translation.setting != IdentifySetting::kNone) steps.push_back(ModeStep(translation));
  }
  steps.push_back("The type to report is " + OutcomeText(explanation) + ".");
  return steps;
}

}  // namespace olt_host
