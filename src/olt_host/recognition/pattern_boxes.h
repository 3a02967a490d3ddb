// Match profiles as boxes: what each asks of a report, code by code, as the library
// compares it. A column is a code that is compared, that a report can hold and that some
// profile restricts; in it a profile asks for anything, for one value, or refuses whatever
// the report holds.
//
// Which value a profile holds is read by its tag, as the library does: of a report's text
// a number says nothing, and of a number a text, so such a profile asks for anything there.
// An entry without a tag refuses every report that holds the code; a profile without the
// key code gets such an entry when it is first compared.
//
// By the code registry and the match profiles as they were when this was made.
#ifndef OLT_HOST_RECOGNITION_PATTERN_BOXES_H
#define OLT_HOST_RECOGNITION_PATTERN_BOXES_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "recognition/position_set.h"
#include "recognition/report_space.h"

namespace olt_host {

// What stands under a code in a report or in a profile: one of these, or the number of a
// value of the column, counted from 0. kFresh: a value that no profile names.
constexpr int kNothingThere = -1;
constexpr int kHeldWildcard = -2;
constexpr int kFresh = -3;
constexpr int kAnything = -4;  // of a profile
constexpr int kRefuses = -5;   // of a profile

struct BoxColumn {
  std::uint16_t code = 0;
  Channel channel = Channel::kNothing;
  std::vector<ReportValue> values;     // that profiles name, each once
  std::map<ReportValue, int> numbers;  // of the values
  std::vector<int> cells;              // a profile each
  // Whether a report can hold the value.
  std::vector<bool> can_hold;
  ReportValue fresh;  // a value that no profile names
  bool can_hold_fresh = true;
  bool some_refuse = false;
};

// A report as far as the columns see it: an entry a column.
using BoxReport = std::vector<int>;

class PatternBoxes {
 public:
  // The profiles from the oldest to the newest.
  PatternBoxes(const std::vector<OnuAbilityProfile>& match_profiles, const ReportSpace& space);

  std::size_t Profiles() const { return _profiles; }
  const std::vector<BoxColumn>& Columns() const { return _columns; }
  // The column of a code, PositionSet::kNone when there is none.
  std::size_t ColumnOf(std::uint16_t code) const;

  // The profiles that this under the column does not decide against.
  const PositionSet& Passing(std::size_t column, int reported) const;
  // What a report that the library has gathered holds, the capability brought in.
  BoxReport Read(const OnuAbilityProfile& gathered) const;
  // The profiles that fit the report.
  PositionSet Fitting(const BoxReport& report) const;
  // Whether only ONUs of which no type is known fit the profile: it asks for a type that
  // no report holds, or for two.
  bool TakesUnknownTypesOnly(std::size_t profile) const;
  // The profiles that ask for no more than this one, itself included.
  PositionSet AtLeastAsWide(std::size_t profile) const;
  // Whether the profile asks for anything at all.
  bool TakesEverything(std::size_t profile) const;

 private:
  struct Passes {
    PositionSet all;
    PositionSet not_refusing;           // by a wildcard
    PositionSet anything;               // by a value that no profile names
    std::vector<PositionSet> by_value;  // as the column's values
  };

  void AddColumn(std::uint16_t code, const std::vector<OnuAbilityProfile>& profiles,
                 const ReportSpace& space);

  std::size_t _profiles;
  std::vector<BoxColumn> _columns;
  std::vector<Passes> _passes;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PATTERN_BOXES_H
