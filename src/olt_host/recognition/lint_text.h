// Findings of lint as text for a screen of 80 columns, each line ending in "\n".
#ifndef OLT_HOST_RECOGNITION_LINT_TEXT_H
#define OLT_HOST_RECOGNITION_LINT_TEXT_H

#include <string>

#include "recognition/lint_finding.h"

namespace olt_host {

// With `with_notes` every finding, else errors and warnings, at most ten of a kind, and a
// count of the notes; `how_to_see` is the sentence that says how to see all.
std::string LintText(const LintResult& result, bool with_notes, const std::string& how_to_see);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LINT_TEXT_H
