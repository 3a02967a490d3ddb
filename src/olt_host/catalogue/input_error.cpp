#include "catalogue/input_error.h"

#include <cstdio>

#include "text/whole_characters.h"

namespace olt_host {

namespace {

constexpr std::size_t kQuotedBytes = 60;

// At most kQuotedBytes, not cut within a character of several bytes.
std::string Shortened(const std::string& text) {
  if (text.size() <= kQuotedBytes) {
    return text;
  }
  return text.substr(0, WholeCharacters(text, kQuotedBytes)) + "...";
}

}  // namespace

std::string ToText(const SourcePosition& position) {
  if (position.line == 0) {
    return position.file;
  }
  return position.file + ":" + std::to_string(position.line);
}

std::string RelativeText(const SourcePosition& earlier, const SourcePosition& here) {
  return earlier.file == here.file ? "line " + std::to_string(earlier.line) : ToText(earlier);
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7F) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      escaped += escape;
    } else {
      escaped += character;
    }
  }
  return escaped;
}

std::string Quoted(const std::string& text) { return "\"" + Escaped(Shortened(text)) + "\""; }

InputError::InputError(const SourcePosition& position, const std::string& problem,
                       const std::string& expectation)
    : std::runtime_error(ToText(position) + ": " + problem + "; expected " + expectation),
      _position(position) {}

std::string InputError::rule() const {
  return std::string(what()).substr(ToText(_position).size() + 2);
}

}  // namespace olt_host
