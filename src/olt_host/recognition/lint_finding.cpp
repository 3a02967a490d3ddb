#include "recognition/lint_finding.h"

#include <algorithm>

namespace olt_host {

namespace {

struct KindText {
  FindingKind kind;
  const char* name;
  const char* summary;
};

constexpr KindText kKinds[] = {
    {FindingKind::kDeadPattern, "dead-pattern", "match profiles that nothing can reach"},
    {FindingKind::kTakesEverything, "takes-everything", "match profiles that hide all older ones"},
    {FindingKind::kEqualPattern, "equal-pattern", "match profiles that ask for the same"},
    {FindingKind::kUnreachablePattern, "unreachable-pattern",
     "match profiles that no abilities reach"},
    {FindingKind::kImpossibleValue, "impossible-value", "values that no report can hold"},
    {FindingKind::kNoRealProfile, "no-real-profile", "match profiles without a real profile"},
    {FindingKind::kNoMatchProfile, "no-match-profile", "real profiles without a match profile"},
    {FindingKind::kSameRealType, "same-real-type", "real profiles that share a real type"},
    {FindingKind::kLongText, "long-text", "texts that commands and buffers cut"},
    {FindingKind::kPortWithoutType, "port-without-type", "port codes that no total counts"},
    {FindingKind::kLampWithoutAttribute, "lamp-without-attribute",
     "lamp codes that no total counts"},
    {FindingKind::kUndefinedTotal, "undefined-total", "totals of ports that are compared unasked"},
    {FindingKind::kUndecided, "undecided", "match profiles of which nothing is proven"},
    {FindingKind::kOverlap, "overlap", "match profiles of which only the order decides"},
    {FindingKind::kStandsBehind, "stands-behind", "general match profiles behind special ones"},
    {FindingKind::kLastResort, "last-resort", "match profiles that take what is left"},
    {FindingKind::kNeverTold, "never-told", "entries that no ONU is asked for"},
    {FindingKind::kNotExercised, "not-exercised", "match profiles that no given report reaches"},
    {FindingKind::kSameKey, "same-key", "profiles that share a key"},
    {FindingKind::kUnusedCode, "unused-code", "codes that no profile holds"},
    {FindingKind::kDroppedValue, "dropped-value", "zeros, which are not stored"},
};

const KindText& TextOf(FindingKind kind) {
  return *std::find_if(std::begin(kKinds), std::end(kKinds),
                       [kind](const KindText& text) { return text.kind == kind; });
}

}  // namespace

const char* ToText(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      break;
  }
  return "note";
}

const char* NameOf(FindingKind kind) { return TextOf(kind).name; }

const char* SummaryOf(FindingKind kind) { return TextOf(kind).summary; }

std::string PlaceText(const LintProfile& profile) {
  if (!profile.position.file.empty()) return ToText(profile.position);
  return profile.by_operator ? "an operator's" : "in memory";
}

std::size_t LintResult::Count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(),
                    [severity](const Finding& finding) { return finding.severity == severity; }));
}

Severity LintResult::Gravest() const {
  Severity gravest = Severity::kNote;
  for (const Finding& finding : findings) {
    gravest = std::max(gravest, finding.severity);
  }
  return gravest;
}

}  // namespace olt_host
