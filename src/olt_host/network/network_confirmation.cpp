#include "network/network_confirmation.h"

#include <charconv>
#include <stdexcept>

#include "confirmation/confirmer.h"
#include "confirmation/csv_writer.h"
#include "confirmation/match_profile_names.h"
#include "recognition/one_report.h"
#include "recognition/pattern_standing.h"
#include "recognition/population_outcome.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

}  // namespace

std::string ToBytes(const BlockResult& result) {
  return std::to_string(result.rows.size()) + "\n" + result.rows +
         ToJson(result.summary).dump(-1, ' ', false, Json::error_handler_t::replace);
}

BlockResult ParseBlockResult(const std::string& bytes) {
  const std::size_t head = bytes.find('\n');
  std::size_t rows = 0;
  std::from_chars(bytes.data(), bytes.data() + bytes.size(), rows);
  if (head == std::string::npos || rows > bytes.size() - head - 1) {
    throw std::invalid_argument("no result of a block");
  }
  return {bytes.substr(head + 1, rows),
          ParseNetworkSummary(Json::parse(
              bytes.begin() + static_cast<std::ptrdiff_t>(head + 1 + rows), bytes.end()))};
}

std::string NetworkCsvHeader() { return "olt," + CsvHeader(); }

NetworkConfirmation::NetworkConfirmation(const Catalogue& catalogue, std::string file,
                                         const Shard& shard, bool with_rows)
    : _reader(catalogue, std::move(file), shard),
      _with_rows(with_rows),
      _patterns(MatchProfiles()),
      _names(MatchProfileNames(_patterns, catalogue.key_ability_code)),
      _type_names(ReadTypeNames()),
      _index(_patterns) {
  for (std::size_t i = 0; i < _patterns.size(); ++i) {
    _positions[{_names[i].source, _patterns[i]._id}] = i;
  }
}

BlockResult NetworkConfirmation::Confirm(const std::string& task) {
  BlockResult result;
  _reader.Read(
      task,
      [this, &result](const NetworkReport& report, std::string_view /*line*/) {
        ConfirmOne(report, result);
      },
      result.summary.refused);
  return result;
}

NetworkSummary NetworkConfirmation::NoWins() const {
  NetworkSummary summary;
  for (const MatchProfileName& name : _names) {
    summary.profiles[name] = {TypeNameOf(name.key), 0};
  }
  return summary;
}

void NetworkConfirmation::ConfirmOne(const NetworkReport& report, BlockResult& result) {
  const OneReport source(report.report, report.settings);
  ConfirmationTrace trace;
  const ConfirmationResult confirmed = ConfirmOnu(source, report.report, &trace);
  std::optional<MatchProfileName> winner;
  if (trace.winner) {
    const auto position = _positions.find(
        {static_cast<unsigned int>(trace.winner->_profile_source), trace.winner->_id});
    if (position != _positions.end()) winner = _names[position->second];
  }
  NetworkSummary& summary = result.summary;
  summary.Count(report.olt, confirmed, winner);
  for (std::size_t i = 0; i < kHooks; ++i) summary.hook_calls[i] += trace.hook_calls[i];
  if (!confirmed.real_type) CountUnrecognised(report, summary);
  if (_with_rows) result.rows += CsvField(report.olt) + "," + CsvRow(confirmed);
}

void NetworkConfirmation::CountUnrecognised(const NetworkReport& report, NetworkSummary& summary) {
  const OnuAbilityProfile gathered =
      GatherForComparison(OneReport(report.report, report.settings), report.report);
  const auto nearest = _index.NearestTo(gathered);
  if (!nearest) {
    ++summary.compared_with_nothing;
    return;
  }
  const MatchProfileName& name = _names[nearest->position];
  UnrecognisedGroup one;
  one.onus = 1;
  one.example = {report.olt, report.report.place, report.report.onu};
  const UnrecognisedKey key = {name, nearest->first_code};
  const auto known = summary.unrecognised.find(key);
  // Texts are made for the example alone.
  if (known == summary.unrecognised.end() || one.example < known->second.example) {
    const PatternStanding standing = StandingOf(_patterns[nearest->position], gathered);
    one.type_name = TypeNameOf(name.key);
    one.ability = standing.ability;
    one.reported = standing.reported;
    one.held = standing.held;
  }
  summary.CountUnrecognised(key, one);
}

std::string NetworkConfirmation::TypeNameOf(std::uint32_t key) const {
  const auto name = _type_names.find(key);
  return name == _type_names.end() ? "" : name->second;
}

}  // namespace olt_host
