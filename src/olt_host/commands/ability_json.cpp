#include "commands/ability_json.h"

#include "recognition/ability_reading.h"

namespace olt_host {

nlohmann::ordered_json CodeNameJson(std::uint16_t code) {
  const std::string name = CodeName(code);
  return name.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(name);
}

nlohmann::ordered_json ValueJson(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  switch (value.ability_value_type) {
    case ONU_ABILITY_VALUE_TYPE_USHORT:
      return value.ability_ushort_value;
    case ONU_ABILITY_VALUE_TYPE_STRING:
      return value.ability_string_value;
    default:
      return nullptr;
  }
}

nlohmann::ordered_json ValueJson(const std::optional<ONU_ABILITY_COMMON_ABILITY_VALUE>& value) {
  return value ? ValueJson(*value) : nlohmann::ordered_json(nullptr);
}

}  // namespace olt_host
