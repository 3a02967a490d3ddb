// Deleting from the real table: only profiles of the same source to which no
// ONU is bound.
#include "table_fixture.h"

namespace table_test {
namespace {

using Ids = std::vector<unsigned short>;

class RealTableDeletionTest : public TableTest {
 protected:
  OnuAbilityProfile External(unsigned int key, unsigned short type, unsigned short id) {
    return WithId(MakeRealProfile(key, type, kExternal), id);
  }

  unsigned int Del(const OnuAbilityProfile& profile) {
    ForgetSetUp();
    return table.Del(profile);
  }

  OpenTable<OnuRealAbilityTable> table;
};

TEST_F(RealTableDeletionTest, ByKeyValueRemovesTheNewest) {
  table.Put(External(7, 70, 1));
  table.Put(External(7, 70, 2));
  table.Put(External(8, 80, 3));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(kExternal, 7U));
  const auto read = [](const std::string& value) {
    return Log(9,
               "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
               "ability_int_value:" +
                   value + ", ability_string_value:");
  };
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(1, std::count(log.begin(), log.end(), read("8")));
  EXPECT_EQ(1, std::count(log.begin(), log.end(), read("7")));
  EXPECT_EQ((Ids{1, 3}), IdsOf(table.profiles()));
  ExpectLockedOnce(table);
}

TEST_F(RealTableDeletionTest, ByKeyValueIsLogged) {
  table.Put(External(7, 70, 1));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Del(kExternal, 7U));
  ExpectLog({Log(10, "OnuRealAbilityTable::DelRealTableItem start!"), KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_int_value:7, ability_string_value:"),
             Log(4, "ability_value_1:7, ability_value_2:7"),
             Log(9, "find ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!"),
             Log(10, "OnuRealAbilityTable::DelRealTableItem end!")});
}

TEST_F(RealTableDeletionTest, ByUnknownKeyValueFails) {
  EXPECT_EQ(kNotFound, table.Del(kExternal, 7U));
  ExpectLog({Log(10, "OnuRealAbilityTable::DelRealTableItem start!"),
             Log(1, "DeleteItem of OnuRealAbilityTable failed!"),
             Log(10, "OnuRealAbilityTable::DelRealTableItem end!")});
  ExpectLockedOnce(table);
}

TEST_F(RealTableDeletionTest, ByKeyValueWantsTheSameSource) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kNotFound, table.Del(kDefault, 7U));
  EXPECT_EQ(kNotFound, table.Del(kAll, 7U));
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
}

TEST_F(RealTableDeletionTest, ByKeyValuePassesOverABoundProfileToAnOlderOne) {
  table.Put(External(7, 70, 1));
  table.Put(External(7, 70, 2));
  table.profiles()[1]._bind_count = 1;
  EXPECT_EQ(kOk, table.Del(kExternal, 7U));
  EXPECT_EQ((Ids{2}), IdsOf(table.profiles()));
}

TEST_F(RealTableDeletionTest, BoundProfileIsNotDeletedUntilItsCountIsZero) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kNotFound, table.Del(kExternal, 7U));
  EXPECT_EQ(kNotFound, Del(External(7, 70, 0)));
  EXPECT_EQ(kNotFound, Del(External(7, 70, 70)));
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(kOk, table.Del(kExternal, 7U));
  EXPECT_TRUE(table.profiles().empty());
}

TEST_F(RealTableDeletionTest, UnboundProfileIsDeletedAsAProfileToo) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(kOk, Del(External(7, 70, 0)));
  EXPECT_TRUE(table.profiles().empty());
}

TEST_F(RealTableDeletionTest, ProfileWithoutIdIsFoundByKeyValueFromTheEnd) {
  table.Put(External(7, 70, 1));
  table.Put(External(7, 71, 2));
  table.Put(External(8, 80, 3));
  const OnuAbilityProfile profile = External(7, 99, 0);
  EXPECT_EQ(kOk, Del(profile));
  EXPECT_EQ((Ids{1, 3}), IdsOf(table.profiles()));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:8, ability_value_2:7"),
                                  Log(4, "ability_value_1:7, ability_value_2:7")}),
            host.TakeLog({4}));
  ExpectLockedOnce(table);
}

