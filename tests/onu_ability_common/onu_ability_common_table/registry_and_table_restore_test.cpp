// Putting back what a host kept: the records of the code registry, and the profiles
// of a table.
#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kNewCode = 2000;

class CodeInfoRestoreTest : public TableTest {
 protected:
  static ONU_ABILITY_CODE_ATTR_INFO Record(unsigned short code, const std::string& name) {
    ONU_ABILITY_CODE_ATTR_INFO record;
    record.ability_code = code;
    record.ability_name = name;
    return record;
  }

  std::vector<ONU_ABILITY_CODE_ATTR_INFO> Records() {
    std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
    onu_ability_get_all_ability_attr_info(records);
    return records;
  }

  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
};

TEST_F(CodeInfoRestoreTest, ReplacesAllRecordsAndLogsNothing) {
  codes.Restore({Record(kNewCode, "NEW"), Record(kFePorts, "PORTS")});
  EXPECT_TRUE(host.TakeLog().empty());
  ASSERT_EQ(2U, Records().size());
  EXPECT_EQ("NEW", codes.Get(kNewCode));
  EXPECT_EQ("PORTS", codes.Get(kFePorts));
  EXPECT_EQ("NULL", codes.Get(kPowerLamp));
  EXPECT_EQ(kNewCode, Records()[0].ability_code);
  EXPECT_EQ(kKeyValue, codes.GetKeyAbilityCode());
}

TEST_F(CodeInfoRestoreTest, PutsBackWhatWasKept) {
  const std::vector<ONU_ABILITY_CODE_ATTR_INFO> kept = Records();
  DefineCode(kFePorts, "PORTS", {{ONU_ABILITY_ATTR_PORT_TYPE, 0}});
  DefineCode(kNewCode, "NEW");
  codes.Del(kPowerLamp);
  codes.Restore(kept);
  EXPECT_EQ("FE_PORTS", codes.Get(kFePorts));
  EXPECT_EQ(3, codes.Get(kFePorts, ONU_ABILITY_ATTR_PORT_TYPE));
  EXPECT_EQ("POWER_LAMP", codes.Get(kPowerLamp));
  EXPECT_EQ("NULL", codes.Get(kNewCode));
}

// One name or one code twice, attributes that nobody registered: all of it is taken.
TEST_F(CodeInfoRestoreTest, ChecksNothing) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> odd = {Record(kNewCode, "ODD"), Record(kNewCode, "ODD"),
                                                 Record(kFePorts, "ODD")};
  odd[1].ability_name = "SECOND";
  odd[2].ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77)] = 1;
  codes.Restore(odd);
  EXPECT_EQ(3U, Records().size());
  EXPECT_EQ("ODD", codes.Get(kNewCode));
  EXPECT_EQ("ODD", codes.Get(kFePorts));
  EXPECT_EQ(1U, codes.IsExist(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77)));
  EXPECT_EQ(kOk, codes.Del(kNewCode));
  EXPECT_EQ("SECOND", codes.Get(kNewCode));
}

TEST_F(CodeInfoRestoreTest, ReachesTheHolderOfTheRecordsToo) {
  const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& held = codes.Get();
  codes.Restore({Record(kNewCode, "NEW")});
  ASSERT_EQ(1U, held.size());
  EXPECT_EQ("NEW", held[0].ability_name);
  EXPECT_EQ("NEW", codes.Get(kNewCode));
}

// By short ways and by walks, and for a table that has no short ways.
class TableRestoreTest : public ShortWayTest {
 protected:
  static std::vector<OnuAbilityProfile> NewContent() {
    return {With(MakeRealProfile(8, 80, kExternal), kFePorts, 1),
            With(MakeRealProfile(9, 90, kDefault), kFePorts, 2),
            With(MakeRealProfile(8, 90, kDefault), kFePorts, 3)};
  }

