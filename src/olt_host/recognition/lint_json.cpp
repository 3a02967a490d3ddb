#include "recognition/lint_json.h"

#include "recognition/report_line.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

void AddPlace(Json& json, const SourcePosition& position, bool by_operator) {
  json["source"] = by_operator ? "operator" : "catalogue";
  json["file"] = position.file.empty() ? Json() : Json(position.file);
  json["line"] = position.file.empty() ? Json() : Json(position.line);
}

Json ToJson(const LintProfile& profile) {
  Json json = {{"profile", profile.label}, {"key", profile.key}, {"id", profile.id}};
  AddPlace(json, profile.position, profile.by_operator);
  return json;
}

Json ToJson(const std::vector<LintProfile>& profiles) {
  Json list = Json::array();
  for (const LintProfile& profile : profiles) {
    list.push_back(ToJson(profile));
  }
  return list;
}

Json ToJson(const Finding& finding) {
  Json json = {{"name", NameOf(finding.kind)},
               {"severity", ToText(finding.severity)},
               {"subject", finding.subject}};
  AddPlace(json, finding.position, finding.by_operator);
  json["reason"] = finding.reason;
  json["remedy"] = finding.remedy;
  if (!finding.related.empty()) json["related"] = ToJson(finding.related);
  if (finding.witnesses.empty()) return json;
  for (const LintWitness& witness : finding.witnesses) {
    json["witnesses"].push_back({{"other", ToJson(witness.other)},
                                 {"report", ReportJson(witness.report)},
                                 {"winner", ToJson(witness.winner)}});
  }
  json["more_witnesses"] = finding.more_witnesses;
  return json;
}

Json ToJson(const PatternProof& proof) {
  Json json = ToJson(proof.profile);
  json["reached_by_abilities"] = proof.by_abilities ? Json(*proof.by_abilities) : Json();
  json["reached_by_type"] = proof.by_type;
  if (proof.witness) json["witness"] = ReportJson(*proof.witness);
  if (!proof.takers.empty()) json["takers"] = ToJson(proof.takers);
  return json;
}

}  // namespace

nlohmann::ordered_json LintJson(const LintResult& result) {
  Json findings = Json::array();
  for (const Finding& finding : result.findings) {
    findings.push_back(ToJson(finding));
  }
  Json proofs = Json::array();
  for (const PatternProof& proof : result.proofs) {
    proofs.push_back(ToJson(proof));
  }
  return {{"summary",
           {{"errors", result.Count(Severity::kError)},
            {"warnings", result.Count(Severity::kWarning)},
            {"notes", result.Count(Severity::kNote)},
            {"match_profiles", result.proofs.size()},
            {"real_profiles", result.real_profiles},
            {"codes", result.codes},
            {"reports", result.population ? Json(*result.population) : Json()}}},
          {"findings", findings},
          {"match_profiles", proofs}};
}

}  // namespace olt_host
