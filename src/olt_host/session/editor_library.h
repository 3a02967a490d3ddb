// What the editor's library keeps for one session: its record, and the terminal that it
// thinks it has. For the editor's own sources.
#ifndef OLT_HOST_SESSION_EDITOR_LIBRARY_H
#define OLT_HOST_SESSION_EDITOR_LIBRARY_H

#include <histedit.h>

#include "session/editor.h"
#include "session/editor_terminal.h"

namespace olt_host {

struct Editor::Library {
  Library() = default;
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  EditorTerminal terminal;
  EditLine* line = nullptr;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_LIBRARY_H
