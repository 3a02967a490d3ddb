#include "recognition/profile_findings.h"

#include <map>
#include <set>

#include "recognition/ability_reading.h"

namespace olt_host {

namespace {

using KeyedProfiles = std::map<std::uint32_t, std::vector<const LintProfile*>>;

std::set<std::uint32_t> KeysOf(const LintSubject& subject, bool real) {
  std::set<std::uint32_t> keys;
  for (std::size_t i = 0; i < (real ? subject.Real() : subject.Match()).size(); ++i) {
    keys.insert((real ? subject.RealProfile(i) : subject.MatchProfile(i)).key);
  }
  return keys;
}

// All but the newest of those that share something.
void AddOlder(const KeyedProfiles& shared, FindingKind kind, Severity severity,
              const std::string& reason, const std::string& remedy,
              std::vector<Finding>& findings) {
  for (const auto& [key, profiles] : shared) {
    for (std::size_t i = 0; i + 1 < profiles.size(); ++i) {
      Finding finding = FindingAbout(*profiles[i], kind, severity);
      const LintProfile& newest = *profiles.back();
      finding.related.push_back(newest);
      finding.reason =
          "The newer " + newest.label + " (" + PlaceText(newest) + ") has the same " + reason;
      finding.remedy = remedy;
      findings.push_back(finding);
    }
  }
}

}  // namespace

void AddMissingHalves(const LintSubject& subject, std::vector<Finding>& findings) {
  const std::set<std::uint32_t> real = KeysOf(subject, true);
  const std::set<std::uint32_t> match = KeysOf(subject, false);
  for (std::size_t i = 0; i < subject.Match().size(); ++i) {
    const LintProfile& profile = subject.MatchProfile(i);
    if (real.count(profile.key) != 0) continue;
    Finding finding = FindingAbout(profile, FindingKind::kNoRealProfile, Severity::kWarning);
    finding.reason =
        "No real profile has its key, so an ONU that it recognises gets no type name "
        "and no abilities.";
    finding.remedy = "Add a real profile with key " + std::to_string(profile.key) + ".";
    findings.push_back(finding);
  }
  const OnuAbilityGlobalVar* settings = OnuAbilityGlobalVar::GetInstance();
  for (std::size_t i = 0; i < subject.Real().size(); ++i) {
    const LintProfile& profile = subject.RealProfile(i);
    // The common types are what others are told to be, not what an ONU is recognised as.
    if (match.count(profile.key) != 0 || profile.key == settings->_sfu_common_type ||
        profile.key == settings->_hgu_common_type) {
      continue;
    }
    Finding finding = FindingAbout(profile, FindingKind::kNoMatchProfile, Severity::kWarning);
    finding.reason = "No match profile has its key, so no ONU is ever recognised as this type.";
    finding.remedy = "Add a match profile with key " + std::to_string(profile.key) + ".";
    findings.push_back(finding);
  }
}

void AddShared(const LintSubject& subject, std::vector<Finding>& findings) {
  KeyedProfiles match;
  KeyedProfiles real;
  KeyedProfiles types;
  for (std::size_t i = 0; i < subject.Match().size(); ++i) {
    match[subject.MatchProfile(i).key].push_back(&subject.MatchProfile(i));
  }
  for (std::size_t i = 0; i < subject.Real().size(); ++i) {
    const LintProfile& profile = subject.RealProfile(i);
    real[profile.key].push_back(&profile);
    const auto& held = subject.Real()[i]._common_ability;
    const auto type = held.find(ONU_ABILITY_CODE_REAL_TYPE);
    if (type != held.end()) types[type->second.ability_ushort_value].push_back(&profile);
  }
  AddOlder(match, FindingKind::kSameKey, Severity::kNote,
           "key: ONUs that report it as their type get the newer, this one is reached by abilities "
           "only.",
           "None is needed if the type is recognised in several ways.", findings);
  AddOlder(real, FindingKind::kSameKey, Severity::kNote,
           "key and answers every question about it in place of this one.",
           "Delete this one, unless it is to come back when the newer goes.", findings);
  for (auto& [type, profiles] : types) {
    // Those with one key were told of already.
    std::map<std::uint32_t, const LintProfile*> newest;
    for (const LintProfile* profile : profiles) newest[profile->key] = profile;
    std::vector<const LintProfile*> different;
    for (const LintProfile* profile : profiles) {
      if (newest.at(profile->key) == profile) different.push_back(profile);
    }
    profiles = different;
  }
  AddOlder(types, FindingKind::kSameRealType, Severity::kWarning,
           "real type and answers every question about that in place of this one.",
           "Give each a real type of its own.", findings);
}

void AddLongTexts(const LintSubject& subject, std::vector<Finding>& findings) {
  const std::map<std::uint16_t, std::size_t> limits = {{kVendorIdCode, kVendorIdBytes},
                                                       {kTypeNameCode, kTypeNameBytes}};
  for (const bool real : {false, true}) {
    const auto& profiles = real ? subject.Real() : subject.Match();
    for (std::size_t i = 0; i < profiles.size(); ++i) {
      for (const auto& [code, limit] : limits) {
        const auto held = profiles[i]._common_ability.find(code);
        if (held == profiles[i]._common_ability.end()) continue;
        const std::string& text = held->second.ability_string_value;
        if (text.size() <= limit) continue;
        Finding finding = FindingAbout(real ? subject.RealProfile(i) : subject.MatchProfile(i),
                                       FindingKind::kLongText, Severity::kWarning);
        finding.reason =
            CodeNameOrNumber(code) + " " + Quoted(text) + " has " + Counted(text.size(), "byte") +
            ", but the commands and the buffers of the hooks take " + std::to_string(limit) + ".";
        finding.remedy = "Shorten it to " + Counted(limit, "byte") + ".";
        findings.push_back(finding);
      }
    }
  }
}

void AddDroppedValues(const LintSubject& subject, std::vector<Finding>& findings) {
  for (const ProfileEntry& entry : subject.Stated().real_profiles) {
    for (const AbilityEntry& ability : entry.abilities) {
      if (ability.kind != AbilityKind::kNumber || ability.number != 0) continue;
      Finding finding;
      finding.kind = FindingKind::kDroppedValue;
      finding.subject = "real profile " + std::to_string(entry.key);
      finding.position = ability.position;
      finding.reason = "It states 0 for " + CodeNameOrNumber(ability.code) +
                       ", which is not stored: in a real profile 0 and no entry are the same.";
      finding.remedy = "None is needed; leave the entry out if it is to mean more.";
      findings.push_back(finding);
    }
  }
}

}  // namespace olt_host
