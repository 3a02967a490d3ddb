// What the editor's library keeps for one session: its records, and the terminal that
// it thinks it has. For the editor's own sources.
#ifndef OLT_HOST_SESSION_EDITOR_LIBRARY_H
#define OLT_HOST_SESSION_EDITOR_LIBRARY_H

#include <histedit.h>

#include <string>

#include "session/editor.h"
#include "session/editor_terminal.h"

namespace olt_host {

struct Editor::Library {
  Library() = default;
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // The type as the client names it, or one that every terminal comes near to. On the
  // editor's turn.
  void SetType(const std::string& named);

  EditorTerminal terminal;
  History* history = nullptr;
  EditLine* line = nullptr;

 private:
  std::string _type;  // the library keeps a pointer to it
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_LIBRARY_H
