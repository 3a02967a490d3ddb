// The threads of whoever operates the box: the command line with all sixteen commands, a
// module that writes the registries and puts back what was there, and the settings of the log
// and the hooks.
#include <initializer_list>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "catalogue.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_service_cli.h"
#include "role.h"
#include "thread_safe_host.h"

namespace {

constexpr const char* kKey = "3500";  // of the operator's own profile

// Held while a code is made that must not be refused or lost: a list that is put back does
// not have it, and a record lists the attributes that there are when it is made.
std::mutex making_codes;

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
    const std::lock_guard<std::mutex> lock(making_codes);
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

// Codes and an attribute of its own, beside those of the command line; now and then it puts
// back all codes, or what a table of the host's own holds.
class RegistryWriter : public Role {
 public:
  using Role::Role;

  void Step() override {
    ChangeCode();
    ChangeAttribute();
    if (Choose(4) == 0) {
      PutCodesBack();
    }
    PutTableBack();
  }

 private:
  void ChangeCode() {
    OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
    ONU_ABILITY_CODE_ATTR_INFO record;
    record.ability_code = kOtherScratchCode;
    record.ability_name = "OTHER-SCRATCH";
    record.ability_attr.clear();
    codes.Update(record);
    Expect(codes.Get(record.ability_name) == kOtherScratchCode, "a code that was made is missing");
    if (Choose(2) == 0) {
      codes.Del(record.ability_name);
    } else {
      codes.Del(kOtherScratchCode);
    }
    Expect(codes.IsExist(kOtherScratchCode) == 0, "a code that was deleted is there");
  }

  void ChangeAttribute() {
    const std::lock_guard<std::mutex> lock(making_codes);
    OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
    const auto id = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(kOtherScratchAttribute);
    attributes.Add(id, "OTHER-SCRATCH");
    Expect(attributes.Get(id) == "OTHER-SCRATCH", "an attribute that was made is missing");
    attributes.Del(id);
    Expect(attributes.IsExist(id) == 0, "an attribute that was deleted is there");
  }

  static void PutCodesBack() {
    const std::lock_guard<std::mutex> lock(making_codes);
    std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
    onu_ability_get_all_ability_attr_info(records);
    OnuAbilityCodeInfo::GetInstance()->Restore(std::move(records));
  }

  void PutTableBack() {
    std::vector<OnuAbilityProfile> profiles;
    const unsigned int count = 1 + Choose(3);
    for (unsigned int type = kFirstType; type < kFirstType + count; ++type) {
      profiles.push_back(RealProfile(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 4, 1));
    }
    RestoredTable().Restore(std::move(profiles));
  }
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
std::unique_ptr<Role> MakeRegistryWriter(Violations& violations) {
  return std::make_unique<RegistryWriter>("registry writer", 55, violations);
}
std::unique_ptr<Role> MakeSettingsChanger(Violations& violations) {
  return std::make_unique<SettingsChanger>("settings changer", 60, violations);
}
