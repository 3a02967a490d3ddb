// Asks an operator for name and password.
//
// Used by the session's thread, and holds no lock while it waits.
#ifndef OLT_HOST_SESSION_LOGIN_H
#define OLT_HOST_SESSION_LOGIN_H

#include <chrono>
#include <optional>
#include <string>

#include "session/channel.h"
#include "session/key_reader.h"
#include "session/users.h"

namespace olt_host {

struct Login {
  std::string user;
  Access access = Access::kReadOnly;
};

struct LoginLimits {
  std::chrono::milliseconds time;   // for the whole login
  std::chrono::milliseconds delay;  // after the first wrong one; doubled every time
};

// Three tries; `origin` is where they come from, for the log. Nothing when they were wrong, which
// the client is told, when the time is over, or when the client left. The cursor is then at the
// start of a line.
std::optional<Login> LogIn(Channel& channel, KeyReader& keys, const Users& users,
                           const std::string& origin, const LoginLimits& limits);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_LOGIN_H
