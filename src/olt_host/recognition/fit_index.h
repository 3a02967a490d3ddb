// Which of many patterns fit a report, for many reports: as fast as one lookup a value.
//
// For each code stand the distinct values that the patterns hold under it. Whether one of
// them fits a reported value is asked of the library's comparison, once for each pair, and
// only where a pattern that holds it may still fit. The patterns that fit a report are the
// intersection over its compared codes.
//
// By the code registry at the moment of the question, which must not change in between. On
// the thread that works with the library; its tables are not touched.
#ifndef OLT_HOST_RECOGNITION_FIT_INDEX_H
#define OLT_HOST_RECOGNITION_FIT_INDEX_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "onu_ability_common_table.h"
#include "recognition/position_set.h"

namespace olt_host {

class FitIndex {
 public:
  // Of one code so many values are remembered: ONUs report garbage without end, and what is
  // forgotten is asked for again.
  static constexpr std::size_t kMostReported = 2048;

  // Keeps copies of what it needs.
  explicit FitIndex(const std::vector<OnuAbilityProfile>& patterns);

  // The positions of the patterns that fit, ascending: the last is the newest.
  std::vector<std::size_t> Fitting(const OnuAbilityProfile& report);

  // Reported values that are remembered, of all codes.
  std::size_t Remembered() const;

  // The pattern that the fewest abilities of the report decide against, of several the
  // newest; nothing without patterns.
  struct Nearest {
    std::size_t position = 0;
    std::size_t against = 0;
    std::uint16_t first_code = 0;  // of those that decide against it
  };
  std::optional<Nearest> NearestTo(const OnuAbilityProfile& report);

 private:
  using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;
  // Everything by which values can differ.
  using ValueKey = std::tuple<unsigned int, unsigned int, std::string>;

  // The patterns that hold one value, or lack the code.
  struct Held {
    OnuAbilityProfile profile;  // with this value alone
    PositionSet patterns;
  };
  // The verdicts on one reported value, by the distinct held ones.
  struct Reported {
    OnuAbilityProfile report;  // of this value alone
    std::vector<char> verdicts;
    std::optional<PositionSet> fitting;  // of all patterns, once all verdicts are known
  };
  struct Column {
    bool is_compared = false;
    std::vector<Held> held;
    std::vector<std::uint32_t> held_by;  // of each pattern
    std::map<ValueKey, Reported> reported;
  };

  Column& ColumnOf(std::uint16_t code);
  Column MakeColumn(std::uint16_t code) const;
  static Reported& ReportedIn(Column& column, std::uint16_t code, const Value& value);
  static bool FitsHeld(Column& column, Reported& reported, std::size_t held);
  static void KeepFitting(Column& column, Reported& reported, PositionSet& fitting);

  std::vector<OnuAbilityProfile> _patterns;
  std::map<std::uint16_t, Column> _columns;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_FIT_INDEX_H
