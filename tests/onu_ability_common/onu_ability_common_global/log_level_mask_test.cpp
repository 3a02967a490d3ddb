// The mask of the levels that are handed to the host: a clear bit leaves a line
// out with everything that fetching its arguments would have logged, and
// changes nothing else.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

constexpr unsigned int kAllLevels = 0xFFFFFFFFU;

constexpr unsigned int Without(unsigned int level) { return kAllLevels & ~(1U << level); }

class LogLevelMaskTest : public LibraryTest {
 protected:
  static int CountOf(const Lines& lines, unsigned int level, const std::string& text) {
    return static_cast<int>(std::count(lines.begin(), lines.end(), Log(level, text)));
  }

  // Reads and refusals of the registries: no ability name is an argument of
  // these lines, and nothing changes, so every run logs the same.
  static std::vector<unsigned int> AskRegistries() {
    OnuAbilityAttrInfo* attributes = OnuAbilityAttrInfo::GetInstance();
    OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
    attributes->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "LAMP");
    attributes->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "FREE_NAME");
    attributes->Update(ONU_ABILITY_ATTR_LAMP, "LAMP");
    codes->Show(nullptr);
    return {static_cast<unsigned int>(attributes->IsValid("LAMP")),
            attributes->IsExist(ONU_ABILITY_ATTR_LAMP),
            attributes->IsExist(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77)),
            static_cast<unsigned int>(attributes->Get("PORT_TYPE")),
            codes->IsExist(ONU_ABILITY_ATTR_LAMP),
            codes->Get("FE_PORTS"),
            codes->Del(static_cast<unsigned short>(4000)),
            trans_1_type_to_4_type(9)};
  }
};

TEST_F(LogLevelMaskTest, StartsWithEveryBitSet) {
  EXPECT_EQ(kAllLevels, onu_ability_get_log_level_mask());
}

TEST_F(LogLevelMaskTest, KeepsWhatTheHostSets) {
  for (const unsigned int mask : {0U, 1U, 0x12345678U, kAllLevels}) {
    onu_ability_set_log_level_mask(mask);
    EXPECT_EQ(mask, onu_ability_get_log_level_mask());
  }
}

TEST_F(LogLevelMaskTest, ClearBitLeavesOnlyItsLevelOut) {
  DefineUsualCodes();
  AskRegistries();  // the first use of a singleton logs its construction
  host.ForgetLog();
  const std::vector<unsigned int> results = AskRegistries();
  const Lines all = host.TakeLog();
  for (const unsigned int level : {0U, 1U, 4U, 5U, 6U, 9U, 10U, 13U}) {
    onu_ability_set_log_level_mask(Without(level));
    EXPECT_EQ(results, AskRegistries());
    Lines expected;
    std::copy_if(all.begin(), all.end(), std::back_inserter(expected),
                 [level](const LogLine& line) { return line.level != level; });
    EXPECT_EQ(expected, host.TakeLog()) << "without level " << level;
  }
}

TEST_F(LogLevelMaskTest, ScenarioOfTheRegistriesCoversItsLevels) {
  DefineUsualCodes();
  for (const unsigned int level : {0U, 1U, 6U, 9U, 10U, 13U}) {
    host.ForgetLog();
    AskRegistries();
    EXPECT_FALSE(host.TakeLog({level}).empty()) << level;
  }
}

TEST_F(LogLevelMaskTest, NoBitsNoLines) {
  DefineUsualCodes();
  host.ForgetLog();
  const std::vector<unsigned int> results = AskRegistries();
  host.ForgetLog();
  onu_ability_set_log_level_mask(0);
  EXPECT_EQ(results, AskRegistries());
  EXPECT_EQ(Lines(), host.TakeLog());
}

TEST_F(LogLevelMaskTest, SetBitBringsTheLinesBack) {
  onu_ability_set_log_level_mask(0);
  OnuAbilityAttrInfo::GetInstance()->IsExist(ONU_ABILITY_ATTR_LAMP);
  EXPECT_EQ(Lines(), host.TakeLog());
  onu_ability_set_log_level_mask(1U << 1);
  OnuAbilityAttrInfo::GetInstance()->IsExist(ONU_ABILITY_ATTR_LAMP);
  EXPECT_EQ(Lines({Log(1, "ability_attr_code is invalid!ability_attr_code:3")}), host.TakeLog());
}

TEST_F(LogLevelMaskTest, MaskedLineDoesNotEvaluateItsArguments) {
  int evaluated = 0;
  const auto argument = [&evaluated] { return ++evaluated; };
  onu_ability_set_log_level_mask(Without(4));
  ONU_ABILITY_LOG(4, "value:%d", argument());
  EXPECT_EQ(0, evaluated);
  ONU_ABILITY_LOG(5, "value:%d", argument());
  EXPECT_EQ(1, evaluated);
  EXPECT_EQ(Lines({Log(5, "value:1")}), host.TakeLog());
}

