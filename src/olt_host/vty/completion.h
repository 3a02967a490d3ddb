// What an operator may type next: completes the keyword under the cursor.
#ifndef OLT_HOST_VTY_COMPLETION_H
#define OLT_HOST_VTY_COMPLETION_H

#include <string>
#include <vector>

namespace olt_host {

struct Completion {
  // To insert at the cursor: what all candidates share beyond the typed word,
  // and a blank when there is only one. May be empty.
  std::string insert;
  // The keywords that begin with the typed word; values that may stand there
  // instead, such as <value>, only while nothing of the word is typed.
  std::vector<std::string> candidates;
};

// `text` is the line up to the cursor. Nothing inside a quoted word, and
// nothing behind words that fit no command.
Completion Complete(unsigned int node, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_COMPLETION_H
