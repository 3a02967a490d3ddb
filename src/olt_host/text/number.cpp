#include "text/number.h"

#include <algorithm>
#include <charconv>

namespace olt_host {

bool IsAllDigits(const std::string& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool ReadNumber(const std::string& text, unsigned int& number) {
  if (!IsAllDigits(text)) return false;
  unsigned int read = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), read);
  if (result.ec != std::errc()) return false;
  number = read;
  return true;
}

}  // namespace olt_host
