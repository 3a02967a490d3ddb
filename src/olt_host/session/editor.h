// The line that an operator types: prompt, emacs keys, history, TAB completion and
// '?' help, on whatever terminal is at the other end of a channel.
//
// Owned and used by the session's thread. What is typed is never longer than the
// limit; a longer line is lost as a whole and reported.
#ifndef OLT_HOST_SESSION_EDITOR_H
#define OLT_HOST_SESSION_EDITOR_H

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "session/channel.h"
#include "session/key_reader.h"
#include "vty/completion.h"

namespace olt_host {

constexpr std::size_t kLinesRemembered = 500;

class Editor {
 public:
  enum class Outcome {
    kLine,
    kInterrupted,  // Ctrl-C; shown already
    kTooLong,
    kTimedOut,
    kEnd,  // Ctrl-D on an empty line, or the client is gone
  };

  // What the editor asks while a line is being typed. They may wait and throw.
  struct Helpers {
    // `text` is the line up to the cursor, `line` all of it.
    std::function<Completion(const std::string& text)> complete;
    std::function<std::string(const std::string& text, const std::string& line)> help;
    // Puts lines on the screen; anything but kLine ends the line with that outcome.
    std::function<Outcome(const std::string& lines)> show;
  };

  // `remembered` is what the arrow keys go through and what is searched, the oldest first; it
  // outlives this and changes between lines only. Throws std::runtime_error when the system has
  // no more terminals to give.
  Editor(Channel& channel, KeyReader& keys, std::size_t line_bytes,
         const std::deque<std::string>& remembered, Helpers helpers);
  ~Editor();
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  // Shows the prompt and reads a line. Afterwards the cursor is at the start of a
  // line, unless the outcome is kTimedOut or kEnd.
  Outcome Read(const std::string& prompt, std::string& line);

 private:
  struct Callbacks;
  struct Library;

  // A search of the history that is going on.
  struct Search {
    bool active = false;
    char32_t key = 0;       // the one to be looked at
    std::string pattern;    // a text that stands somewhere in the line
    std::size_t place = 0;  // in the history, of what was found; its size when nothing was
    bool found = true;
    std::string line;  // as it was before
    std::string prompt;
  };

  bool NextKey(char32_t& key);
  bool ReadKey(char32_t& key);
  bool TakeSequence();
  bool Swallows(char32_t key);
  bool OutgrowsWindow() const;
  unsigned char Insert();
  bool SendOutput();
  unsigned char Complete();
  unsigned char Help();
  unsigned char PreviousLine();
  unsigned char NextLine();
  unsigned char StartSearch();
  unsigned char StepSearch();
  void EndSearch();
  void FindFrom(std::size_t place);
  std::string Typed() const;
  void ReplaceLine(const std::string& text);
  unsigned char ShowUnderLine(const std::string& lines);
  void LeaveLine();

  Channel& _channel;
  KeyReader& _keys;
  const std::size_t _line_bytes;
  const Helpers _helpers;
  std::string _prompt;
  Outcome _outcome = Outcome::kLine;
  const std::deque<std::string>& _history;
  std::deque<char32_t> _pending;  // keys to deliver before the next one is read
  char32_t _inserted = 0;         // what kInsert stands for
  std::size_t _recalled = 0;      // which of the history is shown; its size when none is
  std::string _typed;             // the line as it was before the first was recalled
  Search _search;
  bool _full = false;      // no more room, as was found with the last key
  bool _too_long = false;  // something was swallowed
  std::unique_ptr<Library> _library;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_H
