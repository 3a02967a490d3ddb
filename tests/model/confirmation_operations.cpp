#include "both_sides.h"
#include "confirmation.h"
#include "onu_ability_common_reg_extern_func.h"
#include "support/scripted_hooks.h"

namespace {

using model::Format;

OnuAbilityRegExternFunc& Registry() { return *OnuAbilityRegExternFunc::GetInstance(); }

void Register(BothSides& both, RandomInput& random) {
  const unsigned int kind = random.Below(8);
  const auto id = static_cast<unsigned short>(random.Below(12));
  if (kind < 5) {
    both.Describe("register every hook");
    for (unsigned short hook = 0; hook < 10; ++hook) {
      onu_ability_register_extern_func(hook, HookFunction(hook));
      model::RegisterHook(hook, true);
    }
  } else if (kind < 7) {
    both.Describe(Format("register hook %d", id));
    void* function = HookFunction(id > 9 ? 0 : id);
    Registry().RegisterExternFunc(id, function);
    model::RegisterHook(id, true);
  } else {
    both.Describe(Format("register a null hook %d", id));
    onu_ability_register_extern_func(id, nullptr);
    model::RegisterHook(id, false);
  }
}

void Set(BothSides& both, RandomInput& random) {
  const unsigned int number = random.Number();
  const auto type = static_cast<unsigned short>(number);
  switch (random.Below(4)) {
    case 0:
      both.Describe(Format("SetModuleId(%u)", number));
      Registry().SetModuleId(number);
      model::TheSettings().module_id = number;
      return;
    case 1:
      both.Describe(Format("SetCmdNode(%u)", number));
      Registry().SetCmdNode(number);
      model::TheSettings().cmd_node = number;
      return;
    case 2:
      both.Describe(Format("SetSfuCommonType(%d)", type));
      Registry().SetSfuCommonType(type);
      model::TheSettings().sfu_common_type = type;
      return;
    default:
      both.Describe(Format("SetHguCommonType(%d)", type));
      Registry().SetHguCommonType(type);
      model::TheSettings().hgu_common_type = type;
  }
}

void SetMask(BothSides& both, RandomInput& random) {
  const unsigned int mask = random.LogMask();
  both.Describe(Format("onu_ability_set_log_level_mask(0x%x)", mask));
  onu_ability_set_log_level_mask(mask);
  model::TheSettings().log_mask = mask;
}

model::Report RandomReport(RandomInput& random) {
  model::Report report;
  report.vendor_status = random.OneIn(4) ? 1 : 0;
  report.vendor_id = random.Pick<const char*>({"ZKWM", "ABCD", "AB", ""});
  report.reported_type = random.Key();
  report.sets_private_capability = random.OneIn(2);
  report.private_capability = random.Pick<unsigned char>({0, 1, 7, 255});
  report.device_name_status = random.OneIn(3) ? 1 : 0;
  report.device_name = random.Pick<const char*>({"", "NAME", "A NAME OF TWENTY.CHR"});
  for (const unsigned short code :
       std::vector<unsigned short>{1002, 1010, 1011, 1012, 1023, 1080, 1081, 1085}) {
    if (random.OneIn(2)) {
      report.values[code] = random.Number();
    }
  }
  for (unsigned short& setting : report.settings) {
    setting = random.Pick<unsigned short>({0, 1, 2, 3, 4, 5, 65535});
  }
  report.read_one_by_one = random.OneIn(4) ? 0 : random.Pick<unsigned int>({1, 7});
  return report;
}

void Script(const model::Report& report) {
  ScriptedOnu& onu = Hooks().onu;
  onu.status[0] = report.vendor_status;
  onu.vendor_id = report.vendor_id;
  onu.reported_type = report.reported_type;
  onu.set_private_capability = report.sets_private_capability;
  onu.private_capability = report.private_capability;
  onu.status[9] = report.device_name_status;
  onu.device_name = report.device_name;
  onu.values = report.values;
  onu.read_one_by_one = report.read_one_by_one;
  for (int i = 0; i < 4; ++i) {
    onu.settings[i] = report.settings[i];
  }
}

void Compare(BothSides& both, const ConfirmOnuType& library, const model::Confirmation& model) {
  both.Same("confirmation", library, model);
  both.Same("_place", library._place, model.place);
  both.Same("_onu", library._onu, model.onu);
  both.Same("_key_ability_value", library._key_ability_value, model.key_value);
  both.Same("_report_type", library._report_type, model.report_type);
  for (size_t i = 0; i < 4; ++i) {
    both.Same("_identify_setting", library._identify_setting[i], model.settings[i]);
  }
  both.Same("_type_from_onu_report", library._type_from_onu_report, model.type_from_report);
  both.Same("_private_capability", library._private_capability, model.private_capability);
  both.Same("profile handed over", Hooks().handed_over, model.handed_over);
}

std::string Shown(const model::Report& report) {
  std::string text =
      Format("vendor %u %s, type %u, read %u, capability %d %d, name %u %s, values",
             report.vendor_status, report.vendor_id.c_str(), report.reported_type,
             report.read_one_by_one, report.sets_private_capability ? 1 : 0,
             report.private_capability, report.device_name_status, report.device_name.c_str());
  for (const auto& value : report.values) {
    text += Format(" %d=%u", value.first, value.second);
  }
  return text + Format(", settings %d %d %d %d", report.settings[0], report.settings[1],
                       report.settings[2], report.settings[3]);
}

void Confirm(BothSides& both, RandomInput& random) {
  const unsigned short place = random.Short();
  const auto onu = static_cast<unsigned char>(random.Below(256));
  const model::Report report = RandomReport(random);
  Script(report);
  both.Describe(Format("ConfirmOnuType(%d, %d).Perform(), ", place, onu) + Shown(report));
  ConfirmOnuType library(place, onu);
  model::Confirmation model(place, onu, report);
  both.Same("Perform", library.Perform(), model.Perform());
  Compare(both, library, model);
}

// One step on an object that may be in any state.
void ConfirmStep(BothSides& both, ConfirmOnuType& library, model::Confirmation& model,
                 unsigned int step) {
  switch (step) {
    case 0:
      both.Same("IsValidOnuType", library.IsValidOnuType(), model.IsValidOnuType());
      return;
    case 1:
      both.Same("ConfirmOnuTypeByAbilities", library.ConfirmOnuTypeByAbilities(),
                model.ConfirmByAbilities());
      return;
    case 2:
      both.Same("UpdateOnucapaFromSpecialMe", library.UpdateOnucapaFromSpecialMe(),
                model.UpdateCapability());
      return;
    case 3:
      both.Same("TransOnutypeByHswSwitch", library.TransOnutypeByHswSwitch(), model.Translate());
      return;
    default:
      if (model::AllHooksRegistered()) {
        library.Init();
        model.Gather();
      }
  }
}

void ConfirmInSteps(BothSides& both, RandomInput& random) {
  const unsigned short place = random.Short();
  const model::Report report = RandomReport(random);
  Script(report);
  ConfirmOnuType library(place, 9);
  model::Confirmation model(place, 9, report);
  if (random.OneIn(2)) {
    library._private_capability = model.private_capability = report.private_capability;
    library._type_from_onu_report = model.type_from_report = random.Key();
  }
  std::string steps;
  const unsigned int count = 1 + random.Below(4);
  for (unsigned int i = 0; i < count; ++i) {
    const unsigned int step = random.Below(5);
    steps += std::to_string(step) + " ";
    ConfirmStep(both, library, model, step);
  }
  both.Describe(Format("ConfirmOnuType(%d, 9), steps ", place) + steps + Shown(report));
  Compare(both, library, model);
}

}  // namespace

std::vector<Operation> ConfirmationOperations() {
  return {
      {"hook registration", 3, Register},
      {"settings", 1, Set},
      {"log mask", 2, SetMask},
      {"confirmation", 8, Confirm},
      {"confirmation in steps", 3, ConfirmInSteps},
  };
}
