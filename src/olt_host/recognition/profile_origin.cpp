#include "recognition/profile_origin.h"

#include <algorithm>
#include <set>

#include "catalogue/catalogue_profile.h"
#include "state/library_state.h"

namespace olt_host {

namespace {

using Abilities = std::vector<std::pair<unsigned short, const ONU_ABILITY_COMMON_ABILITY_VALUE*>>;

template <typename Counts>
Abilities AbilitiesThat(const OnuAbilityProfile& profile, const Counts& counts) {
  Abilities abilities;
  for (const auto& [code, value] : profile._common_ability) {
    if (value.ability_value_type != ONU_ABILITY_VALUE_TYPE_NONE && counts(code)) {
      abilities.emplace_back(code, &value);
    }
  }
  return abilities;
}

bool Same(const Abilities& a, const Abilities& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
    return x.first == y.first && SameValue(*x.second, *y.second);
  });
}

// The library derives the totals, whatever the entry says.
bool IsNoTotal(unsigned short code) { return code != kAllLanCode && code != kDataUniCode; }

}  // namespace

bool SameAbilities(const OnuAbilityProfile& a, const OnuAbilityProfile& b) {
  const auto all = [](unsigned short) { return true; };
  return Same(AbilitiesThat(a, all), AbilitiesThat(b, all));
}

ProfileOrigins::ProfileOrigins(const Catalogue& catalogue, NoteOfProfile note)
    : _catalogue(catalogue),
      _note(std::move(note)),
      _match_ids(IdsOf(catalogue.match_profiles)),
      _real_ids(IdsOf(catalogue.real_profiles)) {}

ProfileOrigins::Ids ProfileOrigins::IdsOf(const std::vector<ProfileEntry>& entries) {
  Ids ids;
  unsigned short next = kFirstGivenId;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    while (entries[i].id == 0 && ids.count(next) != 0) ++next;
    ids.emplace(entries[i].id == 0 ? next : entries[i].id, i);
  }
  return ids;
}

ProfileOrigin ProfileOrigins::Of(const OnuAbilityProfile& profile) const {
  ProfileOrigin origin;
  if (profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL) {
    origin.kind = OriginKind::kOperator;
    if (_note) origin.note = _note(profile);
    return origin;
  }
  const bool is_real = profile._profile_type == ONU_ABILITY_PROFILE_TYPE_REAL;
  const Ids& ids = is_real ? _real_ids : _match_ids;
  const auto found = ids.find(profile._id);
  if (found == ids.end()) return origin;
  const ProfileEntry& entry =
      (is_real ? _catalogue.real_profiles : _catalogue.match_profiles)[found->second];
  const OnuAbilityProfile stated =
      MakeProfile(entry, profile._profile_type, _catalogue.key_ability_code);
  origin.kind = OriginKind::kCatalogue;
  origin.position = entry.position;
  origin.changed = !Same(AbilitiesThat(profile, IsNoTotal), AbilitiesThat(stated, IsNoTotal));
  return origin;
}

}  // namespace olt_host
