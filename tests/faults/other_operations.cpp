// Settings, hooks, the confirmation of a type and the sixteen commands.
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "operations.h"
#include "prepared_library.h"
#include "short_ways/texts.h"
#include "support/host_code.h"
#include "support/recording_host.h"
#include "support/scripted_hooks.h"

namespace {

Operation Plain(const char* name, unsigned long long (*run)()) {
  return {name, [run] { return Call{run}; }};
}

// --- Commands

using Typing = std::vector<std::string>;

// The arguments as the framework passes them, null-terminated.
struct Line {
  explicit Line(const Typing& typed) : words(typed) {
    for (std::string& word : words) {
      argv.push_back(word.data());
    }
    argv.push_back(nullptr);
  }
  Typing words;
  std::vector<char*> argv;
  vty terminal;
};

Call Typed(cmd_element& command, const Typing& words) {
  auto line = std::make_shared<Line>(words);
  return {
      [line, &command] {
        return static_cast<unsigned long long>(command.func(
            &command, &line->terminal, static_cast<int>(line->words.size()), line->argv.data()));
      },
      nullptr, [line] { return line->terminal.text; }, [line] { line->terminal.text.clear(); }};
}

Operation Command(const char* name, cmd_element& command, const Typing& words) {
  return {name, [&command, words] { return Typed(command, words); }};
}

Typing NewOnu() { return {"900", "1", "900", "1900", "ABCD", "A-TYPE-NAME-OF-20-AND"}; }

// After the pending profile was begun.
Operation AfterAdd(Operation operation) {
  operation.prepare = [prepare = operation.prepare] {
    Typed(cl_add_onutype_capa_table_cmd, NewOnu()).run();
    return prepare();
  };
  return operation;
}

// What an operator builds in steps may be left between them.
Operation InSteps(Operation operation) {
  operation.in_steps = true;
  return operation;
}

Operations ProfileCommands() {
  return {
      InSteps(Command("CommandAddProfile", cl_add_onutype_capa_table_cmd, NewOnu())),
      InSteps(AfterAdd(Command("CommandAddProfileAgain", cl_add_onutype_capa_table_cmd, NewOnu()))),
      InSteps(AfterAdd(Command("CommandSetProfile", cl_set_onutype_capa_table_cmd,
                               {"key", "900", "1010", "4", "1011", "1", "1020", "null"}))),
      InSteps(
          AfterAdd(Command("CommandApplyProfile", cl_apply_add_onutype_capa_table_cmd, {"900"}))),
      AfterAdd(Command("CommandApplyAnother", cl_apply_add_onutype_capa_table_cmd, {"901"})),
      AfterAdd(Command("CommandShowPending", cl_show_onu_ability_table_by_manual_cmd, {"1"})),
      Command("CommandDelProfile", cl_del_onutype_capa_table_cmd, {"101", "1", "1"}),
      Command("CommandUpdateNumber", cl_update_uint_ability_value_cmd,
              {"101", "1", "1", "1020", "2"}),
      Command("CommandUpdateText", cl_update_string_ability_value_cmd,
              {"101", "1", "1", "1093", "A-NAME-OF-MORE-THAN-SIXTEEN"}),
      Command("CommandShowReal", cl_show_onu_ability_table_cmd, {"real", "2", "1"}),
      Command("CommandShowMatch", cl_show_onu_ability_table_cmd, {"match", "2", "0"}),
      Command("CommandShowOneType", cl_show_onu_ability_table_cmd,
              {"real", "2", "1", "real_type", "1102"}),
  };
}

Operations OtherCommands() {
  return {
      Command("CommandShowCodes", cl_show_onu_ability_code_info_cmd, {}),
      Command("CommandShowCodeOfName", cl_show_onu_ability_code_info_cmd,
              {"translation_of_the_reported"}),
      Command("CommandShowCode", cl_show_onu_ability_code_info_cmd, {"1023"}),
      Command("CommandSetCode", cl_set_onu_ability_code_info_cmd,
              {"2000", "A_CODE_OF_THE_HOST_ITSELF", "3", "1", "5", "3"}),
      Command("CommandDelCode", cl_del_onu_ability_code_info_cmd, {"1012"}),
      Command("CommandSetCommonType", cl_set_onu_common_type_cmd, {"sfu", "999"}),
      Command("CommandShowCommonTypes", cl_get_onu_common_type_cmd, {}),
      Command("CommandSetKeyCode", cl_set_key_ability_code_cmd, {"1081"}),
      Command("CommandShowKeyCode", cl_get_key_ability_code_cmd, {}),
      Command("CommandTest", cl_test_onu_ability_cmd, {}),
      Plain("CommandInstallation",
            [] {
              onu_ability_service_cbb_cli_init();
              return 0ULL +
                     static_cast<unsigned int>(onu_ability_service_cbb_cli_install_element() +
                                               onu_ability_service_cbb_cli_showrun());
            }),
  };
}

// --- Confirmation

// Each step in its turn, with those before it done.
Call Confirm(int steps, unsigned int (*step)(ConfirmOnuType&)) {
  auto onu = std::make_shared<ConfirmOnuType>(static_cast<unsigned short>(1),
                                              static_cast<unsigned char>(2));
  auto kept = std::make_shared<ConfirmOnuType>(*onu);
  if (steps > 0) {
    onu->Init();
    *kept = *onu;
  }
  return {[onu, step] { return 0ULL + step(*onu); }, nullptr, [onu] { return Shown(*onu); },
          [onu, kept] { *onu = *kept; }};
}

}  // namespace

