// Lookups that answer with profiles: one or all, by key ability value or by
// real type, and whole copies of a table.
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseProfileLookupTest : public TableTest {
 protected:
  // Two profiles that agree in source, key value and type; their ids tell them
  // apart.
  void PutTwins() {
    table.Put(WithId(MakeRealProfile(7, 70), 1));
    table.Put(WithId(MakeRealProfile(7, 70), 2));
    ForgetSetUp();
  }

  // Key values 1, 2 and 3 with types 10, 20 and 30.
  void PutThree() {
    for (const unsigned int key : {1U, 2U, 3U}) {
      table.Put(WithId(MakeRealProfile(key, static_cast<unsigned short>(10 * key)),
                       static_cast<unsigned short>(key)));
    }
    ForgetSetUp();
  }

  // Both sources have key value 7 and type 70.
  void PutBothSources() {
    table.Put(WithId(MakeRealProfile(7, 70, kDefault), 1));
    table.Put(WithId(MakeRealProfile(7, 70, kExternal), 2));
    ForgetSetUp();
  }

  OpenTable<OnuAbilityTableBase> table;
  std::vector<OnuAbilityProfile> found;
  const unsigned short type = 70;
};

using Ids = std::vector<unsigned short>;

TEST_F(TableBaseProfileLookupTest, AllByKeyValueAreListedNewestFirst) {
  PutTwins();
  EXPECT_EQ(kOk, table.Get(kDefault, 7U, found));
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
}

TEST_F(TableBaseProfileLookupTest, AllByTypeAreListedNewestFirst) {
  PutTwins();
  EXPECT_EQ(kOk, table.Get(kDefault, type, found));
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
}

TEST_F(TableBaseProfileLookupTest, OneByKeyValueIsTheNewest) {
  PutTwins();
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, table.Get(kDefault, 7U, profile));
  EXPECT_EQ(2, profile._id);
}

TEST_F(TableBaseProfileLookupTest, OneByTypeIsTheNewest) {
  PutTwins();
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, table.Get(kDefault, type, profile));
  EXPECT_EQ(2, profile._id);
}

