// The match table: making it, adding to it, deleting from it, and what it
// leaves to the inert base.
#include <memory>

#include "table_fixture.h"

namespace table_test {
namespace {

using Ids = std::vector<unsigned short>;

class MatchTableStorageTest : public TableTest {
 protected:
  OpenTable<OnuMatchAbilityTable> table;
};

TEST_F(MatchTableStorageTest, LifeIsLoggedAfterAndBeforeThatOfTheBase) {
  auto made = std::make_unique<OnuMatchAbilityTable>();
  EXPECT_EQ((std::vector<LogLine>{Log(10, "OnuAbilityTableBase start!"),
                                  Log(10, "OnuMatchAbilityTable start!")}),
            host.TakeLog());
  made.reset();
  EXPECT_EQ((std::vector<LogLine>{Log(10, "release OnuMatchAbilityTable!"),
                                  Log(10, "release OnuAbilityTableBase!")}),
            host.TakeLog());
}

// "find null" on every add is meant.
TEST_F(MatchTableStorageTest, AddAppendsACopyAndLogsFindNull) {
  OnuAbilityProfile profile = WithId(MakeMatchProfile(7, 70), 5);
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(profile));
  ExpectLog({Log(10, "OnuMatchAbilityTable::Add start!"),
             Log(1, "find null!onu ability profile will be added"),
             Log(10, "OnuMatchAbilityTable::Add profile end!")});
  ExpectLockedOnce(table);
  ASSERT_EQ((Ids{5}), IdsOf(table.profiles()));
  EXPECT_EQ(7U, NumberOf(table.profiles()[0], kKeyValue));
}

TEST_F(MatchTableStorageTest, AddChangesTheCallersMatchTypeToTwo) {
  OnuAbilityProfile profile = MakeMatchProfile(7, 70);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  table.Add(profile);
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, profile._flag_match_type);
  ASSERT_EQ(1U, table.profiles().size());
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, table.profiles()[0]._flag_match_type);
}

// Ids are the manager's business.
TEST_F(MatchTableStorageTest, AddGivesNoId) {
  OnuAbilityProfile profile = MakeMatchProfile(7, 70);
  table.Add(profile);
  EXPECT_EQ(65535, profile._id);
  EXPECT_EQ((Ids{65535}), IdsOf(table.profiles()));
}

TEST_F(MatchTableStorageTest, SameProfileAddedTwiceIsStoredTwiceAndDelByIdRemovesTheNewer) {
  OnuAbilityProfile profile = WithId(MakeMatchProfile(7, 70), 5);
  table.Add(profile);
  profile._age_count = 9;
  table.Add(profile);
  ASSERT_EQ((Ids{5, 5}), IdsOf(table.profiles()));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(profile));
  ExpectLog({Log(10, "OnuMatchAbilityTable::DeleteItem start!"), Log(9, "(Del)find ok!id:5"),
             Log(10, "OnuMatchAbilityTable::DeleteItem end!")});
  ExpectLockedOnce(table);
  ASSERT_EQ((Ids{5}), IdsOf(table.profiles()));
  EXPECT_EQ(0U, table.profiles()[0]._age_count);
}

TEST_F(MatchTableStorageTest, DelWantsTheSameSource) {
  table.Put(WithId(MakeMatchProfile(7, 70, kDefault), 5));
  table.Put(WithId(MakeMatchProfile(7, 70, kExternal), 5));
  EXPECT_EQ(kOk, table.Del(WithId(MakeMatchProfile(7, 70, kDefault), 5)));
  ASSERT_EQ(1U, table.profiles().size());
  EXPECT_EQ(kExternal, table.profiles()[0]._profile_source);
}

TEST_F(MatchTableStorageTest, DelDoesNotTakeSourceTwoAsAFilter) {
  table.Put(WithId(MakeMatchProfile(7, 70, kDefault), 5));
  EXPECT_EQ(kNotFound, table.Del(WithId(MakeMatchProfile(7, 70, kAll), 5)));
  EXPECT_EQ(1U, table.profiles().size());
}

TEST_F(MatchTableStorageTest, DelOfAnUnknownIdFindsNull) {
  table.Put(WithId(MakeMatchProfile(7, 70), 5));
  const OnuAbilityProfile profile = WithId(MakeMatchProfile(7, 70), 65534);
  ForgetSetUp();
  EXPECT_EQ(kNotFound, table.Del(profile));
  ExpectLog({Log(10, "OnuMatchAbilityTable::DeleteItem start!"), Log(1, "(Del)find null!id:65534"),
             Log(10, "OnuMatchAbilityTable::DeleteItem end!")});
  ExpectLockedOnce(table);
  EXPECT_EQ(1U, table.profiles().size());
}

TEST_F(MatchTableStorageTest, DelByIdDoesNotCompareAbilities) {
  table.Put(WithId(With(MakeMatchProfile(7, 70), kFePorts, 4), 5));
  EXPECT_EQ(kOk, table.Del(WithId(With(MakeMatchProfile(8, 80), kFePorts, 2), 5)));
  EXPECT_TRUE(table.profiles().empty());
}

TEST_F(MatchTableStorageTest, DelWithIdZeroRemovesTheNewestMatchOfTheSameSource) {
  table.Put(WithId(With(MakeMatchProfile(1, 10), kFePorts, 4), 1));
  table.Put(WithId(With(MakeMatchProfile(2, 20), kFePorts, 4), 2));
  table.Put(WithId(With(MakeMatchProfile(3, 30), kFePorts, 8), 3));
  table.Put(WithId(With(MakeMatchProfile(4, 40, kExternal), kFePorts, 4), 4));
  OnuAbilityProfile profile = WithId(With(MakeProfile(kMatch), kFePorts, 4), 0);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(profile));
  EXPECT_TRUE(host.ClaimLog(9, "(Del)find ok!id:0"));
  ExpectLockedOnce(table);
  EXPECT_EQ((Ids{1, 3, 4}), IdsOf(table.profiles()));
}

