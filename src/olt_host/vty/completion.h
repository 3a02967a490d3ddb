// What an operator may type next: completes the word under the cursor, a keyword,
// a value that the host knows, or a filter.
//
// On the command thread, because known values are what commands change.
#ifndef OLT_HOST_VTY_COMPLETION_H
#define OLT_HOST_VTY_COMPLETION_H

#include <string>
#include <vector>

namespace olt_host {

struct Completion {
  // To insert at the cursor: what all candidates share beyond the typed word,
  // and a blank when there is only one. May be empty.
  std::string insert;
  // The keywords and known values that begin with the typed word; values of which
  // none is known, such as <value>, only while nothing of the word is typed.
  std::vector<std::string> candidates;
};

// `text` is the line up to the cursor. Nothing inside a quoted word, in a remark,
// and behind words that fit no command.
Completion Complete(unsigned int node, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_COMPLETION_H
