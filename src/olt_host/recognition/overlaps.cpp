#include "recognition/overlaps.h"

#include <algorithm>
#include <optional>

namespace olt_host {

namespace {

bool IsHeld(const BoxColumn& column, int cell) {
  return cell >= 0 && column.can_hold[static_cast<std::size_t>(cell)];
}

// What a complete report does with a column. kAside: it is answered, and held as a wildcard
// then.
enum class Use { kLeftOut, kTold, kAside };

// Complete reports of one form: what they do with each column.
class Form {
 public:
  Form(const PatternBoxes& boxes, std::vector<Use> uses)
      : _boxes(boxes), _uses(std::move(uses)), _able(boxes.Profiles(), true) {
    for (std::size_t profile = 0; profile < boxes.Profiles(); ++profile) {
      if (!TakesSome(profile)) _able.Remove(profile);
    }
  }

  // The profiles with which this one shares such a report, itself included.
  PositionSet SharingWith(std::size_t profile) const {
    PositionSet sharing = _able;
    if (!_able.Contains(profile)) return PositionSet(_boxes.Profiles());
    for (std::size_t i = 0; i < _uses.size(); ++i) {
      const int cell = _boxes.Columns()[i].cells[profile];
      if (_uses[i] == Use::kTold && cell >= 0) sharing &= _boxes.Passing(i, cell);
    }
    return sharing;
  }

  // A report that fits both, which share one.
  BoxReport ReportOf(std::size_t a, std::size_t b) const {
    BoxReport report(_uses.size(), kNothingThere);
    for (std::size_t i = 0; i < report.size(); ++i) {
      const BoxColumn& column = _boxes.Columns()[i];
      if (_uses[i] == Use::kAside) report[i] = kHeldWildcard;
      if (_uses[i] != Use::kTold) continue;
      report[i] = column.cells[a] >= 0 ? column.cells[a] : column.cells[b];
      if (report[i] < 0) report[i] = AnyValue(column);
    }
    return report;
  }

 private:
  static int AnyValue(const BoxColumn& column) {
    if (column.can_hold_fresh) return kFresh;
    const auto held = std::find(column.can_hold.begin(), column.can_hold.end(), true);
    return static_cast<int>(held - column.can_hold.begin());
  }

  bool TakesSome(std::size_t profile) const {
    for (std::size_t i = 0; i < _uses.size(); ++i) {
      const BoxColumn& column = _boxes.Columns()[i];
      const int cell = column.cells[profile];
      if (_uses[i] == Use::kTold && cell != kAnything && !IsHeld(column, cell)) return false;
      if (_uses[i] == Use::kAside && cell == kRefuses) return false;
    }
    return true;
  }

  const PatternBoxes& _boxes;
  std::vector<Use> _uses;
  PositionSet _able;  // to take one of these reports
};

std::vector<Form> Forms(const PatternBoxes& boxes, const ReportSpace& space) {
  std::vector<Use> with_capability;
  std::vector<Use> without;
  for (const BoxColumn& column : boxes.Columns()) {
    Use use = Use::kTold;
    if (column.channel == Channel::kReportedType && space.TypeMayBeUnknown()) use = Use::kLeftOut;
    with_capability.push_back(column.channel == Channel::kSetAside ? Use::kAside : use);
    without.push_back(column.channel == Channel::kCapability ? Use::kLeftOut : use);
  }
  std::vector<Form> forms = {Form(boxes, with_capability)};
  if (!space.IsAsked(kCapabilityCode)) forms.emplace_back(boxes, without);
  return forms;
}

class Search {
 public:
  Search(const PatternBoxes& boxes, const ReportSpace& space, const LibraryTrial& trial)
      : _boxes(boxes), _space(space), _trial(trial), _forms(Forms(boxes, space)) {
    for (std::size_t profile = 0; profile < boxes.Profiles(); ++profile) {
      _wider.push_back(boxes.AtLeastAsWide(profile));
    }
  }

  PatternOverlaps Of(std::size_t older, std::size_t examples) {
    PatternOverlaps result;
    PositionSet sharing(_boxes.Profiles());
    for (const Form& form : _forms) {
      sharing |= form.SharingWith(older);
    }
    sharing.RemoveUpTo(older);
    std::vector<std::size_t> newer = sharing.Positions();
    std::reverse(newer.begin(), newer.end());
    for (const std::size_t position : newer) {
      if (_wider[older].Contains(position)) continue;
      if (_wider[position].Contains(older)) {
        ++result.behind;
        continue;
      }
      ++result.crossing;
      if (result.examples.size() < examples) AddExample(result, older, position);
    }
    return result;
  }

 private:
  void AddExample(PatternOverlaps& result, std::size_t older, std::size_t newer) {
    for (const Form& form : _forms) {
      if (!form.SharingWith(older).Contains(newer)) continue;
      std::size_t winner = newer;
      const BoxReport report = form.ReportOf(newer, older);
      if (!HasDependentColumns(_boxes)) winner = _boxes.Fitting(report).Highest();
      const auto witness =
          FindReport(_boxes, _space, report, _trial, [&](const PositionSet& fitting) {
            winner = fitting.Highest();
            return fitting.Contains(older) && fitting.Contains(newer);
          });
      if (!witness) continue;
      result.examples.push_back({newer, *witness, winner});
      return;
    }
  }

  const PatternBoxes& _boxes;
  const ReportSpace& _space;
  const LibraryTrial& _trial;
  std::vector<Form> _forms;
  std::vector<PositionSet> _wider;  // of each profile, those at least as wide
};

}  // namespace

std::vector<PatternOverlaps> FindOverlaps(const PatternBoxes& boxes, const ReportSpace& space,
                                          const LibraryTrial& trial, std::size_t examples) {
  Search search(boxes, space, trial);
  std::vector<PatternOverlaps> overlaps;
  overlaps.reserve(boxes.Profiles());
  for (std::size_t older = 0; older < boxes.Profiles(); ++older) {
    overlaps.push_back(search.Of(older, examples));
  }
  return overlaps;
}

}  // namespace olt_host
