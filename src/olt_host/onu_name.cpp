#include "onu_name.h"

#include "text/number.h"

namespace olt_host {

bool ReadOnuName(const std::string& text, std::uint16_t& place, std::uint8_t& onu) {
  constexpr unsigned int kHighestPlace = 65535;
  constexpr unsigned int kHighestOnu = 255;
  const std::size_t slash = text.find('/');
  unsigned int place_number = 0;
  unsigned int onu_number = 0;
  if (slash == std::string::npos || !ReadNumber(text.substr(0, slash), place_number) ||
      !ReadNumber(text.substr(slash + 1), onu_number) || place_number > kHighestPlace ||
      onu_number > kHighestOnu) {
    return false;
  }
  place = static_cast<std::uint16_t>(place_number);
  onu = static_cast<std::uint8_t>(onu_number);
  return true;
}

}  // namespace olt_host
