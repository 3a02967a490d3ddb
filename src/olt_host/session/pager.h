// Puts the output of commands on the operator's screen, a page at a time where
// the screen does not hold it.
//
//   space   the next page        Enter, down   the next line
//   q, ^C   no more              any other key: as space
//
// Used by the session's thread.
#ifndef OLT_HOST_SESSION_PAGER_H
#define OLT_HOST_SESSION_PAGER_H

#include <cstddef>
#include <string>

#include "session/channel.h"
#include "session/key_reader.h"

namespace olt_host {

class Pager {
 public:
  Pager(Channel& channel, KeyReader& keys) : _channel(channel), _keys(keys) {}

  enum class Outcome { kShown, kStopped, kTimedOut, kClosed };

  // Shows `text`, whose lines end in "\r\n", on a screen of `rows` rows, of which
  // the last is left for a prompt. 0 rows: never stops, but Ctrl-C still ends it.
  // Afterwards the cursor is at the start of a line.
  Outcome Show(const std::string& text, std::size_t rows, std::size_t columns);

 private:
  Outcome ShowAll(const std::string& text);
  // Asks what to do and sets how many rows to show next; kShown to go on.
  Outcome Ask(std::size_t page, std::size_t& rows);
  bool Write(const std::string& text) { return _channel.Write(text.data(), text.size()); }

  Channel& _channel;
  KeyReader& _keys;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_PAGER_H
