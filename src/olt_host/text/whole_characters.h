// Cutting a text of UTF-8 without cutting a character.
#ifndef OLT_HOST_TEXT_WHOLE_CHARACTERS_H
#define OLT_HOST_TEXT_WHOLE_CHARACTERS_H

#include <cstddef>
#include <string_view>

#include "text/columns.h"

namespace olt_host {

// How many of the first `most` bytes are whole characters: all, unless one goes on behind.
inline std::size_t WholeCharacters(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text.size();
  std::size_t kept = most;
  while (kept > 0 && !StartsCharacter(text[kept])) --kept;
  return kept;
}

}  // namespace olt_host

#endif  // OLT_HOST_TEXT_WHOLE_CHARACTERS_H
