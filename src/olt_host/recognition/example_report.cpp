#include "recognition/example_report.h"

#include <algorithm>
#include <set>
#include <utility>

#include "catalogue/catalogue.h"
#include "recognition/one_report.h"
#include "recognition/silent_observer.h"

namespace olt_host {

namespace {

// The lowest type that is no key and that no profile names.
std::uint32_t FreshType(const PatternBoxes& boxes, const ReportSpace& space) {
  std::set<std::uint32_t> named;
  for (const BoxColumn& column : boxes.Columns()) {
    if (column.channel != Channel::kReportedType) continue;
    for (const ReportValue& value : column.values) {
      named.insert(value.number);
    }
  }
  std::uint32_t type = 1;
  while (named.count(type) != 0 || space.IsKey(type)) ++type;
  return type;
}

void SetType(OnuReport& made, const PatternBoxes& boxes, const ReportSpace& space,
             const BoxReport& report) {
  bool told = !space.TypeMayBeUnknown();
  for (std::size_t i = 0; i < report.size(); ++i) {
    const BoxColumn& column = boxes.Columns()[i];
    if (column.channel != Channel::kReportedType || report[i] == kNothingThere) continue;
    if (report[i] >= 0) {
      made.reported_type = column.values[static_cast<std::size_t>(report[i])].number;
      return;
    }
    told = true;
  }
  if (told) made.reported_type = FreshType(boxes, space);
}

void SetValue(OnuReport& made, const BoxColumn& column, const ReportValue& value) {
  switch (column.channel) {
    case Channel::kVendorId:
      made.vendor_id = value.text;
      break;
    case Channel::kDeviceName:
      made.device_name = value.text;
      break;
    case Channel::kCapability:
      made.private_capability = static_cast<std::uint8_t>(value.number);
      break;
    case Channel::kAsked:
    case Channel::kSetAside:
    case Channel::kTotal:
      made.abilities[column.code] = value.number;
      break;
    case Channel::kReportedType:
    case Channel::kNothing:
      break;
  }
}

// Makes the codes hold a wildcard that only an answer or its absence leaves there. A known
// capability sets code 48 aside, whatever it is.
void SetWildcard(OnuReport& made, const BoxColumn& column) {
  if (column.channel == Channel::kSetAside) {
    made.abilities[column.code] = 0;
    if (!made.private_capability) made.private_capability = std::uint8_t{0};
  }
  if (column.channel == Channel::kCapability) {
    made.abilities[column.code] = kUnknownPrivateCapability;
  }
}

// The report with its ports changed: none but those that the profile asks for, and one
// that fills up a total.
std::vector<OnuReport> OtherPorts(const PatternBoxes& boxes, const ReportSpace& space,
                                  const BoxReport& report, const OnuReport& made) {
  OnuReport without = made;
  std::uint32_t sum = 0;
  std::vector<std::uint16_t> spare;
  for (const std::uint16_t port : space.Ports()) {
    const std::size_t column = boxes.ColumnOf(port);
    if (column != PositionSet::kNone && report[column] >= 0) {
      sum += without.abilities[port];
    } else {
      without.abilities.erase(port);
      spare.push_back(port);
    }
  }
  std::vector<OnuReport> others = {without};
  for (const std::uint16_t total : {kAllLanCode, kDataUniCode}) {
    const std::size_t column = boxes.ColumnOf(total);
    if (column == PositionSet::kNone || report[column] < 0) continue;
    const std::uint32_t wanted =
        boxes.Columns()[column].values[static_cast<std::size_t>(report[column])].number;
    for (const std::uint16_t port : spare) {
      others.push_back(without);
      others.back().abilities[port] = wanted - sum;
    }
  }
  return others;
}

}  // namespace

OnuReport MakeReport(const PatternBoxes& boxes, const ReportSpace& space, const BoxReport& report) {
  OnuReport made;
  made.place = 1;
  made.onu = 1;
  SetType(made, boxes, space, report);
  for (std::size_t i = 0; i < report.size(); ++i) {
    const BoxColumn& column = boxes.Columns()[i];
    if (report[i] >= 0) {
      SetValue(made, column, column.values[static_cast<std::size_t>(report[i])]);
    } else if (report[i] == kFresh) {
      SetValue(made, column, column.fresh);
    } else if (report[i] == kHeldWildcard) {
      SetWildcard(made, column);
    }
  }
  return made;
}

PositionSet LibraryTrial::Fitting(const OnuReport& report) const {
  const OneReport source(report);
  SilentObserver observer;
  const ScopedHookContext context(source, observer);
  ConfirmOnuType gathered(report.place, report.onu);
  gathered.Init();
  gathered.UpdateOnucapaFromSpecialMe();
  return _boxes.Fitting(_boxes.Read(gathered));
}

bool HasDependentColumns(const PatternBoxes& boxes) {
  const unsigned short key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  return key_code == kSetAsideCode ||
         std::any_of(boxes.Columns().begin(), boxes.Columns().end(),
                     [](const BoxColumn& column) { return column.channel == Channel::kTotal; });
}

std::optional<OnuReport> FindReport(const PatternBoxes& boxes, const ReportSpace& space,
                                    const BoxReport& report, const LibraryTrial& trial,
                                    const std::function<bool(const PositionSet&)>& holds) {
  const OnuReport made = MakeReport(boxes, space, report);
  if (!HasDependentColumns(boxes) || holds(trial.Fitting(made))) return made;
  for (const OnuReport& other : OtherPorts(boxes, space, report, made)) {
    if (holds(trial.Fitting(other))) return other;
  }
  return std::nullopt;
}

}  // namespace olt_host
