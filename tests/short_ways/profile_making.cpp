// Profiles for tables and reports: few different keys and real types, so that many
// qualify for one question, and irregular ones among them.
#include "stage.h"

namespace {

void FillCommon(OnuAbilityProfile& profile, HostileInput& random) {
  profile.Add(ONU_ABILITY_CODE_VENDOR_ID, random.Vendor());
  profile.Add(ONU_ABILITY_CODE_TYPE_NAME, random.Text());
  const unsigned short codes[] = {1002, 1010, 1011, 1012, 1020, 1030, 1031};
  for (const unsigned short code : codes) {
    const unsigned int number = random.Pick<unsigned int>({0, 1, 1, 2, 257, 0xFFFFFFFFU});
    if (!random.OneIn(3)) {
      profile.Add(code, number);
    }
  }
}

ONU_ABILITY_COMMON_ABILITY_VALUE OddValue(HostileInput& random) {
  ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  // Another tag over a number that lookups know.
  value.ability_value_type = random.Pick<unsigned int>({3, 3, 0, 2, 65535});
  value.ability_ushort_value = random.Key();
  return value;
}

}  // namespace

void FillProfile(OnuAbilityProfile& profile, HostileInput& random) {
  const auto type = static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(random.Pick({1, 2}));
  const auto source = static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(random.Pick({0, 1}));
  profile.Init(type, source, ONU_ABILITY_MATCH_TYPE_NONE);
  profile.Add(random.Key());
  profile.Add(ONU_ABILITY_CODE_REAL_TYPE, random.Key());
  FillCommon(profile, random);
}

// Lacks the key or the real type, or holds it with another tag.
void FillIrregularProfile(OnuAbilityProfile& profile, HostileInput& random) {
  FillProfile(profile, random);
  for (const unsigned short code : {ONU_ABILITY_CODE_DEFAULT_KEY, ONU_ABILITY_CODE_REAL_TYPE}) {
    const ONU_ABILITY_COMMON_ABILITY_VALUE odd = OddValue(random);
    switch (random.Below(4)) {
      case 0:
        profile._common_ability.erase(code);
        break;
      case 1:
        profile._common_ability[code] = odd;
        break;
      case 2:
        profile._common_ability[code] = ONU_ABILITY_COMMON_ABILITY_VALUE();
        break;
      default:
        break;
    }
  }
  if (random.OneIn(4)) {
    profile._ability_default_value = random.Key();
  }
  const ONU_ABILITY_COMMON_ABILITY_VALUE odd = OddValue(random);
  const unsigned short code = random.Code();
  if (random.OneIn(2)) {
    profile._common_ability[code] = odd;
  }
}
