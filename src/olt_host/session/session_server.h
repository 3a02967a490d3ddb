// The operator sessions of this process: at most so many at once, each on a
// thread of its own that edits lines, pages output and hands commands to the
// command thread.
#ifndef OLT_HOST_SESSION_SESSION_SERVER_H
#define OLT_HOST_SESSION_SESSION_SERVER_H

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "session/channel.h"
#include "session/command_thread.h"
#include "session/users.h"
#include "vty/session_settings.h"

namespace olt_host {

struct SessionLimits {
  std::size_t sessions = 16;              // half of them, and one at least, at the login
  std::size_t line_bytes = 4096;          // a longer line is refused whole
  std::size_t output_bytes = 64U << 20U;  // kept of a command; more is cut off
  std::chrono::seconds exec_timeout = std::chrono::minutes(10);
  std::chrono::milliseconds login_time = std::chrono::minutes(1);   // for the whole login
  std::chrono::milliseconds login_delay = std::chrono::seconds(1);  // doubled every time
};

// Where a session comes from.
struct SessionOrigin {
  std::string user;    // known without a login; may be empty
  std::string origin;  // for `who`: "console", "unix", "127.0.0.1:40112"
  bool must_log_in = false;
  // Of the process at the other end; the session takes its name for the user.
  std::optional<uid_t> owner = std::nullopt;
};

// A line of `who`.
struct SessionInfo {
  unsigned int number = 0;
  bool logged_in = true;  // false while there is neither a user nor an access yet
  std::string user;
  std::string origin;
  Access access = Access::kFull;
  std::chrono::system_clock::time_point since;
  std::chrono::seconds idle{0};
};

class SessionServer {
 public:
  // `users` may be null when no origin must log in. All must outlive the server. Sets
  // the locale of the process to UTF-8 and TERM in its environment, so it is made before
  // other threads run.
  SessionServer(unsigned int node, CommandThread& commands, const Users* users,
                const SessionLimits& limits);
  // Closes every session and waits for their threads, a moment also for farewells
  // to be sent. REQUIRES: `commands` is stopped, or served by another thread.
  ~SessionServer();
  SessionServer(const SessionServer&) = delete;
  SessionServer& operator=(const SessionServer&) = delete;

  // Starts a session, which ends with its channel. When all places are taken, those for
  // sessions at the login are, or the server is stopping, the client is told so and the channel is
  // finished; false then, and `ended` is not called. `ended` (may be empty) runs on the session's
  // thread as its last act, when everything has been sent or the client is given up.
  // From any thread; never waits for a client.
  bool Start(std::shared_ptr<Channel> channel, const SessionOrigin& origin,
             std::function<void()> ended = {});

  // From any thread.
  std::vector<SessionInfo> Sessions() const;

  // Ends all sessions, with the message on a line of its own when it is not empty,
  // and takes no more of them. Returns at once; a command in hand is still run.
  void CloseAll(const std::string& message);

 private:
  struct Impl;
  std::unique_ptr<Impl> _impl;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_SESSION_SERVER_H
