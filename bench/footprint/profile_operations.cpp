#include "footprint/board.h"
#include "population.h"
#include "variant.h"

namespace {

constexpr unsigned short kNumber = kFirstComparedCode;
constexpr unsigned short kText = ONU_ABILITY_CODE_TYPE_NAME;

OnuAbilityProfile& Profile() {
  static OnuAbilityProfile profile = NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  return profile;
}

// What several operations need, made beforehand.
struct Materials {
  OnuAbilityProfile pattern = NewProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  OnuAbilityProfile request = Request();
  OnuAbilityProfile target;
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  std::string text = "a text of thirty bytes or more";
  unsigned int number = 0;
  Variant variant;
  ONU_ABILITY_PHYSICAL_SN sn;
};

Materials& Given() {
  static Materials materials;
  return materials;
}

std::vector<Operation> Reading() {
  OnuAbilityProfile& profile = Profile();
  Materials& given = Given();
  return {
      {"Get(code, value)", [&] { profile.Get(kText, given.value); }},
      {"Get(code, number)", [&] { profile.Get(kNumber, given.number); }},
      {"Get(code, string)", [&] { profile.Get(kText, given.text); }},
      {"Get(key)", [&] { profile.Get(given.number); }},
      {"IsExist", [&] { profile.IsExist(kNumber); }},
      {"GetTotalNum", [&] { profile.GetTotalNum(ONU_ABILITY_ATTR_LAMP); }},
      {"GetSize", [&] { profile.GetSize(); }},
      {"IsAmbiguousMatch(numbers)", [&] { profile.IsAmbiguousMatch(1, 2); }},
      {"IsAmbiguousMatch(strings)", [&] { profile.IsAmbiguousMatch(given.text, given.text); }},
      {"IsEqual(code, value)", [&] { profile.IsEqual(kText, given.value); }},
      {"IsEqual(code, number)", [&] { profile.IsEqual(kNumber, 1); }},
      {"IsEqual(source, code, number)",
       [&] { profile.IsEqual(ONU_ABILITY_PROFILE_SOURCE_ALL, kNumber, 1); }},
      {"IsEqual(code, string)", [&] { profile.IsEqual(kText, given.text); }},
      {"== real type", [&] { static_cast<void>(profile == static_cast<unsigned short>(1)); }},
      {"== vendor id", [&] { static_cast<void>(profile == std::string("ABCD")); }},
      {"== key", [&] { static_cast<void>(profile == 1U); }},
      {"== pattern comparison", [&] { static_cast<void>(given.pattern == given.request); }},
      {"== exact comparison", [&] { static_cast<void>(profile == profile); }},
      {"Serialize, 60 abilities", [&] { profile.Serialize(given.variant); }},
      {"UnSerialize, 60 abilities", [&] { given.target.UnSerialize(given.variant); }},
      {"Show, 60 abilities",
       [&] { profile.Show(&profile, ONU_ABILITY_PROFILE_SOURCE_ALL, 1, given.sn, 0); }},
  };
}

std::vector<Operation> Filling() {
  OnuAbilityProfile& profile = Profile();
  Materials& given = Given();
  return {
      {"a new profile", [] { OnuAbilityProfile empty; }},
      {"a copy, 60 abilities", [&] { OnuAbilityProfile copy(profile); }},
      {"assigning, 60 abilities", [&] { given.target = profile; }},
      {"Add(code, value)", [&] { profile.Add(kText, given.value); }},
      {"Add(code, number)", [&] { profile.Add(kNumber, 3U); }},
      {"Add(code, string)", [&] { profile.Add(kText, given.text); }},
      {"Add(key)", [&] { profile.Add(1U); }},
      {"Update(code, value)", [&] { profile.Update(kText, given.value); }},
      {"Update(code, number)", [&] { profile.Update(kNumber, 4U); }},
      {"Update(code, string)", [&] { profile.Update(kText, given.text); }},
      {"UpdateInit(code, number)", [&] { profile.UpdateInit(kNumber, 4U); }},
      {"UpdateInit(code, string)", [&] { profile.UpdateInit(kText, given.text); }},
      {"Update, derived counts", [&] { profile.Update(); }},
      {"UpdateLan", [&] { profile.UpdateLan(); }},
      {"UpdateDataUni", [&] { profile.UpdateDataUni(); }},
      {"Del", [&] { profile.Del(kNumber); }},
      {"Clear", [&] { profile.Clear(); }},
      {"Add(type, number), every code", [&] { profile.Add(ONU_ABILITY_PROFILE_TYPE_REAL, 0U); }},
      {"Init",
       [&] {
         profile.Init(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                      ONU_ABILITY_MATCH_TYPE_EXACT);
       }},
  };
}

}  // namespace

std::vector<Operation> ProfileOperations() {
  std::vector<Operation> operations = Reading();
  for (Operation& operation : Filling()) operations.push_back(std::move(operation));
  for (Operation& operation : operations) operation.name = "OnuAbilityProfile: " + operation.name;
  return operations;
}
