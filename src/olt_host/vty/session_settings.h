// What an operator's session is set to, and who the operator is. Plain data,
// read and changed by commands and by the session that runs them.
#ifndef OLT_HOST_VTY_SESSION_SETTINGS_H
#define OLT_HOST_VTY_SESSION_SETTINGS_H

#include <chrono>
#include <deque>
#include <memory>
#include <string>

class OnuAbilityProfile;

namespace olt_host {

struct TriedChange;

// What an operator may run. A read-only one may look and leave, no more.
enum class Access { kReadOnly, kFull };

struct SessionSettings {
  unsigned int number = 0;  // of the session, from 1; 0 outside sessions
  std::string user;         // as logged in, or the owner of the process at the other end
  std::string origin;       // "console", "unix", "127.0.0.1:40112", "run"
  Access access = Access::kFull;
  unsigned int screen_length = 0;                                // lines; 0: never pages
  std::chrono::seconds exec_timeout = std::chrono::minutes(10);  // 0: never ends
  std::deque<std::string> history;                               // the oldest first

  // The profile that the operator is building. The library keeps one for the
  // process; each session has its own put there while a command of it runs.
  std::shared_ptr<OnuAbilityProfile> pending_profile;

  // What the operator tries; null for nothing.
  std::shared_ptr<TriedChange> tried_change;
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_SESSION_SETTINGS_H
