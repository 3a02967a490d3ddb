#include <cstring>

#include "footprint/board.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_reg_extern_func.h"

namespace {

// Room for the texts of one operation, whose stack is measured.
char* Text(const char* content) {
  static char text[64];
  std::strncpy(text, content, sizeof text - 1);
  return text;
}

}  // namespace

std::vector<Operation> VocabularyOperations() {
  static unsigned char bytes[64];
  static unsigned short wide = 0;
  static _OMCI_PHYSICAL_SN_ sn = {{'A', 'B', 'C', 'D'}, {1, 2, 3, 4}};
  static ONU_ABILITY_PHYSICAL_SN number;
  static ONU_ABILITY_PHYSICAL_SN other;
  OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  return {
      {"onu_ability_trans_str_lower_to_upper",
       [] { onu_ability_trans_str_lower_to_upper(Text("abc")); }},
      {"onu_ability_trans_str_upper_to_lower",
       [] { onu_ability_trans_str_upper_to_lower(Text("ABC")); }},
      {"filter_nohexchar", [] { filter_nohexchar(Text("0x12:34")); }},
      {"char_to_hex", [] { char_to_hex(bytes, Text("12345678"), 8); }},
      {"all_1_onetype_to_twotype", [] { all_1_onetype_to_twotype(255, &wide); }},
      {"trans_1_type_to_4_type", [] { trans_1_type_to_4_type(255); }},
      {"OnuAbilityGlobalVar::char_to_string",
       [] {
         OnuAbilityGlobalVar::char_to_string(Text("abc"), reinterpret_cast<char*>(bytes), 20);
       }},
      {"OnuAbilityGlobalVar::BufferCopy",
       [] { OnuAbilityGlobalVar::BufferCopy(bytes, "a text of thirty bytes or more", 20); }},
      {"OnuAbilityGlobalVar::IsDigit", [] { OnuAbilityGlobalVar::IsDigit("123456"); }},
      {"ONU_ABILITY_PHYSICAL_SN: assigning", [] { number = sn; }},
      {"ONU_ABILITY_PHYSICAL_SN: comparing", [] { static_cast<void>(number < other); }},
      {"onu_ability_set_log_level_mask",
       [] { onu_ability_set_log_level_mask(onu_ability_get_log_level_mask()); }},
      {"onu_ability_register_extern_func", [] { onu_ability_register_extern_func(10, nullptr); }},
      {"OnuAbilityRegExternFunc::WhetherExternFuncRegistered",
       [&hooks] { hooks.WhetherExternFuncRegistered(); }},
      {"OnuAbilityRegExternFunc::SetModuleId",
       [&hooks] { hooks.SetModuleId(hooks.GetModuleId()); }},
      {"OnuAbilityRegExternFunc::SetSfuCommonType", [&hooks] { hooks.SetSfuCommonType(857); }},
      {"OnuAbilityRegExternFunc::SetHguCommonType", [&hooks] { hooks.SetHguCommonType(762); }},
  };
}
