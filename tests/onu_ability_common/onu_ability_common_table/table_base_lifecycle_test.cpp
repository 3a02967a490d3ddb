// Making and destroying a table, and the key ability code that it keeps.
#include <memory>

#include "table_fixture.h"

namespace table_test {
namespace {

using Table = OpenTable<OnuAbilityTableBase>;

class TableBaseLifecycleTest : public TableTest {};

TEST_F(TableBaseLifecycleTest, NewTableIsEmptyAndLogsItsStart) {
  Table table;
  EXPECT_TRUE(table.profiles().empty());
  EXPECT_EQ((std::vector<LogLine>{Log(10, "OnuAbilityTableBase start!")}), host.TakeLog());
  ASSERT_EQ(1U, host.mutex_calls().size());
  EXPECT_EQ(MutexCall::kConstruct, host.mutex_calls()[0].kind);
}

TEST_F(TableBaseLifecycleTest, DestructionLogsThenDestroysTheProfilesThenTheMutex) {
  auto table = std::make_unique<Table>();
  table->profiles().reserve(2);
  table->Put(MakeRealProfile(1, 10));
  table->Put(MakeRealProfile(2, 20));
  const void* mutex = &table->mutex();
  ForgetSetUp();
  table.reset();
  EXPECT_EQ((std::vector<LogLine>{Log(10, "release OnuAbilityTableBase!"),
                                  Log(10, "release OnuAbilityProfile!"),
                                  Log(10, "release OnuAbilityProfile!")}),
            host.TakeLog());
  ASSERT_EQ(1U, host.mutex_calls().size());
  EXPECT_EQ(MutexCall::kDestroy, host.mutex_calls()[0].kind);
  EXPECT_EQ(mutex, host.mutex_calls()[0].mutex);
}

// Meant: a table keeps the key ability code that was set when it was made.
TEST_F(TableBaseLifecycleTest, LaterKeyCodeIsNotSeenByTheTable) {
  Table table;
  table.Put(With(MakeRealProfile(7, 70), kFePorts, 4));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  OnuAbilityProfile profile;
  std::vector<OnuAbilityProfile> profiles;
  unsigned int number = 0;
  std::string text;
  ForgetSetUp();
  EXPECT_EQ(1U, table.IsExist(kAll, 7U));
  EXPECT_EQ(0U, table.IsExist(kAll, 70U));
  EXPECT_EQ(kOk, table.Get(kAll, 7U, profile));
  EXPECT_EQ(kNotFound, table.Get(kAll, 70U, profile));
  EXPECT_EQ(kOk, table.Get(kAll, 7U, profiles));
  EXPECT_EQ(kNotFound, table.Get(kAll, 70U, profiles));
  EXPECT_TRUE(host.ClaimLog(10,
                            "(OnuAbilityTableBase)function start!profile_source:2, "
                            "key_ability_code:1085, ability_name:KEY_VALUE, ability_value:0x46"));
  EXPECT_EQ(kOk, table.Get(7U, kFePorts, number));
  EXPECT_TRUE(host.ClaimLog(9,
                            "find ok!key_ability_code:1085, key_ability_value:7, abilitycode 1010, "
                            "ability_name:FE_PORTS, ability_value:4"));
  EXPECT_EQ(kNotFound, table.Get(70U, kFePorts, number));
  EXPECT_EQ(kNotFound, table.Get(70U, kTypeName, text));
}

TEST_F(TableBaseLifecycleTest, TableMadeAfterAChangeUsesTheNewKeyCode) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  Table table;
  table.Put(With(MakeRealProfile(7, 70), kFePorts, 4));
  EXPECT_EQ(1U, table.IsExist(kAll, 70U));
}

}  // namespace
}  // namespace table_test
