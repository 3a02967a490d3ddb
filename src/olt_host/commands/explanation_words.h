// The words that all parts of an explanation share: names of codes and profiles, values,
// where a profile comes from.
#ifndef OLT_HOST_COMMANDS_EXPLANATION_WORDS_H
#define OLT_HOST_COMMANDS_EXPLANATION_WORDS_H

#include <cstdint>
#include <string>

#include "recognition/explanation.h"

namespace olt_host {

// "GE_PORTS (47)", or "code 47" while it has no name.
std::string AbilityText(std::uint16_t code);

// A number, a text in quotes, "anything", or "unset".
std::string ValueText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);

// "unknown" for the type that stands for none.
std::string TypeText(std::uint32_t type);

// "9002 EXAMPLE-SFU"; "without key" without one.
std::string ProfileText(const ProfileVerdict& verdict);

// "catalogue.yaml:38", "operator root, session 2, 2026-11-22 00:12:40".
std::string OriginText(const ProfileOrigin& origin);

// "1 profile", "2 profiles".
std::string CountText(std::size_t count, const std::string& one, const std::string& many);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_EXPLANATION_WORDS_H
