#include "catalogue/report_rules.h"

namespace olt_host {

const char* ToText(Recognition recognition) {
  switch (recognition) {
    case Recognition::kType:
      return "type";
    case Recognition::kAbilities:
      return "abilities";
    case Recognition::kNone:
      break;
  }
  return "none";
}

std::optional<std::uint8_t> PrivateCapabilityOf(std::string_view word) {
  if (word == "sfu") return std::uint8_t{0};
  if (word == "hgu") return std::uint8_t{1};
  if (word == "unknown") return kUnknownPrivateCapability;
  return std::nullopt;
}

std::optional<Recognition> RecognitionOf(std::string_view word) {
  for (const Recognition how : {Recognition::kType, Recognition::kAbilities, Recognition::kNone}) {
    if (word == ToText(how)) return how;
  }
  return std::nullopt;
}

void CheckHow(const Expectation& expect, const SourcePosition& position) {
  if (!expect.how || (*expect.how == Recognition::kNone) != expect.real_type.has_value()) return;
  const std::string real_type =
      expect.real_type ? std::to_string(*expect.real_type) : Quoted("none");
  throw InputError(
      position,
      "real_type " + real_type + " and how " + Quoted(ToText(*expect.how)) + " exclude each other",
      "none for both or for neither");
}

void CheckAmbiguous(const Expectation& expect, const SourcePosition& position) {
  if (expect.ambiguous.size() >= 2) return;
  throw InputError(
      position, "ambiguous names " + std::string(expect.ambiguous.empty() ? "no key" : "one key"),
      "the keys of all match profiles that fit, or no entry when no more than one does");
}

void SplitBuffer(std::string_view bytes, std::optional<std::string>& text, std::string& behind) {
  const std::size_t terminator = bytes.find('\0');
  if (terminator != std::string_view::npos) behind = bytes.substr(terminator + 1);
  text = bytes.substr(0, terminator);
}

}  // namespace olt_host
