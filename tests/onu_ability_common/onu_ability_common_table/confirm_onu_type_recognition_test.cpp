// How a report is recognised: by its type, else by its abilities, else not.
#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeRecognitionTest : public ConfirmOnuTypeTest {
 protected:
  // A pattern of an ONU with so many telephone ports.
  static OnuAbilityProfile PotsPattern(unsigned int key, unsigned short real_type,
                                       unsigned int ports) {
    OnuAbilityProfile profile = Pattern(key, real_type);
    profile.Add(1020, ports);
    return profile;
  }

  unsigned int CountLinesContaining(const std::string& text) {
    unsigned int count = 0;
    for (const LogLine& line : host.TakeLog()) {
      count += line.text.find(text) == std::string::npos ? 0U : 1U;
    }
    return count;
  }
};

// --- By type.

TEST_F(ConfirmOnuTypeRecognitionTest, ReportedTypeIsRecognisedWithoutComparingAbilities) {
  AddToTable(PotsPattern(700, 601, 9));
  AddToTable(PotsPattern(701, 602, 2));  // fits the abilities, but not the type
  Hooks().onu.reported_type = 700;
  Hooks().onu.values[1020] = 2;
  ConfirmOnuType onu(kPlace, kOnu);
  host.ForgetLog();
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(CountLinesContaining("operator== start!"), 0U);
  EXPECT_EQ(LastArgument(4), 601U);
  EXPECT_EQ(onu._type_from_onu_report, 700U);
  EXPECT_EQ(onu._key_ability_value, 700U);
}

