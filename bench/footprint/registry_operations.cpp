#include "footprint/board.h"
#include "population.h"

namespace {

constexpr auto kUnused = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77);
constexpr unsigned short kUnusedCode = 60000;

std::vector<Operation> AttributeOperations() {
  OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
  return {
      {"OnuAbilityAttrInfo::Add", [&] { attributes.Add(kUnused, "AN_UNUSED_ATTRIBUTE"); }},
      {"OnuAbilityAttrInfo::Update", [&] { attributes.Update(kUnused, "ANOTHER_ATTRIBUTE_NAME"); }},
      {"OnuAbilityAttrInfo::IsValid", [&] { attributes.IsValid("ANOTHER_ATTRIBUTE_NAME"); }},
      {"OnuAbilityAttrInfo::IsExist", [&] { attributes.IsExist(kUnused); }},
      {"OnuAbilityAttrInfo::Get(id)", [&] { attributes.Get(kUnused); }},
      {"OnuAbilityAttrInfo::Get(name)", [&] { attributes.Get("ANOTHER_ATTRIBUTE_NAME"); }},
      {"OnuAbilityAttrInfo::Show", [&] { attributes.Show(&attributes); }},
      {"OnuAbilityAttrInfo::Del(name)", [&] { attributes.Del("ANOTHER_ATTRIBUTE_NAME"); }},
      {"OnuAbilityAttrInfo::Del(id)", [&] { attributes.Del(kUnused); }},
  };
}

}  // namespace

std::vector<Operation> RegistryOperations() {
  static ONU_ABILITY_CODE_ATTR_INFO added;
  added.ability_code = kUnusedCode;
  added.ability_name = "AN_ABILITY_WITHOUT_USE";
  static std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
  std::vector<Operation> operations = AttributeOperations();
  const std::vector<Operation> more = {
      {"a new code record", [] { ONU_ABILITY_CODE_ATTR_INFO record; }},
      {"OnuAbilityCodeInfo::SetKeyAbilityCode", [&] { codes.SetKeyAbilityCode(1085); }},
      {"OnuAbilityCodeInfo::GetKeyAbilityCode", [&] { codes.GetKeyAbilityCode(); }},
      {"OnuAbilityCodeInfo::IsValid", [&] { codes.IsValid(added); }},
      {"OnuAbilityCodeInfo::Update", [&] { codes.Update(added); }},
      {"OnuAbilityCodeInfo::IsExist(code)", [&] { codes.IsExist(kFirstAskedCode); }},
      {"OnuAbilityCodeInfo::IsExist(attribute)", [&] { codes.IsExist(kUnused); }},
      {"OnuAbilityCodeInfo::Get(name)", [&] { codes.Get("AN_ABILITY_WITHOUT_USE"); }},
      {"OnuAbilityCodeInfo::Get(code)", [&] { codes.Get(kFirstAskedCode); }},
      {"OnuAbilityCodeInfo::Get(code, attribute)",
       [&] { codes.Get(kFirstAskedCode, ONU_ABILITY_ATTR_LAMP); }},
      {"OnuAbilityCodeInfo::Del(code)", [&] { codes.Del(kUnusedCode); }},
      {"OnuAbilityCodeInfo::Del(name)", [&] { codes.Del("AN_ABILITY_WITHOUT_USE"); }},
      {"OnuAbilityCodeInfo::Show", [&] { codes.Show(&codes); }},
      {"OnuAbilityCodeInfo::Show(code)",
       [&] { codes.Show(&codes, static_cast<unsigned short>(kFirstAskedCode)); }},
      {"OnuAbilityCodeInfo::Show(text)", [&] { codes.Show(&codes, std::string("port")); }},
      {"OnuAbilityCodeInfo::Get, the records", [&] { static_cast<void>(codes.Get()); }},
      {"onu_ability_get_all_ability_attr_info, 120 codes",
       [] { onu_ability_get_all_ability_attr_info(records); }},
      {"OnuAbilityCodeInfo::Restore, 120 codes", [&] { codes.Restore(records); }},
  };
  operations.insert(operations.end(), more.begin(), more.end());
  return operations;
}
