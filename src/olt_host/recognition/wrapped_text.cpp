#include "recognition/wrapped_text.h"

#include <algorithm>
#include <sstream>

namespace olt_host {

std::size_t WidthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

std::string Wrapped(const std::string& title, const std::string& text) {
  const std::string indent(WidthOf(title), ' ');
  std::istringstream words(text);
  std::string lines;
  std::string line = title;
  std::string word;
  bool is_first = true;
  while (words >> word) {
    if (!is_first && WidthOf(line) + 1 + WidthOf(word) > kTextColumns) {
      lines += line + "\n";
      line = indent;
      is_first = true;
    }
    line += (is_first ? "" : " ") + word;
    is_first = false;
  }
  return lines + line + "\n";
}

}  // namespace olt_host
