// What lint looks at: the profiles that the library holds, each with where it comes from
// and what to call it, and the catalogue as its files state it.
#ifndef OLT_HOST_RECOGNITION_LINT_SUBJECT_H
#define OLT_HOST_RECOGNITION_LINT_SUBJECT_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "onu_ability_common_table.h"
#include "recognition/lint_finding.h"

namespace olt_host {

class LintSubject {
 public:
  // Copies what the library holds. REQUIRES: the catalogue outlives this.
  explicit LintSubject(const Catalogue& catalogue);

  const Catalogue& Stated() const { return _catalogue; }
  // In table order: from the oldest to the newest.
  const std::vector<OnuAbilityProfile>& Match() const { return _match; }
  const std::vector<OnuAbilityProfile>& Real() const { return _real; }
  // The same profiles.
  const LintProfile& MatchProfile(std::size_t position) const { return _match_profiles[position]; }
  const LintProfile& RealProfile(std::size_t position) const { return _real_profiles[position]; }

 private:
  const Catalogue& _catalogue;
  std::vector<OnuAbilityProfile> _match;
  std::vector<OnuAbilityProfile> _real;
  std::vector<LintProfile> _match_profiles;
  std::vector<LintProfile> _real_profiles;
};

// A finding about a profile, without its sentences.
Finding FindingAbout(const LintProfile& profile, FindingKind kind, Severity severity);

// "1 match profile", "7 match profiles".
std::string Counted(std::size_t count, const std::string& noun);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LINT_SUBJECT_H
