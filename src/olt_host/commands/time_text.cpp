#include "commands/time_text.h"

#include <cstdio>
#include <ctime>

namespace olt_host {

namespace {

using Time = std::chrono::system_clock::time_point;

std::string Formatted(const char* format, const std::tm& fields) {
  char text[64];
  const std::size_t length = std::strftime(text, sizeof text, format, &fields);
  return {text, length};
}

std::string LocalText(const char* format, Time time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm fields = {};
  localtime_r(&seconds, &fields);
  return Formatted(format, fields);
}

std::string Milliseconds(Time time) {
  const auto since_epoch =
      std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  char text[8];
  std::snprintf(text, sizeof text, ".%03d", static_cast<int>(since_epoch.count() % 1000));
  return text;
}

std::string TwoUnits(long long first, const char* first_unit, long long second,
                     const char* second_unit) {
  char text[48];
  std::snprintf(text, sizeof text, "%lld%s %02lld%s", first, first_unit, second, second_unit);
  return text;
}

}  // namespace

std::string LocalTimeText(Time time) { return LocalText("%Y-%m-%d %H:%M:%S", time); }

std::string LocalTimeTextWithMilliseconds(Time time) {
  return LocalTimeText(time) + Milliseconds(time);
}

std::string UtcTimeText(Time time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm fields = {};
  gmtime_r(&seconds, &fields);
  return Formatted("%Y-%m-%dT%H:%M:%S", fields) + Milliseconds(time) + "Z";
}

std::string DurationText(std::chrono::seconds duration) {
  constexpr long long kMinute = 60;
  constexpr long long kHour = 60 * kMinute;
  constexpr long long kDay = 24 * kHour;
  const long long seconds = duration.count();
  if (seconds < kMinute) {
    return std::to_string(seconds) + "s";
  }
  if (seconds < kHour) {
    return TwoUnits(seconds / kMinute, "m", seconds % kMinute, "s");
  }
  if (seconds < kDay) {
    return TwoUnits(seconds / kHour, "h", seconds % kHour / kMinute, "m");
  }
  return TwoUnits(seconds / kDay, "d", seconds % kDay / kHour, "h");
}

}  // namespace olt_host
