// What abilities look like to programs, the same in every command.
#ifndef OLT_HOST_COMMANDS_ABILITY_JSON_H
#define OLT_HOST_COMMANDS_ABILITY_JSON_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>

#include "onu_ability_common_global.h"

namespace olt_host {

// Null for a code that is not registered.
nlohmann::ordered_json CodeNameJson(std::uint16_t code);

// A number, a text, or null for an unset one. A wildcard is the number 4294967295 or "".
nlohmann::ordered_json ValueJson(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);
// Null for none, too.
nlohmann::ordered_json ValueJson(const std::optional<ONU_ABILITY_COMMON_ABILITY_VALUE>& value);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_ABILITY_JSON_H
