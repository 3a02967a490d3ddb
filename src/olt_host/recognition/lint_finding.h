// What lint finds in a catalogue: the kinds of findings, and one finding.
#ifndef OLT_HOST_RECOGNITION_LINT_FINDING_H
#define OLT_HOST_RECOGNITION_LINT_FINDING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/input_error.h"
#include "catalogue/reports.h"

namespace olt_host {

// kNote: good catalogues have it, too. kWarning: most likely not meant. kError: something in
// the catalogue has no effect at all, or keeps other things from having one.
enum class Severity { kNote, kWarning, kError };

// "note", "warning" or "error".
const char* ToText(Severity severity);

enum class FindingKind {
  kTakesEverything,
  kDeadPattern,
  kEqualPattern,
  kUnreachablePattern,
  kImpossibleValue,
  kNoRealProfile,
  kNoMatchProfile,
  kSameRealType,
  kLongText,
  kPortWithoutType,
  kLampWithoutAttribute,
  kUndefinedTotal,
  kUndecided,
  kOverlap,
  kStandsBehind,
  kLastResort,
  kNeverTold,
  kNotExercised,
  kSameKey,
  kUnusedCode,
  kDroppedValue,
};

// The short name, which never changes: "unreachable-pattern".
const char* NameOf(FindingKind kind);
// What the findings of a kind have in common, for a line that only counts them.
const char* SummaryOf(FindingKind kind);

// A profile that a finding speaks of.
struct LintProfile {
  std::string label;  // "match profile 1030 (PNC11C)"
  std::uint32_t key = 0;
  std::uint16_t id = 0;
  bool by_operator = false;
  SourcePosition position;  // no file: not an entry of the catalogue's files
};

// "FILE:LINE", "an operator's" or "in memory".
std::string PlaceText(const LintProfile& profile);

// A report that shows a finding, and the profile that takes it.
struct LintWitness {
  LintProfile other;  // beside the profile of the finding
  OnuReport report;
  LintProfile winner;
};

struct Finding {
  FindingKind kind = FindingKind::kOverlap;
  Severity severity = Severity::kNote;
  std::string subject;  // "match profile 1030 (PNC11C)", "code 24 (FE_PORTS)"
  bool by_operator = false;
  SourcePosition position;  // no file: not in the catalogue's files
  std::string reason;       // a sentence each
  std::string remedy;
  std::vector<LintProfile> related;  // takers, equals
  std::vector<LintWitness> witnesses;
  std::size_t more_witnesses = 0;  // that are not listed
};

// What was proven of one match profile.
struct PatternProof {
  LintProfile profile;
  std::optional<bool> by_abilities;  // nothing: undecided
  bool by_type = false;
  std::optional<OnuReport> witness;  // that it takes by abilities
  std::vector<LintProfile> takers;
};

struct LintResult {
  std::vector<Finding> findings;     // the gravest first, then by place
  std::vector<PatternProof> proofs;  // from the oldest match profile to the newest
  std::size_t real_profiles = 0;
  std::size_t codes = 0;
  std::optional<std::size_t> population;  // ONUs whose reports were tried

  std::size_t Count(Severity severity) const;
  Severity Gravest() const;  // kNote when there is nothing
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LINT_FINDING_H
