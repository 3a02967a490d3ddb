// The answer to '?': what may stand at the cursor, with the commands' own help.
//
// On the command thread, because known values are what commands change.
#ifndef OLT_HOST_VTY_LINE_HELP_H
#define OLT_HOST_VTY_LINE_HELP_H

#include <cstddef>
#include <string>
#include <vector>

namespace olt_host {

struct HelpLine {
  std::string token;  // "show", "<0-2>", "<cr>"
  std::string help;   // may be empty
};

// `text` is the line up to the cursor. Tokens that begin with the word under the
// cursor, each once, in the order of installation; where commands describe the same
// token differently, all of what they say. Below a value up to twenty of those that
// the host knows, indented. "<cr>" last, where the line may end before the cursor.
//
// Empty when the text fits no command; `error` (may be null) then gets the message
// of ExecuteLine, without "% ", and `error_column` (may be null) its place, in bytes
// from 0. In a remark all are empty.
std::vector<HelpLine> HelpFor(unsigned int node, const std::string& text, std::string* error,
                              std::size_t* error_column = nullptr);

// The lines for a screen, wrapped at `columns`, each ending in "\r\n".
std::string RenderHelp(const std::vector<HelpLine>& lines, std::size_t columns = 80);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_LINE_HELP_H
