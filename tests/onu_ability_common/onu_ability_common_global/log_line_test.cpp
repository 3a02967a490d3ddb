// What every line carries beside its text: module id, function name and source
// line.
#include <set>
#include <string>

#include "onu_ability_common_reg_extern_func.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class LogLineTest : public LibraryTest {
 protected:
  // One operation of each area, successes and refusals.
  void UseEveryArea() {
    DefineUsualCodes();
    InitTables();
    AddToTable(MakeMatchProfile(5, 500));
    AddToTable(MakeRealProfile(5, 500));
    unsigned int value = 0;
    OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL, 5U, 1010, value);
    OnuAbilityCodeInfo::GetInstance()->Del(static_cast<unsigned short>(1010));
    OnuAbilityCodeInfo::GetInstance()->Show(nullptr);
    OnuAbilityRegExternFunc::GetInstance()->RegisterExternFunc(3, nullptr);
    all_1_onetype_to_twotype(1, nullptr);
  }
};

TEST_F(LogLineTest, EndsInFunctionAndSourceLine) {
  OnuAbilityAttrInfo::GetInstance()->IsExist(ONU_ABILITY_ATTR_LAMP);
  const std::vector<LogLine> lines = host.TakeLog({1});
  ASSERT_EQ(1U, lines.size());
  EXPECT_EQ("ability_attr_code is invalid!ability_attr_code:3", lines[0].text);
  EXPECT_EQ("IsExist", lines[0].function);
  EXPECT_GT(lines[0].line, 0U);
}

TEST_F(LogLineTest, OperatorsHaveTheirShortName) {
  const OnuAbilityProfile profile = MakeProfile(1);
  host.ForgetLog();
  EXPECT_EQ(0U, profile == 7U);
  const std::vector<LogLine> lines = host.TakeLog({4});
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ("(OnuAbilityProfile)key_ability_value_temp:0, key_ability_value:7", lines.back().text);
  EXPECT_EQ("operator==", lines.back().function);
}

TEST_F(LogLineTest, PlainFunctionsNameThemselves) {
  all_1_onetype_to_twotype(1, nullptr);
  const std::vector<LogLine> lines = host.TakeLog({13});
  ASSERT_EQ(1U, lines.size());
  EXPECT_EQ("all_1_onetype_to_twotype", lines[0].function);
}

TEST_F(LogLineTest, EveryLineOfEveryAreaHasTheTail) {
  UseEveryArea();
  const std::vector<LogLine> lines = host.TakeLog();
  ASSERT_GT(lines.size(), 100U);
  for (const LogLine& line : lines) {
    EXPECT_NE("", line.function) << line;
    EXPECT_GT(line.line, 0U) << line;
  }
}

TEST_F(LogLineTest, EveryLevelIsOneOfTheEight) {
  UseEveryArea();
  const std::set<unsigned int> known = {0, 1, 4, 5, 6, 9, 10, 13};
  for (const LogLine& line : host.TakeLog()) {
    EXPECT_EQ(1U, known.count(line.level)) << line;
  }
}

TEST_F(LogLineTest, CarriesModuleId19UntilTheHostSetsOne) {
  EXPECT_EQ(19U, onu_ability_get_module_id());
  UseEveryArea();
  for (const LogLine& line : host.TakeLog()) {
    EXPECT_EQ(19U, line.module_id) << line;
  }
}

TEST_F(LogLineTest, CarriesTheModuleIdOfTheHost) {
  OnuAbilityRegExternFunc::GetInstance()->SetModuleId(0x12345);
  EXPECT_EQ(0x12345U, onu_ability_get_module_id());
  UseEveryArea();
  for (const LogLine& line : host.TakeLog()) {
    EXPECT_EQ(0x12345U, line.module_id) << line;
  }
}

TEST_F(LogLineTest, ListingOfAttributesInTheLogHasNoTail) {
  RegisterAttributes();
  host.ForgetLog();
  OnuAbilityAttrInfo::GetInstance()->Show(nullptr);
  const std::vector<LogLine> lines = host.TakeLog({6});
  ASSERT_EQ(4U, lines.size());
  EXPECT_EQ("ability_attr_id:1, ability_attr_name:CONFIRM_TYPE\r\n", lines[0].text);
  EXPECT_EQ("", lines[0].function);
  EXPECT_EQ(19U, lines[0].module_id);
}

}  // namespace
