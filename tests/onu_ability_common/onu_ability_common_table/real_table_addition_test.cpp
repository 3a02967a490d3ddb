// Adding to the real table: default profiles always, others unless their key
// ability value or id is taken.
#include <memory>

#include "table_fixture.h"

namespace table_test {
namespace {

using Ids = std::vector<unsigned short>;

class RealTableAdditionTest : public TableTest {
 protected:
  OnuAbilityProfile External(unsigned int key, unsigned short id) {
    return WithId(MakeRealProfile(key, 70, kExternal), id);
  }

  // Adds and returns the status, with only the lines of the addition recorded.
  unsigned int Add(OnuAbilityProfile profile) {
    ForgetSetUp();
    return table.Add(profile);
  }

  OpenTable<OnuRealAbilityTable> table;
};

TEST_F(RealTableAdditionTest, LifeIsLoggedAfterAndBeforeThatOfTheBase) {
  host.ForgetLog();
  auto made = std::make_unique<OnuRealAbilityTable>();
  EXPECT_EQ((std::vector<LogLine>{Log(10, "OnuAbilityTableBase start!"),
                                  Log(10, "OnuRealAbilityTable start!")}),
            host.TakeLog());
  made.reset();
  EXPECT_EQ((std::vector<LogLine>{Log(10, "release OnuRealAbilityTable!"),
                                  Log(10, "release OnuAbilityTableBase!")}),
            host.TakeLog());
}

TEST_F(RealTableAdditionTest, DefaultProfileIsAppendedWithoutACheck) {
  table.Put(WithId(MakeRealProfile(7, 70), 5));
  OnuAbilityProfile profile = WithId(MakeRealProfile(8, 80), 6);
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(profile));
  ExpectLog({Log(10, "OnuRealAbilityTable::Add start!"), Log(10, "OnuRealAbilityTable::Add end!")});
  ExpectLockedOnce(table);
  EXPECT_EQ((Ids{5, 6}), IdsOf(table.profiles()));
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, profile._flag_match_type);
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, table.profiles()[1]._flag_match_type);
}

TEST_F(RealTableAdditionTest, TwoDefaultProfilesWithTheSameKeyValueAndIdAreBothStored) {
  EXPECT_EQ(kOk, Add(WithId(MakeRealProfile(7, 70), 5)));
  EXPECT_EQ(kOk, Add(WithId(MakeRealProfile(7, 70), 5)));
  EXPECT_EQ((Ids{5, 5}), IdsOf(table.profiles()));
}

// Meant: "find null" marks what is taken, "find ok" what is refused.
TEST_F(RealTableAdditionTest, ExternalProfileWithIdZeroAndANewKeyValueIsStored) {
  table.Put(External(7, 5));
  EXPECT_EQ(kOk, Add(External(8, 0)));
  EXPECT_EQ((Ids{5, 0}), IdsOf(table.profiles()));
  ExpectLog({Log(10, "OnuRealAbilityTable::Add start!"), KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_int_value:8, ability_string_value:"),
             KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_int_value:7, ability_string_value:"),
             Log(4, "ability_value_1:7, ability_value_2:8"),
             Log(1, "find null!flag_same_id:0,flag_same_realtype:0"),
             Log(10, "OnuRealAbilityTable::Add end!")});
  ExpectLockedOnce(table);
}

TEST_F(RealTableAdditionTest, ExternalProfileWithIdZeroAndATakenKeyValueIsRefused) {
  table.Put(External(7, 5));
  EXPECT_EQ(kOperateFailed, Add(External(7, 0)));
  EXPECT_EQ((Ids{5}), IdsOf(table.profiles()));
  const std::vector<LogLine> log = host.TakeLog();
  const auto found =
      std::find(log.begin(), log.end(), Log(9, "find ok!flag_same_id:0,flag_same_realtype:1"));
  EXPECT_NE(log.end(),
            std::find(found, log.end(), Log(10, "Add profile of OnuRealAbilityTable failed!")));
  // Without a valid id there is no id to log.
  EXPECT_EQ(log.end(), std::find(log.begin(), log.end(), Log(4, "id:0")));
  ExpectLockedOnce(table);
}

TEST_F(RealTableAdditionTest, ExternalProfileWithANewKeyValueAndATakenIdIsRefused) {
  table.Put(External(7, 5));
  EXPECT_EQ(kOperateFailed, Add(External(8, 5)));
  EXPECT_EQ((Ids{5}), IdsOf(table.profiles()));
  EXPECT_TRUE(host.ClaimLog(4, "id:5"));
  EXPECT_TRUE(host.ClaimLog(9, "find ok!flag_same_id:1,flag_same_realtype:0"));
  EXPECT_TRUE(host.ClaimLog(10, "Add profile of OnuRealAbilityTable failed!"));
  ExpectLockedOnce(table);
}

