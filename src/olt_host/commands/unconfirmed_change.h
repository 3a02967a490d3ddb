// A change that was made for a while: unless an operator confirms it in time, the library
// and the catalogue go back to what they were before it, and with it everything that was
// changed since. One for the process.
//
// Nothing is written to the state file meanwhile, so that a restart is a way back, too.
// On the command thread.
#ifndef OLT_HOST_COMMANDS_UNCONFIRMED_CHANGE_H
#define OLT_HOST_COMMANDS_UNCONFIRMED_CHANGE_H

#include <chrono>
#include <memory>
#include <string>

#include "catalogue/catalogue_files.h"
#include "commands/operator_register.h"
#include "state/library_state.h"

namespace olt_host {

class UnconfirmedChange {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Whether a change waits to be confirmed.
  bool Waits() const { return _before != nullptr; }
  // Who made it: "anna (session 2)"; and how long it waits from `now` on.
  const std::string& maker() const { return _maker; }
  std::chrono::seconds Left(Time now) const;
  Time deadline() const { return _deadline; }

  // Keeps the library and the catalogue as they are, and who changed what; the change is
  // made next.
  // REQUIRES: none waits.
  void Begin(const std::string& maker, Time deadline);
  // Another time for the one that waits.
  void Extend(Time deadline) { _deadline = deadline; }
  // It stays.
  void Confirm();
  // Whether the library is another one than at the last call while it waits: somebody
  // changed it since, which goes back as well.
  bool NoticesChange();
  // Goes back now. Throws std::runtime_error when the library did not take it; the change
  // goes on waiting then.
  void GoBack();
  // Goes back if the time is over, and says so in the log.
  void GoBackIfDue(Time now);

  // How the last one ended, for those who ask; empty while there was none.
  const std::string& end() const { return _end; }

 private:
  void Forget(const std::string& how);

  std::shared_ptr<const LibraryState> _before;  // null while none waits
  std::shared_ptr<const LibraryState> _seen;    // null before NoticesChange
  LoadedCatalogue _catalogue;
  OperatorRegister _register;
  std::string _maker;
  Time _deadline;
  std::string _end;
};

// Calls GoBackIfDue of Host().unconfirmed now, by the host's clock.
void GoBackWhenDue();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_UNCONFIRMED_CHANGE_H
