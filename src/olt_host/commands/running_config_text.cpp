#include "commands/running_config_text.h"

#include <algorithm>

#include "catalogue/input_error.h"

namespace olt_host {

namespace {

// Lines are limited to 4096 bytes; every byte may need an escape.
constexpr std::size_t kLongestText = 1900;

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

bool IsPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '-' || c == '.' || c == ':' || c == '/' || c == '+';
}

}  // namespace

bool IsTypable(const std::string& text) {
  return text.size() <= kLongestText && std::none_of(text.begin(), text.end(), IsControl);
}

std::string AsWord(const std::string& text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), IsPlain)) return text;
  std::string word = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') word += '\\';
    word += c;
  }
  return word + '"';
}

std::string InRemark(const std::string& text) { return Quoted(text); }

}  // namespace olt_host
