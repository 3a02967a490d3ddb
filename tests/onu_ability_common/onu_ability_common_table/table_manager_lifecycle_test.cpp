// The manager's tables: made by Init, added and deleted by type, and left alone
// when the process ends.
#include <cstdlib>

#include <unistd.h>

#include "manager_fixture.h"

namespace table_test {
namespace {

class TableManagerLifecycleTest : public TableTest {
 protected:
  static OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

  // The first and last words of tables and manager.
  std::vector<LogLine> TakeTraces() { return host.TakeLog({0, 1, 9, 10}); }

  bool NoMutexDestroyed() {
    return std::none_of(host.mutex_calls().begin(), host.mutex_calls().end(),
                        [](const MutexCall& call) { return call.kind == MutexCall::kDestroy; });
  }
};

TEST_F(TableManagerLifecycleTest, NewManagerHasNoTablesAndLogsItsStart) {
  EXPECT_TRUE(Manager()._map_table.empty());
  EXPECT_EQ((std::vector<LogLine>{Log(10, "OnuAbilityTableManager start!")}), host.TakeLog());
  EXPECT_EQ(OnuAbilityTableManager::GetInstance(), &Manager());
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
}

TEST_F(TableManagerLifecycleTest, InitMakesTheMatchTableThenTheRealTable) {
  OnuAbilityTableManager& manager = Manager();
  host.ForgetLog();
  manager.Init();
  ExpectLog({Log(10, "OnuAbilityTableManager::InitOnuAbilityTable start!"),
             Log(10, "OnuAbilityTableBase start!"), Log(10, "OnuMatchAbilityTable start!"),
             Log(10, "OnuAbilityTableBase start!"), Log(10, "OnuRealAbilityTable start!"),
             Log(10, "OnuAbilityTableManager::InitOnuAbilityTable end!")});
  ASSERT_EQ(2U, manager._map_table.size());
  EXPECT_NE(nullptr, dynamic_cast<OnuRealAbilityTable*>(manager._map_table[kReal]));
  EXPECT_NE(nullptr, dynamic_cast<OnuMatchAbilityTable*>(manager._map_table[kMatch]));
}

// Meant: the tables stay; the second pair is made and never released.
TEST_F(TableManagerLifecycleTest, SecondInitKeepsTheTablesAndLeavesTwoUnreachable) {
  InitTables();
  AddToTable(MakeRealProfile(7, 70));
  const auto tables = Manager()._map_table;
  ForgetSetUp();
  Manager().Init();
  EXPECT_EQ(tables, Manager()._map_table);
  EXPECT_EQ(1U, TableOf(kReal).size());
  EXPECT_TRUE(host.ClaimLog(10, "OnuMatchAbilityTable start!"));
  EXPECT_TRUE(host.ClaimLog(10, "OnuRealAbilityTable start!"));
  EXPECT_FALSE(host.ClaimLog(10, "release OnuAbilityTableBase!"));
  EXPECT_TRUE(NoMutexDestroyed());
}

TEST_F(TableManagerLifecycleTest, AddOfTableTypeThreeIsRefusedAndChangesNothing) {
  InitTables();
  const auto tables = Manager()._map_table;
  ForgetSetUp();
  for (const int type : {3, 0, -1}) {
    Manager().AddOnuAbilityTable(static_cast<ProfileType>(type));
    EXPECT_TRUE(host.ClaimLog(0, "table_type is out of range!"));
  }
  EXPECT_EQ(tables, Manager()._map_table);
  EXPECT_TRUE(host.mutex_calls().empty());
}

TEST_F(TableManagerLifecycleTest, TablesCanBeAddedOneByOne) {
  Manager().AddOnuAbilityTable(kReal);
  ASSERT_EQ(1U, Manager()._map_table.size());
  EXPECT_NE(nullptr, dynamic_cast<OnuRealAbilityTable*>(Manager()._map_table[kReal]));
}

TEST_F(TableManagerLifecycleTest, DeletedTableIsDestroyedAndItsEntryRemoved) {
  InitTables();
  ForgetSetUp();
  Manager().DelOnuAbilityTable(kReal);
  EXPECT_TRUE(host.ClaimLog(9, "find ok!profile type:1"));
  const std::vector<LogLine> log = host.TakeLog();
  const auto own = std::find(log.begin(), log.end(), Log(10, "release OnuRealAbilityTable!"));
  EXPECT_NE(log.end(), std::find(own, log.end(), Log(10, "release OnuAbilityTableBase!")));
  EXPECT_FALSE(NoMutexDestroyed());
  EXPECT_EQ(0U, Manager()._map_table.count(kReal));
  EXPECT_EQ(1U, Manager()._map_table.count(kMatch));
}

TEST_F(TableManagerLifecycleTest, DeletionOfAnAbsentTableIsLogged) {
  InitTables();
  ForgetSetUp();
  Manager().DelOnuAbilityTable(static_cast<ProfileType>(3));
  EXPECT_TRUE(host.ClaimLog(1, "do not find table_type(3)"));
  EXPECT_EQ(2U, Manager()._map_table.size());
  EXPECT_TRUE(host.mutex_calls().empty());
}

TEST_F(TableManagerLifecycleTest, DeletedTableCanBeAddedAgainEmpty) {
  InitTables();
  AddToTable(MakeRealProfile(7, 70));
  Manager().DelOnuAbilityTable(kReal);
  EXPECT_TRUE(TableOf(kReal).empty());
  Manager().AddOnuAbilityTable(kReal);
  EXPECT_TRUE(TableOf(kReal).empty());
  AddToTable(MakeRealProfile(8, 80));
  EXPECT_EQ(1U, TableOf(kReal).size());
}

// The lamp queries leave such an entry before Init; it is no table.
TEST_F(TableManagerLifecycleTest, NullEntryCountsAsNoTable) {
  Manager()._map_table[kReal] = nullptr;
  EXPECT_EQ(0U, Manager().IsExist(kReal, kAll, 7U));
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!"));
  EXPECT_TRUE(TableOf(kReal).empty());
  Manager().Init();
  EXPECT_NE(nullptr, dynamic_cast<OnuRealAbilityTable*>(Manager()._map_table[kReal]));
}

// Runs after the manager's destructor, which was registered later.
void CheckLogAtExit() {
  RecordingHost& host = RecordingHost::Instance();
  const bool released = host.ClaimLog(10, "release OnuAbilityTableManager!");
  const bool tables_released = host.ClaimLog(10, "release OnuAbilityTableBase!");
  _exit(released && !tables_released ? 77 : 1);
}

void EndProcessWithTables() {
  if (std::atexit(CheckLogAtExit) != 0) {
    _exit(2);
  }
  InitTables();
  std::exit(0);
}

// Meant: the destructor frees the map's entries, not the tables.
TEST_F(TableManagerLifecycleTest, ProcessEndDestroysTheManagerButNotTheTables) {
  EXPECT_EXIT(EndProcessWithTables(), ::testing::ExitedWithCode(77), "");
}

}  // namespace
}  // namespace table_test
