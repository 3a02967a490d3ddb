// The lock of a table: every operation on the profiles takes it once and
// releases it on every path, but for the two that read without it.
#include <chrono>
#include <future>

#include "table_fixture.h"

namespace table_test {
namespace {

// `key` 7 and `type` 70 are stored, 8 and 80 are not.
struct TableCall {
  const char* name;
  void (*call)(OnuAbilityTableBase& table, unsigned int key, unsigned short type);
};

std::ostream& operator<<(std::ostream& out, const TableCall& call) { return out << call.name; }

std::string NameOf(const ::testing::TestParamInfo<TableCall>& info) { return info.param.name; }

void ProfilesByKey(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  std::vector<OnuAbilityProfile> profiles;
  table.Get(kAll, key, profiles);
}

void ProfilesByType(OnuAbilityTableBase& table, unsigned int, unsigned short type) {
  std::vector<OnuAbilityProfile> profiles;
  table.Get(kAll, type, profiles);
}

void ProfileByKey(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  OnuAbilityProfile profile;
  table.Get(kAll, key, profile);
}

void ProfileByType(OnuAbilityTableBase& table, unsigned int, unsigned short type) {
  OnuAbilityProfile profile;
  table.Get(kAll, type, profile);
}

void NumberByKey(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  unsigned int value = 0;
  table.Get(key, kFePorts, value);
}

void StringByKey(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  std::string value;
  table.Get(key, kTypeName, value);
}

void NumberByType(OnuAbilityTableBase& table, unsigned int, unsigned short type) {
  unsigned int value = 0;
  table.Get(type, kFePorts, value);
}

void StringByType(OnuAbilityTableBase& table, unsigned int, unsigned short type) {
  std::string value;
  table.Get(type, kTypeName, value);
}

void NewId(OnuAbilityTableBase& table, unsigned int, unsigned short) {
  unsigned short id = 0;
  table.Get(kDefault, id);
}

void AllProfiles(OnuAbilityTableBase& table, unsigned int, unsigned short) {
  std::vector<OnuAbilityProfile> profiles;
  table.GetAll(kAll, profiles);
}

void KeyExists(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.IsExist(kAll, key);
}

void AddNumber(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.Add(kDefault, key, kFePorts, 5U);
}

void AddString(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.Add(kDefault, key, kTypeName, std::string("OTHER"));
}

void DeleteAll(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.DelAll(key == 7 ? kDefault : kExternal);
}

void CodeExists(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.IsExist(key == 7 ? kFePorts : kPowerLamp);
}

void ValueIsEqual(OnuAbilityTableBase& table, unsigned int key, unsigned short) {
  table.IsEqual(kAll, kKeyValue, key);
}

std::vector<TableCall> LockingCalls() {
  return {{"ProfilesByKey", ProfilesByKey},
          {"ProfilesByType", ProfilesByType},
          {"ProfileByKey", ProfileByKey},
          {"ProfileByType", ProfileByType},
          {"NumberByKey", NumberByKey},
          {"StringByKey", StringByKey},
          {"NumberByType", NumberByType},
          {"StringByType", StringByType},
          {"NewId", NewId},
          {"AllProfiles", AllProfiles},
          {"KeyExists", KeyExists},
          {"AddNumber", AddNumber},
          {"AddString", AddString},
          {"DeleteAll", DeleteAll}};
}

std::vector<TableCall> LockFreeCalls() {
  return {{"CodeExists", CodeExists}, {"ValueIsEqual", ValueIsEqual}};
}

class TableBaseCallTest : public TableTest, public ::testing::WithParamInterface<TableCall> {
 protected:
  void SetUp() override {
    TableTest::SetUp();
    table.Put(With(With(MakeRealProfile(7, 70), kFePorts, 4), kTypeName, "NAME"));
    ForgetSetUp();
  }

  void CallHit() { GetParam().call(table, 7, 70); }
  void CallMiss() { GetParam().call(table, 8, 80); }

  OpenTable<OnuAbilityTableBase> table;
};

class TableBaseLockingTest : public TableBaseCallTest {};
class TableBaseLockFreeTest : public TableBaseCallTest {};

TEST_P(TableBaseLockingTest, LocksOnceOnAHit) {
  CallHit();
  ExpectLockedOnce(table);
}

TEST_P(TableBaseLockingTest, LocksOnceOnAMiss) {
  CallMiss();
  ExpectLockedOnce(table);
}

TEST_P(TableBaseLockingTest, WaitsForAnotherThread) {
  ASSERT_EQ(0U, table.mutex().Lock(-1, nullptr, 0));
  std::future<void> call = std::async(std::launch::async, [this] { CallHit(); });
  EXPECT_EQ(std::future_status::timeout, call.wait_for(std::chrono::milliseconds(50)));
  ASSERT_EQ(0U, table.mutex().Unlock(nullptr, 0));
  call.get();
}

// Meant: these two read the profiles without the lock.
TEST_P(TableBaseLockFreeTest, TakesNoLock) {
  CallHit();
  CallMiss();
  EXPECT_TRUE(host.mutex_calls().empty());
}

TEST_P(TableBaseLockFreeTest, AnswersWhileAnotherThreadHoldsTheLock) {
  ASSERT_EQ(0U, table.mutex().Lock(-1, nullptr, 0));
  std::future<void> call = std::async(std::launch::async, [this] { CallHit(); });
  EXPECT_EQ(std::future_status::ready, call.wait_for(std::chrono::seconds(20)));
  ASSERT_EQ(0U, table.mutex().Unlock(nullptr, 0));
  call.get();
}

INSTANTIATE_TEST_SUITE_P(Calls, TableBaseLockingTest, ::testing::ValuesIn(LockingCalls()), NameOf);
INSTANTIATE_TEST_SUITE_P(Calls, TableBaseLockFreeTest, ::testing::ValuesIn(LockFreeCalls()),
                         NameOf);

}  // namespace
}  // namespace table_test
