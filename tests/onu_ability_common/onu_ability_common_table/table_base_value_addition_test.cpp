// Adding one value to a stored profile.
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseValueAdditionTest : public TableTest {
 protected:
  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseValueAdditionTest, NumberGoesToTheOldestProfileOfTwo) {
  table.Put(MakeRealProfile(7, 70));
  table.Put(MakeRealProfile(7, 71));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kFePorts, 4U));
  EXPECT_EQ(4U, NumberOf(table.profiles()[0], kFePorts));
  EXPECT_EQ(0U, table.profiles()[1]._common_ability.count(kFePorts));
}

TEST_F(TableBaseValueAdditionTest, StringGoesToTheOldestProfileOfTwo) {
  table.Put(MakeRealProfile(7, 70));
  table.Put(MakeRealProfile(7, 71));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kTypeName, std::string("NAME")));
  EXPECT_EQ("NAME", TextOf(table.profiles()[0], kTypeName));
  EXPECT_EQ(0U, table.profiles()[1]._common_ability.count(kTypeName));
}

TEST_F(TableBaseValueAdditionTest, NumberComparesKeysFromTheOldestProfileOn) {
  for (const unsigned int key : {1U, 2U, 3U}) {
    table.Put(MakeRealProfile(key, 70));
  }
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(kDefault, 2U, kFePorts, 4U));
  EXPECT_EQ((std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                Log(4, "(OnuAbilityProfile)key_ability_value_temp:1, key_ability_value:2"),
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                Log(4, "(OnuAbilityProfile)key_ability_value_temp:2, key_ability_value:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseValueAdditionTest, StringComparesKeysFromTheOldestProfileOn) {
  for (const unsigned int key : {1U, 2U, 3U}) {
    table.Put(MakeRealProfile(key, 70));
  }
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(kDefault, 2U, kTypeName, std::string("NAME")));
  EXPECT_EQ((std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                Log(4, "(OnuAbilityProfile)key_ability_value_temp:1, key_ability_value:2"),
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                Log(4, "(OnuAbilityProfile)key_ability_value_temp:2, key_ability_value:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseValueAdditionTest, ProfilesOfAnotherSourceAreNotEvenCompared) {
  table.Put(MakeRealProfile(7, 70, kDefault));
  table.Put(MakeRealProfile(7, 71, kExternal));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(kExternal, 7U, kFePorts, 4U));
  EXPECT_EQ(2U, host.TakeLog({4}).size());
  EXPECT_EQ(0U, table.profiles()[0]._common_ability.count(kFePorts));
  EXPECT_EQ(4U, NumberOf(table.profiles()[1], kFePorts));
}

TEST_F(TableBaseValueAdditionTest, SourceTwoEqualsNoSource) {
  table.Put(MakeRealProfile(7, 70, kDefault));
  table.Put(MakeRealProfile(7, 71, kExternal));
  EXPECT_EQ(kOperateFailed, table.Add(kAll, 7U, kFePorts, 4U));
  EXPECT_EQ(kOperateFailed, table.Add(kAll, 7U, kTypeName, std::string("NAME")));
  EXPECT_EQ(2U, table.profiles()[0]._common_ability.size());
  EXPECT_EQ(2U, table.profiles()[1]._common_ability.size());
}

TEST_F(TableBaseValueAdditionTest, NumberAddThatTheProfileRefusesStillSucceeds) {
  table.Put(MakeRealProfile(7, 70));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kFePorts, 0U));  // the default value is never stored
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, 4242, 4U));
  EXPECT_TRUE(host.ClaimLog(1, "ability_code don't exist,ability_code:4242"));
  EXPECT_EQ(2U, table.profiles()[0]._common_ability.size());
}

TEST_F(TableBaseValueAdditionTest, StringAddThatTheProfileRefusesStillSucceeds) {
  table.Put(MakeRealProfile(7, 70));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kTypeName, std::string()));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, 4242, std::string("NAME")));
  EXPECT_TRUE(host.ClaimLog(1, "ability_code don't exist,ability_code:4242"));
  EXPECT_EQ(2U, table.profiles()[0]._common_ability.size());
}

TEST_F(TableBaseValueAdditionTest, NumberAdditionIsTraced) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kFePorts, 4U));
  const std::vector<LogLine> traces = host.TakeLog({10});
  const auto start = std::find(traces.begin(), traces.end(), Log(10, "Add-1 profile start!"));
  EXPECT_NE(traces.end(), std::find(start, traces.end(), Log(10, "Add-1 profile end!")));
}

TEST_F(TableBaseValueAdditionTest, StringAdditionIsTraced) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kTypeName, std::string("NAME")));
  const std::vector<LogLine> traces = host.TakeLog({10});
  const auto start = std::find(traces.begin(), traces.end(), Log(10, "Add-string profile start!"));
  EXPECT_NE(traces.end(), std::find(start, traces.end(), Log(10, "Add-string profile end!")));
}

TEST_F(TableBaseValueAdditionTest, NumberForNoProfileFails) {
  EXPECT_EQ(kOperateFailed, table.Add(kExternal, 7U, kFePorts, 0xFFFFFFFFU));
  ExpectLog({Log(10, "Add-1 profile start!"), PortsNameAsked(),
             Log(1,
                 "Add-1 failed!profile_source:1, key_ability_value:7, ability_code:1010, "
                 "ability_name:FE_PORTS, ability_value:-1")});
}

TEST_F(TableBaseValueAdditionTest, StringForNoProfileFails) {
  EXPECT_EQ(kOperateFailed, table.Add(kExternal, 7U, kTypeName, std::string("NAME")));
  ExpectLog({Log(10, "Add-string profile start!"), TypeNameAsked(),
             Log(1,
                 "Add-string failed!profile_source:1, key_ability_value:7, ability_code:1083, "
                 "ability_name:TYPE_NAME, ability_value:NAME")});
}

// The profile compares its own key ability value here, which follows the
// registry; the table's cached code plays no part.
TEST_F(TableBaseValueAdditionTest, KeyValueIsThatOfTheCurrentKeyCode) {
  table.Put(MakeRealProfile(7, 70));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  EXPECT_EQ(kOperateFailed, table.Add(kDefault, 7U, kFePorts, 4U));
  EXPECT_EQ(kOk, table.Add(kDefault, 70U, kFePorts, 4U));
  EXPECT_EQ(4U, NumberOf(table.profiles()[0], kFePorts));
  EXPECT_EQ(kOperateFailed, table.Add(kDefault, 7U, kTypeName, std::string("NAME")));
  EXPECT_EQ(kOk, table.Add(kDefault, 70U, kTypeName, std::string("NAME")));
  EXPECT_EQ("NAME", TextOf(table.profiles()[0], kTypeName));
}

}  // namespace
}  // namespace table_test
