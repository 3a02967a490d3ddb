// Filling, updating and emptying profiles, and direct change of their abilities.
#include "stage.h"
#include "texts.h"

namespace {

void AddNumber(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const unsigned int number = random.OneIn(4) ? random.Key() : random.Number();
  stage.Say(Words("p", slot, ".Add(", code, ", ", number, ")"));
  stage.profiles[slot].Add(code, number);
}

void AddText(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const std::string text = random.Text();
  stage.Say(Words("p", slot, ".Add(", code, ", ", Quoted(text), ")"));
  stage.profiles[slot].Add(code, text);
}

void AddValue(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  stage.Say(Words("p", slot, ".Add(", code, ", value ", Shown(value), ")"));
  stage.profiles[slot].Add(code, value);
}

void AddKey(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned int key = random.Key();
  stage.Say(Words("p", slot, ".Add(key ", key, ")"));
  stage.profiles[slot].Add(key);
}

void AddAllCodes(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const auto type = random.Type();
  const unsigned int number = random.Number();
  stage.Say(Words("p", slot, ".Add(type ", type, ", ", number, ")"));
  stage.profiles[slot].Add(type, number);
  stage.Note("profile", stage.profiles[slot]);
}

void Update(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  const unsigned int kind = random.Below(5);
  stage.Say(Words("p", slot, ".Update, kind ", kind, " (", code, ", ", Shown(value), ")"));
  OnuAbilityProfile& profile = stage.profiles[slot];
  switch (kind) {
    case 0:
      profile.Update(code, value);
      break;
    case 1:
      profile.Update(code, value.ability_ushort_value);
      break;
    case 2:
      profile.Update(code, value.ability_string_value);
      break;
    case 3:
      profile.UpdateInit(code, value.ability_ushort_value);
      break;
    default:
      profile.UpdateInit(code, value.ability_string_value);
  }
  stage.Note("profile", profile);
}

void Derive(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned int kind = random.Below(3);
  stage.Say(Words("p", slot, ".Update(), UpdateLan(), UpdateDataUni(): ", kind));
  if (kind == 0) {
    stage.profiles[slot].Update();
  } else if (kind == 1) {
    stage.profiles[slot].UpdateLan();
  } else {
    stage.profiles[slot].UpdateDataUni();
  }
  stage.Note("profile", stage.profiles[slot]);
}

void Del(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  stage.Say(Words("p", slot, ".Del(", code, ")"));
  stage.profiles[slot].Del(code);
}

void ChangeDirectly(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const unsigned short code = random.Code();
  const ONU_ABILITY_COMMON_ABILITY_VALUE value = random.Value();
  auto& abilities = stage.profiles[slot]._common_ability;
  if (random.OneIn(3)) {
    stage.Say(Words("p", slot, "._common_ability.erase(", code, ")"));
    abilities.erase(code);
  } else {
    stage.Say(Words("p", slot, "._common_ability[", code, "] = ", Shown(value)));
    abilities[code] = value;
  }
}

}  // namespace

std::vector<Operation> ProfileValueOperations() {
  return {
      {"profile add number", 5, AddNumber},
      {"profile add text", 2, AddText},
      {"profile add value", 2, AddValue},
      {"profile add key", 3, AddKey},
      {"profile add codes", 1, AddAllCodes},
      {"profile update", 2, Update, false, true},
      {"profile derived", 1, Derive},
      {"profile delete", 2, Del, false, true},
      {"profile direct change", 3, ChangeDirectly, false, true},
  };
}
