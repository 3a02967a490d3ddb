// What the tests of the table manager share: the forwarding operations as data,
// and a table that answers what a test tells it to.
#ifndef TESTS_ONU_ABILITY_COMMON_TABLE_MANAGER_FIXTURE_H
#define TESTS_ONU_ABILITY_COMMON_TABLE_MANAGER_FIXTURE_H

#include <ostream>
#include <string>
#include <vector>

#include "table_fixture.h"

namespace table_test {

using ProfileType = ONU_ABILITY_ENUM_PROFILE_TYPE;
using ProfileSource = ONU_ABILITY_ENUM_PROFILE_SOURCE;

// One forwarding operation, called for type `type`, external profiles, key
// value 7, real type 70, 74 (0x4a) ports and the type name NAME.
struct Forwarding {
  const char* name;
  unsigned int (*call)(OnuAbilityTableManager& manager, ProfileType type);
  std::vector<LogLine> entry;  // for type 1; with the registry's line for a name that it prints
  std::string miss;
  unsigned int miss_result;
  std::vector<LogLine> hit;      // empty when the operation has no hit line
  std::vector<LogLine> table;    // what an empty real table logs
  std::vector<LogLine> failure;  // the manager's line then, if any
  unsigned int empty_result;     // its answer then
  unsigned int found_result;     // its answer when the real table holds the profile
  std::string exit;
  // What the table is asked; empty when the table's operation is not virtual.
  std::string asked;
  bool discards;  // the table's result is not passed on, as meant
};

inline std::ostream& operator<<(std::ostream& out, const Forwarding& forwarding) {
  return out << forwarding.name;
}

// Of `all`, those whose table operation is virtual.
inline std::vector<Forwarding> Virtual(const std::vector<std::vector<Forwarding>>& all) {
  std::vector<Forwarding> chosen;
  for (const std::vector<Forwarding>& group : all) {
    std::copy_if(group.begin(), group.end(), std::back_inserter(chosen),
                 [](const Forwarding& forwarding) { return !forwarding.asked.empty(); });
  }
  return chosen;
}

inline std::string NameOfForwarding(const ::testing::TestParamInfo<Forwarding>& info) {
  return info.param.name;
}

class ManagerTest : public TableTest {
 protected:
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();

  // The log since the last take; of the traces only the manager's own.
  std::vector<LogLine> TakeManagerLog() {
    std::vector<LogLine> logged;
    for (const LogLine& line : host.TakeLog()) {
      if (line.level != 10 || line.text.rfind("OnuAbilityTableManager::", 0) == 0) {
        logged.push_back(line);
      }
    }
    return logged;
  }
};

// Records what it is asked and answers `answer` to everything virtual.
class AnsweringTable : public OnuAbilityTableBase {
 public:
  using OnuAbilityTableBase::Add;
  using OnuAbilityTableBase::Get;

  unsigned int answer = 0;
  std::string asked;

  unsigned int Add(OnuAbilityProfile&) override { return Answer("Add"); }
  unsigned int Del(const OnuAbilityProfile&) override { return Answer("Del"); }
  unsigned int Del(ProfileSource source, unsigned int key) override {
    return Answer("Del source " + std::to_string(source) + " key " + std::to_string(key));
  }
  unsigned int DelAll(ProfileSource source) override {
    return Answer("DelAll source " + std::to_string(source));
  }
  unsigned int operator==(OnuAbilityProfile&) override { return Answer("operator=="); }
  unsigned int Get(ProfileSource source, unsigned short&) override {
    return Answer("Get source " + std::to_string(source) + " id");
  }
  unsigned int Get(ProfileSource source, unsigned int key,
                   std::vector<OnuAbilityProfile>&) override {
    return Answer("Get source " + std::to_string(source) + " key " + std::to_string(key) + " all");
  }
  unsigned int Get(ProfileSource source, unsigned int key, OnuAbilityProfile&) override {
    return Answer("Get source " + std::to_string(source) + " key " + std::to_string(key) + " one");
  }
  unsigned int Get(ProfileSource source, unsigned short type, OnuAbilityProfile&) override {
    return Answer("Get source " + std::to_string(source) + " type " + std::to_string(type) +
                  " one");
  }
  unsigned int Get(unsigned int key, unsigned short code, unsigned int&) override {
    return Answer("Get key " + std::to_string(key) + " code " + std::to_string(code) + " number");
  }
  unsigned int Get(unsigned int key, unsigned short code, std::string&) override {
    return Answer("Get key " + std::to_string(key) + " code " + std::to_string(code) + " string");
  }
  unsigned int Get(unsigned short type, unsigned short code, std::string&) override {
    return Answer("Get type " + std::to_string(type) + " code " + std::to_string(code) + " string");
  }
  unsigned int AddBindCount(unsigned int key) override {
    return Answer("AddBindCount key " + std::to_string(key));
  }
  unsigned int MinusBindCount(unsigned int key) override {
    return Answer("MinusBindCount key " + std::to_string(key));
  }

