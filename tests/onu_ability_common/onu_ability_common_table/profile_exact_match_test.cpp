// Comparing a profile exactly (match type 2) with a stored one.
#include "profile_expectations.h"

namespace {

class ProfileExactMatchTest : public LibraryTest {
 protected:
  ProfileExactMatchTest() {
    DefineUsualCodes();
    input._flag_match_type = MatchType(2);
    input._id = 7;
    stored._id = 3;
    host.ForgetLog();
  }

  unsigned int Compare() {
    host.ForgetLog();
    return stored == input;
  }

  OnuAbilityProfile stored = MakeProfile(kReal);
  OnuAbilityProfile input = MakeProfile(kReal);
};

TEST_F(ProfileExactMatchTest, EmptyStoredProfileMatchesAnything) {
  input.UpdateInit(kPotsPorts, 2);

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      std::vector<LogLine>{Log(6, "operator== start!flag_match_type:2, id_input:7, id_compare:3")});
  EXPECT_EQ(ContentOf(stored), Content{}) << "nothing is inserted";
}

TEST_F(ProfileExactMatchTest, EqualAbilitiesMatch) {
  for (OnuAbilityProfile* profile : {&stored, &input}) {
    profile->UpdateInit(kPotsPorts, 2);
    profile->UpdateInit(kTypeName, std::string("SFU-4"));
  }
  EXPECT_EQ(Compare(), 1U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(6, "operator== start!flag_match_type:2, id_input:7, id_compare:3"),
                NameAsked(1020, "POTS_PORTS"), Log(6, "ability_code:1020, ability_name:POTS_PORTS"),
                Log(6, "value_1:2, value_2:2"), NameAsked(1083, "TYPE_NAME"),
                Log(6, "ability_code:1083, ability_name:TYPE_NAME"),
                Log(6, "string_1:SFU-4, string_2:SFU-4")}));
}

TEST_F(ProfileExactMatchTest, CodesOfEveryKindTakePartWhateverTheirConfirmType) {
  stored.UpdateInit(kWifiUni, 2);
  input.UpdateInit(kWifiUni, 3);

  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfileExactMatchTest, AbilitiesOfTheInputAloneAreNotLookedAt) {
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kFePorts, 4);

  EXPECT_EQ(Compare(), 1U);
}

TEST_F(ProfileExactMatchTest, KnowsNoWildcards) {
  stored.UpdateInit(kPotsPorts, kWildcard);
  input.UpdateInit(kPotsPorts, 2);
  EXPECT_EQ(Compare(), 0U);
  EXPECT_TRUE(Contains(host.TakeLog(), Log(6, "value_1:-1, value_2:2")));

  stored.Clear();
  stored.UpdateInit(kVendorId, std::string());
  input.UpdateInit(kVendorId, std::string("ABCD"));
  EXPECT_EQ(Compare(), 0U);
  EXPECT_TRUE(Contains(host.TakeLog(), Log(6, "string_1:, string_2:ABCD")));
}

TEST_F(ProfileExactMatchTest, TagNumberAndStringMustAllBeEqual) {
  const auto matches = [this](const ONU_ABILITY_COMMON_ABILITY_VALUE& held,
                              const ONU_ABILITY_COMMON_ABILITY_VALUE& given) {
    stored._common_ability[kPotsPorts] = held;
    input._common_ability[kPotsPorts] = given;
    return Compare();
  };
  EXPECT_EQ(matches(Value(2, 5, "x"), Value(2, 5, "x")), 1U);
  EXPECT_EQ(matches(Value(2, 5, "x"), Value(2, 5, "y")), 0U);
  EXPECT_EQ(matches(Value(2, 5, "x"), Value(2, 5, "xx")), 0U);
  EXPECT_EQ(matches(Value(3, 5, "x"), Value(3, 6, "x")), 0U) << "a string's number counts, too";
  EXPECT_EQ(matches(Value(3, 5, "x"), Value(2, 5, "x")), 0U);
}

TEST_F(ProfileExactMatchTest, LogsByTheTypeOfTheInput) {
  stored._common_ability[kPotsPorts] = Value(3, 5, "x");
  input._common_ability[kPotsPorts] = Value(2, 6, "y");
  EXPECT_EQ(Compare(), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(6, "value_1:5, value_2:6"));

  stored._common_ability[kPotsPorts] = Value(2, 5, "x");
  input._common_ability[kPotsPorts] = Value(3, 6, "y");
  EXPECT_EQ(Compare(), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(6, "string_1:x, string_2:y"));
}

TEST_F(ProfileExactMatchTest, InputOfAnotherTypeIsInvalidEvenWhenEqual) {
  stored._common_ability[kPotsPorts] = Value(1, 5);
  input._common_ability[kPotsPorts] = Value(1, 5);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(0, "value_type invalid!value_type:1"));
}

// --- Codes that the input lacks

TEST_F(ProfileExactMatchTest, InputMayLackACodeThatTheStoredProfileHoldsAtItsDefault) {
  stored.UpdateInit(kPotsPorts, 0);

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(6, "operator== start!flag_match_type:2, id_input:7, id_compare:3"),
                NameAsked(1020, "POTS_PORTS"), Log(6, "ability_code:1020, ability_name:POTS_PORTS"),
                NameAsked(1020, "POTS_PORTS"),
                Log(6,
                    "ability_code is not exist and ability_value is default "
                    "value!ability_code:1020, ability_name:POTS_PORTS")}));
}