  void ExpectNewContent(OnuAbilityTableBase& table) {
    unsigned int ports = 0;
    EXPECT_EQ(kNotFound, table.Get(7U, kFePorts, ports));
    EXPECT_EQ(kNotFound, table.Get(static_cast<unsigned short>(70), kFePorts, ports));
    EXPECT_EQ(kOk, table.Get(8U, kFePorts, ports));
    EXPECT_EQ(3U, ports);
    EXPECT_EQ(kOk, table.Get(static_cast<unsigned short>(90), kFePorts, ports));
    EXPECT_EQ(3U, ports);
    EXPECT_EQ(kOk, table.Get(static_cast<unsigned short>(80), kFePorts, ports));
    EXPECT_EQ(1U, ports);
    EXPECT_EQ(0U, table.IsExist(kExternal, 9U));
    EXPECT_EQ(1U, table.IsExist(kDefault, 9U));
    std::vector<OnuAbilityProfile> profiles;
    table.GetAll(kAll, profiles);
    ASSERT_EQ(3U, profiles.size());
    EXPECT_EQ(1U, NumberOf(profiles[0], kFePorts));
    EXPECT_EQ(3U, NumberOf(profiles[2], kFePorts));
  }
};

TEST_F(TableRestoreTest, LookupsInATableOfTheManagerFindTheNewContent) {
  AddAll(Real(), {MakeRealProfile(7, 70), MakeRealProfile(8, 80)});
  Real().Restore(NewContent());
  ExpectNewContent(Real());
  SetWalksOnly(true);
  ExpectNewContent(Real());
}

TEST_F(TableRestoreTest, LookupsInADerivedTableFindTheNewContent) {
  OpenTable<OnuRealAbilityTable> table;
  AddAll(table, {MakeRealProfile(7, 70), MakeRealProfile(8, 80)});
  table.Restore(NewContent());
  ExpectNewContent(table);
  EXPECT_EQ(3U, table.profiles().size());
}

TEST_F(TableRestoreTest, PatternsAreThoseOfTheNewContent) {
  AddAll(Match(), {Holding(kFePorts, 4), Holding(kFePorts, 5)});
  OnuAbilityProfile report = Holding(kFePorts, 5);
  EXPECT_EQ(1U, Match().operator==(report));
  Match().Restore({With(Holding(kFePorts, 5), kPotsPorts, 1), Holding(kFePorts, 6)});
  report = Holding(kFePorts, 5);
  EXPECT_EQ(1U, Match().operator==(report));
  EXPECT_EQ(1U, NumberOf(report, kPotsPorts));
  report = Holding(kFePorts, 4);
  EXPECT_EQ(0U, Match().operator==(report));
}

TEST_F(TableRestoreTest, ChecksNothing) {
  Real().Restore({MakeRealProfile(7, 70, kExternal), MakeRealProfile(7, 70, kExternal)});
  EXPECT_EQ(2U, TableOf(kReal).size());
}

TEST_F(TableRestoreTest, NothingLeavesAnEmptyTable) {
  AddAll(Real(), {MakeRealProfile(7, 70)});
  Real().Restore({});
  EXPECT_EQ(0U, Real().IsExist(kAll, 7U));
  EXPECT_TRUE(TableOf(kReal).empty());
}

TEST_F(TableRestoreTest, LogsTheReleaseOfWhatTheTableHeldAndNothingElse) {
  onu_ability_set_log_level_mask(~0U);
  AddAll(Real(), {MakeRealProfile(7, 70), MakeRealProfile(8, 80)});
  std::vector<OnuAbilityProfile> content = NewContent();
  ForgetSetUp();
  Real().Restore(std::move(content));
  const LogLine release = Log(10, "release OnuAbilityProfile!");
  EXPECT_EQ((std::vector<LogLine>{release, release}), host.TakeLog());
}

TEST_F(TableRestoreTest, TakesTheLockOnceAndReleasesTheOldProfilesAfterIt) {
  OpenTable<OnuRealAbilityTable> table;
  table.Put(MakeRealProfile(7, 70));
  std::vector<OnuAbilityProfile> content = NewContent();
  onu_ability_set_log_level_mask(~0U);
  ForgetSetUp();
  table.Restore(std::move(content));
  const std::vector<LogLine> log = host.TakeLog();
  ASSERT_EQ(1U, log.size());
  EXPECT_LT(host.mutex_calls().back().order, log[0].order);
  ExpectLockedOnce(table);
}

}  // namespace
}  // namespace table_test