TEST_F(MatchTableStorageTest, DelWithId65535ComparesAbilitiesToo) {
  table.Put(WithId(With(MakeMatchProfile(1, 10), kFePorts, 4), 1));
  table.Put(WithId(With(MakeMatchProfile(2, 20), kFePorts, 8), 65535));
  OnuAbilityProfile profile = With(MakeProfile(kMatch), kFePorts, 4);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(profile));
  EXPECT_TRUE(host.ClaimLog(9, "(Del)find ok!id:65535"));
  EXPECT_EQ((Ids{65535}), IdsOf(table.profiles()));
}

TEST_F(MatchTableStorageTest, DelWithIdZeroFindsNullWhenNothingMatches) {
  table.Put(WithId(With(MakeMatchProfile(1, 10), kFePorts, 4), 1));
  OnuAbilityProfile profile = WithId(With(MakeProfile(kMatch), kFePorts, 8), 0);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  ForgetSetUp();
  EXPECT_EQ(kNotFound, table.Del(profile));
  EXPECT_TRUE(host.ClaimLog(1, "(Del)find null!id:0"));
  ExpectLockedOnce(table);
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
}

// The comparison is asked of the stored profile, by the argument's match type:
// a profile that was never given one fits everything.
TEST_F(MatchTableStorageTest, DelWithIdZeroAndNoMatchTypeRemovesTheNewest) {
  table.Put(WithId(With(MakeMatchProfile(1, 10), kFePorts, 4), 1));
  table.Put(WithId(With(MakeMatchProfile(2, 20), kFePorts, 4), 2));
  EXPECT_EQ(kOk, table.Del(WithId(With(MakeProfile(kMatch), kFePorts, 8), 0)));
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
}

// Each that was compared gets the entry for the key code, down to the one that goes.
TEST_F(MatchTableStorageTest, DelByComparisonLeavesEntriesToThoseThatItCompared) {
  const auto put = [this](ONU_ABILITY_ENUM_PROFILE_SOURCE source, unsigned int fe_ports) {
    table.Put(With(MakeProfile(kMatch, source), kFePorts, fe_ports));
  };
  put(kAll, 8);
  put(kAll, 4);
  put(kDefault, 8);
  put(kAll, 8);
  OnuAbilityProfile profile = WithId(With(MakeProfile(kMatch, kAll), kFePorts, 4), 0);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  EXPECT_EQ(kOk, table.Del(profile));
  ASSERT_EQ(3U, table.profiles().size());
  EXPECT_EQ(0U, table.profiles()[0]._common_ability.count(kKeyValue));
  EXPECT_EQ(0U, table.profiles()[1]._common_ability.count(kKeyValue));
  const auto pending = table.profiles()[2]._common_ability.find(kKeyValue);
  ASSERT_NE(table.profiles()[2]._common_ability.end(), pending);
  EXPECT_EQ(ONU_ABILITY_VALUE_TYPE_NONE, pending->second.ability_value_type);
  EXPECT_EQ(0xFFFFFFFFU, pending->second.ability_ushort_value);
}

TEST_F(MatchTableStorageTest, DelLeavesKeyCodesInTheirPlaces) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(5);
  table.Put(WithId(MakeProfile(kMatch), 1));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(7);
  table.Put(WithId(MakeProfile(kMatch), 2));
  EXPECT_EQ(kOk, table.Del(WithId(MakeProfile(kMatch), 1)));
  ASSERT_EQ((Ids{2}), IdsOf(table.profiles()));
  EXPECT_EQ(5, table.profiles()[0]._key_ability_code);
}

// Deleting by key value, lamp totals and bind counts are not for patterns.
TEST_F(MatchTableStorageTest, DelByKeyValueDeletesNothing) {
  table.Put(MakeMatchProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(kDefault, 7U));
  ExpectLog({Log(10, "OnuAbilityTableBase::Del profile!")});
  EXPECT_EQ(1U, table.profiles().size());
  EXPECT_TRUE(host.mutex_calls().empty());
}

TEST_F(MatchTableStorageTest, LampTotalsAndBindCountsAreInert) {
  table.Put(With(MakeMatchProfile(7, 70, kExternal), kPowerLamp, 2));
  ForgetSetUp();
  EXPECT_EQ(0U, table.GetLampTotalNum(7U));
  EXPECT_EQ(0U, table.GetLampTotalNum(static_cast<unsigned short>(70)));
  ExpectLog({Log(10, "OnuAbilityTableBase::GetLampTotalNum start!"),
             Log(10, "OnuAbilityTableBase::GetLampTotalNum start!")});
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOk, table.MinusBindCount(8U));
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
  EXPECT_EQ(0U, table.profiles()[0]._bind_count);
}

// Only the pattern comparison leaves entries behind.
TEST_F(MatchTableStorageTest, DelByAnotherComparisonLeavesProfilesWithoutAKeyAlone) {
  table.Put(With(MakeProfile(kMatch), kFePorts, 4));
  OnuAbilityProfile meant = With(MakeProfile(kMatch), kFePorts, 5);
  meant._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  table.Del(meant);
  ASSERT_EQ(1U, table.profiles().size());
  EXPECT_EQ(0U, table.profiles()[0]._common_ability.count(kKeyValue));
}

}  // namespace
}  // namespace table_test
