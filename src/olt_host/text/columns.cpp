#include "text/columns.h"

#include <algorithm>

namespace olt_host {

bool StartsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

std::string Printable(const std::string& text) {
  std::string printable = text;
  for (char& c : printable) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\t') {
      c = ' ';
    } else if (byte < 0x20 || byte == 0x7F) {
      c = '?';
    }
  }
  return printable;
}

std::size_t DisplayWidth(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::size_t BytesOf(const std::string& text, std::size_t columns) {
  std::size_t at = 0;
  for (std::size_t taken = 0; at < text.size() && taken < columns; ++taken) {
    do {
      ++at;
    } while (at < text.size() && !StartsCharacter(text[at]));
  }
  return at;
}

}  // namespace olt_host
