// Findings of lint as text for a screen of 80 columns, each line ending in "\n".
#ifndef OLT_HOST_RECOGNITION_LINT_TEXT_H
#define OLT_HOST_RECOGNITION_LINT_TEXT_H

#include <string>

#include "recognition/lint_finding.h"

namespace olt_host {

// What to type to see the notes, too, for the text that only counts them.
std::string LintText(const LintResult& result, bool with_notes, const std::string& how_to_see);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LINT_TEXT_H
