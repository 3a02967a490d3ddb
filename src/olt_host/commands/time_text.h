// Moments and durations as commands show them.
#ifndef OLT_HOST_COMMANDS_TIME_TEXT_H
#define OLT_HOST_COMMANDS_TIME_TEXT_H

#include <chrono>
#include <string>

namespace olt_host {

// In the process's own time zone: "2026-11-21 13:20:11".
std::string LocalTimeText(std::chrono::system_clock::time_point time);
// The same with milliseconds, as log lines have it.
std::string LocalTimeTextWithMilliseconds(std::chrono::system_clock::time_point time);

// For JSON: "2026-11-21T12:20:11.123Z".
std::string UtcTimeText(std::chrono::system_clock::time_point time);

// "42s", "3m 07s", "5h 02m", "12d 03h".
std::string DurationText(std::chrono::seconds duration);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TIME_TEXT_H
