#include "catalogue/scalar_text.h"

#include <algorithm>

namespace olt_host {

namespace {

bool IsDigitOf(unsigned int base, char character) {
  const bool decimal = character >= '0' && character <= '9';
  const bool hex = (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F');
  return decimal || (base == 16 && hex);
}

unsigned int DigitValue(char character) {
  if (character <= '9') {
    return static_cast<unsigned int>(character - '0');
  }
  return static_cast<unsigned int>((character | 0x20) - 'a') + 10;
}

}  // namespace

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
  const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  const unsigned int base = hex ? 16 : 10;
  const std::string_view digits = hex ? text.substr(2) : text;
  if (digits.empty()) {
    return std::nullopt;
  }
  std::uint64_t value = 0;
  for (const char character : digits) {
    if (!IsDigitOf(base, character)) {
      return std::nullopt;
    }
    value = std::min(value * base + DigitValue(character), kTooLarge);
  }
  return value;
}

bool HasControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
  });
}

}  // namespace olt_host
