#include "recognition/code_findings.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace olt_host {

namespace {

constexpr std::uint16_t kLampAttribute = 3;

// Whether one of the words of a name, which '_' stands between, is among these.
bool HasWord(const std::string& name, const std::set<std::string>& words) {
  std::istringstream parts(name);
  for (std::string part; std::getline(parts, part, '_');) {
    std::transform(part.begin(), part.end(), part.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    if (words.count(part) != 0) return true;
  }
  return false;
}

std::set<std::uint16_t> HeldCodes(const LintSubject& subject) {
  std::set<std::uint16_t> held;
  for (const auto* profiles : {&subject.Match(), &subject.Real()}) {
    for (const OnuAbilityProfile& profile : *profiles) {
      for (const auto& [code, value] : profile._common_ability) {
        held.insert(code);
      }
    }
  }
  // A stated zero is not stored, but it is a use.
  for (const ProfileEntry& entry : subject.Stated().real_profiles) {
    for (const AbilityEntry& ability : entry.abilities) {
      held.insert(ability.code);
    }
  }
  return held;
}

Finding FindingAbout(const CodeEntry& code, FindingKind kind, Severity severity) {
  Finding finding;
  finding.kind = kind;
  finding.severity = severity;
  finding.subject = "code " + std::to_string(code.code) + " (" + code.name + ")";
  finding.position = code.position;
  return finding;
}

// A code that is not defined counts as compared, and the library derives the totals all
// the same.
void AddUndefinedTotals(const LintSubject& subject, std::vector<Finding>& findings) {
  const Catalogue& catalogue = subject.Stated();
  for (const std::uint16_t total : {kAllLanCode, kDataUniCode}) {
    const bool counts =
        std::any_of(catalogue.codes.begin(), catalogue.codes.end(), [total](const CodeEntry& code) {
          const std::uint16_t port_type = code.Attribute(kPortTypeAttribute);
          return port_type == kLanPort || (port_type == kOtherDataUni && total == kDataUniCode);
        });
    OnuAbilityCodeInfo* registry = OnuAbilityCodeInfo::GetInstance();
    if (!counts || registry->IsExist(total) != 0) continue;
    Finding finding;
    finding.kind = FindingKind::kUndefinedTotal;
    finding.severity = Severity::kWarning;
    finding.subject = "code " + std::to_string(total);
    finding.position = catalogue.position;
    finding.reason =
        "It is not defined, but the library derives this total of ports in every "
        "profile and report and compares it: an ONU with a port more than the match "
        "profile names does not fit.";
    finding.remedy = "Define the code without attributes.";
    findings.push_back(finding);
  }
}

}  // namespace

void AddCodes(const LintSubject& subject, std::vector<Finding>& findings) {
  AddUndefinedTotals(subject, findings);
  std::set<std::uint16_t> used = HeldCodes(subject);
  // These the library fills itself.
  used.insert({kAllLanCode, kDataUniCode, subject.Stated().key_ability_code});
  for (const CodeEntry& code : subject.Stated().codes) {
    if (used.count(code.code) == 0) {
      Finding finding = FindingAbout(code, FindingKind::kUnusedCode, Severity::kNote);
      finding.reason = "No profile holds it.";
      finding.remedy = "Delete it, unless operators are to use it.";
      findings.push_back(finding);
    }
    if (!code.HoldsText() && HasWord(code.name, {"PORT", "PORTS"}) &&
        code.Attribute(kPortTypeAttribute) == 0) {
      Finding finding = FindingAbout(code, FindingKind::kPortWithoutType, Severity::kWarning);
      finding.reason =
          "It is named as a port but has no port type (attribute 4), so no total of "
          "ports counts it.";
      finding.remedy =
          "Give it a port type: 3 for LAN ports, 7 for other data UNIs, else one that "
          "is not counted.";
      findings.push_back(finding);
    }
    if (!code.HoldsText() && HasWord(code.name, {"LAMP", "LAMPS", "LED", "LEDS"}) &&
        code.Attribute(kLampAttribute) == 0) {
      Finding finding = FindingAbout(code, FindingKind::kLampWithoutAttribute, Severity::kWarning);
      finding.reason =
          "It is named as lamps but has no lamp attribute (3), so the total of lamps "
          "leaves it out.";
      finding.remedy = "Give it attribute 3 with a value other than 0.";
      findings.push_back(finding);
    }
  }
}

}  // namespace olt_host
