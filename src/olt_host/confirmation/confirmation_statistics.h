// What the host counts while it runs: confirmations of live ONUs and what became of them,
// which match profile won how often, the hook calls and the time that this took, and the
// operators' commands. Questions about what would be are not counted.
//
// Never kept in a file: counting begins with the process and again with Clear.
// On the command thread.
#ifndef OLT_HOST_CONFIRMATION_CONFIRMATION_STATISTICS_H
#define OLT_HOST_CONFIRMATION_CONFIRMATION_STATISTICS_H

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "confirmation/confirmation_result.h"
#include "confirmation/duration_histogram.h"
#include "confirmation/hook_calls.h"
#include "confirmation/match_profile_name.h"

namespace olt_host {

struct ProfileWins {
  std::uint64_t wins = 0;
  std::chrono::system_clock::time_point last;
  std::string type_name;  // of the ONU that it won last
};

class ConfirmationStatistics {
 public:
  using Time = std::chrono::system_clock::time_point;

  explicit ConfirmationStatistics(Time since = std::chrono::system_clock::now()) : _since(since) {}

  // A live ONU was confirmed, at `when`, in `duration`, with `calls` of hooks. `winner`:
  // the match profile that took it; nothing when none did.
  void Count(const ConfirmationResult& result, const std::optional<MatchProfileName>& winner,
             const HookCalls& calls, DurationHistogram::Duration duration, Time when);
  // An operator's command was run.
  void CountCommand(bool may_change) { ++(may_change ? _changing_commands : _looking_commands); }
  // Forgets everything.
  void Clear(Time now) { *this = ConfirmationStatistics(now); }

  Time since() const { return _since; }
  const ConfirmationSummary& summary() const { return _summary; }
  const HookCalls& hook_calls() const { return _hook_calls; }
  const DurationHistogram& durations() const { return _durations; }
  std::uint64_t looking_commands() const { return _looking_commands; }
  std::uint64_t changing_commands() const { return _changing_commands; }
  // Only profiles that won; also those that are gone since.
  const std::map<MatchProfileName, ProfileWins>& wins() const { return _wins; }

 private:
  Time _since;
  ConfirmationSummary _summary;
  HookCalls _hook_calls{};
  DurationHistogram _durations;
  std::uint64_t _looking_commands = 0;
  std::uint64_t _changing_commands = 0;
  std::map<MatchProfileName, ProfileWins> _wins;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CONFIRMATION_STATISTICS_H
