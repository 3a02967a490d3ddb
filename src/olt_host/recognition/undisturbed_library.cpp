#include "recognition/undisturbed_library.h"

#include <algorithm>

namespace olt_host {

namespace {

// A question changes nothing of a record but its attributes.
bool SameAttributes(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& a,
                    const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& other) {
    return one.ability_attr == other.ability_attr;
  });
}

}  // namespace

UndisturbedLibrary::UndisturbedLibrary() : _log_mask(onu_ability_get_log_level_mask()) {
  onu_ability_get_all_ability_attr_info(_codes);
  onu_ability_set_log_level_mask(0);
}

UndisturbedLibrary::~UndisturbedLibrary() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  if (!SameAttributes(codes, _codes)) OnuAbilityCodeInfo::GetInstance()->Restore(_codes);
  onu_ability_set_log_level_mask(_log_mask);
}

}  // namespace olt_host
