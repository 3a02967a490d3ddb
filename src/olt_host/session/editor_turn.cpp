#include "session/editor_turn.h"

#include <condition_variable>
#include <mutex>

namespace olt_host {
namespace {

// The next turn to be given out, and the one that is being used.
struct Turns {
  std::mutex mutex;
  std::condition_variable changed;
  unsigned long next = 0;
  unsigned long current = 0;
};

// Never destroyed: sessions may outlast the static objects of a stopping process.
Turns& AllTurns() {
  static Turns& turns = *new Turns;
  return turns;
}

}  // namespace

void EditorTurn::Take() {
  Turns& turns = AllTurns();
  std::unique_lock<std::mutex> lock(turns.mutex);
  const unsigned long mine = turns.next++;
  turns.changed.wait(lock, [&turns, mine] { return turns.current == mine; });
}

void EditorTurn::Give() {
  Turns& turns = AllTurns();
  const std::lock_guard<std::mutex> lock(turns.mutex);
  ++turns.current;
  if (turns.current != turns.next) turns.changed.notify_all();
}

}  // namespace olt_host
