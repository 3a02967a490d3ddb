#include "recognition/lint_text.h"

#include <algorithm>
#include <map>

#include "recognition/lint_subject.h"
#include "recognition/report_line.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

constexpr std::size_t kListedOfKind = 10;  // unless everything is asked for

std::string FindingPlace(const Finding& finding) {
  if (!finding.position.file.empty()) return ToText(finding.position);
  return finding.by_operator ? "an operator's" : "in memory";
}

std::string WitnessText(const LintWitness& witness) {
  return WrapWords("    ",
                   "such as " + witness.other.label + " (" + PlaceText(witness.other) + "):", 6) +
         WrapWords("      ", ReportLine(witness.report), 8) +
         WrapWords("      ", "becomes " + witness.winner.label, 8);
}

std::string FindingText(const Finding& finding) {
  std::string text = WrapWords("",
                               FindingPlace(finding) + ": " + ToText(finding.severity) + ": " +
                                   finding.subject + " [" + NameOf(finding.kind) + "]",
                               2);
  text += WrapWords("  ", finding.reason, 2);
  for (const LintWitness& witness : finding.witnesses) {
    text += WitnessText(witness);
  }
  if (!finding.witnesses.empty() && finding.more_witnesses != 0) {
    text += "    and with " + std::to_string(finding.more_witnesses) + " more\n";
  }
  return text + WrapWords("  ", finding.remedy, 2);
}

// The findings that are shown one by one.
std::string ListText(const LintResult& result, bool with_notes, bool& left_out) {
  std::string text;
  std::map<std::pair<Severity, FindingKind>, std::size_t> seen;
  for (const Finding& finding : result.findings) {
    if (finding.severity == Severity::kNote && !with_notes) continue;
    const std::size_t number = ++seen[{finding.severity, finding.kind}];
    if (with_notes || number <= kListedOfKind) text += FindingText(finding) + "\n";
  }
  for (const auto& [kind, count] : seen) {
    if (with_notes || count <= kListedOfKind) continue;
    left_out = true;
    text += "... and " + Counted(count - kListedOfKind, std::string("more ") + ToText(kind.first)) +
            " " + NameOf(kind.second) + "\n\n";
  }
  return text;
}

// A line a kind of note.
std::string NoteCounts(const LintResult& result) {
  std::map<FindingKind, std::size_t> counts;
  std::size_t width = 0;
  for (const Finding& finding : result.findings) {
    if (finding.severity != Severity::kNote) continue;
    ++counts[finding.kind];
    width = std::max(width, std::string(NameOf(finding.kind)).size());
  }
  std::string text;
  for (const auto& [kind, count] : counts) {
    std::string name = NameOf(kind);
    name.resize(width, ' ');
    std::string number = std::to_string(count);
    number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
    text.append("  ").append(name).append(" ").append(number).append("  ");
    text.append(SummaryOf(kind)).append("\n");
  }
  return text;
}

std::string Head(const LintResult& result) {
  const std::size_t errors = result.Count(Severity::kError);
  const std::size_t warnings = result.Count(Severity::kWarning);
  const std::string graveness = (errors == 0 ? "No errors" : Counted(errors, "error")) + ", " +
                                (warnings == 0 ? "no warnings" : Counted(warnings, "warning"));
  std::string text = Counted(result.codes, "code") + ", " +
                     Counted(result.real_profiles, "real profile") + ", " +
                     Counted(result.proofs.size(), "match profile");
  if (result.population) text += ", " + Counted(*result.population, "report");
  return WrapWords("", graveness + " in " + text + ".", 2);
}

}  // namespace

std::string LintText(const LintResult& result, bool with_notes, const std::string& how_to_see) {
  bool left_out = false;
  const std::string list = ListText(result, with_notes, left_out);
  std::string text = Head(result);
  if (!list.empty()) text += "\n" + list.substr(0, list.size() - 1);
  const std::string notes = with_notes ? "" : NoteCounts(result);
  if (!notes.empty()) {
    text += "\nNotes, which good catalogues have, too:\n" + notes;
  }
  if (!notes.empty() || left_out) text += "\n" + WrapWords("", how_to_see, 0);
  return text;
}

}  // namespace olt_host