TEST_F(ProfileExactMatchTest, DefaultIsTheOneOfTheStoredProfile) {
  stored = MakeProfile(kMatch);
  stored.UpdateInit(kPotsPorts, kWildcard);
  EXPECT_EQ(Compare(), 1U);

  stored.UpdateInit(kPotsPorts, 0);
  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfileExactMatchTest, InputMayNotLackACodeWithAnyOtherValue) {
  stored.UpdateInit(kPotsPorts, 2);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(6, "operator== start!flag_match_type:2, id_input:7, id_compare:3"),
                NameAsked(1020, "POTS_PORTS"), Log(6, "ability_code:1020, ability_name:POTS_PORTS"),
                NameAsked(1020, "POTS_PORTS"),
                Log(6, "ability_code is not exist!ability_code:1020, ability_name:POTS_PORTS")}));
}

TEST_F(ProfileExactMatchTest, InputMayNotLackANonEmptyStringBesideTheDefaultNumber) {
  stored.UpdateInit(kTypeName, std::string("SFU-4"));
  EXPECT_EQ(Compare(), 0U);

  stored.UpdateInit(kTypeName, std::string());
  EXPECT_EQ(Compare(), 1U);
}

TEST_F(ProfileExactMatchTest, FirstMismatchInCodeOrderEndsTheComparison) {
  stored.UpdateInit(kTypeName, std::string("SFU-4"));
  stored.UpdateInit(kFePorts, 4);

  EXPECT_EQ(Compare(), 0U);

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_TRUE(Contains(log, Log(6, "ability_code:1010, ability_name:FE_PORTS")));
  EXPECT_FALSE(Contains(log, Log(6, "ability_code:1083, ability_name:TYPE_NAME")));
}

// --- Codes that never decide. Meant: the list is fixed.

TEST_F(ProfileExactMatchTest, ReportTypeRealTypeAndCode1085NeverDecide) {
  for (const unsigned short code : {kReportType, kRealType, kKeyValue}) {
    stored.UpdateInit(code, 5);
    input.UpdateInit(code, 6);
  }
  EXPECT_EQ(Compare(), 1U);
  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{
          Log(6, "operator== start!flag_match_type:2, id_input:7, id_compare:3"),
          NameAsked(1080, "REPORT_TYPE"), Log(6, "ability_code:1080, ability_name:REPORT_TYPE"),
          NameAsked(1081, "REAL_TYPE"), Log(6, "ability_code:1081, ability_name:REAL_TYPE"),
          NameAsked(1085, "KEY_VALUE"), Log(6, "ability_code:1085, ability_name:KEY_VALUE")}));

  input.Clear();
  EXPECT_EQ(Compare(), 1U) << "nor when the input lacks them";
}

TEST_F(ProfileExactMatchTest, SkippedCodesDoNotFollowTheKeyAbilityCode) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kPotsPorts);
  stored.UpdateInit(kKeyValue, 5);
  input.UpdateInit(kKeyValue, 6);
  EXPECT_EQ(Compare(), 1U);

  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);
  EXPECT_EQ(Compare(), 0U);
}

// --- An external profile whose real type is the input's id

TEST_F(ProfileExactMatchTest, ExternalProfileWithTheInputsIdAsRealTypeMatches) {
  stored._profile_source = ProfileSource(1);
  stored.UpdateInit(kRealType, 857);
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);
  input._id = 857;

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(6, "operator== start!flag_match_type:2, id_input:857, id_compare:3"),
                Log(5, "id already exist!")}));
}

TEST_F(ProfileExactMatchTest, ExternalProfileWithAnotherRealTypeIsCompared) {
  stored._profile_source = ProfileSource(1);
  stored.UpdateInit(kRealType, 857);
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);
  input._id = 858;

  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfileExactMatchTest, DefaultProfileWithTheInputsIdAsRealTypeIsCompared) {
  stored.UpdateInit(kRealType, 857);
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);
  input._id = 857;

  EXPECT_EQ(Compare(), 0U);
  EXPECT_TRUE(host.TakeLog({5}).empty());
}

TEST_F(ProfileExactMatchTest, SourceOfTheInputDoesNotMatter) {
  stored.UpdateInit(kRealType, 857);
  stored.UpdateInit(kPotsPorts, 2);
  input._profile_source = ProfileSource(1);
  input._id = 857;

  EXPECT_EQ(Compare(), 0U);
}

// Meant: here the end trace marks the outcome 1.
TEST_F(ProfileExactMatchTest, OnlyAMatchLogsItsEnd) {
  Compare();
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 1U);

  stored.UpdateInit(kPotsPorts, 2);
  Compare();
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 0U);

  input.UpdateInit(kPotsPorts, 2);
  Compare();
  EXPECT_EQ(EndTraces(host.TakeLog(), "operator=="), 1U);

  input.UpdateInit(kPotsPorts, 3);
  Compare();
  EXPECT_EQ(EndTraces(host.TakeLog(), "operator=="), 0U);
}

}  // namespace
