// Log levels as operators write them, and what the library logs at each.
//
// A mask is a set of levels: bit n is level n, 0 to 31.
#ifndef OLT_HOST_PLATFORM_LOG_LEVELS_H
#define OLT_HOST_PLATFORM_LOG_LEVELS_H

#include <optional>
#include <string>
#include <vector>

namespace olt_host {

// The mask for a list of levels such as "0,1,13", for "all" or for "none"; nothing
// when the text is none of these.
std::optional<unsigned int> ParseLogLevels(const std::string& text);

// The text that ParseLogLevels reads as this mask: the levels in order, "all" or
// "none".
std::string LogLevelsText(unsigned int mask);

struct LogLevelMeaning {
  unsigned int level;
  const char* meaning;
};

// The levels that the library uses, from the lowest.
const std::vector<LogLevelMeaning>& LogLevelMeanings();

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_LOG_LEVELS_H
