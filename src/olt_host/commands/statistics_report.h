// A copy of what Host() counted, with every match profile beside it: those of the table as
// it is now, and those that won and are gone since.
#ifndef OLT_HOST_COMMANDS_STATISTICS_REPORT_H
#define OLT_HOST_COMMANDS_STATISTICS_REPORT_H

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "confirmation/confirmation_statistics.h"

namespace olt_host {

struct CountedProfile {
  MatchProfileName name;
  std::string type_name;    // of the key's real profile; empty without one
  bool is_in_table = true;  // false: deleted, or gone from the catalogue
  ProfileWins wins;
};

struct StatisticsReport {
  ConfirmationStatistics counts;
  std::chrono::system_clock::time_point when;
  // Those that won most first; of as many wins the one that won last; then by name. Those
  // that never won are at the end.
  std::vector<CountedProfile> profiles;
  std::size_t won = 0;   // of `profiles`, the first ones
  std::size_t gone = 0;  // of those that won
  std::size_t never_won() const { return profiles.size() - won; }
};

// On the command thread; the result may be read on any.
StatisticsReport ReportStatistics();

// "1001", or "1001 (2)" for the second profile with that key.
std::string KeyText(const MatchProfileName& name);
// "shipped" or "operator".
const char* SourceText(const MatchProfileName& name);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_STATISTICS_REPORT_H
