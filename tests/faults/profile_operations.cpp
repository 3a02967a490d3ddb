// What a profile alone is asked and told.
#include "operations.h"
#include "prepared_library.h"
#include "short_ways/texts.h"
#include "support/host_code.h"
#include "support/recording_host.h"
#include "support/variant_items.h"

namespace {

using Run = std::function<unsigned long long(OnuAbilityProfile&)>;

// A change of a profile, which takes place whole or not at all.
Operation Change(const char* name, Run run) {
  return {name, [run] {
            auto profile =
                std::make_shared<OnuAbilityProfile>(NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 900));
            return Call{[profile, run] { return run(*profile); },
                        [profile] { return Shown(*profile); }};
          }};
}

using RunWithOther = std::function<unsigned long long(OnuAbilityProfile&, OnuAbilityProfile&)>;

// A change by another profile, made like the first when the library is prepared: operations
// are listed before.
Operation ChangeBy(OnuAbilityProfile (*make_other)(), const char* name, RunWithOther run) {
  return {name, [make_other, run] {
            auto profile =
                std::make_shared<OnuAbilityProfile>(NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 900));
            auto other = std::make_shared<OnuAbilityProfile>(make_other());
            return Call{[profile, other, run] { return run(*profile, *other); },
                        [profile] { return Shown(*profile); }};
          }};
}

// One that goes code by code, each of them whole or not at all.
Operation InSteps(Operation operation) {
  operation.prepare = [prepare = operation.prepare] {
    Call call = prepare();
    call.object = nullptr;
    return call;
  };
  return operation;
}

Operation ChangeInSteps(const char* name, Run run) { return InSteps(Change(name, std::move(run))); }

ONU_ABILITY_COMMON_ABILITY_VALUE LongValue() {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = ONU_ABILITY_VALUE_TYPE_STRING;
  value.ability_string_value = "ANOTHER-NAME-OF-MORE-THAN-SIXTEEN";
  return value;
}

Operations ValueFillings() {
  return {
      Change("ProfileAddNumber",
             [](OnuAbilityProfile& profile) {
               profile.Add(1020, 2U);
               return 0ULL;
             }),
      Change("ProfileAddText",
             [](OnuAbilityProfile& profile) {
               profile.Add(ONU_ABILITY_CODE_PROFILE_NAME, LongName());
               return 0ULL;
             }),
      Change("ProfileAddValue",
             [value = LongValue()](OnuAbilityProfile& profile) {
               profile.Add(ONU_ABILITY_CODE_PROFILE_NAME, value);
               return 0ULL;
             }),
      Change("ProfileAddKey",
             [](OnuAbilityProfile& profile) {
               profile.Add(901U);
               return 0ULL;
             }),
      Change("ProfileUpdateValue",
             [value = LongValue()](OnuAbilityProfile& profile) {
               profile.Update(ONU_ABILITY_CODE_TYPE_NAME, value);
               return 0ULL;
             }),
      Change("ProfileUpdateNumber",
             [](OnuAbilityProfile& profile) {
               profile.Update(1010, 7U);
               return 0ULL;
             }),
      Change("ProfileUpdateText",
             [text = LongValue().ability_string_value](OnuAbilityProfile& profile) {
               profile.Update(ONU_ABILITY_CODE_TYPE_NAME, text);
               return 0ULL;
             }),
      Change("ProfileUpdateInitNumber",
             [](OnuAbilityProfile& profile) {
               profile.UpdateInit(1020, 7U);
               return 0ULL;
             }),
      Change("ProfileUpdateInitText",
             [](OnuAbilityProfile& profile) {
               profile.UpdateInit(ONU_ABILITY_CODE_PROFILE_NAME, LongName());
               return 0ULL;
             }),
  };
}

OnuAbilityProfile LargerProfile() {
  OnuAbilityProfile profile = NewProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, 901);
  profile.Add(ONU_ABILITY_CODE_PROFILE_NAME, LongName());
  profile.Add(1020, 2U);
  return profile;
}

OnuAbilityProfile SameProfile() {
  OnuAbilityProfile profile = NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 900);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  return profile;
}

Operations WholeProfiles() {
  return {
      Change("ProfileInit",
             [](OnuAbilityProfile& profile) {
               profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                            ONU_ABILITY_MATCH_TYPE_NONE);
               return 0ULL;
             }),
      Change("ProfileClear",
             [](OnuAbilityProfile& profile) {
               profile.Clear();
               return 0ULL;
             }),
      Change("ProfileDel",
             [](OnuAbilityProfile& profile) {
               profile.Del(1010);
               return 0ULL;
             }),
      ChangeBy(LargerProfile, "ProfileAssignment",
               [](OnuAbilityProfile& profile, OnuAbilityProfile& other) {
                 profile = other;
                 return 0ULL;
               }),
      ChangeInSteps("ProfileCopyAndMove",
                    [](OnuAbilityProfile& profile) {
                      OnuAbilityProfile copy(profile);
                      OnuAbilityProfile moved(std::move(copy));
                      OnuAbilityProfile other;
                      other = std::move(moved);
                      return 0ULL + other.GetSize();
                    }),
      ChangeInSteps("ProfileAddForEveryCode",
                    [](OnuAbilityProfile& profile) {
                      profile.Add(ONU_ABILITY_PROFILE_TYPE_REAL, 3U);
                      return 0ULL;
                    }),
      ChangeInSteps("ProfileDerivedCounts",
                    [](OnuAbilityProfile& profile) {
                      profile.Update();
                      return 0ULL;
                    }),
      ChangeInSteps("ProfileLanTotal",
                    [](OnuAbilityProfile& profile) {
                      profile.UpdateLan();
                      return 0ULL;
                    }),
      ChangeInSteps("ProfileDataUniTotal",
                    [](OnuAbilityProfile& profile) {
                      profile.UpdateDataUni();
                      return 0ULL;
                    }),
  };
}

