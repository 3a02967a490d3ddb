// A log sink that calls back into the library while a line is being written. Where no
// table lock is held it may ask every question and set every setting; while one is, all
// but what takes that lock (see ulog.h). Nothing deadlocks, and no operation does
// anything else than without it.
#include <gtest/gtest.h>

#include "onu_ability_common_global/log_settings.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_table.h"
#include "operations.h"
#include "prepared_library.h"
#include "support/recording_host.h"
#include "support/scripted_hooks.h"

namespace {

// Times that it called back.
unsigned int under_lock = 0;
unsigned int without_lock = 0;

// Every setting, set to what it is.
void SetSettings() {
  OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  const OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  hooks.SetModuleId(hooks.GetModuleId());
  hooks.SetCmdNode(hooks.GetCmdNode());
  hooks.SetSfuCommonType(settings._sfu_common_type);
  hooks.SetHguCommonType(settings._hgu_common_type);
  onu_ability_register_extern_func(4, HookFunction(4));
  onu_ability_set_log_level_mask(onu_ability_get_log_level_mask());
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
  codes.SetKeyAbilityCode(codes.GetKeyAbilityCode());
}

void AskRegistries() {
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
  OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
  codes.IsExist(static_cast<unsigned short>(1010));
  codes.Get(static_cast<unsigned short>(1010));
  codes.Get(std::string("FE_PORTS"));
  codes.Get(1010, ONU_ABILITY_ATTR_PORT_TYPE);
  attributes.IsExist(ONU_ABILITY_ATTR_LAMP);
  attributes.Get(ONU_ABILITY_ATTR_LAMP);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
}

// Also while a table is being made or released.
void AskManager() {
  onu_ability_key_ability_value_is_exist(102);
  onu_ability_search_by_real_type(1102);
}

// These leave an empty entry where there is no table.
void AskTables() {
  char name[40] = {};
  onu_ability_get_onu_ability_value_by_key_value(102, 1010);
  onu_ability_get_onu_type_name_by_key_value(102, name, sizeof name);
  onu_ability_get_onu_type_name_by_realtype(1102, name, sizeof name);
  onu_ability_get_onu_lamp_total_num(1102);
  onu_ability_get_onu_lamp_total_num_by_key_ability(102);
}

// What reads the tables without their locks.
void AskWithoutLocks() {
  for (const auto& [type, table] : OnuAbilityTableManager::GetInstance()->_map_table) {
    table->IsEqual(ONU_ABILITY_PROFILE_SOURCE_ALL, ONU_ABILITY_CODE_REAL_TYPE, 1102U);
    table->IsExist(1010);
  }
}

// Lines of its own calls are not answered.
void CallBack(const LogLine& /*line*/) {
  static bool answering = false;
  if (answering) {
    return;
  }
  answering = true;
  const bool locked = RecordingHost::Instance().locks_held() != 0;
  ++(locked ? under_lock : without_lock);
  SetSettings();
  AskRegistries();
  if (locked) {
    AskWithoutLocks();
  } else {
    AskManager();
    if (OnuAbilityTableManager::GetInstance()->_map_table.size() == 2) {
      AskTables();
    }
  }
  answering = false;
}

class CallingLogSink : public ::testing::TestWithParam<size_t> {};

TEST_P(CallingLogSink, NeitherHangsNorChangesWhatHappens) {
  PrepareLibrary(Service::kHeard);
  const Call call = EveryOperation()[GetParam()].prepare();
  const Observation expected = ObserveInChild(call);
  RecordingHost& host = RecordingHost::Instance();
  host.ForgetLog();
  EXPECT_EQ("",
            Differences(ObserveInChild(call, [&host] { host.log_listener = CallBack; }), expected));
}

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return EveryOperation()[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, CallingLogSink, ::testing::Range(size_t{0}, EveryOperation().size()),
                         NameOf);

// Otherwise the tests above would show nothing.
TEST(CallingLogSinkItself, IsCalledWithAndWithoutATableLock) {
  PrepareLibrary(Service::kHeard);
  RecordingHost& host = RecordingHost::Instance();
  host.log_listener = CallBack;
  AskTables();
  host.log_listener = nullptr;
  EXPECT_GT(under_lock, 0U);
  EXPECT_GT(without_lock, 0U);
}

}  // namespace
