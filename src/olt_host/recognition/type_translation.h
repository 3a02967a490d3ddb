// The translation of an ONU's type by the identify modes, step by step: performed by the
// library, told by what it read on the way.
#ifndef OLT_HOST_RECOGNITION_TYPE_TRANSLATION_H
#define OLT_HOST_RECOGNITION_TYPE_TRANSLATION_H

#include <cstdint>
#include <optional>

#include "onu_ability_common_table.h"

namespace olt_host {

// What decides: nothing, the mode for SFUs, or the mode for HGUs.
enum class IdentifySetting { kNone, kSfuMode, kHguMode };
enum class CommonType { kNone, kSfu, kHgu };

// "none", "sfu_mode" or "hgu_mode"; "none", "sfu" or "hgu".
const char* ToText(IdentifySetting setting);
const char* ToText(CommonType type);

struct TypeTranslation {
  std::uint32_t key = 0;  // by which the real profile is looked for
  std::optional<OnuAbilityProfile> real_profile;
  std::uint32_t trans_type = 0;  // of it; 0: never translated
  std::uint32_t capability = 0;  // of it; 0 SFU, 1 HGU
  // Nothing decides where there is no translation, and for any other capability.
  IdentifySetting setting = IdentifySetting::kNone;
  std::uint16_t mode = 0;  // the value of the setting
  // In the HGU modes 3 and 4: whether the vendor identifier of what the ONU was recognised
  // as, or else its own, stands for the vendor that these modes treat apart.
  std::optional<bool> is_vendor_apart;
  CommonType common = CommonType::kNone;  // what the setting asks for
  std::uint16_t common_type = 0;          // the number of `common`
  std::uint32_t before = 0;
  std::uint32_t after = 0;

  bool Translated() const { return before != after; }
};

// The vendor that the HGU modes 3 and 4 treat apart.
constexpr const char* kVendorApart = "ZKWM";

// Performs the step on `recognised`.
TypeTranslation Translate(ConfirmOnuType& recognised);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_TYPE_TRANSLATION_H
