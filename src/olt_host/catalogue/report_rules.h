// What holds for the reports of ONUs whichever format states them: limits, words, and what
// excludes each other.
#ifndef OLT_HOST_CATALOGUE_REPORT_RULES_H
#define OLT_HOST_CATALOGUE_REPORT_RULES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "catalogue/reports.h"

namespace olt_host {

constexpr std::size_t kSerialNumberBytes = 32;
constexpr std::size_t kOltBytes = 64;

// The keys of identify settings, and the members that they are, in one order.
constexpr std::array<const char*, 4> kSettingKeys = {"sfu_mode", "setting_1", "hgu_mode",
                                                     "setting_3"};
constexpr std::array<std::uint16_t IdentifySettings::*, 4> kSettings = {
    &IdentifySettings::sfu_mode, &IdentifySettings::setting_1, &IdentifySettings::hgu_mode,
    &IdentifySettings::setting_3};

// "sfu", "hgu" or "unknown".
std::optional<std::uint8_t> PrivateCapabilityOf(std::string_view word);
// "type", "abilities" or "none".
std::optional<Recognition> RecognitionOf(std::string_view word);

// Both throw InputError at `position`: of an expectation that contradicts itself, and of
// one whose `ambiguous` was stated without a choice.
void CheckHow(const Expectation& expect, const SourcePosition& position);
void CheckAmbiguous(const Expectation& expect, const SourcePosition& position);

// Parts what a buffer holds into a text and what stands behind its terminator.
void SplitBuffer(std::string_view bytes, std::optional<std::string>& text, std::string& behind);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REPORT_RULES_H
