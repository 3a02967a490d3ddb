// One operator's session from the login to the end: reads lines, has them run on
// the command thread, shows what they answer.
//
// Owned by the session server. Run is the session's thread; info may be asked from
// any thread.
#ifndef OLT_HOST_SESSION_SESSION_H
#define OLT_HOST_SESSION_SESSION_H

#include <memory>
#include <mutex>
#include <string>

#include "session/channel.h"
#include "session/command_thread.h"
#include "session/editor.h"
#include "session/key_reader.h"
#include "session/pager.h"
#include "session/session_server.h"
#include "session/users.h"
#include "vty/terminal.h"

namespace olt_host {

// What all sessions of a server share; outlives them.
struct SessionSetting {
  unsigned int node = 0;
  CommandThread& commands;
  const Users* users = nullptr;
  SessionLimits limits;
};

class Session {
 public:
  Session(const SessionSetting& setting, unsigned int number, Channel& channel,
          const SessionOrigin& origin);

  // Returns when the session is over, the cursor at the start of a line. Throws
  // std::runtime_error when the system has not what a session needs.
  void Run();

  SessionInfo info() const;

 private:
  void NameOwner();
  bool PassLogin();
  void ReadAndRunLines();
  // Runs one line and shows the answer; kLine to go on.
  Editor::Outcome RunLine(const std::string& line);
  // The answer to '?' behind `text`, of a line that is `line`.
  std::string Help(const std::string& text, const std::string& line);
  Editor::Outcome ShowPaged(const std::string& text);
  void Remember(const std::string& line);
  bool Capture(const char* bytes, std::size_t length);
  std::string TakeCaptured();
  void FollowWindow();
  // Of the screen; the usual number when the client has none.
  std::size_t Columns() const;
  bool Say(const std::string& text) { return _channel.Write(text.data(), text.size()); }

  const SessionSetting& _setting;
  Channel& _channel;
  const bool _must_log_in;
  const std::optional<uid_t> _owner;
  KeyReader _keys;
  Pager _pager;
  std::string _prompt;
  std::string _captured;  // the output of the command that is being run
  bool _captured_all = true;
  unsigned int _followed_length = 0;  // the screen length as taken from the window
  struct vty _terminal;

  mutable std::mutex _mutex;  // guards _info
  SessionInfo _info;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_SESSION_H
