// Finds lines that two commands could both mean, so that such commands are
// refused when they are installed and not when an operator types the line.
//
// Follows the two grammars side by side, by the matcher's rules: a whole keyword
// beats values, values beat abbreviations, and different keywords never survive
// the same word. So a word keeps both commands in play only as the same keyword
// or as a value that both admit.
#ifndef OLT_HOST_VTY_COMMAND_CONFLICTS_H
#define OLT_HOST_VTY_COMMAND_CONFLICTS_H

#include <string>

#include "vty/grammar.h"

namespace olt_host {

// A shortest line that means both; empty when there is none.
std::string LineOfBoth(const Grammar& one, const Grammar& other);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_COMMAND_CONFLICTS_H