TEST_F(TableBaseProfileLookupTest, AllByKeyValueLogsTheNumberOfMatches) {
  PutTwins();
  EXPECT_EQ(kOk, table.Get(kAll, 7U, found));
  const LogLine read = Log(9,
                           "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                           "ability_int_value:7, ability_string_value:");
  const LogLine compared = Log(4, "ability_value_1:7, ability_value_2:7");
  ExpectLog({KeyNameAsked(),
             Log(10,
                 "(OnuAbilityTableBase)function start!profile_source:2, key_ability_code:1085, "
                 "ability_name:KEY_VALUE, ability_value:0x7"),
             KeyNameAsked(), read, compared, KeyNameAsked(), read, compared,
             Log(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase, match num:2."),
             Log(10, "(OnuAbilityTableBase)function end!")});
}

TEST_F(TableBaseProfileLookupTest, AllByTypeLogsTheNumberOfMatches) {
  table.Put(MakeRealProfile(7, 70, kExternal));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Get(kExternal, type, found));
  ExpectLog({Log(10, "(OnuAbilityTableBase)function start!profile_source:1, onu_real_type:70"),
             NameAsked(kRealType, "REAL_TYPE"),
             Log(9,
                 "get ok!ability_code:1081, ability_name:REAL_TYPE, value_type:2, "
                 "ability_int_value:70, ability_string_value:"),
             Log(4, "ability_value_1:70, ability_value_2:70"),
             Log(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase, match num:1."),
             Log(10, "(OnuAbilityTableBase)function end!")});
}

TEST_F(TableBaseProfileLookupTest, AllByKeyValueWalksTheWholeTableFromItsEnd) {
  PutThree();
  EXPECT_EQ(kOk, table.Get(kAll, 2U, found));
  EXPECT_EQ((Ids{2}), IdsOf(found));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:3, ability_value_2:2"),
                                  Log(4, "ability_value_1:2, ability_value_2:2"),
                                  Log(4, "ability_value_1:1, ability_value_2:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseProfileLookupTest, OneByKeyValueStopsAtTheFirstHitFromTheEnd) {
  PutThree();
  OnuAbilityProfile profile;
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Get(kAll, 2U, profile));
  const auto read = [](const std::string& value) {
    return Log(9,
               "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
               "ability_int_value:" +
                   value + ", ability_string_value:");
  };
  ExpectLog({KeyNameAsked(), read("3"), Log(4, "ability_value_1:3, ability_value_2:2"),
             KeyNameAsked(), read("2"), Log(4, "ability_value_1:2, ability_value_2:2"),
             Log(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!")});
}

TEST_F(TableBaseProfileLookupTest, OneByTypeIsLoggedAsFound) {
  PutThree();
  OnuAbilityProfile profile;
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Get(kAll, static_cast<unsigned short>(20), profile));
  EXPECT_EQ(2, profile._id);
  ExpectLog({Log(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!")});
}

TEST_F(TableBaseProfileLookupTest, MissEmptiesTheListByKeyValue) {
  PutTwins();
  found.resize(3);
  EXPECT_EQ(kNotFound, table.Get(kAll, 9U, found));
  EXPECT_TRUE(found.empty());
  EXPECT_TRUE(host.ClaimLog(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!"));
  EXPECT_TRUE(host.ClaimLog(10, "(OnuAbilityTableBase)function end!"));
}

TEST_F(TableBaseProfileLookupTest, MissEmptiesTheListByType) {
  PutTwins();
  found.resize(3);
  EXPECT_EQ(kNotFound, table.Get(kAll, static_cast<unsigned short>(90), found));
  EXPECT_TRUE(found.empty());
  EXPECT_TRUE(host.ClaimLog(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!"));
  EXPECT_TRUE(host.ClaimLog(10, "(OnuAbilityTableBase)function end!"));
}

TEST_F(TableBaseProfileLookupTest, HitReplacesTheList) {
  PutTwins();
  found.resize(3);
  EXPECT_EQ(kOk, table.Get(kAll, 7U, found));
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
  EXPECT_EQ(kOk, table.Get(kAll, type, found));
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
}

TEST_F(TableBaseProfileLookupTest, MissLeavesTheProfileUntouched) {
  PutTwins();
  OnuAbilityProfile profile = WithId(With(MakeMatchProfile(5, 50, kExternal), kFePorts, 4), 99);
  ForgetSetUp();
  EXPECT_EQ(kNotFound, table.Get(kAll, 9U, profile));
  EXPECT_TRUE(host.ClaimLog(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!"));
  EXPECT_EQ(kNotFound, table.Get(kAll, static_cast<unsigned short>(90), profile));
  EXPECT_TRUE(host.ClaimLog(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!"));
  EXPECT_EQ(99, profile._id);
  EXPECT_EQ(kMatch, profile._profile_type);
  EXPECT_EQ(kExternal, profile._profile_source);
  EXPECT_EQ(4U, NumberOf(profile, kFePorts));
  EXPECT_EQ(3U, profile._common_ability.size());
}

TEST_F(TableBaseProfileLookupTest, KeyValueIsFilteredBySource) {
  PutBothSources();
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, table.Get(kDefault, 7U, profile));
  EXPECT_EQ(1, profile._id);
  EXPECT_EQ(kOk, table.Get(kExternal, 7U, profile));
  EXPECT_EQ(2, profile._id);
  table.Get(kDefault, 7U, found);
  EXPECT_EQ((Ids{1}), IdsOf(found));
  table.Get(kExternal, 7U, found);
  EXPECT_EQ((Ids{2}), IdsOf(found));
  table.Get(kAll, 7U, found);
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
}

TEST_F(TableBaseProfileLookupTest, ListByTypeIsFilteredBySource) {
  PutBothSources();
  table.Get(kDefault, type, found);
  EXPECT_EQ((Ids{1}), IdsOf(found));
  table.Get(kExternal, type, found);
  EXPECT_EQ((Ids{2}), IdsOf(found));
  table.Get(kAll, type, found);
  EXPECT_EQ((Ids{2, 1}), IdsOf(found));
}

// Meant: alone among the lookups by source, this one does not consult it.
TEST_F(TableBaseProfileLookupTest, OneByTypeFindsAProfileOfTheOtherSource) {
  PutBothSources();
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, table.Get(kDefault, type, profile));
  EXPECT_EQ(kExternal, profile._profile_source);
  EXPECT_EQ(2, profile._id);
}

// A code that a profile lacks equals the profile's default value in a list
// lookup; the lookup of one profile wants the code itself.
TEST_F(TableBaseProfileLookupTest, TypeZeroListsProfilesWithoutTypeButFindsNone) {
  table.Put(With(MakeProfile(kReal), kKeyValue, 7));
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, table.Get(kAll, static_cast<unsigned short>(0), found));
  EXPECT_EQ(1U, found.size());
  EXPECT_EQ(kNotFound, table.Get(kAll, static_cast<unsigned short>(0), profile));
}

TEST_F(TableBaseProfileLookupTest, AnswersAreCopies) {
  PutTwins();
  OnuAbilityProfile profile;
  table.Get(kAll, 7U, profile);
  profile.UpdateInit(kFePorts, 4);
  table.Get(kAll, 7U, found);
  found[0].UpdateInit(kFePorts, 5);
  EXPECT_EQ(0U, table.profiles()[1]._common_ability.count(kFePorts));
}

TEST_F(TableBaseProfileLookupTest, AllOfASourceAreCopiedInTableOrderWithoutALine) {
  PutBothSources();
  table.Put(WithId(MakeRealProfile(8, 80, kDefault), 3));
  host.ForgetLog();
  table.GetAll(kDefault, found);
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
  EXPECT_EQ((Ids{1, 3}), IdsOf(found));
  table.GetAll(kExternal, found);
  EXPECT_EQ((Ids{2}), IdsOf(found));
  table.GetAll(kAll, found);
  EXPECT_EQ((Ids{1, 2, 3}), IdsOf(found));
}

}  // namespace
}  // namespace table_test
