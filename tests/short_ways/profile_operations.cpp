// Profiles as a whole: life, members, comparison and serialisation.
#include "stage.h"
#include "support/variant_items.h"
#include "texts.h"

namespace {

void Init(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const auto type = random.Type();
  const auto source = random.Source();
  const auto match_type = random.MatchType();
  stage.Say(Words("p", slot, ".Init(", type, ", ", source, ", ", match_type, ")"));
  stage.profiles[slot].Init(type, source, match_type);
}

void Clear(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("p", slot, ".Clear()"));
  stage.profiles[slot].Clear();
}

void Fill(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("p", slot, " is filled"));
  FillProfile(stage.profiles[slot], random);
  stage.Note("profile", stage.profiles[slot]);
}

void FillIrregular(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("p", slot, " is filled irregularly"));
  FillIrregularProfile(stage.profiles[slot], random);
  stage.Note("profile", stage.profiles[slot]);
}

void Assign(Stage& stage, HostileInput& random) {
  const unsigned int to = random.Slot();
  const unsigned int from = random.Slot();
  stage.Say(Words("p", to, " = p", from));
  stage.profiles[to] = stage.profiles[from];
}

void Copy(Stage& stage, HostileInput& random) {
  const unsigned int from = random.Slot();
  stage.Say(Words("a copy and a new profile beside p", from));
  stage.Note("copy", OnuAbilityProfile(stage.profiles[from]));
  stage.Note("new profile", OnuAbilityProfile());
}

void SetMember(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned int kind = random.Below(6);
  OnuAbilityProfile& profile = stage.profiles[slot];
  const unsigned int number = random.Number();
  switch (kind) {
    case 0:
      profile._id = random.Id();
      break;
    case 1:
      profile._bind_count = random.OneIn(2) ? 0 : number;
      profile._age_count = number;
      break;
    case 2:
      profile._flag_match_type = random.MatchType();
      break;
    case 3:
      profile._profile_source = random.Source();
      break;
    case 4:
      profile._profile_type = random.Type();
      break;
    default:
      profile._key_ability_code = random.KeyCode();
  }
  stage.Say(Words("p", slot, ", member ", kind, ": ") + Shown(profile));
}

void Read(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const auto attribute = random.AttributeId();
  stage.Say(Words("p", slot, ".Get(", code, "), IsExist, GetTotalNum(", attribute, "), GetSize"));
  const OnuAbilityProfile& profile = stage.profiles[slot];
  ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  stage.Note("Get value", profile.Get(code, value));
  stage.Note("value", Shown(value));
  unsigned int number = 77;
  stage.Note("Get number", profile.Get(code, number));
  stage.Note("number", number);
  std::string text = "before";
  stage.Note("Get text", profile.Get(code, text));
  stage.Note("text", text);
  number = 77;
  stage.Note("Get key value", profile.Get(number));
  stage.Note("key value", number);
  stage.Note("IsExist", profile.IsExist(code) ? 1 : 0);
  stage.Note("GetTotalNum", profile.GetTotalNum(attribute));
  stage.Note("GetSize", profile.GetSize());
}

// --- Comparison

void Ambiguous(Stage& stage, HostileInput& random) {
  const unsigned int one = random.Number();
  const unsigned int other = random.Number();
  const std::string text = random.Text();
  const std::string other_text = random.Text();
  stage.Say(Words("IsAmbiguousMatch(", one, ", ", other, "), (", Quoted(text), ", ",
                  Quoted(other_text), ")"));
  stage.Note("of numbers", stage.profiles[0].IsAmbiguousMatch(one, other));
  stage.Note("of texts", stage.profiles[0].IsAmbiguousMatch(text, other_text));
}

void Equal(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const OnuAbilityProfile& profile = stage.profiles[slot];
  const unsigned short code = random.Code();
  ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  const bool own = random.OneIn(2);
  const auto held = profile._common_ability.find(code);
  if (own && held != profile._common_ability.end()) {
    value = held->second;
  }
  const auto source = random.Source();
  stage.Say(Words("p", slot, ".IsEqual(", code, ", ", Shown(value), "), source ", source));
  stage.Note("IsEqual value", profile.IsEqual(code, value));
  stage.Note("IsEqual number", profile.IsEqual(code, value.ability_ushort_value));
  stage.Note("IsEqual of source", profile.IsEqual(source, code, value.ability_ushort_value));
  stage.Note("IsEqual text", profile.IsEqual(code, value.ability_string_value));
}

void Identity(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned int key = random.Key();
  const std::string vendor = random.Vendor();
  stage.Say(Words("p", slot, " == key and real type ", key, ", vendor ", Quoted(vendor)));
  const OnuAbilityProfile& profile = stage.profiles[slot];
  stage.Note("== real type", profile == static_cast<unsigned short>(key));
  stage.Note("== vendor", profile == vendor);
  stage.Note("== key", profile == key);
}

void Whole(Stage& stage, HostileInput& random) {
  const unsigned int stored = random.Slot();
  const unsigned int input = random.Slot();
  stage.Say(Words("p", stored, " == p", input));
  const OnuAbilityProfile& given = stage.profiles[input];
  stage.Note("==", stage.profiles[stored] == given);
  stage.Note("profile", stage.profiles[stored]);
}

// --- Serialisation

void Serialise(Stage& stage, HostileInput& random) {
  const unsigned int from = random.Slot();
  const unsigned int to = random.Slot();
  const unsigned int fail_append = random.OneIn(4) ? 1 + random.Below(30) : 0;
  const unsigned int fail_fetch = random.OneIn(4) ? 1 + random.Below(30) : 0;
  const unsigned int fail_allocation = random.OneIn(6) ? 1 + random.Below(3) : 0;
  stage.Say(Words("p", from, ".Serialize, p", to, ".UnSerialize, append ", fail_append, ", fetch ",
                  fail_fetch, " and allocation ", fail_allocation, " fail"));
  RecordingHost& host = RecordingHost::Instance();
  Variant variant;
  host.FailAppend(fail_append);
  stage.profiles[from].Serialize(variant);
  for (const VariantItem& item : ItemsOf(variant)) {
    stage.Note("item", Words(item));
  }
  host.FailFetch(fail_fetch);
  host.FailAllocation(fail_allocation);
  stage.profiles[to].UnSerialize(variant);
  stage.Note("items left", ItemsLeft(variant));
  stage.Note("profile", stage.profiles[to]);
}

}  // namespace

std::vector<Operation> ProfileOperations() {
  return {
      {"profile init", 1, Init, false, true},
      {"profile clear", 1, Clear, false, true},
      {"profile fill", 6, Fill},
      {"profile irregular fill", 4, FillIrregular, false, true},
      {"profile assignment", 2, Assign},
      {"profile copy", 1, Copy},
      {"profile member", 2, SetMember},
      {"profile reading", 3, Read},
      {"profile serialisation", 2, Serialise},
      {"matching with wildcards", 1, Ambiguous},
      {"matching of values", 3, Equal},
      {"matching of identity", 2, Identity},
      {"matching of profiles", 5, Whole},
  };
}
