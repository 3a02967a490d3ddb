#include "recognition/hardest_reports.h"

#include <set>

namespace olt_host {

namespace {

class Hardest {
 public:
  Hardest(const PatternBoxes& boxes, const ReportSpace& space, std::size_t profile)
      : _boxes(boxes),
        _space(space),
        _profile(profile),
        _capability(boxes.ColumnOf(kCapabilityCode)),
        _set_aside(boxes.ColumnOf(kSetAsideCode)) {
    if (!IsIn(_capability, Channel::kCapability)) _capability = PositionSet::kNone;
    if (!IsIn(_set_aside, Channel::kSetAside)) _set_aside = PositionSet::kNone;
  }

  std::vector<BoxReport> Reports() const {
    BoxReport report(_boxes.Columns().size(), kNothingThere);
    for (std::size_t i = 0; i < report.size(); ++i) {
      if (i == _capability || i == _set_aside) continue;
      if (_boxes.Columns()[i].channel != Channel::kReportedType) report[i] = Value(i);
    }
    if (!ChooseType(report)) return {};
    return WithCapabilities(report);
  }

 private:
  bool IsIn(std::size_t column, Channel channel) const {
    return column != PositionSet::kNone && _boxes.Columns()[column].channel == channel;
  }
  int Cell(std::size_t column) const { return _boxes.Columns()[column].cells[_profile]; }

  // What the report holds there so that it is hardest on the others.
  int Value(std::size_t column) const {
    const BoxColumn& asked = _boxes.Columns()[column];
    const int cell = Cell(column);
    if (cell == kAnything && asked.can_hold_fresh) return kFresh;
    if (cell >= 0 && asked.can_hold[static_cast<std::size_t>(cell)]) return cell;
    return Unknown(column);
  }

  // A code without a value: a wildcard where there can be one, for unset entries refuse it.
  int Unknown(std::size_t column) const {
    const BoxColumn& asked = _boxes.Columns()[column];
    return asked.some_refuse && Cell(column) != kRefuses && _space.CanHoldWildcard(asked.code)
               ? kHeldWildcard
               : kNothingThere;
  }

  // One type stands under all columns of the reported type. False when there is none with
  // which the ONU would get to the match profiles and fit this one.
  bool ChooseType(BoxReport& report) const {
    if (_boxes.TakesUnknownTypesOnly(_profile)) return _space.TypeMayBeUnknown();
    std::set<std::uint32_t> asked;
    for (std::size_t i = 0; i < report.size(); ++i) {
      const BoxColumn& column = _boxes.Columns()[i];
      if (column.channel != Channel::kReportedType || Cell(i) == kAnything) continue;
      asked.insert(column.values[static_cast<std::size_t>(Cell(i))].number);
    }
    for (std::size_t i = 0; i < report.size(); ++i) {
      if (_boxes.Columns()[i].channel != Channel::kReportedType) continue;
      report[i] = asked.empty() ? kFresh : NumberOf(i, *asked.begin());
    }
    return true;
  }

  int NumberOf(std::size_t column, std::uint32_t type) const {
    const std::vector<ReportValue>& values = _boxes.Columns()[column].values;
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i].number == type) return static_cast<int>(i);
    }
    return kFresh;
  }

  // The report with each of the capabilities that may matter, and with code 48 instead.
  std::vector<BoxReport> WithCapabilities(const BoxReport& report) const {
    std::vector<BoxReport> reports;
    if (_capability != PositionSet::kNone) {
      for (const int value : Capabilities()) {
        reports.push_back(report);
        reports.back()[_capability] = value;
        if (_set_aside != PositionSet::kNone) reports.back()[_set_aside] = Unknown(_set_aside);
      }
    }
    if (_set_aside != PositionSet::kNone || reports.empty()) {
      reports.push_back(report);
      if (_capability != PositionSet::kNone) reports.back()[_capability] = Unknown(_capability);
      if (_set_aside != PositionSet::kNone) reports.back()[_set_aside] = Value(_set_aside);
    }
    return reports;
  }

  std::vector<int> Capabilities() const {
    const BoxColumn& column = _boxes.Columns()[_capability];
    const int cell = Cell(_capability);
    std::vector<int> values;
    if (cell == kAnything && !column.can_hold_fresh) {
      for (std::size_t i = 0; i < column.values.size(); ++i) {
        if (column.can_hold[i]) values.push_back(static_cast<int>(i));
      }
    } else if (const int value = Value(_capability); value >= 0 || value == kFresh) {
      values.push_back(value);
    }
    return values;
  }

  const PatternBoxes& _boxes;
  const ReportSpace& _space;
  std::size_t _profile;
  std::size_t _capability;  // columns, where there are such
  std::size_t _set_aside;
};

}  // namespace

std::vector<BoxReport> HardestReports(const PatternBoxes& boxes, const ReportSpace& space,
                                      std::size_t profile) {
  return Hardest(boxes, space, profile).Reports();
}

}  // namespace olt_host
