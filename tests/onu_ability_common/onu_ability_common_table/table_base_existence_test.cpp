// Yes/no questions to a table: does a profile hold a code, have a key ability
// value, have a value.
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseExistenceTest : public TableTest {
 protected:
  // Key ability values 1, 2 and 3, in this order.
  void PutKeys() {
    for (const unsigned int key : {1U, 2U, 3U}) {
      table.Put(With(MakeRealProfile(key, 70), kFePorts, key));
    }
    ForgetSetUp();
  }

  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseExistenceTest, CodeExistsInTheFirstProfileThatHoldsIt) {
  table.Put(MakeRealProfile(1, 70));
  table.Put(With(MakeRealProfile(2, 70), kFePorts, 4));
  table.Put(With(MakeRealProfile(3, 70), kFePorts, 4));
  ForgetSetUp();
  EXPECT_EQ(1U, table.IsExist(kFePorts));
  ExpectLog({PortsNameAsked(),
             Log(1, "ability_code is not exist,ability_code:1010, ability_name:FE_PORTS"),
             KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_value:2"),
             Log(6, "ability_code exist!key_ability_value:2, ability_code:1010")});
}

TEST_F(TableBaseExistenceTest, CodeExistenceLogsTheValueOfTheCurrentKeyCode) {
  PutKeys();
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  EXPECT_EQ(1U, table.IsExist(kFePorts));
  EXPECT_TRUE(host.ClaimLog(6, "ability_code exist!key_ability_value:70, ability_code:1010"));
}

TEST_F(TableBaseExistenceTest, CodeExistenceLogsTheDefaultValueOfAProfileWithoutKey) {
  table.Put(With(MakeProfile(kMatch), kFePorts, 4));
  ForgetSetUp();
  EXPECT_EQ(1U, table.IsExist(kFePorts));
  EXPECT_TRUE(host.ClaimLog(6, "ability_code exist!key_ability_value:-1, ability_code:1010"));
}

TEST_F(TableBaseExistenceTest, CodeThatNoProfileHoldsDoesNotExist) {
  PutKeys();
  EXPECT_EQ(0U, table.IsExist(kPowerLamp));
  const LogLine absent =
      Log(1, "ability_code is not exist,ability_code:1030, ability_name:POWER_LAMP");
  const LogLine name = NameAsked(kPowerLamp, "POWER_LAMP");
  ExpectLog({name, absent, name, absent, name, absent});
}

TEST_F(TableBaseExistenceTest, KeyValueIsSearchedFromTheNewestProfileToTheOldest) {
  PutKeys();
  EXPECT_EQ(1U, table.IsExist(kAll, 2U));
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:3, ability_value_2:2"),
                                  Log(4, "ability_value_1:2, ability_value_2:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseExistenceTest, KeyValueThatExistsIsLoggedAsFound) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(1U, table.IsExist(kAll, 7U));
  ExpectLog({Log(10, "(OnuAbilityTableBase)function start!"), KeyNameAsked(),
             Log(9,
                 "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                 "ability_int_value:7, ability_string_value:"),
             Log(4, "ability_value_1:7, ability_value_2:7"),
             Log(9, "find ok in GetOnuAllAbilityValue of OnuAbilityTableBase!")});
}

TEST_F(TableBaseExistenceTest, KeyValueThatDoesNotExistIsLoggedAsNull) {
  PutKeys();
  EXPECT_EQ(0U, table.IsExist(kAll, 9U));
  EXPECT_TRUE(host.ClaimLog(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!"));
}

TEST_F(TableBaseExistenceTest, KeyValueIsFilteredBySource) {
  table.Put(MakeRealProfile(7, 70, kDefault));
  table.Put(MakeRealProfile(8, 80, kExternal));
  EXPECT_EQ(1U, table.IsExist(kDefault, 7U));
  EXPECT_EQ(0U, table.IsExist(kExternal, 7U));
  EXPECT_EQ(0U, table.IsExist(kDefault, 8U));
  EXPECT_EQ(1U, table.IsExist(kExternal, 8U));
  EXPECT_EQ(1U, table.IsExist(kAll, 7U));
  EXPECT_EQ(1U, table.IsExist(kAll, 8U));
}

TEST_F(TableBaseExistenceTest, ValueIsComparedFromTheOldestProfileToTheNewest) {
  PutKeys();
  EXPECT_EQ(1U, table.IsEqual(kAll, kFePorts, 2));
  ExpectLog({PortsNameAsked(),
             Log(9,
                 "get ok!ability_code:1010, ability_name:FE_PORTS, value_type:2, "
                 "ability_int_value:1, ability_string_value:"),
             Log(4, "ability_value_1:1, ability_value_2:2"), PortsNameAsked(),
             Log(9,
                 "get ok!ability_code:1010, ability_name:FE_PORTS, value_type:2, "
                 "ability_int_value:2, ability_string_value:"),
             Log(4, "ability_value_1:2, ability_value_2:2")});
}

TEST_F(TableBaseExistenceTest, ValueThatNoProfileHasIsNotEqual) {
  table.Put(With(MakeRealProfile(1, 70), kFePorts, 4));
  ForgetSetUp();
  EXPECT_EQ(0U, table.IsEqual(kExternal, kFePorts, 0xFFFFFFFFU));
  ExpectLog({PortsNameAsked(),
             Log(9,
                 "get ok!ability_code:1010, ability_name:FE_PORTS, value_type:2, "
                 "ability_int_value:4, ability_string_value:"),
             Log(4, "ability_value_1:4, ability_value_2:-1"), PortsNameAsked(),
             Log(1,
                 "ability value is not equal!profile_source:1, ability_code:1010, "
                 "ability_name:FE_PORTS, ability_value:-1")});
}

TEST_F(TableBaseExistenceTest, ValueIsFilteredBySource) {
  table.Put(With(MakeRealProfile(1, 70, kExternal), kFePorts, 4));
  EXPECT_EQ(0U, table.IsEqual(kDefault, kFePorts, 4));
  EXPECT_EQ(1U, table.IsEqual(kExternal, kFePorts, 4));
  EXPECT_EQ(1U, table.IsEqual(kAll, kFePorts, 4));
}

TEST_F(TableBaseExistenceTest, AbsentCodeEqualsTheDefaultValueOfItsProfile) {
  table.Put(MakeRealProfile(1, 70));
  EXPECT_EQ(1U, table.IsEqual(kAll, kFePorts, 0));
  EXPECT_EQ(0U, table.IsEqual(kAll, kFePorts, 0xFFFFFFFFU));
}

TEST_F(TableBaseExistenceTest, StringNeverEqualsANumber) {
  table.Put(With(MakeRealProfile(1, 70), kTypeName, "NAME"));
  EXPECT_EQ(0U, table.IsEqual(kAll, kTypeName, 0));
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:3"));
}

}  // namespace
}  // namespace table_test
