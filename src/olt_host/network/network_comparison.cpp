#include "network/network_comparison.h"

#include "recognition/catalogue_exchange.h"
#include "recognition/one_report.h"

namespace olt_host {

namespace {

LibraryState Load(const Catalogue& catalogue) {
  LibraryState state = StateOf(catalogue);
  LoadInstead(state);
  return state;
}

}  // namespace

NetworkComparison::Side::Side(const Catalogue& catalogue, const Catalogue& other)
    : names(NamesOf(catalogue, other)), state(Load(catalogue)), type_names(ReadTypeNames()) {}

NetworkComparison::NetworkComparison(const Catalogue& older, const Catalogue& newer,
                                     const Shard& shard)
    : _shard(shard),
      _codes(older, newer),
      _older(older, newer),
      _newer(newer, older),
      _held(&_newer),
      _read_alike(MeanTheSame(_older.names, _newer.names)) {}

NetworkDifference NetworkComparison::Compare(const std::string& task, const std::string& file) {
  NetworkDifference difference;
  const std::vector<Onu> onus = ReadBlock(task, file, difference.refused);
  std::vector<OnuOutcome> before;
  std::vector<OnuOutcome> after;
  if (_held == &_older) before = OutcomesOf(onus, _older);
  after = OutcomesOf(onus, _newer);
  if (before.empty()) before = OutcomesOf(onus, _older);
  DifferenceCounter counter;
  CodesOfOne codes = _codes;
  for (std::size_t i = 0; i < onus.size(); ++i) {
    const OnuReport& report = onus[i].for_older.report;
    counter.Count({onus[i].for_older.olt, 0, report.place, report.onu}, before[i], after[i],
                  {_older.type_names, _newer.type_names}, onus[i].line);
    codes.Count(report, onus[i].ForNewer().report);
  }
  difference.difference = counter.Difference();
  difference.codes_of_one = codes.Codes();
  return difference;
}

void NetworkComparison::AskReasons(PopulationDifference& difference) {
  Ask(difference, _newer, AskAfter);
  Ask(difference, _older, AskBefore);
}

std::vector<NetworkComparison::Onu> NetworkComparison::ReadBlock(const std::string& task,
                                                                 const std::string& file,
                                                                 RefusedLines& refused) const {
  BlockReader block(_older.names, file, _shard);
  JsonReportReader reader(_newer.names);
  std::vector<Onu> onus;
  const auto take = [&](const NetworkReport& report, std::string_view line) {
    Onu onu{report, std::nullopt, line};
    try {
      if (!_read_alike) onu.for_newer = reader.Read(line, report.report.position);
      onus.push_back(std::move(onu));
    } catch (const InputError& error) {
      // Only the shard that has the OLT comes here.
      refused.Add({file, report.report.position.line, error.rule()});
    }
  };
  block.Read(task, take, refused);
  return onus;
}

void NetworkComparison::Hold(const Side& side) {
  if (_held == &side) return;
  LoadInstead(side.state);
  _held = &side;
}

std::vector<OnuOutcome> NetworkComparison::OutcomesOf(const std::vector<Onu>& onus, Side& side) {
  std::vector<OnuOutcome> outcomes;
  if (onus.empty()) return outcomes;
  Hold(side);
  outcomes.reserve(onus.size());
  for (const Onu& onu : onus) {
    const NetworkReport& report = &side == &_older ? onu.for_older : onu.ForNewer();
    outcomes.push_back(side.reader.Read(OneReport(report.report, report.settings), report.report));
  }
  return outcomes;
}

void NetworkComparison::Ask(PopulationDifference& difference, const Side& side,
                            void (*ask)(PopulationDifference&, const GatherExample&)) {
  Hold(side);
  JsonReportReader reader(side.names);
  ask(difference, [&reader](const ChangeGroup& group) {
    const NetworkReport report = reader.Read(group.report, {});
    return GatherForComparison(OneReport(report.report, report.settings), report.report);
  });
}

}  // namespace olt_host
