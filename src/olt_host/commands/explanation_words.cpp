#include "commands/explanation_words.h"

#include "commands/time_text.h"
#include "recognition/ability_reading.h"

namespace olt_host {

std::string AbilityText(std::uint16_t code) {
  const std::string name = CodeName(code);
  return name.empty() ? "code " + std::to_string(code) : name + " (" + std::to_string(code) + ")";
}

std::string ValueText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  switch (value.ability_value_type) {
    case ONU_ABILITY_VALUE_TYPE_USHORT:
      return value.ability_ushort_value == ONU_ABILITY_WILDCARD
                 ? "anything"
                 : std::to_string(value.ability_ushort_value);
    case ONU_ABILITY_VALUE_TYPE_STRING:
      return value.ability_string_value.empty() ? "anything"
                                                : "\"" + value.ability_string_value + "\"";
    default:
      return "unset";
  }
}

std::string TypeText(std::uint32_t type) {
  return type == kUnknownReportedType ? "unknown" : std::to_string(type);
}

std::string ProfileText(const ProfileVerdict& verdict) {
  if (!verdict.key) return "without key";
  return std::to_string(*verdict.key) + (verdict.name.empty() ? "" : " " + verdict.name);
}

std::string OriginText(const ProfileOrigin& origin) {
  switch (origin.kind) {
    case OriginKind::kCatalogue:
      return ToText(origin.position) + (origin.changed ? ", changed since by an operator" : "");
    case OriginKind::kOperator:
      break;
    case OriginKind::kUnknown:
      return "a shipped profile that is not in the catalogue's files";
  }
  if (!origin.note) return "an operator's, not known since when";
  if (origin.note->restored) {
    return "an operator's, restored from the state file " + LocalTimeText(origin.note->when);
  }
  std::string text = "operator";
  if (!origin.note->user.empty()) text += " " + origin.note->user;
  if (origin.note->session != 0) text += ", session " + std::to_string(origin.note->session);
  return text + ", " + LocalTimeText(origin.note->when);
}

std::string CountText(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace olt_host
