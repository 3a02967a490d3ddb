// Recognising a reported profile (match type 1) by a stored pattern.
#include "profile_expectations.h"

namespace {

class ProfilePatternMatchTest : public LibraryTest {
 protected:
  ProfilePatternMatchTest() {
    DefineUsualCodes();
    input._flag_match_type = MatchType(1);
    input._id = 7;
    stored._id = 3;
    host.ForgetLog();
  }

  unsigned int Compare() {
    host.ForgetLog();
    return stored == input;
  }

  // The log of a comparison, without traces and the readings of the confirm type.
  std::vector<LogLine> ComparisonLog() {
    std::vector<LogLine> log;
    for (LogLine& line : host.TakeLogWithoutTraces()) {
      if (line.text.find(", ability_attr_id:") == std::string::npos) log.push_back(line);
    }
    return log;
  }

  OnuAbilityProfile stored = MakeProfile(kMatch);
  OnuAbilityProfile input = MakeProfile(kMatch);
};

TEST_F(ProfilePatternMatchTest, EmptyInputMatchesAndLeavesTheStoredProfileAlone) {
  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(ContentOf(stored), Content{});
  EXPECT_EQ(
      ComparisonLog(),
      std::vector<LogLine>{Log(6, "operator== start!flag_match_type:1, id_input:7, id_compare:3")});
}

TEST_F(ProfilePatternMatchTest, CodesThatConfirmNothingNeverBlockAMatch) {
  input.UpdateInit(kWifiUni, 5);
  input.UpdateInit(kTypeName, std::string("SFU-4"));
  stored.UpdateInit(kWifiUni, 6);
  stored.UpdateInit(kTypeName, std::string("HGU-1"));

  EXPECT_EQ(Compare(), 1U);
}

TEST_F(ProfilePatternMatchTest, OnlyBitZeroOfTheConfirmTypeCounts) {
  DefineCode(2000, "ASKED_ONLY", {{1, 0xFFFE}});
  DefineCode(2001, "COMPARED_ONLY", {{1, 1}});
  input.UpdateInit(2000, 5);
  stored.UpdateInit(2000, 6);
  EXPECT_EQ(Compare(), 1U);

  input.UpdateInit(2001, 5);
  stored.UpdateInit(2001, 6);
  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfilePatternMatchTest, ComparingInsertsTheKeyCodeIntoAProfileThatLacksIt) {
  input.UpdateInit(kWifiUni, 5);
  stored.UpdateInit(kPotsPorts, 2);
  stored._common_ability_num = 1;

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(ContentOf(stored),
            (Content{{kPotsPorts, NumberEntry(2)}, {kKeyValue, {0, kWildcard, ""}}}));
  EXPECT_EQ(stored._common_ability_num, 1U);
  EXPECT_EQ(stored.GetSize(), 58U);
  EXPECT_EQ(ContentOf(input), (Content{{kWifiUni, NumberEntry(5)}}));
}

TEST_F(ProfilePatternMatchTest, InsertsTheRegistrysKeyCodeAndNotTheProfilesOwn) {
  input.UpdateInit(kWifiUni, 5);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(1099);

  Compare();

  EXPECT_EQ(ContentOf(stored), (Content{{1099, {0, kWildcard, ""}}}));
}

TEST_F(ProfilePatternMatchTest, InsertsTheKeyCodeWhateverTheLogMask) {
  input.UpdateInit(kWifiUni, 5);
  onu_ability_set_log_level_mask(0);

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(ContentOf(stored), (Content{{kKeyValue, {0, kWildcard, ""}}}));
  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(ProfilePatternMatchTest, HeldKeyValueIsLeftAsItIs) {
  input.UpdateInit(kWifiUni, 5);
  stored.UpdateInit(kKeyValue, 501);

  Compare();

  EXPECT_EQ(ContentOf(stored), (Content{{kKeyValue, NumberEntry(501)}}));
}

TEST_F(ProfilePatternMatchTest, KeyCodeThatConfirmsATypeIsFoundAsTheInsertedEntry) {
  DefineCode(kKeyValue, "KEY_VALUE", {{1, 1}});
  input.UpdateInit(kKeyValue, 501);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{Log(
                                   0, "ability_code:1085, ability_name:KEY_VALUE, value_type:2")});
}

TEST_F(ProfilePatternMatchTest, CodesThatTheStoredProfileLacksNeverBlockAMatch) {
  input.UpdateInit(kPotsPorts, 5);

  EXPECT_EQ(Compare(), 1U);

  EXPECT_EQ(
      ComparisonLog(),
      (std::vector<LogLine>{Log(6, "operator== start!flag_match_type:1, id_input:7, id_compare:3"),
                            NameAsked(1020, "POTS_PORTS"),
                            Log(6,
                                "key_ability_code:1085, key_ability_value:-1, ability_code:1020, "
                                "ability_name:POTS_PORTS, confirm_type_attr_value:3"),
                            NameAsked(1020, "POTS_PORTS"),
                            Log(4,
                                "ability_code is not exist, don't need match!ability_code:1020, "
                                "ability_name:POTS_PORTS")}));
}

TEST_F(ProfilePatternMatchTest, AbilitiesOfTheStoredProfileAloneNeverBlockAMatch) {
  input.UpdateInit(kPotsPorts, 2);
  stored.UpdateInit(kPotsPorts, 2);
  stored.UpdateInit(kFePorts, 4);
  stored.UpdateInit(kVendorId, std::string("ABCD"));

  EXPECT_EQ(Compare(), 1U);
}

TEST_F(ProfilePatternMatchTest, NumbersCompareWithWildcards) {
  const auto matches = [this](unsigned int reported, unsigned int pattern) {
    input.UpdateInit(kPotsPorts, reported);
    stored.UpdateInit(kPotsPorts, pattern);
    return Compare();
  };
  EXPECT_EQ(matches(2, 2), 1U);
  EXPECT_EQ(matches(2, kWildcard), 1U);
  EXPECT_EQ(matches(kWildcard, 2), 1U);
  EXPECT_EQ(matches(2, 3), 0U);
  EXPECT_EQ(matches(0, 3), 0U);
}

TEST_F(ProfilePatternMatchTest, NumbersAreLoggedStepByStep) {
  input.UpdateInit(kPotsPorts, 3);
  stored.UpdateInit(kPotsPorts, 2);
  stored.UpdateInit(kKeyValue, 501);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(
      ComparisonLog(),
      (std::vector<LogLine>{Log(6, "operator== start!flag_match_type:1, id_input:7, id_compare:3"),
                            NameAsked(1020, "POTS_PORTS"),
                            Log(6,
                                "key_ability_code:1085, key_ability_value:501, ability_code:1020, "
                                "ability_name:POTS_PORTS, confirm_type_attr_value:3"),
                            Log(6, "value_type:2"), NameAsked(1020, "POTS_PORTS"),
                            Log(6,
                                "key_ability_code:1085, key_ability_value:501, ability_code:1020, "
                                "ability_name:POTS_PORTS, value_input:3, value_compare:2"),
                            Log(5, "value_1:2, value_2:3")}));
}

TEST_F(ProfilePatternMatchTest, StringsCompareWithWildcards) {
  const auto matches = [this](const std::string& reported, const std::string& pattern) {
    input.UpdateInit(kVendorId, reported);
    stored.UpdateInit(kVendorId, pattern);
    return Compare();
  };
  EXPECT_EQ(matches("ABCD", "ABCD"), 1U);
  EXPECT_EQ(matches("ABCD", ""), 1U);
  EXPECT_EQ(matches("", "ABCD"), 1U);
  EXPECT_EQ(matches("ABCD", "ABC"), 0U);
}

TEST_F(ProfilePatternMatchTest, StringsAreLoggedStepByStep) {
  input.UpdateInit(kVendorId, std::string("WXYZ"));
  stored.UpdateInit(kVendorId, std::string("ABCD"));
  stored.UpdateInit(kKeyValue, 501);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(
      ComparisonLog(),
      (std::vector<LogLine>{Log(6, "operator== start!flag_match_type:1, id_input:7, id_compare:3"),
                            NameAsked(1082, "VENDOR_ID"),
                            Log(6,
                                "key_ability_code:1085, key_ability_value:501, ability_code:1082, "
                                "ability_name:VENDOR_ID, confirm_type_attr_value:3"),
                            Log(6, "value_type:3"), NameAsked(1082, "VENDOR_ID"),
                            Log(6,
                                "key_ability_code:1085, ability_code:1082, ability_name:VENDOR_ID, "
                                "string_input:WXYZ, string_compare:ABCD"),
                            Log(5, "string_1:ABCD, string_2:WXYZ")}));
}

TEST_F(ProfilePatternMatchTest, BothSidesAreReadByTheStoredType) {
  input._common_ability[kPotsPorts] = Value(3, 2, "x");
  stored._common_ability[kPotsPorts] = Value(2, 2, "y");
  EXPECT_EQ(Compare(), 1U);

  stored._common_ability[kPotsPorts] = Value(3, 2, "y");
  EXPECT_EQ(Compare(), 0U);

  input._common_ability[kPotsPorts] = Value(2, 9, "y");
  EXPECT_EQ(Compare(), 1U);

  input._common_ability[kPotsPorts] = Value(0, 9, "");
  EXPECT_EQ(Compare(), 1U) << "an empty string is a wildcard whatever its tag";
}

TEST_F(ProfilePatternMatchTest, StoredValueOfAnotherTypeBlocksTheMatch) {
  input.UpdateInit(kPotsPorts, kWildcard);
  stored._common_ability[kPotsPorts] = Value(1, kWildcard);

  EXPECT_EQ(Compare(), 0U);

  const std::vector<LogLine> log = host.TakeLog({0, 6});
  ASSERT_GE(log.size(), 2U);
  EXPECT_EQ(log[log.size() - 2], Log(6, "value_type:1"));
  EXPECT_EQ(log.back(), Log(0, "ability_code:1020, ability_name:POTS_PORTS, value_type:2"));
}

TEST_F(ProfilePatternMatchTest, CodeUnknownToTheRegistryTakesPart) {
  // Its confirm type reads as 65535, which has bit 0.
  input.UpdateInit(77, 5);
  EXPECT_EQ(Compare(), 1U);
  EXPECT_TRUE(
      Contains(host.TakeLog(), Log(6,
                                   "key_ability_code:1085, key_ability_value:-1, ability_code:77, "
                                   "ability_name:NULL, confirm_type_attr_value:65535")));

  stored.UpdateInit(77, 6);
  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfilePatternMatchTest, FirstMismatchInCodeOrderEndsTheComparison) {
  input.UpdateInit(kVendorId, std::string("ABCD"));
  input.UpdateInit(kFePorts, 4);
  stored.UpdateInit(kVendorId, std::string("WXYZ"));
  stored.UpdateInit(kFePorts, 5);

  EXPECT_EQ(Compare(), 0U);

  EXPECT_EQ(host.TakeLog({5}), std::vector<LogLine>{Log(5, "value_1:5, value_2:4")});
}

TEST_F(ProfilePatternMatchTest, EveryConfirmingAbilityMustFit) {
  for (OnuAbilityProfile* profile : {&input, &stored}) {
    profile->UpdateInit(kFePorts, 4);
    profile->UpdateInit(kPotsPorts, 2);
    profile->UpdateInit(kVendorId, std::string("ABCD"));
  }
  EXPECT_EQ(Compare(), 1U);

  stored.UpdateInit(kVendorId, std::string("WXYZ"));
  EXPECT_EQ(Compare(), 0U);
}

TEST_F(ProfilePatternMatchTest, ExternalProfileWithTheInputsIdIsComparedLikeAnyOther) {
  stored._profile_source = ProfileSource(1);
  stored.UpdateInit(kRealType, 7);
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);

