// The LAN port total (code 1001) and the data UNI total (code 65533) that a
// profile derives from its abilities.
#include "profile_expectations.h"

namespace {

class ProfileDerivedCountsTest : public LibraryTest {
 protected:
  ProfileDerivedCountsTest() {
    DefineUsualCodes();
    profile = MakeProfile(kReal);
    host.ForgetLog();
  }

  OnuAbilityProfile profile;
};

TEST_F(ProfileDerivedCountsTest, UpdateDerivesTheLanTotalFirst) {
  profile.UpdateInit(kFePorts, 4);
  profile.UpdateInit(kWifiUni, 2);
  profile.UpdateInit(kTypeName, std::string("X"));
  host.ForgetLog();

  profile.Update();

  EXPECT_EQ(ContentOf(profile), (Content{{kAllLan, NumberEntry(4)},
                                         {kFePorts, NumberEntry(4)},
                                         {kWifiUni, NumberEntry(2)},
                                         {kTypeName, {3, 0, "X"}},
                                         {kDataUnis, NumberEntry(6)}}));
  EXPECT_EQ(
      host.TakeLog({6}),
      (std::vector<LogLine>{
          Log(6, "all_lan_num:4"), Log(6, "ability_code:1001, ability_attr_value:2"),
          Log(6, "ability_code:1001, ability_value:4, ability_attr_value:0"),
          Log(6, "ability_code:1010, ability_attr_value:2"),
          Log(6, "ability_code:1010, ability_value:4, ability_attr_value:3"),
          Log(6, "ability_code:1012, ability_attr_value:2"),
          Log(6, "ability_code:1012, ability_value:2, ability_attr_value:7"),
          Log(6, "ability_code:1083, ability_attr_value:3"), Log(6, "data_uni_total_num:6")}));
}

TEST_F(ProfileDerivedCountsTest, LanPortsOfAllKindsAreSummed) {
  profile.UpdateInit(kFePorts, 4);
  profile.UpdateInit(kGePorts, 1);
  profile.UpdateInit(kWifiUni, 2);
  profile.UpdateInit(kPotsPorts, 8);

  profile.UpdateLan();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(5));
}

TEST_F(ProfileDerivedCountsTest, WildcardAndZeroPortsAreSkipped) {
  profile.UpdateInit(kFePorts, 4);
  profile.UpdateInit(kGePorts, kWildcard);
  DefineCode(2000, "XGE_PORTS", {{4, 3}});
  profile.UpdateInit(2000, 0);

  profile.Update();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(4));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(4));
}

TEST_F(ProfileDerivedCountsTest, NothingIsWrittenWhenEveryNumberIsZeroOrWildcard) {
  profile.UpdateInit(kFePorts, 0);
  profile.UpdateInit(kGePorts, kWildcard);
  profile._common_ability_num = 40;
  host.ForgetLog();

  profile.Update();

  EXPECT_EQ(ContentOf(profile),
            (Content{{kFePorts, NumberEntry(0)}, {kGePorts, NumberEntry(kWildcard)}}));
  EXPECT_EQ(profile._common_ability_num, 40U);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_TRUE(Contains(log, Log(6, "all_lan_num:0")));
  EXPECT_TRUE(Contains(log, Log(6, "data_uni_total_num:0")));
  EXPECT_TRUE(
      Contains(log, Log(6, "ability_code:1011, ability_value:4294967295, ability_attr_value:3")));
}

TEST_F(ProfileDerivedCountsTest, OldEntryStaysWhenNothingContributesAnyMore) {
  profile.Add(kFePorts, 4);

  profile.Update(kFePorts, 0);

  EXPECT_EQ(ContentOf(profile), (Content{{kAllLan, NumberEntry(4)},
                                         {kFePorts, NumberEntry(0)},
                                         {kDataUnis, NumberEntry(4)}}));
}

TEST_F(ProfileDerivedCountsTest, LanTotalDoesNotExamineTheTag) {
  profile._common_ability[kFePorts] = Value(3, 6, "six");

  profile.UpdateLan();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(6));
}

TEST_F(ProfileDerivedCountsTest, DataUniTotalExaminesTheValueTypeOfTheCodeAndNotTheTag) {
  DefineCode(2000, "NAMED_PORTS", {{4, 3}, {5, 3}});
  profile._common_ability[kFePorts] = Value(3, 6, "six");
  profile._common_ability[2000] = Value(2, 10);
  host.ForgetLog();

  profile.UpdateDataUni();

  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(6));
  EXPECT_EQ(
      host.TakeLog({6}),
      (std::vector<LogLine>{Log(6, "ability_code:1010, ability_attr_value:2"),
                            Log(6, "ability_code:1010, ability_value:6, ability_attr_value:3"),
                            Log(6, "ability_code:2000, ability_attr_value:3"),
                            Log(6, "data_uni_total_num:6")}));

  profile.UpdateLan();
  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(16));
}

