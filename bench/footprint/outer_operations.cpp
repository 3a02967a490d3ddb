// The operations of the two outer areas: what other modules ask, what an ONU's report
// leads to, and what an operator types.
#include <vector>

#include "footprint/board.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_service_cli.h"
#include "population.h"

namespace {

// Runs a command's handler with these arguments on a terminal that shows nothing.
template <std::size_t kArguments>
void Type(cmd_element& command, const char* const (&words)[kArguments]) {
  char* arguments[kArguments];
  for (std::size_t i = 0; i < kArguments; ++i) arguments[i] = const_cast<char*>(words[i]);
  static int terminal = 0;
  command.func(&command, reinterpret_cast<vty*>(&terminal), static_cast<int>(kArguments),
               arguments);
}

}  // namespace

std::vector<Operation> QueryAndConfirmationOperations() {
  static char name[32];
  static const unsigned int key = RealDescriptions()[kProfiles / 2].key;
  static const unsigned short type = RealDescriptions()[kProfiles / 2].real_type;
  static ConfirmOnuType* steps = nullptr;
  return {
      {"onu_ability_key_ability_value_is_exist",
       [] { onu_ability_key_ability_value_is_exist(key); }},
      {"onu_ability_search_by_real_type", [] { onu_ability_search_by_real_type(type); }},
      {"onu_ability_get_onu_ability_value_by_key_value",
       [] { onu_ability_get_onu_ability_value_by_key_value(key, kFirstComparedCode); }},
      {"onu_ability_get_onu_type_name_by_key_value",
       [] { onu_ability_get_onu_type_name_by_key_value(key, name, sizeof name); }},
      {"onu_ability_get_onu_type_name_by_realtype",
       [] { onu_ability_get_onu_type_name_by_realtype(type, name, sizeof name); }},
      {"onu_ability_get_onu_lamp_total_num", [] { onu_ability_get_onu_lamp_total_num(type); }},
      {"onu_ability_get_onu_lamp_total_num_by_key_ability",
       [] { onu_ability_get_onu_lamp_total_num_by_key_ability(key); }},
      {"ConfirmOnuType: a whole confirmation", [] { ConfirmOnuType(1, 2).Perform(); }},
      {"ConfirmOnuType: made", [] { steps = new ConfirmOnuType(1, 2); }},
      {"ConfirmOnuType: Init", [] { steps->Init(); }},
      {"ConfirmOnuType: IsValidOnuType", [] { steps->IsValidOnuType(); }},
      {"ConfirmOnuType: ConfirmOnuTypeByAbilities", [] { steps->ConfirmOnuTypeByAbilities(); }},
      {"ConfirmOnuType: UpdateOnucapaFromSpecialMe", [] { steps->UpdateOnucapaFromSpecialMe(); }},
      {"ConfirmOnuType: TransOnutypeByHswSwitch", [] { steps->TransOnutypeByHswSwitch(); }},
      {"ConfirmOnuType: destroyed", [] { delete steps; }},
  };
}

std::vector<Operation> CommandOperations() {
  return {
      {"installing the commands", [] { onu_ability_service_cbb_cli_init(); }},
      {"installing the elements", [] { onu_ability_service_cbb_cli_install_element(); }},
      {"onu_ability_service_cbb_cli_showrun", [] { onu_ability_service_cbb_cli_showrun(); }},
      {"char_to_onucapa_num",
       [] {
         static char text[] = "12";
         char_to_onucapa_num(text);
       }},
      {"show onucapa_table, 100 profiles",
       [] {
         Type(cl_show_onu_ability_table_cmd, {"real", "2", "1"});
       }},
      {"add onu_ability_profile",
       [] {
         Type(cl_add_onutype_capa_table_cmd, {"900001", "1", "900001", "9001", "ABCD", "NAME-1"});
       }},
      {"set onu_ability_profile",
       [] {
         Type(cl_set_onutype_capa_table_cmd, {"key", "900001", "100", "4"});
       }},
      {"show the pending profile", [] { Type(cl_show_onu_ability_table_by_manual_cmd, {"1"}); }},
      {"apply onu_ability_profile", [] { Type(cl_apply_add_onutype_capa_table_cmd, {"900001"}); }},
      {"del onu_ability_profile",
       [] {
         Type(cl_del_onutype_capa_table_cmd, {"900001", "1", "1"});
       }},
      {"show ability code, 120 codes", [] { Type(cl_show_onu_ability_code_info_cmd, {""}); }},
      {"set ability_code",
       [] {
         Type(cl_set_onu_ability_code_info_cmd, {"60001", "TYPED_BY_HAND", "5", "2"});
       }},
      {"del ability code", [] { Type(cl_del_onu_ability_code_info_cmd, {"60001"}); }},
      {"update a number",
       [] {
         Type(cl_update_uint_ability_value_cmd, {"1", "1", "0", "100", "4"});
       }},
      {"update a string",
       [] {
         Type(cl_update_string_ability_value_cmd, {"1", "1", "0", "1083", "ANOTHER"});
       }},
      {"set onu_common_type",
       [] {
         Type(cl_set_onu_common_type_cmd, {"sfu", "857"});
       }},
      {"show onu_common_type", [] { Type(cl_get_onu_common_type_cmd, {""}); }},
      {"set key_ability_code", [] { Type(cl_set_key_ability_code_cmd, {"1085"}); }},
      {"show key_ability_code", [] { Type(cl_get_key_ability_code_cmd, {""}); }},
      {"test ability", [] { Type(cl_test_onu_ability_cmd, {""}); }},
      {"onu_ability_show_all_onucapa_table, 100 patterns",
       [] {
         int terminal = 0;
         onu_ability_show_all_onucapa_table(2, 2, 1, &terminal);
       }},
      {"onu_ability_show_item",
       [] {
         int terminal = 0;
         onu_ability_show_item(1, 2, 1, RealDescriptions()[1].real_type, &terminal);
       }},
  };
}
