#include "recognition/pattern_findings.h"

#include <algorithm>
#include <map>

#include "recognition/ability_reading.h"
#include "recognition/pattern_comparison.h"

namespace olt_host {

namespace {

constexpr std::size_t kListedOverlaps = 3;  // of one profile; the others are counted

std::string ValueText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
             ? Quoted(value.ability_string_value)
             : std::to_string(value.ability_ushort_value);
}

bool IsWildcard(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
             ? value.ability_string_value.empty()
             : value.ability_ushort_value == kAnyNumber;
}

std::string HeldText(Channel channel) {
  switch (channel) {
    case Channel::kVendorId:
      return "1 to " + std::to_string(kVendorIdBytes) + " bytes";
    case Channel::kDeviceName:
      return "1 to " + std::to_string(kDeviceNameBytes) + " bytes";
    case Channel::kCapability:
      return "0 to " + std::to_string(kHighestCapability);
    case Channel::kReportedType:
      return "a reported type that is no key of a match profile";
    default:
      return "a number";
  }
}

}  // namespace

PatternFindings::PatternFindings(const LintSubject& subject)
    : _subject(subject),
      _space(subject.Match()),
      _boxes(subject.Match(), _space),
      _trial(_boxes),
      _reach(FindReach(_boxes, _space, _trial)) {
  std::map<std::uint32_t, std::size_t> newest;
  for (std::size_t i = 0; i < subject.Match().size(); ++i) {
    newest[subject.MatchProfile(i).key] = i;
  }
  for (std::size_t i = 0; i < subject.Match().size(); ++i) {
    _newest_of_key.push_back(newest.at(subject.MatchProfile(i).key));
  }
}

bool PatternFindings::IsReachedByType(std::size_t profile) const {
  return _newest_of_key[profile] == profile;
}

Finding PatternFindings::TakesEverythingFinding(std::size_t profile) const {
  const LintProfile& taker = _subject.MatchProfile(profile);
  Finding finding = FindingAbout(taker, FindingKind::kTakesEverything, Severity::kError);
  finding.reason =
      "It asks for nothing that a report can hold, so it takes every ONU whose type "
      "is not known, and " +
      Counted(profile, "older match profile") + " cannot be reached by abilities.";
  finding.remedy =
      "Say what tells this type from the others, or put the profile before all others of the "
      "catalogue: the last one is tried first.";
  if (profile == 0) {
    finding.kind = FindingKind::kLastResort;
    finding.severity = Severity::kNote;
    finding.reason =
        "It asks for nothing that a report can hold, so it takes every ONU that no newer "
        "match profile takes.";
    finding.remedy = "None is needed if every unknown ONU is to become this type.";
  }
  return finding;
}

Finding PatternFindings::HiddenFinding(std::size_t profile) const {
  const PatternReach& reach = _reach[profile];
  const bool by_type = IsReachedByType(profile);
  Finding finding =
      FindingAbout(_subject.MatchProfile(profile),
                   by_type ? FindingKind::kUnreachablePattern : FindingKind::kDeadPattern,
                   by_type ? Severity::kWarning : Severity::kError);
  for (const std::size_t taker : reach.takers) {
    finding.related.push_back(_subject.MatchProfile(taker));
  }
  std::string takers;
  for (const LintProfile& taker : finding.related) {
    takers += (takers.empty() ? "" : " or ") + taker.label + " (" + PlaceText(taker) + ")";
  }
  const bool equal =
      reach.takers.size() == 1 && _boxes.AtLeastAsWide(reach.takers.front()).Contains(profile);
  if (equal) finding.kind = FindingKind::kEqualPattern;
  if (takers.empty()) {
    finding.reason =
        "No ONU gets to it by its abilities: a match profile without a key takes "
        "those that report no type";
  } else if (equal) {
    finding.reason = "It asks for the same as the newer " + takers +
                     ", which takes every report "
                     "in its stead";
  } else {
    finding.reason =
        "Every report that fits it fits the newer " + takers + ", too, which is tried first";
  }
  finding.reason += by_type ? "; only ONUs that report its key as their type reach it."
                            : "; its key leads to a newer match profile as well, so nothing "
                              "reaches it.";
  finding.remedy =
      equal ? "Delete one of the two, or add what tells them apart."
            : "Add what the newer one does not fit, or put this one behind it: the last is tried "
              "first.";
  return finding;
}

