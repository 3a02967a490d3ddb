#include "observed_state.h"

#include <set>

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_table.h"
#include "short_ways/texts.h"
#include "support/recording_host.h"

namespace {

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

std::string AttributesText() {
  vty terminal;
  OnuAbilityAttrInfo::GetInstance()->Show(&terminal);
  return terminal.text;
}

std::string CodesText() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  std::string text;
  for (const auto& record : records) {
    text += Shown(record) + "\n";
  }
  return text;
}

std::string SettingsText() {
  const OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  const OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  return Words("key code ", OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), " module ",
               onu_ability_get_module_id(), " node ", hooks.GetCmdNode(), " hooks ",
               hooks.WhetherExternFuncRegistered(), " sfu ", settings._sfu_common_type, " hgu ",
               settings._hgu_common_type);
}

std::string PendingText() {
  const OnuAbilityProfile* pending = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  return pending == nullptr ? "none" : Shown(*pending);
}

std::vector<OnuAbilityProfile> Stored(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  std::vector<OnuAbilityProfile> profiles;
  Manager().GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  return profiles;
}

std::string TableText(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const auto& tables = Manager()._map_table;
  const auto table = tables.find(type);
  if (table == tables.end()) {
    return "no entry";
  }
  std::string text = table->second == nullptr ? "no table\n" : "a table\n";
  for (const OnuAbilityProfile& profile : Stored(type)) {
    text += Shown(profile) + "\n";
  }
  return text;
}

// --- Questions

// The numbers of every profile and two that none has.
std::set<unsigned int> Numbers() {
  std::set<unsigned int> numbers = {1, 0xFFFFFFFFU};
  for (const auto type : {ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_TYPE_MATCH}) {
    for (const OnuAbilityProfile& profile : Stored(type)) {
      for (const auto code : {ONU_ABILITY_CODE_REAL_TYPE, ONU_ABILITY_CODE_DEFAULT_KEY}) {
        unsigned int number = 0;
        profile.Get(code, number);
        numbers.insert(number);
      }
    }
  }
  return numbers;
}

std::string AskByKey(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key) {
  std::string text;
  for (const auto source : {ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                            ONU_ABILITY_PROFILE_SOURCE_ALL}) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityProfile profile;
    unsigned short id = 0;
    text += Words(Manager().IsExist(type, source, key), " ",
                  Manager().IsEqual(type, source, ONU_ABILITY_CODE_ONU_CAPA, key), " ",
                  Manager().Get(type, source, key, profiles), " ", profiles.size(), " ",
                  Manager().Get(type, source, key, profile), " ", Shown(profile), " ",
                  Manager().Get(type, source, id), " ", id, "\n");
    for (const OnuAbilityProfile& found : profiles) {
      text += Shown(found) + "\n";
    }
  }
  unsigned int number = 0;
  std::string name;
  text += Words(Manager().Get(type, key, ONU_ABILITY_CODE_ONU_CAPA, number), " ", number, " ",
                Manager().Get(type, key, ONU_ABILITY_CODE_TYPE_NAME, name), " ", name, "\n");
  return text;
}

std::string AskByRealType(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short real_type) {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityProfile profile;
  unsigned int number = 0;
  std::string name;
  return Words(Manager().Get(type, ONU_ABILITY_PROFILE_SOURCE_ALL, real_type, profiles), " ",
               profiles.size(), " ",
               Manager().Get(type, ONU_ABILITY_PROFILE_SOURCE_ALL, real_type, profile), " ",
               Shown(profile), " ",
               Manager().Get(type, real_type, ONU_ABILITY_CODE_ONU_CAPA, number), " ", number, " ",
               Manager().Get(type, real_type, ONU_ABILITY_CODE_TYPE_NAME, name), " ", name, "\n");
}

std::string AskQueries(unsigned int number) {
  char name[64] = {};
  const auto real_type = static_cast<unsigned short>(number);
  return Words(onu_ability_key_ability_value_is_exist(number), " ",
               onu_ability_search_by_real_type(real_type), " ",
               onu_ability_get_onu_ability_value_by_key_value(number, ONU_ABILITY_CODE_ONU_CAPA),
               " ", onu_ability_get_onu_type_name_by_key_value(number, name, sizeof name), " ",
               name, " ", onu_ability_get_onu_type_name_by_realtype(real_type, name, sizeof name),
               " ", name, " ", onu_ability_get_onu_lamp_total_num(real_type), " ",
               onu_ability_get_onu_lamp_total_num_by_key_ability(number), "\n");
}

// Each real profile as an ONU's report.
std::string AskMatches() {
  std::string text;
  for (OnuAbilityProfile report : Stored(ONU_ABILITY_PROFILE_TYPE_REAL)) {
    report._profile_type = ONU_ABILITY_PROFILE_TYPE_MATCH;
    text += Words(Manager() == report, " ", Shown(report), "\n");
  }
  return text;
}

std::string AskRegistry() {
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  std::string text;
  for (const auto& record : records) {
    text += Words(codes.IsExist(record.ability_code), " ", codes.Get(record.ability_code), " ",
                  codes.Get(record.ability_name), " ",
                  codes.Get(record.ability_code, ONU_ABILITY_ATTR_LAMP), "\n");
  }
  return text;
}

std::string Ask() {
  std::string text = AskRegistry() + AskMatches();
  for (const unsigned int number : Numbers()) {
    text += AskQueries(number);
    for (const auto type : {ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_TYPE_MATCH}) {
      text += AskByKey(type, number) + AskByRealType(type, static_cast<unsigned short>(number));
    }
  }
  return text;
}

class Unheard {
 public:
  Unheard() { onu_ability_set_log_level_mask(0); }
  ~Unheard() { onu_ability_set_log_level_mask(before_); }
  Unheard(const Unheard&) = delete;
  Unheard& operator=(const Unheard&) = delete;

 private:
  const unsigned int before_ = onu_ability_get_log_level_mask();
};

}  // namespace

std::vector<StatePart> ObserveState() {
  const Unheard unheard;
  return {{"the attribute registry", AttributesText()},
          {"the code registry", CodesText()},
          {"the settings", SettingsText()},
          {kPending, PendingText()},
          {"the real table", TableText(ONU_ABILITY_PROFILE_TYPE_REAL)},
          {"the match table", TableText(ONU_ABILITY_PROFILE_TYPE_MATCH)}};
}

Answers AskEverything() {
  const Unheard unheard;
  Answers answers;
  answers.short_ways = Ask();
  SetWalksOnly(true);
  answers.walks = Ask();
  SetWalksOnly(false);
  return answers;
}
