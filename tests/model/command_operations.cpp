#include "both_sides.h"
#include "commands.h"
#include "onu_ability_common_service_cli.h"
#include "settings.h"

namespace {

using model::Arguments;
using model::Format;

std::string Digits(unsigned int number) { return std::to_string(number); }

// What atoi reads: within the range of int.
std::string Signed(unsigned int number) { return std::to_string(static_cast<int>(number)); }

void Handle(BothSides& both, cmd_element& command, int (*model_handler)(const Arguments&),
            Arguments arguments) {
  std::string description = std::string(command.string) + " <-";
  std::vector<char*> argv;
  const Arguments copies = arguments;
  for (std::string& argument : arguments) {
    description += " " + Quoted(argument);
    argv.push_back(argument.data());
  }
  argv.push_back(nullptr);
  both.Describe(description);
  both.Same("result",
            command.func(&command, &both.terminal, static_cast<int>(copies.size()), argv.data()),
            model_handler(copies));
}

std::string Flag(RandomInput& random) { return random.Pick<const char*>({"0", "1"}); }
std::string TypeText(RandomInput& random) { return std::to_string(random.Type()); }
std::string SourceText(RandomInput& random) { return std::to_string(random.Source()); }

// A text as an operator can type it.
std::string Typed(RandomInput& random) {
  const std::string text = random.Text();
  return text.substr(0, text.find('\0'));
}

void ShowTable(BothSides& both, RandomInput& random) {
  Arguments arguments = {random.Pick<const char*>({"match", "real", "x"}), SourceText(random),
                         Flag(random)};
  if (random.OneIn(2)) {
    arguments.push_back("real_type");
    arguments.push_back(Signed(random.Key()));
  }
  Handle(both, cl_show_onu_ability_table_cmd, model::ShowTable, arguments);
}

void AddProfile(BothSides& both, RandomInput& random) {
  Handle(both, cl_add_onutype_capa_table_cmd, model::AddProfile,
         {Digits(random.Key()), TypeText(random), Signed(random.Key()), Signed(random.Key()),
          Typed(random), Typed(random)});
}

void SetProfile(BothSides& both, RandomInput& random) {
  Arguments arguments = {"key", Digits(random.Key())};
  const auto& pending = model::TheSettings().pending;
  if (pending != nullptr && pending->abilities.count(1085) != 0 && !random.OneIn(4)) {
    arguments[1] = Digits(pending->abilities[1085].number);
  }
  const unsigned int pairs = random.Below(5);
  for (unsigned int i = 0; i < pairs; ++i) {
    arguments.push_back(Digits(random.Code()));
    arguments.push_back(random.OneIn(4) ? "null" : Signed(random.Number()));
  }
  Handle(both, cl_set_onutype_capa_table_cmd, model::SetProfile, arguments);
}

void ApplyProfile(BothSides& both, RandomInput& random) {
  std::string key = Digits(random.Key());
  const auto& pending = model::TheSettings().pending;
  if (pending != nullptr && pending->abilities.count(1085) != 0 && !random.OneIn(4)) {
    key = Digits(pending->abilities[1085].number);
  }
  Handle(both, cl_apply_add_onutype_capa_table_cmd, model::ApplyProfile, {key});
}

void ShowPending(BothSides& both, RandomInput& random) {
  Handle(both, cl_show_onu_ability_table_by_manual_cmd, model::ShowPending, {Flag(random)});
}

void DelProfile(BothSides& both, RandomInput& random) {
  Handle(both, cl_del_onutype_capa_table_cmd, model::DelProfile,
         {Digits(both.Key(random)), TypeText(random), SourceText(random)});
}

void ShowCodes(BothSides& both, RandomInput& random) {
  Arguments arguments;
  if (!random.OneIn(3)) {
    arguments.push_back(
        random.Pick<std::string>({"lan", "CODE", "", "12", "null", "-1", Digits(random.Code())}));
  }
  Handle(both, cl_show_onu_ability_code_info_cmd, model::ShowCodes, arguments);
}

void SetCode(BothSides& both, RandomInput& random) {
  Arguments arguments = {Digits(random.Code() + (random.OneIn(10) ? 65536U : 0U)),
                         random.CodeName()};
  const unsigned int pairs = random.Below(5);
  for (unsigned int i = 0; i < pairs; ++i) {
    arguments.push_back(std::to_string(random.AttributeId()));
    arguments.push_back(Digits(random.AttributeValue()));
  }
  Handle(both, cl_set_onu_ability_code_info_cmd, model::SetCode, arguments);
}

void DelCode(BothSides& both, RandomInput& random) {
  Handle(both, cl_del_onu_ability_code_info_cmd, model::DelCode, {Digits(random.Code())});
}

void UpdateNumber(BothSides& both, RandomInput& random) {
  Handle(both, cl_update_uint_ability_value_cmd, model::UpdateNumberValue,
         {Digits(both.Key(random)), TypeText(random), SourceText(random), Digits(random.Code()),
          Signed(random.Number())});
}

void UpdateText(BothSides& both, RandomInput& random) {
  Handle(both, cl_update_string_ability_value_cmd, model::UpdateTextValue,
         {Signed(random.Key()), TypeText(random), SourceText(random), Digits(random.Code()),
          Typed(random)});
}

void SetCommonType(BothSides& both, RandomInput& random) {
  Handle(both, cl_set_onu_common_type_cmd, model::SetCommonType,
         {random.Pick<const char*>({"sfu", "hgu", "xyz"}), Signed(random.Number())});
}

void SetKeyCode(BothSides& both, RandomInput& random) {
  const unsigned int code = random.OneIn(2) ? 1085U : random.Code();
  Handle(both, cl_set_key_ability_code_cmd, model::SetKeyCode,
         {random.OneIn(10) ? "none" : Digits(code + (random.OneIn(10) ? 65536U : 0U))});
}

void ShowSettings(BothSides& both, RandomInput& random) {
  switch (random.Below(3)) {
    case 0:
      Handle(both, cl_get_onu_common_type_cmd, model::ShowCommonTypes, {});
      return;
    case 1:
      Handle(both, cl_get_key_ability_code_cmd, model::ShowKeyCode, {});
      return;
    default:
      Handle(both, cl_test_onu_ability_cmd, model::TestAbility, {});
  }
}

void ReadNumber(BothSides& both, RandomInput& random) {
  std::string text = random.OneIn(3) ? "null" : Signed(random.Number());
  both.Describe("char_to_onucapa_num(" + text + ")");
  const unsigned int number = model::AbilityNumber(text);
  both.Same("number", char_to_onucapa_num(text.data()), number);
}

// --- Listings, past the commands

void ShowTables(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const int flag = random.Pick({0, 1});
  const unsigned short real_type = random.Short();
  const bool terminal = !random.OneIn(8);
  void* vty = terminal ? &both.terminal : nullptr;
  if (random.OneIn(2)) {
    both.Describe(Format("show_all_onucapa_table(%d, %d, %d)", type, source, flag));
    onu_ability_show_all_onucapa_table(type, source, flag, vty);
    model::ShowAll(type, source, flag, terminal);
  } else {
    both.Describe(Format("show_item(%d, %d, %d, %d)", type, source, flag, real_type));
    onu_ability_show_item(type, source, flag, real_type, vty);
    model::ShowItem(type, source, flag, real_type, terminal);
  }
}

void ShowProfile(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  const int source = random.Source();
  const unsigned int flag = random.Pick({0U, 1U});
  const bool terminal = !random.OneIn(8);
  const auto omci_mode = random.Pick<unsigned char>({255, 0, 1});
  model::SerialNumber number;
  number.pon_no = random.Pick<unsigned short>({65535, 0, 12});
  number.onu_id = random.Pick<unsigned char>({255, 0, 12});
  number.vendor = random.Pick<const char*>({"", "ZKWM"});
  number.serial[4] = static_cast<unsigned char>(random.Below(256));
  both.Describe(Format("p%u.Show(source %d, flag %u)", slot, source, flag));
  ONU_ABILITY_PHYSICAL_SN sn = ToLibrary(number);
  both.library[slot].Show(terminal ? &both.terminal : nullptr, AsSource(source), flag, sn,
                          omci_mode);
  both.model[slot].Show(terminal, source, flag, number, omci_mode);
}

}  // namespace

std::vector<Operation> CommandOperations() {
  return {
      {"command show table", 4, ShowTable},     {"command add profile", 4, AddProfile},
      {"command set profile", 4, SetProfile},   {"command apply profile", 5, ApplyProfile},
      {"command show pending", 2, ShowPending}, {"command delete profile", 2, DelProfile},
      {"command show codes", 2, ShowCodes},     {"command set code", 3, SetCode},
      {"command delete code", 1, DelCode},      {"command update number", 3, UpdateNumber},
      {"command update text", 3, UpdateText},   {"command set common type", 1, SetCommonType},
      {"command set key code", 1, SetKeyCode},  {"command show settings", 2, ShowSettings},
      {"command number", 1, ReadNumber},        {"listing of tables", 4, ShowTables},
      {"listing of a profile", 4, ShowProfile},
  };
}