TEST_F(RealTableAdditionTest, BothReasonsOfARefusalAreLogged) {
  table.Put(External(8, 5));
  table.Put(External(7, 6));
  EXPECT_EQ(kOperateFailed, Add(External(7, 5)));
  EXPECT_TRUE(host.ClaimLog(9, "find ok!flag_same_id:1,flag_same_realtype:1"));
}

TEST_F(RealTableAdditionTest, ValidIdIsLoggedBeforeTheOutcome) {
  EXPECT_EQ(kOk, Add(External(7, 65534)));
  const std::vector<LogLine> log = host.TakeLog();
  const auto id = std::find(log.begin(), log.end(), Log(4, "id:65534"));
  EXPECT_NE(log.end(),
            std::find(id, log.end(), Log(1, "find null!flag_same_id:0,flag_same_realtype:0")));
}

TEST_F(RealTableAdditionTest, IdsZeroAnd65535AreNotCompared) {
  table.Put(External(1, 0));
  table.Put(External(2, 65535));
  EXPECT_EQ(kOk, Add(External(3, 0)));
  EXPECT_EQ(kOk, Add(External(4, 65535)));
  EXPECT_FALSE(host.ClaimLog(4, "id:65535"));
  EXPECT_EQ((Ids{0, 65535, 0, 65535}), IdsOf(table.profiles()));
}

TEST_F(RealTableAdditionTest, ProfilesOfTheOtherSourceAreNoDuplicates) {
  table.Put(WithId(MakeRealProfile(7, 70, kDefault), 5));
  EXPECT_EQ(kOk, Add(External(7, 5)));
  EXPECT_EQ(2U, table.profiles().size());
}

TEST_F(RealTableAdditionTest, StoredKeyValuesAreComparedFromTheOldestOn) {
  table.Put(External(1, 1));
  table.Put(External(2, 2));
  EXPECT_EQ(kOk, Add(External(3, 0)));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:1, ability_value_2:3"),
                                  Log(4, "ability_value_1:2, ability_value_2:3")}),
            host.TakeLog({4}));
}

TEST_F(RealTableAdditionTest, RefusedProfileHasItsMatchTypeSetAllTheSame) {
  table.Put(External(7, 5));
  OnuAbilityProfile profile = External(7, 0);
  EXPECT_EQ(kOperateFailed, table.Add(profile));
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, profile._flag_match_type);
}

TEST_F(RealTableAdditionTest, KeyValuesThatAreStringsAreComparedAsStrings) {
  const OnuAbilityProfile keyless = MakeProfile(kReal, kExternal);
  table.Put(With(keyless, kKeyValue, "alpha"));
  EXPECT_EQ(kOk, Add(With(keyless, kKeyValue, "beta")));
  EXPECT_TRUE(host.ClaimLog(4, "ability_value_1:alpha, ability_value_2:beta"));
  EXPECT_EQ(kOperateFailed, Add(With(keyless, kKeyValue, "alpha")));
  EXPECT_TRUE(host.ClaimLog(9, "find ok!flag_same_id:0,flag_same_realtype:1"));
}

TEST_F(RealTableAdditionTest, KeyValuesOfDifferentKindsAreNoDuplicates) {
  const OnuAbilityProfile keyless = MakeProfile(kReal, kExternal);
  table.Put(With(keyless, kKeyValue, "7"));
  EXPECT_EQ(kOk, Add(External(7, 0)));
  EXPECT_TRUE(host.ClaimLog(0, "value_type is not equal!value_type_1:3, value_type_2:2"));
}

// Without a key value both count as the default value, 0.
TEST_F(RealTableAdditionTest, TwoExternalProfilesWithoutKeyValueAreDuplicates) {
  EXPECT_EQ(kOk, Add(MakeProfile(kReal, kExternal)));
  EXPECT_EQ(kOperateFailed, Add(MakeProfile(kReal, kExternal)));
  EXPECT_EQ(1U, table.profiles().size());
}

TEST_F(RealTableAdditionTest, SameRealTypeAloneIsNoDuplicate) {
  table.Put(External(7, 5));
  EXPECT_EQ(kOk, Add(External(8, 6)));
  EXPECT_EQ(NumberOf(table.profiles()[0], kRealType), NumberOf(table.profiles()[1], kRealType));
}

// Meant: this table keeps the base's answer.
TEST_F(RealTableAdditionTest, MatchRequestIsAlwaysAnsweredYesWithoutLooking) {
  OnuAbilityProfile profile = MakeRealProfile(9, 90);
  ForgetSetUp();
  EXPECT_EQ(1U, table.operator==(profile));
  ExpectLog({Log(10, "OnuAbilityTableBase::operator==!")});
  EXPECT_TRUE(host.mutex_calls().empty());
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_NONE, profile._flag_match_type);
  EXPECT_EQ(9U, NumberOf(profile, kKeyValue));
}

}  // namespace
}  // namespace table_test