TEST_F(RealTableDeletionTest, ProfileWithId65535IsFoundByKeyValueToo) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kOk, Del(External(7, 99, 65535)));
  ExpectLog({Log(10, "OnuRealAbilityTable::DelItem start!"), KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_value:7"),
             KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_int_value:7, ability_string_value:"),
             Log(4, "ability_value_1:7, ability_value_2:7"),
             Log(9, "find(2) ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!"),
             Log(10, "OnuRealAbilityTable::DelItem end!")});
  EXPECT_TRUE(table.profiles().empty());
}

TEST_F(RealTableDeletionTest, ProfileWithoutIdAndKeyValueCountsAsKeyValueZero) {
  table.Put(With(MakeProfile(kReal, kExternal), kKeyValue, 0));
  EXPECT_EQ(kOk, Del(MakeProfile(kReal, kExternal)));
  EXPECT_TRUE(table.profiles().empty());
}

// Meant: a valid id is compared with the stored profiles' real types, not with
// their ids.
TEST_F(RealTableDeletionTest, ValidIdIsComparedWithTheRealType) {
  table.Put(External(1, 70, 5));
  table.Put(External(2, 5, 70));
  EXPECT_EQ(kOk, Del(External(1, 70, 5)));
  EXPECT_EQ((Ids{5}), IdsOf(table.profiles()));
  EXPECT_TRUE(
      host.ClaimLog(9, "find(2) ok in SearchOnuAbilityTableForDel of OnuRealAbilityTable!"));
  ExpectLockedOnce(table);
}

TEST_F(RealTableDeletionTest, ValidIdRemovesTheNewestOfThatRealType) {
  table.Put(External(1, 70, 1));
  table.Put(External(2, 70, 2));
  EXPECT_EQ(kOk, Del(External(1, 10, 70)));
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
}

TEST_F(RealTableDeletionTest, ValidIdThatIsNoRealTypeFails) {
  table.Put(External(7, 70, 5));
  EXPECT_EQ(kNotFound, Del(External(7, 70, 5)));
  ExpectLog({Log(10, "OnuRealAbilityTable::DelItem start!"),
             Log(1, "DeleteItem of OnuRealAbilityTable failed!"),
             Log(10, "OnuRealAbilityTable::DelItem end!")});
  ExpectLockedOnce(table);
  EXPECT_EQ((Ids{5}), IdsOf(table.profiles()));
}

TEST_F(RealTableDeletionTest, ProfileWantsTheSameSource) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kNotFound, Del(WithId(MakeRealProfile(7, 70, kDefault), 0)));
  EXPECT_EQ(kNotFound, Del(WithId(MakeRealProfile(7, 70, kAll), 70)));
  EXPECT_EQ((Ids{1}), IdsOf(table.profiles()));
}

TEST_F(RealTableDeletionTest, DeletionLeavesKeyCodesInTheirPlaces) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(5);
  table.Put(With(MakeProfile(kReal), kRealType, 10));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(7);
  table.Put(With(MakeProfile(kReal), kRealType, 20));
  EXPECT_EQ(kOk, Del(WithId(MakeProfile(kReal), 10)));
  ASSERT_EQ(1U, table.profiles().size());
  EXPECT_EQ(20U, NumberOf(table.profiles()[0], kRealType));
  EXPECT_EQ(5, table.profiles()[0]._key_ability_code);
}

// Meant: deleting by source takes bound profiles as well.
TEST_F(RealTableDeletionTest, DelAllIgnoresBindCounts) {
  table.Put(External(7, 70, 1));
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOk, table.DelAll(kExternal));
  EXPECT_TRUE(table.profiles().empty());
}

}  // namespace
}  // namespace table_test