void PatternFindings::AddReach(std::vector<Finding>& findings) const {
  for (std::size_t i = 0; i < _reach.size(); ++i) {
    if (_boxes.TakesEverything(i)) findings.push_back(TakesEverythingFinding(i));
    if (_reach[i].reach == Reach::kNever) findings.push_back(HiddenFinding(i));
    if (_reach[i].reach == Reach::kUndecided) {
      Finding finding =
          FindingAbout(_subject.MatchProfile(i), FindingKind::kUndecided, Severity::kNote);
      finding.reason =
          "Neither a report that reaches it by abilities nor a proof that there is "
          "none was found: it asks for a total of ports.";
      finding.remedy = "Ask for the ports themselves.";
      findings.push_back(finding);
    }
  }
}

void PatternFindings::AddUnheld(std::vector<Finding>& findings) const {
  const std::uint16_t key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  for (std::size_t i = 0; i < _subject.Match().size(); ++i) {
    for (const auto& [code, value] : _subject.Match()[i]._common_ability) {
      // The key stands in every profile; whether it is compared is not the profile's choice.
      if (code == key_code || !IsCompared(code) || IsWildcard(value)) continue;
      const Channel channel = _space.Of(code);
      const std::string name = CodeNameOrNumber(code);
      if (channel == Channel::kNothing) {
        Finding finding =
            FindingAbout(_subject.MatchProfile(i), FindingKind::kNeverTold, Severity::kNote);
        finding.reason = "It asks for " + name + ", which no report holds, so this never decides.";
        finding.remedy = "Leave it out, or have it asked from the ONU (confirm type 3).";
        findings.push_back(finding);
      } else if (!_space.CanHold(code, {value.ability_ushort_value, value.ability_string_value})) {
        Finding finding = FindingAbout(_subject.MatchProfile(i), FindingKind::kImpossibleValue,
                                       Severity::kWarning);
        finding.reason = "It asks for " + name + " " + ValueText(value) +
                         ", but a report holds there " + HeldText(channel) +
                         ": an ONU that tells it never fits.";
        finding.remedy = "Ask for a value that an ONU can report.";
        findings.push_back(finding);
      }
    }
  }
}

void PatternFindings::AddOverlap(std::vector<Finding>& findings, std::size_t older,
                                 const PatternOverlaps& overlaps) const {
  const LintProfile& profile = _subject.MatchProfile(older);
  if (overlaps.behind != 0) {
    Finding finding = FindingAbout(profile, FindingKind::kStandsBehind, Severity::kNote);
    finding.reason = Counted(overlaps.behind, "newer match profile") +
                     " of those that ask for more than it " +
                     (overlaps.behind == 1 ? "is" : "are") + " tried first; it takes the rest.";
    finding.remedy = "None is needed: this is how a general profile and special ones belong.";
    findings.push_back(finding);
  }
  if (overlaps.crossing == 0) return;
  Finding finding = FindingAbout(profile, FindingKind::kOverlap, Severity::kNote);
  finding.reason = "There are reports that leave nothing out and fit it and " +
                   Counted(overlaps.crossing, "newer match profile") +
                   " alike, so only the order decides for the newer.";
  finding.remedy = "If such ONUs exist, add to the newer or to this what tells them apart.";
  for (const Overlap& overlap : overlaps.examples) {
    finding.witnesses.push_back({_subject.MatchProfile(overlap.newer), overlap.witness,
                                 _subject.MatchProfile(overlap.winner)});
  }
  finding.more_witnesses = overlaps.crossing - overlaps.examples.size();
  findings.push_back(finding);
}

void PatternFindings::AddOverlaps(std::vector<Finding>& findings) const {
  const std::vector<PatternOverlaps> overlaps =
      FindOverlaps(_boxes, _space, _trial, kListedOverlaps);
  for (std::size_t older = 0; older < overlaps.size(); ++older) {
    AddOverlap(findings, older, overlaps[older]);
  }
}

std::vector<PatternProof> PatternFindings::Proofs() const {
  std::vector<PatternProof> proofs;
  for (std::size_t i = 0; i < _reach.size(); ++i) {
    PatternProof proof;
    proof.profile = _subject.MatchProfile(i);
    proof.by_type = IsReachedByType(i);
    if (_reach[i].reach != Reach::kUndecided)
      proof.by_abilities = _reach[i].reach == Reach::kReached;
    proof.witness = _reach[i].witness;
    for (const std::size_t taker : _reach[i].takers) {
      proof.takers.push_back(_subject.MatchProfile(taker));
    }
    proofs.push_back(proof);
  }
  return proofs;
}

}  // namespace olt_host
