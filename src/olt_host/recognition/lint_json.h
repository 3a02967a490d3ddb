// Findings of lint as a JSON document.
#ifndef OLT_HOST_RECOGNITION_LINT_JSON_H
#define OLT_HOST_RECOGNITION_LINT_JSON_H

#include <nlohmann/json.hpp>

#include "recognition/lint_finding.h"

namespace olt_host {

// {"summary": ..., "findings": [...], "match_profiles": [...]}: all findings, notes
// included, and of each match profile whether and how it is reached. Reports stand as a
// reports file has them.
nlohmann::ordered_json LintJson(const LintResult& result);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LINT_JSON_H
