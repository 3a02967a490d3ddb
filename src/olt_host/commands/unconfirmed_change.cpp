#include "commands/unconfirmed_change.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "commands/host_context.h"
#include "commands/time_text.h"
#include "commands/tried_change.h"
#include "platform/log_sink.h"

namespace olt_host {

std::chrono::seconds UnconfirmedChange::Left(Time now) const {
  const auto left = std::chrono::ceil<std::chrono::seconds>(_deadline - now);
  return std::max(left, std::chrono::seconds(0));
}

void UnconfirmedChange::Begin(const std::string& maker, Time deadline) {
  _before = std::make_shared<const LibraryState>(CaptureLibrary());
  _catalogue = Host().catalogue;
  _register = OperatorRegister(Host().operator_register);
  _maker = maker;
  _deadline = deadline;
}

bool UnconfirmedChange::NoticesChange() {
  if (!Waits()) return false;
  auto now = std::make_shared<const LibraryState>(CaptureLibrary());
  const bool changed = _seen != nullptr && !SameForOperators(*now, *_seen);
  _seen = std::move(now);
  return changed;
}

void UnconfirmedChange::Confirm() { Forget("was confirmed"); }

void UnconfirmedChange::GoBack() {
  InstallLibrary(*_before);
  Host().catalogue = _catalogue;
  Host().operator_register = std::move(_register);
  Forget("was taken back");
}

void UnconfirmedChange::GoBackIfDue(Time now) {
  if (!Waits() || now < _deadline) return;
  try {
    GoBack();
    LogHostLine(0, "nobody confirmed in time: " + _end);
  } catch (const std::exception& failure) {
    // Tried again before the next command.
    LogHostLine(0, std::string("an unconfirmed change cannot be taken back: ") + failure.what());
  }
}

void UnconfirmedChange::Forget(const std::string& how) {
  _end = "the change of " + _maker + " " + how + " at " +
         LocalTimeText(std::chrono::system_clock::now());
  _before.reset();
  _seen.reset();
  _catalogue = LoadedCatalogue();
  _register = OperatorRegister();
}

void GoBackWhenDue() { Host().unconfirmed.GoBackIfDue(Host().clock()); }

}  // namespace olt_host
