// What counts as a number and as a text in input files, whatever their format.
#ifndef OLT_HOST_CATALOGUE_SCALAR_TEXT_H
#define OLT_HOST_CATALOGUE_SCALAR_TEXT_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace olt_host {

// Stands for all numbers that 32 bits do not hold.
constexpr std::uint64_t kTooLarge = 0x100000000;

// The number that `text` spells, decimal or with 0x, at most kTooLarge; nothing when it is
// anything else, a sign, a point and an exponent included.
std::optional<std::uint64_t> ParseNumber(std::string_view text);

bool HasControlCharacter(std::string_view text);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_SCALAR_TEXT_H
