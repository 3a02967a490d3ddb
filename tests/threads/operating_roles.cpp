// The threads of whoever operates the box: the command line with all sixteen commands,
// and the settings of the log and the hooks.
#include <initializer_list>
#include <string>
#include <vector>

#include "catalogue.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_service_cli.h"
#include "role.h"
#include "thread_safe_host.h"

namespace {

constexpr const char* kKey = "3500";  // of the operator's own profile

class Operator : public Role {
 public:
  using Role::Role;

  void Step() override {
    ChangeCodes();
    ChangeAttributes();
    const bool is_pattern = Choose(2) == 0;
    MakeProfile(is_pattern ? "2" : "1");
    ShowTables();
    ChangeCommonTypes();
    Type(cl_test_onu_ability_cmd, {});
  }

 private:
  // What the terminal was told last.
  std::string Type(cmd_element& command, std::initializer_list<std::string> words) {
    std::vector<std::string> texts(words);
    std::vector<char*> arguments;
    arguments.reserve(texts.size());
    for (auto& text : texts) {
      arguments.push_back(text.data());
    }
    _terminal.text.clear();
    command.func(&command, &_terminal, static_cast<int>(arguments.size()), arguments.data());
    return _terminal.text;
  }

  void ChangeCodes() {
    const std::string lamp = std::to_string(Choose(200));
    const std::string scratch = std::to_string(kScratchCode);
    Expect(Type(cl_set_onu_ability_code_info_cmd, {scratch, "SCRATCH-" + lamp, "3", lamp}) ==
               "set ability code ok!\r\n",
           "a code is refused");
    Type(cl_show_onu_ability_code_info_cmd, {});
    Type(cl_show_onu_ability_code_info_cmd, {scratch});
    Type(cl_show_onu_ability_code_info_cmd, {"ports"});
    Expect(Type(cl_del_onu_ability_code_info_cmd, {std::to_string(kFePorts)}) ==
               "del ability code failed!\r\n",
           "a code that profiles hold is deleted");
    Expect(Type(cl_del_onu_ability_code_info_cmd, {scratch}) == "del ability code ok!\r\n",
           "a code that nobody holds is not deleted");
    Type(cl_set_key_ability_code_cmd, {"1081"});
    Type(cl_get_key_ability_code_cmd, {});
    Type(cl_set_key_ability_code_cmd, {"1085"});
  }

  void ChangeAttributes() {
    OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
    const auto id = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(kScratchAttribute);
    attributes.Add(id, "SCRATCH");
    attributes.Update(id, "SCRATCH-AGAIN");
    attributes.Del(id);
    attributes.Del("SCRATCH-AGAIN");
  }

  void MakeProfile(const std::string& type) {
    const std::string external = "1";
    Type(cl_add_onutype_capa_table_cmd, {kKey, type, kKey, kKey, "ZKWM", "OPERATORS-OWN"});
    Type(cl_set_onutype_capa_table_cmd,
         {"key", kKey, std::to_string(kFePorts), "3", std::to_string(kSerialPorts), "9999"});
    Type(cl_show_onu_ability_table_by_manual_cmd, {"1"});
    const std::string told = Type(cl_apply_add_onutype_capa_table_cmd, {kKey});
    Expect(told.find("successfully") != std::string::npos, "the operator's profile is refused");
    Expect(Type(cl_update_uint_ability_value_cmd, {kKey, type, external, std::to_string(kGePorts),
                                                   "2"}) == "Add ability value ok!\r\n",
           "the operator's number is refused");
    Expect(Type(cl_update_string_ability_value_cmd, {kKey, type, external, "1083", "AGAIN"}) ==
               "Add ability value ok!\r\n",
           "the operator's string is refused");
    DeleteProfile(type);
  }

  void DeleteProfile(const std::string& type) {
    Type(cl_del_onutype_capa_table_cmd, {kKey, type, "1"});
    if (type == "2") {
      // A pattern goes by its id: the command leaves it, as meant.
      OnuAbilityProfile pattern = EmptyProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, 1);
      OnuAbilityTableManager& tables = *OnuAbilityTableManager::GetInstance();
      if (tables.Get(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                     static_cast<unsigned int>(std::stoul(kKey)), pattern) == ONU_ABILITY_RET_OK) {
        tables.Del(pattern);
      }
    }
  }

  void ShowTables() {
    Type(cl_show_onu_ability_table_cmd, {"real", "2", "1"});
    Type(cl_show_onu_ability_table_cmd, {"match", "2", "0"});
    Type(cl_show_onu_ability_table_cmd, {"real", "0", "0", "real_type", "100"});
  }

  void ChangeCommonTypes() {
    Type(cl_set_onu_common_type_cmd, {"sfu", std::to_string(800 + Choose(9))});
    Type(cl_set_onu_common_type_cmd, {"hgu", std::to_string(900 + Choose(9))});
    Type(cl_get_onu_common_type_cmd, {});
  }

  vty _terminal;
};

// Levels are heard and not heard, so that short ways and walks take turns.
class SettingsChanger : public Role {
 public:
  using Role::Role;

  void Step() override {
    constexpr unsigned int kMasks[] = {0, 0, 0, 0x2003, 0x10, 0x602, 0xFFFFFFFF};
    onu_ability_set_log_level_mask(kMasks[Choose(7)]);
    OnuAbilityRegExternFunc& host = *OnuAbilityRegExternFunc::GetInstance();
    host.SetModuleId(19 + Choose(5));
    host.SetCmdNode(20 + Choose(5));
    Expect(host.GetCmdNode() >= 20, "the command node");
    host.SetSfuCommonType(static_cast<unsigned short>(800 + Choose(9)));
    host.SetHguCommonType(static_cast<unsigned short>(900 + Choose(9)));
    RegisterHooks();
    Expect(host.WhetherExternFuncRegistered(), "a hook is gone");
    // The others get something done between two changes.
    for (unsigned int i = 0; i < 200; ++i) {
      onu_ability_get_log_level_mask();
    }
  }
};

}  // namespace

std::unique_ptr<Role> MakeOperator(Violations& violations) {
  return std::make_unique<Operator>("operator", 50, violations);
}
std::unique_ptr<Role> MakeSettingsChanger(Violations& violations) {
  return std::make_unique<SettingsChanger>("settings changer", 60, violations);
}
