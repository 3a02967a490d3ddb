#include "input_bytes.h"

#include <algorithm>

std::string_view InputBytes::Take(std::size_t length) {
  const std::string_view taken = _unread.substr(0, std::min(length, _unread.size()));
  _unread.remove_prefix(taken.size());
  return taken;
}

unsigned char InputBytes::Byte() {
  const std::string_view taken = Take(1);
  return taken.empty() ? 0 : static_cast<unsigned char>(taken.front());
}

unsigned short InputBytes::Number16() {
  const unsigned int low = Byte();
  return static_cast<unsigned short>(low | (static_cast<unsigned int>(Byte()) << 8U));
}

unsigned int InputBytes::Number32() {
  const unsigned int low = Number16();
  return low | (static_cast<unsigned int>(Number16()) << 16U);
}

std::string_view InputBytes::Text() { return Take(Byte()); }

std::string_view InputBytes::Rest() { return Take(_unread.size()); }

std::vector<std::string> SplitText(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator, start)) {
    parts.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  parts.emplace_back(text.substr(start));
  return parts;
}
