#include "recognition/lint_subject.h"

#include "recognition/profile_origin.h"
#include "recognition/report_space.h"

namespace olt_host {

namespace {

std::vector<OnuAbilityProfile> TableOf(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

std::string TypeName(const OnuAbilityProfile& profile) {
  const auto held = profile._common_ability.find(kTypeNameCode);
  return held == profile._common_ability.end() ? "" : held->second.ability_string_value;
}

LintProfile Describe(const OnuAbilityProfile& profile, const ProfileOrigins& origins,
                     const std::map<std::uint32_t, std::string>& names) {
  LintProfile described;
  described.key = KeyOf(profile);
  described.id = profile._id;
  const ProfileOrigin origin = origins.Of(profile);
  described.by_operator = origin.kind == OriginKind::kOperator;
  described.position = origin.position;
  described.label =
      profile._profile_type == ONU_ABILITY_PROFILE_TYPE_REAL ? "real profile" : "match profile";
  described.label +=
      described.key == kAnyNumber ? " without a key" : " " + std::to_string(described.key);
  const auto named = names.find(described.key);
  const std::string name = named == names.end() ? TypeName(profile) : named->second;
  if (!name.empty()) described.label += " (" + name + ")";
  return described;
}

}  // namespace

LintSubject::LintSubject(const Catalogue& catalogue)
    : _catalogue(catalogue),
      _match(TableOf(ONU_ABILITY_PROFILE_TYPE_MATCH)),
      _real(TableOf(ONU_ABILITY_PROFILE_TYPE_REAL)) {
  const ProfileOrigins origins(catalogue);
  std::map<std::uint32_t, std::string> names;
  for (const OnuAbilityProfile& profile : _real) {
    if (const std::string name = TypeName(profile); !name.empty()) names[KeyOf(profile)] = name;
  }
  for (const OnuAbilityProfile& profile : _real) {
    _real_profiles.push_back(Describe(profile, origins, names));
  }
  for (const OnuAbilityProfile& profile : _match) {
    _match_profiles.push_back(Describe(profile, origins, names));
  }
}

Finding FindingAbout(const LintProfile& profile, FindingKind kind, Severity severity) {
  Finding finding;
  finding.kind = kind;
  finding.severity = severity;
  finding.subject = profile.label;
  finding.by_operator = profile.by_operator;
  finding.position = profile.position;
  return finding;
}

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace olt_host
