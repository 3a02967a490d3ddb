// What lint says about ability codes.
#ifndef OLT_HOST_RECOGNITION_CODE_FINDINGS_H
#define OLT_HOST_RECOGNITION_CODE_FINDINGS_H

#include <vector>

#include "recognition/lint_subject.h"

namespace olt_host {

// Codes that no profile holds; port and lamp codes without their attributes.
void AddCodes(const LintSubject& subject, std::vector<Finding>& findings);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CODE_FINDINGS_H
