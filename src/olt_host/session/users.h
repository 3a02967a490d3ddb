// Who may log in over the network, from a password file:
//
//   # name:hash:access
//   anna:$y$j9T$...:full
//   bert:$y$j9T$...:read-only
//
// Hashes are those of crypt(3). There are no users but those of the file.
#ifndef OLT_HOST_SESSION_USERS_H
#define OLT_HOST_SESSION_USERS_H

#include <map>
#include <optional>
#include <string>

#include "vty/session_settings.h"

namespace olt_host {

class Users {
 public:
  // Throws std::runtime_error ("FILE:LINE: problem; expected ...") for a file
  // that cannot be read, is writable or readable by others, has no user, or has
  // a line of another form.
  static Users Read(const std::string& file);

  // What the user may do; nothing when name or password is wrong. Takes the same
  // long time either way. From any thread.
  std::optional<Access> LogIn(const std::string& name, const std::string& password) const;

 private:
  struct User {
    std::string hash;
    Access access = Access::kReadOnly;
  };
  // Takes a line of the file; why it cannot be taken, empty when it was.
  std::string Add(const std::string& line);

  std::map<std::string, User> _users;
};

// A line for a password file. Throws std::runtime_error for a name that cannot
// stand there or an empty password.
std::string PasswordLine(const std::string& name, const std::string& password, Access access);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_USERS_H
