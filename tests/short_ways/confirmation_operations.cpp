// Confirmation of an ONU's type, with hooks that now and then change registries and
// profiles while they answer; settings, among them the log mask.
#include <memory>

#include "onu_ability_common_reg_extern_func.h"
#include "operation_choice.h"
#include "support/scripted_hooks.h"
#include "texts.h"

namespace {

void RegisterHook(Stage& stage, HostileInput& random) {
  if (!random.OneIn(6)) {
    stage.Say("register every hook");
    RegisterHooks();
    return;
  }
  const auto id = static_cast<unsigned short>(random.Below(12));
  const bool null = random.OneIn(3) || id > 9;
  stage.Say(Words("register ", null ? "a null hook " : "hook ", id));
  onu_ability_register_extern_func(id, null ? nullptr : HookFunction(id));
}

void ScriptReport(HostileInput& random) {
  ScriptedOnu& onu = Hooks().onu;
  onu.status[0] = random.OneIn(4) ? 1 : 0;
  onu.vendor_id = random.Vendor();
  onu.reported_type = random.OneIn(2) ? random.Key() : 77;
  onu.set_private_capability = random.OneIn(2);
  onu.private_capability = random.Pick<unsigned char>({0, 1, 7, 255});
  onu.status[9] = random.OneIn(3) ? 1 : 0;
  onu.device_name = random.Pick<const char*>({"", "NAME", "A NAME OF TWENTY.CHR"});
  for (const unsigned short code : kCatalogueCodes) {
    const unsigned int number = random.Pick<unsigned int>({1, 1, 2, 0, 257, 0xFFFFFFFFU});
    if (random.OneIn(2)) {
      onu.values[code] = number;
    }
  }
  for (unsigned short& setting : onu.settings) {
    setting = random.Pick<unsigned short>({0, 1, 2, 3, 4, 5, 65535});
  }
  onu.read_one_by_one = random.OneIn(4) ? 0 : 1;
}

// Changes that a host may make while it answers.
const Operations& Disturbances(const Stage& stage) {
  static const Operations plain =
      Collect({RegistryOperations(), TableOperations(), StoredProfileOperations(),
               MatchOperations(), LookupOperations()});
  static const Operations all = Collect({plain, RecordOperations()});
  return stage.HandsRecordsOut() ? all : plain;
}

// One or two disturbances, each at a call counted from the first.
void ScriptDisturbances(Stage& stage, HostileInput& random) {
  const unsigned int first = random.Below(12);
  const unsigned int second = random.Below(24);
  const std::uint64_t seed = random.Next();
  const bool touches_profile = random.OneIn(4);
  auto calls = std::make_shared<unsigned int>(0);
  Hooks().meanwhile = [&stage, first, second, seed, touches_profile, calls](
                          int id, ConfirmOnuType* profile) {
    const unsigned int call = (*calls)++;
    HostileInput input(seed + call);
    if (touches_profile && profile != nullptr) {
      stage.Say("  the host changes the profile");
      profile->_common_ability[input.Code()] = input.Value();
    }
    if (call == first || call == second) {
      stage.Say(Words("  while hook ", id, " answers:"));
      PickOperation(Disturbances(stage), input).run(stage, input);
    }
  };
}

void NoteConfirmation(Stage& stage, const ConfirmOnuType& onu) {
  stage.Note("confirmation", onu);
  stage.Note("key ability value", onu._key_ability_value);
  stage.Note("report type", onu._report_type);
  stage.Note("type from report", onu._type_from_onu_report);
  stage.Note("private capability", onu._private_capability);
}

void Confirm(Stage& stage, HostileInput& random) {
  ScriptReport(random);
  const bool disturbed = random.OneIn(3);
  stage.Say(Words("ConfirmOnuType(5, 9).Perform()", disturbed ? ", disturbed" : "", ", type ",
                  Hooks().onu.reported_type));
  if (disturbed) {
    ScriptDisturbances(stage, random);
  }
  ConfirmOnuType onu(5, 9);
  stage.Note("Perform", onu.Perform());
  Hooks().meanwhile = nullptr;
  NoteConfirmation(stage, onu);
}

// One step on an object that may be in any state.
unsigned int Step(ConfirmOnuType& onu, unsigned int step) {
  switch (step) {
    case 0:
      return onu.IsValidOnuType();
    case 1:
      return onu.ConfirmOnuTypeByAbilities();
    case 2:
      return onu.UpdateOnucapaFromSpecialMe();
    case 3:
      return onu.TransOnutypeByHswSwitch();
    default:
      if (OnuAbilityRegExternFunc::GetInstance()->WhetherExternFuncRegistered()) {
        onu.Init();
      }
      return 0;
  }
}

void ConfirmInSteps(Stage& stage, HostileInput& random) {
  ScriptReport(random);
  ConfirmOnuType onu(5, 9);
  if (random.OneIn(2)) {
    onu._private_capability = Hooks().onu.private_capability;
    onu._type_from_onu_report = random.Key();
  }
  const unsigned int count = 1 + random.Below(4);
  stage.Say("ConfirmOnuType(5, 9) in steps");
  for (unsigned int i = 0; i < count; ++i) {
    const unsigned int step = random.Below(5);
    stage.Say(Words("  step ", step));
    stage.Note("result", Step(onu, step));
  }
  NoteConfirmation(stage, onu);
}

// --- Settings

void SetMask(Stage& stage, unsigned int mask) {
  stage.Say(Words("onu_ability_set_log_level_mask(0x", std::hex, mask, ")"));
  onu_ability_set_log_level_mask(mask);
}

void SetModuleId(Stage& stage, HostileInput& random) {
  const unsigned int number = random.Number();
  stage.Say(Words("SetModuleId(", number, ")"));
  OnuAbilityRegExternFunc::GetInstance()->SetModuleId(number);
}

void LookAtState(Stage& stage, HostileInput& /*random*/) {
  stage.Say("the whole state");
  stage.NoteState();
}

}  // namespace

void ListenQuietly(Stage& stage, HostileInput& random) { SetMask(stage, random.QuietMask()); }
void ListenLoudly(Stage& stage, HostileInput& random) { SetMask(stage, random.LoudMask()); }

std::vector<Operation> ConfirmationOperations() {
  return {
      {"hook registration", 3, RegisterHook},
      {"confirmation", 10, Confirm},
      {"confirmation in steps", 3, ConfirmInSteps},
  };
}

std::vector<Operation> SettingOperations() {
  return {
      {"quiet mask", 5, ListenQuietly},
      {"module id", 1, SetModuleId},
      {"state", 4, LookAtState},
  };
}