TEST_F(LogLevelMaskTest, MaskedLineTakesTheLinesOfItsNameFetchAlong) {
  DefineUsualCodes();
  const OnuAbilityProfile profile = MakeProfile(1);
  const std::string name_line = "ability_code is equal!ability_code:1010, ability_name:FE_PORTS";
  unsigned int value = 0;
  host.ForgetLog();
  EXPECT_EQ(0x80000004U, profile.Get(1010, value));
  const Lines all = host.TakeLog();
  EXPECT_EQ(1, CountOf(all, 1, "get null!ability_code:1010, ability_name:FE_PORTS"));
  EXPECT_EQ(1, CountOf(all, 9, name_line));

  onu_ability_set_log_level_mask(Without(1));
  value = 5;
  EXPECT_EQ(0x80000004U, profile.Get(1010, value));
  EXPECT_EQ(0U, value);
  const Lines masked = host.TakeLog();
  // Gone: the line, and the registry's start, hit and end.
  EXPECT_EQ(all.size() - 4, masked.size());
  for (const LogLine& line : masked) {
    EXPECT_EQ(10U, line.level) << line;
  }
}

TEST_F(LogLevelMaskTest, LinesOfANameFetchHaveTheirOwnBits) {
  DefineUsualCodes();
  const OnuAbilityProfile profile = MakeProfile(1);
  host.ForgetLog();
  onu_ability_set_log_level_mask(1U << 1);
  unsigned int value = 0;
  profile.Get(1010, value);
  EXPECT_EQ(Lines({Log(1, "get null!ability_code:1010, ability_name:FE_PORTS")}), host.TakeLog());
  onu_ability_set_log_level_mask(1U << 9);
  profile.Get(1010, value);
  EXPECT_EQ(Lines(), host.TakeLog());
}

TEST_F(LogLevelMaskTest, MaskedEntryLinesOfAQueryTakeTheirNameFetchesAlong) {
  DefineUsualCodes();
  InitTables();
  OnuAbilityProfile profile = MakeRealProfile(5, 500);
  profile.Add(1010, 4U);
  AddToTable(profile);
  const std::string name_line = "ability_code is equal!ability_code:1010, ability_name:FE_PORTS";
  host.ForgetLog();
  EXPECT_EQ(4U, onu_ability_get_onu_ability_value_by_key_value(5, 1010));
  const Lines all = host.TakeLog();
  onu_ability_set_log_level_mask(Without(10));
  EXPECT_EQ(4U, onu_ability_get_onu_ability_value_by_key_value(5, 1010));
  const Lines masked = host.TakeLog();
  // The entry lines of manager and table name the code, and so do the hits of
  // profile and table.
  EXPECT_EQ(2, CountOf(all, 9, name_line) - CountOf(masked, 9, name_line));
  EXPECT_GE(CountOf(masked, 9, name_line), 2);
  for (const LogLine& line : masked) {
    EXPECT_NE(10U, line.level) << line;
  }
}

TEST_F(LogLevelMaskTest, NoBitsStillWriteTheAttributeThatAReadAdds) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  RegisterAttributes();
  DefineCode(1010, "FE_PORTS");
  ASSERT_EQ(1U, codes->Get().size());
  codes->Get()[0].ability_attr.clear();
  host.ForgetLog();
  onu_ability_set_log_level_mask(0);
  EXPECT_EQ(0, codes->Get(1010, ONU_ABILITY_ATTR_LAMP));
  EXPECT_EQ(1U, codes->Get()[0].ability_attr.count(ONU_ABILITY_ATTR_LAMP));
  EXPECT_EQ(Lines(), host.TakeLog());
}

TEST_F(LogLevelMaskTest, NoBitsStillInsertTheKeyThatAComparisonAdds) {
  DefineUsualCodes();
  OnuAbilityProfile stored = MakeProfile(2);
  OnuAbilityProfile input = MakeProfile(2);
  input.Add(1010, 4U);
  input._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  host.ForgetLog();
  onu_ability_set_log_level_mask(0);
  EXPECT_EQ(1U, stored == input);
  EXPECT_EQ(1U, stored._common_ability.count(1085));
  EXPECT_EQ(Lines(), host.TakeLog());
}

TEST_F(LogLevelMaskTest, NoBitsStillGiveTheSameTables) {
  onu_ability_set_log_level_mask(0);
  DefineUsualCodes();
  InitTables();
  OnuAbilityProfile profile = MakeRealProfile(5, 500, 1);
  profile.Add(1010, 4U);
  profile.Add(1012, 2U);
  AddToTable(profile);
  const std::vector<OnuAbilityProfile> table = TableOf(1);
  ASSERT_EQ(1U, table.size());
  EXPECT_EQ(30001, table[0]._id);
  EXPECT_EQ(4U, onu_ability_get_onu_ability_value_by_key_value(5, 1001));
  EXPECT_EQ(6U, onu_ability_get_onu_ability_value_by_key_value(5, 65533));
  EXPECT_EQ(0x80000003U, OnuAbilityCodeInfo::GetInstance()->Del("FE_PORTS"));
  EXPECT_EQ(Lines(), host.TakeLog());
}

}  // namespace
