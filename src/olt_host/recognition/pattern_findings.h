// What lint says about match profiles as patterns: which are never reached, which are
// equal or hide others, which share reports, and which ask for what no report holds.
#ifndef OLT_HOST_RECOGNITION_PATTERN_FINDINGS_H
#define OLT_HOST_RECOGNITION_PATTERN_FINDINGS_H

#include <vector>

#include "recognition/lint_finding.h"
#include "recognition/lint_subject.h"
#include "recognition/overlaps.h"
#include "recognition/reachability.h"

namespace olt_host {

class PatternFindings {
 public:
  // REQUIRES: the hooks are registered, and the library holds the subject's profiles.
  explicit PatternFindings(const LintSubject& subject);
  PatternFindings(const PatternFindings&) = delete;
  PatternFindings& operator=(const PatternFindings&) = delete;

  // Unreachable, dead, equal and all-taking profiles, and what could not be decided.
  void AddReach(std::vector<Finding>& findings) const;
  // Entries that ask for what no report holds.
  void AddUnheld(std::vector<Finding>& findings) const;
  // Profiles of which only the order decides. Takes longest.
  void AddOverlaps(std::vector<Finding>& findings) const;

  std::vector<PatternProof> Proofs() const;

 private:
  // The profile that a reported type leads to is the newest with that key.
  bool IsReachedByType(std::size_t profile) const;
  Finding HiddenFinding(std::size_t profile) const;
  Finding TakesEverythingFinding(std::size_t profile) const;
  void AddOverlap(std::vector<Finding>& findings, std::size_t older,
                  const PatternOverlaps& overlaps) const;

  const LintSubject& _subject;
  ReportSpace _space;
  PatternBoxes _boxes;
  LibraryTrial _trial;
  std::vector<PatternReach> _reach;
  std::vector<std::size_t> _newest_of_key;  // of each profile, the newest with its key
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PATTERN_FINDINGS_H