Operations Serialisation() {
  return {
      ChangeInSteps("ProfileSerialize",
                    [](OnuAbilityProfile& profile) {
                      Variant buffer;
                      profile.Serialize(buffer);
                      return 0ULL;
                    }),
      {"ProfileUnSerialize",
       [] {
         auto buffer = std::make_shared<Variant>();
         NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 900).Serialize(*buffer);
         auto items = std::make_shared<std::vector<VariantItem>>(ItemsOf(*buffer));
         return Call{[items] {
           OnuAbilityProfile profile;
           Variant again;
           {
             const HostCode host_code;
             PutItems(again, *items);
           }
           profile.UnSerialize(again);
           return 0ULL + profile._common_ability.size();
         }};
       }},
  };
}

// --- Questions

Operation Question(const char* name, Run run) { return ChangeInSteps(name, std::move(run)); }
Operation QuestionBy(OnuAbilityProfile (*make_other)(), const char* name, RunWithOther run) {
  return InSteps(ChangeBy(make_other, name, std::move(run)));
}

Operations Reading() {
  return {
      Question("ProfileGetValue",
               [](OnuAbilityProfile& profile) {
                 ONU_ABILITY_COMMON_ABILITY_VALUE value;
                 return 0ULL + profile.Get(ONU_ABILITY_CODE_TYPE_NAME, value) +
                        value.ability_string_value.size();
               }),
      Question("ProfileGetNumber",
               [](OnuAbilityProfile& profile) {
                 unsigned int value = 0;
                 return 0ULL + profile.Get(1010, value) + value;
               }),
      Question("ProfileGetText",
               [](OnuAbilityProfile& profile) {
                 std::string value;
                 return 0ULL + profile.Get(ONU_ABILITY_CODE_TYPE_NAME, value) + value.size();
               }),
      Question("ProfileGetTextThatIsAbsent",
               [](OnuAbilityProfile& profile) {
                 std::string value;
                 return 0ULL + profile.Get(ONU_ABILITY_CODE_PROFILE_NAME, value) + value.size();
               }),
      Question("ProfileGetKey",
               [](OnuAbilityProfile& profile) {
                 unsigned int value = 0;
                 return 0ULL + profile.Get(value) + value;
               }),
      Question("ProfileIsExist",
               [](OnuAbilityProfile& profile) { return profile.IsExist(1023) ? 1ULL : 0ULL; }),
      Question("ProfileTotal",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP) + profile.GetSize();
               }),
      {"ProfileShow",
       [] {
         auto profile =
             std::make_shared<OnuAbilityProfile>(NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 900));
         auto terminal = std::make_shared<vty>();
         auto sn = std::make_shared<ONU_ABILITY_PHYSICAL_SN>();
         return Call{[=] {
                       profile->Show(terminal.get(), ONU_ABILITY_PROFILE_SOURCE_ALL, 1, *sn, 1);
                       return 0ULL;
                     },
                     nullptr, [terminal] { return terminal->text; },
                     [terminal] { terminal->text.clear(); }};
       }},
  };
}

Operations Comparing() {
  return {
      Question("ProfileIsEqualNumber",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + profile.IsEqual(1023, 4U) +
                        profile.IsEqual(ONU_ABILITY_PROFILE_SOURCE_ALL, 1010, 4U);
               }),
      Question("ProfileIsEqualText",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + profile.IsEqual(ONU_ABILITY_CODE_TYPE_NAME, LongName());
               }),
      Question("ProfileIsEqualValue",
               [value = LongValue()](OnuAbilityProfile& profile) {
                 return 0ULL + profile.IsEqual(ONU_ABILITY_CODE_TYPE_NAME, value);
               }),
      Question("ProfileIsAmbiguousMatch",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + profile.IsAmbiguousMatch(1U, 2U) +
                        profile.IsAmbiguousMatch(LongName(), LongName());
               }),
      Question("ProfileHasRealType",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + (profile == static_cast<unsigned short>(1900));
               }),
      Question("ProfileHasKey",
               [](OnuAbilityProfile& profile) { return 0ULL + (profile == 900U); }),
      Question("ProfileHasVendor",
               [](OnuAbilityProfile& profile) {
                 return 0ULL + (profile == std::string("ABCD-OF-MORE-THAN-SIXTEEN"));
               }),
      QuestionBy(NewReport, "ProfileFitsReport",
                 [](OnuAbilityProfile& profile, OnuAbilityProfile& report) {
                   return 0ULL + (profile == report);
                 }),
      QuestionBy(SameProfile, "ProfileIsSame",
                 [](OnuAbilityProfile& profile, OnuAbilityProfile& same) {
                   return 0ULL + (profile == same);
                 }),
  };
}

}  // namespace

Operations ProfileFillings() {
  Operations all = ValueFillings();
  for (const Operations& more : {WholeProfiles(), Serialisation()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

Operations ProfileQuestions() {
  Operations all = Reading();
  const Operations more = Comparing();
  all.insert(all.end(), more.begin(), more.end());
  return all;
}
