#include "confirmation/confirmation_statistics.h"

namespace olt_host {

void ConfirmationStatistics::Count(const ConfirmationResult& result,
                                   const std::optional<MatchProfileName>& winner,
                                   const HookCalls& calls, DurationHistogram::Duration duration,
                                   Time when) {
  _summary.Count(result);
  for (std::size_t hook = 0; hook < kHooks; ++hook) _hook_calls[hook] += calls[hook];
  _durations.Count(duration);
  if (!winner) return;
  ProfileWins& wins = _wins[*winner];
  ++wins.wins;
  wins.last = when;
  wins.type_name = result.type_name;
}

}  // namespace olt_host