TEST_F(ProfileDerivedCountsTest, PortTypesThreeAndSevenAreDataUnis) {
  unsigned int number = 1;
  const unsigned short port_types[] = {1, 2, 3, 4, 5, 6, 7, 11, 15};
  for (const unsigned short port_type : port_types) {
    const unsigned short code = static_cast<unsigned short>(2000 + port_type);
    DefineCode(code, "PORT_" + std::to_string(port_type), {{4, port_type}});
    profile.UpdateInit(code, number);
    number *= 10;
  }

  profile.Update();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(100));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(1000100));
}

TEST_F(ProfileDerivedCountsTest, CodesUnknownToTheRegistryAreNoPorts) {
  profile.UpdateInit(77, 5);
  host.ForgetLog();

  profile.Update();

  EXPECT_EQ(ContentOf(profile), (Content{{77, NumberEntry(5)}}));
  EXPECT_EQ(host.TakeLog({6}),
            (std::vector<LogLine>{Log(6, "all_lan_num:0"),
                                  Log(6, "ability_code:77, ability_attr_value:65535"),
                                  Log(6, "data_uni_total_num:0")}));
}

TEST_F(ProfileDerivedCountsTest, DerivedCodesThatAreLanPortsThemselvesAreSummedOnTheNextPass) {
  DefineCode(kAllLan, "ALL_LAN", {{4, 3}});
  profile.UpdateInit(kFePorts, 4);

  profile.Update();
  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(4));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(8));

  profile.Update();
  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(8));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(12));
}

TEST_F(ProfileDerivedCountsTest, DataUniTotalThatIsADataUniItselfIsSummedOnTheNextPass) {
  DefineCode(kDataUnis, "DATA_UNI_TOTAL", {{4, 7}});
  profile.UpdateInit(kWifiUni, 2);

  profile.Update();
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(2));

  profile.Update();
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(4));
}

TEST_F(ProfileDerivedCountsTest, DerivedEntriesNeedNoRegistration) {
  OnuAbilityCodeInfo::GetInstance()->Get().clear();
  DefineCode(kFePorts, "FE_PORTS", {{4, 3}});
  profile.UpdateInit(kFePorts, 4);

  profile.Update();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(4));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(4));
}

TEST_F(ProfileDerivedCountsTest, DerivedEntriesOverwriteWhatTheirCodesHold) {
  profile._common_ability[kAllLan] = Value(3, 9, "nine");
  profile._common_ability[kDataUnis] = Value(3, 9, "nine");
  profile.UpdateInit(kFePorts, 4);

  profile.Update();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(4));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(4));
}

TEST_F(ProfileDerivedCountsTest, SumsHaveThirtyTwoBitsAndAreWrittenEvenAsZero) {
  profile.UpdateInit(kFePorts, 0xFFFFFFFEU);
  profile.UpdateInit(kGePorts, 2);

  profile.Update();

  EXPECT_EQ(ContentOf(profile)[kAllLan], NumberEntry(0));
  EXPECT_EQ(ContentOf(profile)[kDataUnis], NumberEntry(0));
}

TEST_F(ProfileDerivedCountsTest, LanTotalSetsTheCountWhenItWrites) {
  profile.UpdateInit(kFePorts, 4);
  profile.UpdateInit(kPotsPorts, 2);

  profile.UpdateLan();

  EXPECT_EQ(profile._common_ability_num, 3U);
}

TEST_F(ProfileDerivedCountsTest, DataUniTotalSetsTheCountWhenItWrites) {
  profile.UpdateInit(kWifiUni, 4);
  profile.UpdateInit(kPotsPorts, 2);

  profile.UpdateDataUni();

  EXPECT_EQ(profile._common_ability_num, 3U);
}

TEST_F(ProfileDerivedCountsTest, EachTotalIsDerivedAloneByItsOwnOperation) {
  profile.UpdateInit(kFePorts, 4);

  profile.UpdateLan();
  EXPECT_EQ(ContentOf(profile).count(kDataUnis), 0U);

  profile._common_ability.erase(kAllLan);
  profile.UpdateDataUni();
  EXPECT_EQ(ContentOf(profile), (Content{{kFePorts, NumberEntry(4)}, {kDataUnis, NumberEntry(4)}}));
}

TEST_F(ProfileDerivedCountsTest, UpdateHasNoTracesOfItsOwn) {
  profile.Update();

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Update") + EndTraces(log, "Update"), 0U);
  EXPECT_EQ(StartTraces(log, "UpdateLan"), 1U);
  EXPECT_EQ(EndTraces(log, "UpdateLan"), 1U);
  EXPECT_EQ(StartTraces(log, "UpdateDataUni"), 1U);
  EXPECT_EQ(EndTraces(log, "UpdateDataUni"), 1U);
}

}  // namespace
