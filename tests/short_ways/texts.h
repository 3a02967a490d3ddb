// Values of the library as a trace shows them, all of their members.
#ifndef TESTS_SHORT_WAYS_TEXTS_H
#define TESTS_SHORT_WAYS_TEXTS_H

#include <sstream>
#include <string>

#include "onu_ability_common_table.h"

// The parts one after the other, as a stream prints them.
template <typename... Part>
std::string Words(const Part&... parts) {
  std::ostringstream out;
  (out << ... << parts);
  return out.str();
}

// With the unprintable bytes escaped.
std::string Quoted(const std::string& text);

std::string Shown(const ONU_ABILITY_COMMON_ABILITY_VALUE& value);
std::string Shown(const ONU_ABILITY_CODE_ATTR_INFO& record);
std::string Shown(const OnuAbilityProfile& profile);

#endif  // TESTS_SHORT_WAYS_TEXTS_H
