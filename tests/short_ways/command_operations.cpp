// The sixteen commands with their terminal output, and the listings.
#include "onu_ability_common_service_cli.h"
#include "stage.h"
#include "texts.h"

namespace {

using Arguments = std::vector<std::string>;

std::string Digits(unsigned int number) { return std::to_string(number); }

// What atoi reads: within the range of int.
std::string Signed(unsigned int number) { return std::to_string(static_cast<int>(number)); }

// A text as an operator can type it.
std::string Typed(HostileInput& random) {
  const std::string text = random.Text();
  return text.substr(0, text.find('\0'));
}

void Handle(Stage& stage, cmd_element& command, Arguments arguments) {
  std::string description = std::string(command.string) + " <-";
  std::vector<char*> argv;
  for (std::string& argument : arguments) {
    description += " " + Quoted(argument);
    argv.push_back(argument.data());
  }
  argv.push_back(nullptr);
  stage.Say(description);
  stage.Note("result", command.func(&command, &stage.terminal, static_cast<int>(arguments.size()),
                                    argv.data()));
}

void ShowTable(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(random.Pick<const char*>({"match", "real", "x"}));
  arguments.push_back(std::to_string(random.Source()));
  arguments.push_back(random.Pick<const char*>({"0", "1"}));
  if (random.OneIn(2)) {
    arguments.push_back("real_type");
    arguments.push_back(Signed(stage.Key(random)));
  }
  Handle(stage, cl_show_onu_ability_table_cmd, arguments);
}

void AddProfile(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(Digits(random.Key()));
  arguments.push_back(std::to_string(random.Type()));
  arguments.push_back(Signed(random.Key()));
  arguments.push_back(Signed(random.Key()));
  arguments.push_back(Typed(random));
  arguments.push_back(Typed(random));
  Handle(stage, cl_add_onutype_capa_table_cmd, arguments);
}

// The key of the pending profile, now and then another.
std::string PendingKey(HostileInput& random) {
  const unsigned int other = random.Key();
  const bool right = !random.OneIn(4);
  const OnuAbilityProfile* pending = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  if (pending == nullptr || !right) {
    return Digits(other);
  }
  const auto held = pending->_common_ability.find(pending->_key_ability_code);
  return Digits(held == pending->_common_ability.end() ? other : held->second.ability_ushort_value);
}

void SetProfile(Stage& stage, HostileInput& random) {
  Arguments arguments = {"key", PendingKey(random)};
  const unsigned int pairs = random.Below(5);
  for (unsigned int i = 0; i < pairs; ++i) {
    arguments.push_back(Digits(random.Code()));
    arguments.push_back(random.OneIn(4) ? "null" : Signed(random.Number()));
  }
  Handle(stage, cl_set_onutype_capa_table_cmd, arguments);
}

void ApplyProfile(Stage& stage, HostileInput& random) {
  Handle(stage, cl_apply_add_onutype_capa_table_cmd, {PendingKey(random)});
}

void ShowPending(Stage& stage, HostileInput& random) {
  Handle(stage, cl_show_onu_ability_table_by_manual_cmd, {random.Pick<const char*>({"0", "1"})});
}

void DelProfile(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(Digits(stage.Key(random)));
  arguments.push_back(std::to_string(random.Type()));
  arguments.push_back(std::to_string(random.Source()));
  Handle(stage, cl_del_onutype_capa_table_cmd, arguments);
}

void ShowCodes(Stage& stage, HostileInput& random) {
  Arguments arguments;
  if (!random.OneIn(3)) {
    arguments.push_back(
        random.Pick<std::string>({"lan", "CODE", "", "12", "null", Digits(random.Code())}));
  }
  Handle(stage, cl_show_onu_ability_code_info_cmd, arguments);
}

void SetCode(Stage& stage, HostileInput& random) {
  Arguments arguments;
  const unsigned int code = random.Code();
  arguments.push_back(Digits(code));
  arguments.push_back(random.OneIn(3) ? random.CodeName() : "CODE_" + Digits(code));
  const unsigned int pairs = random.Below(5);
  for (unsigned int i = 0; i < pairs; ++i) {
    arguments.push_back(std::to_string(random.AttributeId()));
    arguments.push_back(Digits(random.AttributeValue()));
  }
  Handle(stage, cl_set_onu_ability_code_info_cmd, arguments);
}

void DelCode(Stage& stage, HostileInput& random) {
  Handle(stage, cl_del_onu_ability_code_info_cmd, {Digits(random.Code())});
}

void UpdateNumber(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(Digits(stage.Key(random)));
  arguments.push_back(std::to_string(random.Type()));
  arguments.push_back(std::to_string(random.Source()));
  arguments.push_back(Digits(random.Code()));
  arguments.push_back(Signed(random.OneIn(2) ? random.Key() : random.Number()));
  Handle(stage, cl_update_uint_ability_value_cmd, arguments);
}

void UpdateText(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(Signed(stage.Key(random)));
  arguments.push_back(std::to_string(random.Type()));
  arguments.push_back(std::to_string(random.Source()));
  arguments.push_back(Digits(random.Code()));
  arguments.push_back(Typed(random));
  Handle(stage, cl_update_string_ability_value_cmd, arguments);
}

void SetCommonType(Stage& stage, HostileInput& random) {
  Arguments arguments;
  arguments.push_back(random.Pick<const char*>({"sfu", "hgu", "xyz"}));
  arguments.push_back(Signed(random.Number()));
  Handle(stage, cl_set_onu_common_type_cmd, arguments);
}

void SetKeyCode(Stage& stage, HostileInput& random) {
  Handle(stage, cl_set_key_ability_code_cmd, {Digits(random.KeyCode())});
}

void ShowSettings(Stage& stage, HostileInput& random) {
  cmd_element* const commands[] = {&cl_get_onu_common_type_cmd, &cl_get_key_ability_code_cmd,
                                   &cl_test_onu_ability_cmd};
  Handle(stage, *commands[random.Below(3)], {});
}

void ReadNumber(Stage& stage, HostileInput& random) {
  std::string text = random.OneIn(3) ? "null" : Signed(random.Number());
  stage.Say("char_to_onucapa_num(" + text + ")");
  stage.Note("number", char_to_onucapa_num(text.data()));
}

// --- Listings, past the commands

void ShowTables(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const int flag = random.Pick({0, 1});
  const auto real_type = static_cast<unsigned short>(stage.Key(random));
  void* vty = random.OneIn(8) ? nullptr : &stage.terminal;
  if (random.OneIn(2)) {
    stage.Say(Words("show_all_onucapa_table(", type, ", ", source, ", ", flag, ")"));
    onu_ability_show_all_onucapa_table(type, source, flag, vty);
  } else {
    stage.Say(Words("show_item(", type, ", ", source, ", ", flag, ", ", real_type, ")"));
    onu_ability_show_item(type, source, flag, real_type, vty);
  }
}

void ShowProfile(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const auto source = random.Source();
  const unsigned int flag = random.Pick({0U, 1U});
  ONU_ABILITY_PHYSICAL_SN number;
  number.pon_no = random.Pick<unsigned short>({65535, 0, 12});
  number.vendor_id = random.Vendor();
  stage.Say(Words("p", slot, ".Show(source ", source, ", flag ", flag, ")"));
  stage.profiles[slot].Show(&stage.terminal, source, flag, number, 255);
}

}  // namespace

std::vector<Operation> CommandOperations() {
  return {
      {"command show table", 1, ShowTable, true},
      {"command add profile", 4, AddProfile},
      {"command set profile", 3, SetProfile},
      {"command apply profile", 5, ApplyProfile},
      {"command show pending", 1, ShowPending},
      {"command delete profile", 3, DelProfile},
      {"command show codes", 1, ShowCodes},
      {"command set code", 3, SetCode, false, true},
      {"command delete code", 1, DelCode, false, true},
      {"command update number", 4, UpdateNumber},
      {"command update text", 2, UpdateText},
      {"command set common type", 1, SetCommonType},
      {"command set key code", 1, SetKeyCode, false, true},
      {"command show settings", 1, ShowSettings},
      {"command number", 1, ReadNumber},
      {"listing of tables", 2, ShowTables, true},
      {"listing of a profile", 2, ShowProfile},
  };
}