 private:
  unsigned int Answer(std::string question) {
    asked = std::move(question);
    return answer;
  }
};

// The checks that hold for every forwarding operation.
class ForwardingTest : public ManagerTest, public ::testing::WithParamInterface<Forwarding> {
 protected:
  unsigned int Call(ProfileType type) { return GetParam().call(manager, type); }

  // Without a table: entry line and miss line, no exit line.
  void ExpectMissBeforeInit() {
    host.ForgetLog();
    EXPECT_EQ(GetParam().miss_result, Call(kReal));
    std::vector<LogLine> expected = GetParam().entry;
    expected.push_back(Log(1, GetParam().miss));
    EXPECT_EQ(expected, TakeManagerLog());
    EXPECT_TRUE(manager._map_table.empty());
  }

  void ExpectMissForTypesWithoutTable() {
    InitTables();
    ForgetSetUp();
    EXPECT_EQ(GetParam().miss_result, Call(kNoType));
    EXPECT_EQ(GetParam().miss_result, Call(static_cast<ProfileType>(3)));
    EXPECT_TRUE(host.mutex_calls().empty());
    EXPECT_EQ(2U, manager._map_table.size());
  }

  // An empty table: every line in its place.
  void ExpectEmptyTable() {
    InitTables();
    ForgetSetUp();
    EXPECT_EQ(GetParam().empty_result, Call(kReal));
    std::vector<LogLine> expected = GetParam().entry;
    for (const auto* lines : {&GetParam().hit, &GetParam().table, &GetParam().failure}) {
      expected.insert(expected.end(), lines->begin(), lines->end());
    }
    expected.push_back(Log(10, GetParam().exit));
    EXPECT_EQ(expected, TakeManagerLog());
  }

  // A table that holds the profile: no failure line.
  void ExpectFound() {
    InitTables();
    AddToTable(With(With(MakeRealProfile(7, 70, kExternal), kFePorts, 74), kTypeName, "NAME"));
    ForgetSetUp();
    EXPECT_EQ(GetParam().found_result, Call(kReal));
    const std::vector<LogLine> log = TakeManagerLog();
    const size_t entry = GetParam().entry.size();
    ASSERT_LT(entry, log.size());
    EXPECT_TRUE(std::equal(GetParam().entry.begin(), GetParam().entry.end(), log.begin()));
    if (!GetParam().hit.empty()) {
      EXPECT_EQ(GetParam().hit.front(), log[entry]);
    }
    if (!GetParam().failure.empty()) {
      EXPECT_EQ(0, std::count(log.begin(), log.end(), GetParam().failure.back()));
    }
    EXPECT_EQ(Log(10, GetParam().exit), log.back());
  }

  // The table is asked with the arguments in the right places, and its result
  // comes back unchanged or is discarded.
  void ExpectAnswerOfTheTable() {
    AnsweringTable table;
    table.answer = 0x1234;
    manager._map_table[kReal] = &table;
    EXPECT_EQ(GetParam().discards ? 0U : 0x1234U, Call(kReal));
    EXPECT_EQ(GetParam().asked, table.asked);
    manager._map_table.clear();
  }
};

}  // namespace table_test

#endif  // TESTS_ONU_ABILITY_COMMON_TABLE_MANAGER_FIXTURE_H
