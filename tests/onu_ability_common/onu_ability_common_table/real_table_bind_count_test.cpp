// Counting the ONUs that are bound to a real profile.
#include "table_fixture.h"

namespace table_test {
namespace {

class RealTableBindCountTest : public TableTest {
 protected:
  void PutExternal(unsigned int key) {
    table.Put(MakeRealProfile(key, 70, kExternal));
    ForgetSetUp();
  }

  unsigned int CountOf(size_t place) { return table.profiles()[place]._bind_count; }

  OpenTable<OnuRealAbilityTable> table;
};

TEST_F(RealTableBindCountTest, CountGoesUpAndDown) {
  PutExternal(7);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  ExpectLockedOnce(table);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(2U, CountOf(0));
  host.ForgetMutexCalls();
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  ExpectLockedOnce(table);
  EXPECT_EQ(1U, CountOf(0));
}

TEST_F(RealTableBindCountTest, MinusOnACountOfZeroSucceedsAndLeavesZero) {
  PutExternal(7);
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(0U, CountOf(0));
  ExpectLockedOnce(table);
}

TEST_F(RealTableBindCountTest, HitLogsNothingOfItsOwn) {
  PutExternal(7);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  const std::vector<LogLine> read = {
      KeyNameAsked(),
      Log(9, "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, ability_value:7")};
  ExpectLog(read);
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  ExpectLog(read);
}

TEST_F(RealTableBindCountTest, OldestOfTwoProfilesIsCounted) {
  PutExternal(7);
  PutExternal(7);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(2U, CountOf(0));
  EXPECT_EQ(0U, CountOf(1));
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(1U, CountOf(0));
}

// The oldest decides even when its count is 0 and a newer one's is not.
TEST_F(RealTableBindCountTest, MinusDoesNotPassOverAProfileWithCountZero) {
  PutExternal(7);
  PutExternal(7);
  table.profiles()[1]._bind_count = 3;
  EXPECT_EQ(kOk, table.MinusBindCount(7U));
  EXPECT_EQ(3U, CountOf(1));
}

TEST_F(RealTableBindCountTest, KeyValueHeldOnlyByADefaultProfileCannotBeBound) {
  table.Put(MakeRealProfile(7, 70, kDefault));
  EXPECT_EQ(kOperateFailed, table.AddBindCount(7U));
  EXPECT_TRUE(host.ClaimLog(1, "find null in OnuRealAbilityTable!key_ability_value:7"));
  EXPECT_EQ(kOperateFailed, table.MinusBindCount(7U));
  EXPECT_TRUE(host.ClaimLog(1, "find null in OnuRealAbilityTable!key_ability_value:7"));
  EXPECT_EQ(0U, CountOf(0));
}

TEST_F(RealTableBindCountTest, DefaultProfileIsPassedOverToAnExternalOne) {
  table.Put(MakeRealProfile(7, 70, kDefault));
  PutExternal(7);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(0U, CountOf(0));
  EXPECT_EQ(1U, CountOf(1));
}

TEST_F(RealTableBindCountTest, UnknownKeyValueFails) {
  EXPECT_EQ(kOperateFailed, table.AddBindCount(0xFFFFFFFFU));
  ExpectLog({Log(1, "find null in OnuRealAbilityTable!key_ability_value:-1")});
  ExpectLockedOnce(table);
  EXPECT_EQ(kOperateFailed, table.MinusBindCount(9U));
  ExpectLog({Log(1, "find null in OnuRealAbilityTable!key_ability_value:9")});
  ExpectLockedOnce(table);
}

TEST_F(RealTableBindCountTest, ProfileWithoutKeyValueCountsAsKeyValueZero) {
  table.Put(MakeProfile(kReal, kExternal));
  EXPECT_EQ(kOk, table.AddBindCount(0U));
  EXPECT_EQ(1U, CountOf(0));
}

// The table's key ability code is the one it was made with.
TEST_F(RealTableBindCountTest, LaterKeyCodeIsNotSeen) {
  PutExternal(7);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  EXPECT_EQ(kOk, table.AddBindCount(7U));
  EXPECT_EQ(kOperateFailed, table.AddBindCount(70U));
}

}  // namespace
}  // namespace table_test
