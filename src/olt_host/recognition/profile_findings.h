// What lint says about profiles apart from how patterns are compared: pairs that miss a
// half, shared keys and types, texts that are cut.
//
// What reading a catalogue refuses is not looked for again (catalogue/catalogue_checks.h
// and ability_reader.h): two attributes, codes or names alike, two real profiles of one
// file list with a key, two profiles of a table with an id, a value of the wrong kind, a
// stated total that is wrong, and texts of an entry that are too long. What an operator
// adds is not read from a file, so of that keys, types and texts are looked at here.
#ifndef OLT_HOST_RECOGNITION_PROFILE_FINDINGS_H
#define OLT_HOST_RECOGNITION_PROFILE_FINDINGS_H

#include <vector>

#include "recognition/lint_finding.h"
#include "recognition/lint_subject.h"

namespace olt_host {

// Match profiles without their real profile and the reverse.
void AddMissingHalves(const LintSubject& subject, std::vector<Finding>& findings);
// Keys that several profiles of a table share, and real types that several real ones do.
void AddShared(const LintSubject& subject, std::vector<Finding>& findings);
// Texts that are longer than the commands and the buffers of the hooks take.
void AddLongTexts(const LintSubject& subject, std::vector<Finding>& findings);
// Zeros in real profiles, which the default rule drops.
void AddDroppedValues(const LintSubject& subject, std::vector<Finding>& findings);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PROFILE_FINDINGS_H
