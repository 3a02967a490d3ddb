// An explanation as a JSON document.
#include "commands/ability_json.h"
#include "commands/explanation_output.h"
#include "commands/explanation_words.h"
#include "commands/time_text.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

template <typename Held>
Json OrNull(const std::optional<Held>& value) {
  return value ? Json(*value) : Json(nullptr);
}

Json TypeJson(std::uint32_t type) {
  return type == kUnknownReportedType ? Json(nullptr) : Json(type);
}

Json ReportedJson(const ReportedValue& value) {
  return {{"code", value.code},
          {"name", CodeNameJson(value.code)},
          {"told", ToText(value.told)},
          {"value", value.has_value ? ValueJson(value.value) : Json(nullptr)},
          {"is_compared", value.is_compared},
          {"compared_value", ValueJson(value.compared)}};
}

Json ReportJson(const Explanation& explanation) {
  Json values = Json::array();
  for (const ReportedValue& value : explanation.values) values.push_back(ReportedJson(value));
  const OnuReport& report = explanation.report;
  return {{"file", report.position.file},
          {"line", report.position.line},
          {"reported_type", TypeJson(report.reported_type)},
          {"read_abilities", report.read_abilities},
          {"values", values}};
}

Json OriginJson(const ProfileOrigin& origin) {
  switch (origin.kind) {
    case OriginKind::kCatalogue:
      return {{"kind", "catalogue"},
              {"file", origin.position.file},
              {"line", origin.position.line},
              {"changed_since", origin.changed}};
    case OriginKind::kUnknown:
      return {{"kind", "unknown"}};
    case OriginKind::kOperator:
      break;
  }
  Json json = {{"kind", "operator"},
               {"user", nullptr},
               {"session", nullptr},
               {"restored", nullptr},
               {"at", nullptr}};
  if (!origin.note) return json;
  if (!origin.note->user.empty()) json["user"] = origin.note->user;
  if (origin.note->session != 0) json["session"] = origin.note->session;
  json["restored"] = origin.note->restored;
  json["at"] = UtcTimeText(origin.note->when);
  return json;
}

Json ComparisonJson(const AbilityComparison& comparison) {
  return {{"code", comparison.code},
          {"name", CodeNameJson(comparison.code)},
          {"verdict", ToText(comparison.verdict)},
          {"reported", ValueJson(comparison.reported)},
          {"profile", ValueJson(comparison.held)}};
}

Json VerdictJson(const ProfileVerdict& verdict) {
  const AbilityTally& tally = verdict.tally;
  return {{"turn", verdict.turn},
          {"source", verdict.source},
          {"id", verdict.id},
          {"key", OrNull(verdict.key)},
          {"type_name", verdict.name},
          {"fate", ToText(verdict.fate)},
          {"fits", verdict.fits},
          {"agree", tally.agrees},
          {"wildcard", tally.wildcards},
          {"absent", tally.absent},
          {"against", tally.against},
          {"decided_by", tally.decider ? ComparisonJson(*tally.decider) : Json(nullptr)}};
}

Json WinnerJson(const Explanation& explanation) {
  if (!explanation.winner) return nullptr;
  Json json = VerdictJson(explanation.profiles[*explanation.winner]);
  json["origin"] = OriginJson(explanation.origin);
  json["abilities"] = Json::array();
  for (const AbilityComparison& comparison : explanation.winner_abilities) {
    json["abilities"].push_back(ComparisonJson(comparison));
  }
  json["not_reported"] = explanation.unreported;
  return json;
}

Json TranslationJson(const Explanation& explanation) {
  const TypeTranslation& translation = explanation.translation;
  Json json = {{"before", TypeJson(translation.before)},
               {"key", TypeJson(translation.key)},
               {"real_profile", nullptr},
               {"trans_type", translation.trans_type},
               {"capability", translation.capability},
               {"setting", ToText(translation.setting)},
               {"mode", nullptr},
               {"is_vendor_apart", OrNull(translation.is_vendor_apart)},
               {"common", ToText(translation.common)},
               {"common_type", nullptr},
               {"after", TypeJson(translation.after)},
               {"translated", translation.Translated()}};
  if (translation.real_profile) json["real_profile"] = OriginJson(explanation.real_origin);
  if (translation.setting != IdentifySetting::kNone) json["mode"] = translation.mode;
  if (translation.common != CommonType::kNone) json["common_type"] = translation.common_type;
  return json;
}

Json IndexAsTurn(const std::optional<std::size_t>& index) {
  return index ? Json(*index + 1) : Json(nullptr);
}

}  // namespace

Json ExplanationJson(const Explanation& explanation) {
  Json profiles = Json::array();
  for (const ProfileVerdict& verdict : explanation.profiles) {
    profiles.push_back(VerdictJson(verdict));
  }
  return {{"place", explanation.report.place},
          {"onu", explanation.report.onu},
          {"report", ReportJson(explanation)},
          {"recognised_by", ToText(explanation.how)},
          {"abilities_compared", explanation.compared},
          {"real_type", OrNull(explanation.real_type)},
          {"type_name", explanation.type_name},
          {"report_type", explanation.report_type},
          {"winner", WinnerJson(explanation)},
          {"turn_by_abilities_alone", IndexAsTurn(explanation.by_abilities)},
          {"translation", TranslationJson(explanation)},
          {"profiles", profiles}};
}

}  // namespace olt_host