TEST_F(ConfirmOnuTypeRecognitionTest, RecognitionByTypeTakesTheWholeMatchProfileOver) {
  OnuAbilityProfile pattern = PotsPattern(700, 601, 9);
  pattern._id = 17;
  pattern._age_count = 5;
  AddToTable(pattern);
  Hooks().onu.reported_type = 700;
  Hooks().onu.values = {{1020, 2U}, {1010, 4U}};
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(onu._id, 17U);
  EXPECT_EQ(onu._age_count, 5U);
  EXPECT_EQ(onu._profile_source, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
  EXPECT_EQ(onu._flag_match_type, ONU_ABILITY_MATCH_TYPE_EXACT);
  EXPECT_EQ(Number(onu, 1020), 9U);
  EXPECT_FALSE(Holds(onu, 1010));
  EXPECT_FALSE(Holds(onu, 1082));
}

TEST_F(ConfirmOnuTypeRecognitionTest, NewestProfileOfTheTypeWinsWhateverItsSource) {
  AddToTable(Pattern(700, 601));
  OnuAbilityProfile external = MakeMatchProfile(700, 602, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  AddToTable(external);
  Hooks().onu.reported_type = 700;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(LastArgument(4), 602U);
  EXPECT_EQ(onu._profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
}

TEST_F(ConfirmOnuTypeRecognitionTest, IsValidOnuTypeAnswersWithTheLookupsStatus) {
  AddToTable(Pattern(700, 601));
  ConfirmOnuType onu(kPlace, kOnu);
  onu._type_from_onu_report = 701;
  EXPECT_EQ(onu.IsValidOnuType(), ONU_ABILITY_RET_NOT_FOUND);
  EXPECT_TRUE(host.ClaimLog(4, "get match profile failed!onu_type:701, ret:0x80000004"));
  EXPECT_FALSE(Holds(onu, 1081));
  onu._type_from_onu_report = 700;
  host.ForgetLog();
  EXPECT_EQ(onu.IsValidOnuType(), ONU_ABILITY_RET_OK);
  EXPECT_TRUE(TakeConfirmationLog().empty());
  EXPECT_EQ(Number(onu, 1081), 601U);
}

TEST_F(ConfirmOnuTypeRecognitionTest, RealProfilesDoNotRecogniseAType) {
  AddToTable(MakeRealProfile(700, 601));
  Hooks().onu.reported_type = 700;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(onu._type_from_onu_report, 0xFFFFFFFFU);
}

// --- By abilities.

TEST_F(ConfirmOnuTypeRecognitionTest, LastMatchingProfileInTableOrderWins) {
  AddToTable(PotsPattern(700, 601, 2));
  AddToTable(PotsPattern(701, 602, 2));
  AddToTable(PotsPattern(702, 603, 9));  // newer, but does not fit
  Hooks().onu.reported_type = 5555;
  Hooks().onu.values[1020] = 2;
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(LastArgument(4), 602U);
  EXPECT_EQ(onu._key_ability_value, 701U);
  EXPECT_EQ(onu._type_from_onu_report, 0xFFFFFFFFU);
  EXPECT_EQ(Number(onu, 1080), 701U);
}

TEST_F(ConfirmOnuTypeRecognitionTest, VendorIdentifierTakesPartInRecognition) {
  OnuAbilityProfile ours = Pattern(700, 601);
  ours.Add(1082, std::string("ZKWM"));
  OnuAbilityProfile theirs = Pattern(701, 602);
  theirs.Add(1082, std::string("ABCD"));
  AddToTable(ours);
  AddToTable(theirs);
  Hooks().onu.reported_type = 5555;
  Hooks().onu.vendor_id = "ZKWM";
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(LastArgument(4), 601U);
}

TEST_F(ConfirmOnuTypeRecognitionTest, CapabilityTakesPartInRecognition) {
  OnuAbilityProfile sfu = Pattern(700, 601);
  sfu.Add(1002, 0U);
  OnuAbilityProfile hgu = Pattern(701, 602);
  hgu.Add(1002, 1U);
  AddToTable(sfu);
  AddToTable(hgu);
  Hooks().onu.reported_type = 5555;
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 0;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(LastArgument(4), 601U);
}

TEST_F(ConfirmOnuTypeRecognitionTest, RecognitionByAbilitiesLogsItsSteps) {
  AddToTable(PotsPattern(701, 602, 2));
  Hooks().onu.reported_type = 5555;
  Hooks().onu.read_one_by_one = 0;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Perform();
  EXPECT_EQ(TakeConfirmationLog(),
            (std::vector<LogLine>{
                Log(4, "type_from_onu_report:5555"),
                Log(4, "get match profile failed!onu_type:5555, ret:0x80000004"),
                Log(4, "IsValidOnuType failed!type_from_onu_report:5555, ret:0x80000004"),
                Log(4, "type_from_onu_report:-1"),
                Log(4, "onu_match_ability.onu_ability_main_part.onu_capa:65535"),
                Log(4, "GetOnucapa failed!onu_capa:0"),
                Log(4, "onu_capa:0,sfu_identify_mode:0,hgu_identify_mode:0"),
                Log(4,
                    "(before trans type)_key_ability_value:701,onu_reporttype:701, "
                    "trans_type_by_hsw:0"),
                Log(4, "(after trans type)onu_realtype:701,onu_reporttype:701"),
                Log(4, "get onu type name failed!_key_ability_value:701, ret:0x80000004"),
            }));
}

TEST_F(ConfirmOnuTypeRecognitionTest, StepByAbilitiesAnswers0WhetherOrNotSomethingMatched) {
  ConfirmOnuType unmatched(kPlace, kOnu);
  EXPECT_EQ(unmatched.ConfirmOnuTypeByAbilities(), ONU_ABILITY_RET_OK);
  EXPECT_TRUE(host.ClaimLog(4, "SearchForAuth failed!"));
  AddToTable(Pattern(700, 601));
  ConfirmOnuType matched(kPlace, kOnu);
  host.ForgetLog();
  EXPECT_EQ(matched.ConfirmOnuTypeByAbilities(), ONU_ABILITY_RET_OK);
  EXPECT_FALSE(host.ClaimLog(4, "SearchForAuth failed!"));
  EXPECT_EQ(Number(matched, 1081), 601U);
}

// --- Not at all.

TEST_F(ConfirmOnuTypeRecognitionTest, NothingMatchedKeepsTheReportedAbilities) {
  AddToTable(PotsPattern(700, 601, 9));
  Hooks().onu.reported_type = 5555;
  Hooks().onu.vendor_id = "ABCD";
  Hooks().onu.values = {{1020, 2U}, {1010, 4U}};
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_TRUE(host.ClaimLog(4, "SearchForAuth failed!"));
  EXPECT_EQ(onu._type_from_onu_report, 0xFFFFFFFFU);
  EXPECT_EQ(onu._flag_match_type, ONU_ABILITY_MATCH_TYPE_PATTERN);
  EXPECT_EQ(Number(onu, 1020), 2U);
  EXPECT_EQ(Number(onu, 1010), 4U);
  EXPECT_EQ(Text(onu, 1082), "ABCD");
  EXPECT_EQ(Number(onu, 1085), 5555U);
  EXPECT_EQ(onu._key_ability_value, 5555U);
  EXPECT_EQ(LastArgument(4), 0xFFFFU);
  EXPECT_EQ(LastArgument(5), 5555U);
}

class ConfirmOnuTypeWithoutTablesTest : public LibraryTest {};

TEST_F(ConfirmOnuTypeWithoutTablesTest, PerformsAndRecognisesNothing) {
  DefineUsualCodes();
  RegisterHooks();
  Hooks().onu.reported_type = 700;
  ConfirmOnuType onu(1, 1);
  host.ForgetLog();
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_TRUE(host.ClaimLog(4, "get match profile failed!onu_type:700, ret:0x80000002"));
  EXPECT_TRUE(host.ClaimLog(4, "IsValidOnuType failed!type_from_onu_report:700, ret:0x80000002"));
  EXPECT_TRUE(host.ClaimLog(4, "SearchForAuth failed!"));
  EXPECT_TRUE(host.ClaimLog(4, "GetOnucapa failed!onu_capa:0"));
  EXPECT_TRUE(host.ClaimLog(4, "get onu type name failed!_key_ability_value:700, ret:0x80000002"));
  ASSERT_FALSE(Hooks().calls.empty());
  EXPECT_EQ(Hooks().calls.back().id, 5);
  EXPECT_EQ(Hooks().calls.back().argument, 700U);
}

}  // namespace
