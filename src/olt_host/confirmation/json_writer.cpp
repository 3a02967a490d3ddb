#include "confirmation/json_writer.h"

#include <nlohmann/json.hpp>
#include <string>

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

template <typename Value>
Json ValueOrNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}

// Texts of a file need not be UTF-8.
std::string Dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json ExpectationJson(const Expectation& expect) {
  Json json;
  json["real_type"] = ValueOrNull(expect.real_type);
  if (expect.how) {
    json["recognised_by"] = ToText(*expect.how);
  }
  if (expect.report_type) {
    json["report_type"] = *expect.report_type;
  }
  return json;
}

}  // namespace

Json ResultJson(const ConfirmationResult& result) {
  Json json;
  json["place"] = result.place;
  json["onu"] = result.onu;
  json["vendor_id"] = ValueOrNull(result.vendor_id);
  json["reported_type"] =
      result.reported_type == kUnknownReportedType ? Json(nullptr) : Json(result.reported_type);
  json["real_type"] = ValueOrNull(result.real_type);
  json["type_name"] = result.type_name;
  json["recognised_by"] = ToText(result.how);
  json["translated"] = result.translated;
  json["report_type"] = result.report_type;
  json["expected"] = result.expect ? ExpectationJson(*result.expect) : Json(nullptr);
  json["ok"] = result.expect ? Json(result.Ok()) : Json(nullptr);
  return json;
}

Json SummaryJson(const ConfirmationSummary& summary) {
  Json json;
  json["onus"] = summary.onus;
  json["by_type"] = summary.by_type;
  json["by_abilities"] = summary.by_abilities;
  json["not_recognised"] = summary.not_recognised;
  json["translated"] = summary.translated;
  json["with_expectation"] = summary.with_expectation;
  json["not_as_expected"] = summary.expectation_failed;
  return json;
}

void JsonWriter::Begin(const ConfirmationRun& run) {
  Json catalogue;
  catalogue["name"] = run.catalogue_name;
  catalogue["version"] = run.catalogue_version;
  _out << "{\"catalogue\": " << Dump(catalogue) << ",\n \"reports\": " << Dump(run.reports_name)
       << ",\n";
  if (!_summary_only) {
    _out << " \"results\": [";
  }
}

void JsonWriter::Write(const ConfirmationResult& result) {
  if (_summary_only) {
    return;
  }
  _out << (_first ? "\n  " : ",\n  ") << Dump(ResultJson(result));
  _first = false;
}

void JsonWriter::End(const ConfirmationSummary& summary) {
  if (!_summary_only) {
    _out << "],\n";
  }
  _out << " \"summary\": " << Dump(SummaryJson(summary)) << "}\n";
}

}  // namespace olt_host
