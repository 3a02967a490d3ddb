#include "session/editor_library.h"

#include "session/editor_turn.h"

namespace olt_host {

Editor::Library::~Library() {
  const EditorTurn turn;
  if (line != nullptr) el_end(line);
}

}  // namespace olt_host