  EXPECT_EQ(Compare(), 0U);
}

// Meant: here the end trace marks the outcome 1.
TEST_F(ProfilePatternMatchTest, OnlyAMatchLogsItsEnd) {
  Compare();
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 1U);

  input.UpdateInit(kPotsPorts, 3);
  Compare();
  EXPECT_EQ(EndTraces(host.TakeLog(), "operator=="), 1U);

  stored.UpdateInit(kPotsPorts, 2);
  Compare();
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 0U);
}

// The unset entry for the key code lies before all that is left to compare, so it is not met.
TEST_F(ProfilePatternMatchTest, ProfileFitsItselfWhenItsCodesLieBehindTheKeyCode) {
  DefineCode(2000, "COMPARED", {{1, 1}});
  stored._flag_match_type = MatchType(1);
  stored.UpdateInit(2000, 5);
  host.ForgetLog();

  EXPECT_EQ(stored == stored, 1U);

  EXPECT_EQ(ContentOf(stored),
            (Content{{kKeyValue, {0, ONU_ABILITY_WILDCARD, ""}}, {2000, NumberEntry(5)}}));
}

// --- Match types that are neither pattern nor exact. Meant: they fit anything.

TEST_F(ProfilePatternMatchTest, UnknownMatchTypesMatchEveryProfile) {
  stored.UpdateInit(kPotsPorts, 2);
  input.UpdateInit(kPotsPorts, 3);
  for (const int match_type : {0, 3, -1}) {
    input._flag_match_type = MatchType(match_type);
    stored._flag_match_type = MatchType(2);

    EXPECT_EQ(Compare(), 1U);

    const std::vector<LogLine> log = host.TakeLog();
    EXPECT_EQ(EndTraces(log, "operator=="), 1U);
    EXPECT_TRUE(
        Contains(log, Log(6, "operator== start!flag_match_type:" + std::to_string(match_type) +
                                 ", id_input:7, id_compare:3")));
  }
  EXPECT_EQ(ContentOf(stored), (Content{{kPotsPorts, NumberEntry(2)}})) << "nothing is inserted";
}

}  // namespace