Operations ConfirmationOperations() {
  return {
      Plain("ConfirmConstruction",
            [] {
              const ConfirmOnuType onu(static_cast<unsigned short>(1),
                                       static_cast<unsigned char>(2));
              const ConfirmOnuType copy(onu);
              return 0ULL + copy._common_ability_num;
            }),
      {"ConfirmPerform",
       [] { return Confirm(0, [](ConfirmOnuType& onu) { return onu.Perform(); }); }},
      {"ConfirmInit",
       [] {
         return Confirm(0, [](ConfirmOnuType& onu) {
           onu.Init();
           return 0U;
         });
       }},
      {"ConfirmByType",
       [] { return Confirm(1, [](ConfirmOnuType& onu) { return onu.IsValidOnuType(); }); }},
      {"ConfirmByAbilities",
       [] {
         return Confirm(1, [](ConfirmOnuType& onu) { return onu.ConfirmOnuTypeByAbilities(); });
       }},
      {"ConfirmPrivateCapability",
       [] {
         return Confirm(1, [](ConfirmOnuType& onu) { return onu.UpdateOnucapaFromSpecialMe(); });
       }},
      {"ConfirmTranslation",
       [] {
         return Confirm(1, [](ConfirmOnuType& onu) { return onu.TransOnutypeByHswSwitch(); });
       }},
  };
}

Operations SettingOperations() {
  return {
      Plain("HookRegistration",
            [] {
              onu_ability_register_extern_func(4, HookFunction(4));
              return OnuAbilityRegExternFunc::GetInstance()->WhetherExternFuncRegistered() ? 1ULL
                                                                                           : 0ULL;
            }),
      Plain("Settings",
            [] {
              OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
              hooks.SetModuleId(20);
              hooks.SetCmdNode(27);
              hooks.SetSfuCommonType(901);
              hooks.SetHguCommonType(902);
              return 0ULL + hooks.GetModuleId() + hooks.GetCmdNode();
            }),
      Plain("TextUtilities",
            [] {
              char source[] = "a text of more than sixteen";
              char target[40] = {};
              unsigned char bytes[40] = {};
              OnuAbilityGlobalVar::char_to_string(source, target, 30);
              OnuAbilityGlobalVar::BufferCopy(bytes, LongName(), 40);
              return 0ULL + static_cast<unsigned int>(OnuAbilityGlobalVar::IsDigit(LongName()));
            }),
      Plain("TextUtilitiesInPlace",
            [] {
              char text[] = "0a 1F zz";
              unsigned char bytes[4] = {};
              unsigned short types = 0;
              onu_ability_trans_str_lower_to_upper(text);
              onu_ability_trans_str_upper_to_lower(text);
              filter_nohexchar(text);
              return 0ULL + char_to_hex(bytes, text, sizeof bytes) +
                     all_1_onetype_to_twotype(3, &types) + trans_1_type_to_4_type(3) +
                     char_to_onucapa_num(text);
            }),
      Plain("SerialNumber",
            [] {
              const _OMCI_PHYSICAL_SN_ wire = {{'A', 'B', 'C', 'D'}, {1, 2, 3, 4}};
              ONU_ABILITY_PHYSICAL_SN sn;
              sn = wire;
              const ONU_ABILITY_PHYSICAL_SN copy = sn;
              return copy < sn ? 1ULL : 0ULL;
            }),
  };
}

Operations CommandOperations() {
  Operations all = ProfileCommands();
  const Operations more = OtherCommands();
  all.insert(all.end(), more.begin(), more.end());
  return all;
}
