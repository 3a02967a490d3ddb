#include "recognition/catalogue_lint.h"

#include <algorithm>
#include <tuple>

#include "recognition/code_findings.h"
#include "recognition/exercised_profiles.h"
#include "recognition/pattern_findings.h"
#include "recognition/profile_findings.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

void AddNotExercised(const LintSubject& subject, const Population& population,
                     std::vector<Finding>& findings) {
  const std::set<ProfileIdentity> exercised = FindExercised(population);
  for (std::size_t i = 0; i < subject.Match().size(); ++i) {
    const OnuAbilityProfile& profile = subject.Match()[i];
    if (exercised.count({profile._profile_source, profile._id}) != 0) continue;
    Finding finding =
        FindingAbout(subject.MatchProfile(i), FindingKind::kNotExercised, Severity::kNote);
    finding.reason = "None of the " + Counted(population.Onus().size(), "given report") +
                     " is recognised by it.";
    finding.remedy = "Add a report of such an ONU, so that it is known to work.";
    findings.push_back(finding);
  }
}

// What can be graver than a note.
LintResult FindGrave(const LintSubject& subject, const PatternFindings& patterns) {
  LintResult result;
  result.real_profiles = subject.Real().size();
  result.codes = subject.Stated().codes.size();
  patterns.AddReach(result.findings);
  patterns.AddUnheld(result.findings);
  AddMissingHalves(subject, result.findings);
  AddShared(subject, result.findings);
  AddLongTexts(subject, result.findings);
  AddCodes(subject, result.findings);
  return result;
}

void Sort(std::vector<Finding>& findings) {
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
    return std::make_tuple(-static_cast<int>(a.severity), a.kind) <
           std::make_tuple(-static_cast<int>(b.severity), b.kind);
  });
}

}  // namespace

LintResult LintCatalogue(const Catalogue& catalogue, const Population* population) {
  const UndisturbedLibrary undisturbed;
  const LintSubject subject(catalogue);
  const PatternFindings patterns(subject);
  LintResult result = FindGrave(subject, patterns);
  patterns.AddOverlaps(result.findings);
  AddDroppedValues(subject, result.findings);
  if (population != nullptr) {
    AddNotExercised(subject, *population, result.findings);
    result.population = population->Onus().size();
  }
  result.proofs = patterns.Proofs();
  Sort(result.findings);
  return result;
}

std::string CountGraveFindings(const Catalogue& catalogue) {
  const UndisturbedLibrary undisturbed;
  const LintSubject subject(catalogue);
  const LintResult result = FindGrave(subject, PatternFindings(subject));
  const std::size_t errors = result.Count(Severity::kError);
  const std::size_t warnings = result.Count(Severity::kWarning);
  std::string text = errors == 0 ? "" : Counted(errors, "error");
  if (warnings != 0) text += (errors == 0 ? "" : " and ") + Counted(warnings, "warning");
  return text;
}

}  // namespace olt_host
