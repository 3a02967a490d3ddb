// The right to be inside the line editor. Its library keeps state for the whole
// process, so one session at a time may be in it; sessions come in the order in
// which they asked, so that one that is fed without a pause keeps nobody out.
//
// Never wait for a client or for the command thread while having the turn.
#ifndef OLT_HOST_SESSION_EDITOR_TURN_H
#define OLT_HOST_SESSION_EDITOR_TURN_H

namespace olt_host {

class EditorTurn {
 public:
  // Waits for the turn.
  EditorTurn() { Take(); }
  ~EditorTurn() { Give(); }
  EditorTurn(const EditorTurn&) = delete;
  EditorTurn& operator=(const EditorTurn&) = delete;

  // Gives the turn away for as long as the object lives, inside a callback of the
  // editor.
  class Pause {
   public:
    Pause() { Give(); }
    ~Pause() { Take(); }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
  };

 private:
  static void Take();
  static void Give();
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_TURN_H
