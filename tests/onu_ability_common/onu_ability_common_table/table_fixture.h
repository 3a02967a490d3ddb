// What the tests of the tables share: a table opened up, builders of stored
// profiles, and the comparison of a whole log with an expectation.
#ifndef TESTS_ONU_ABILITY_COMMON_TABLE_FIXTURE_H
#define TESTS_ONU_ABILITY_COMMON_TABLE_FIXTURE_H

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace table_test {

constexpr auto kNoType = ONU_ABILITY_PROFILE_TYPE_NONE;
constexpr auto kReal = ONU_ABILITY_PROFILE_TYPE_REAL;
constexpr auto kMatch = ONU_ABILITY_PROFILE_TYPE_MATCH;

constexpr auto kDefault = ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
constexpr auto kExternal = ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
constexpr auto kAll = ONU_ABILITY_PROFILE_SOURCE_ALL;

constexpr unsigned int kOk = 0;
constexpr unsigned int kInvalidParam = 0x80000002U;
constexpr unsigned int kOperateFailed = 0x80000003U;
constexpr unsigned int kNotFound = 0x80000004U;

constexpr unsigned short kFePorts = 1010;
constexpr unsigned short kPowerLamp = 1030;
constexpr unsigned short kRealType = 1081;
constexpr unsigned short kTypeName = 1083;
constexpr unsigned short kKeyValue = 1085;

// The registry's own line for an ability name that another line prints.
inline LogLine NameAsked(unsigned short code, const std::string& name) {
  return Log(
      9, "ability_code is equal!ability_code:" + std::to_string(code) + ", ability_name:" + name);
}
inline LogLine KeyNameAsked() { return NameAsked(kKeyValue, "KEY_VALUE"); }
inline LogLine PortsNameAsked() { return NameAsked(kFePorts, "FE_PORTS"); }
inline LogLine TypeNameAsked() { return NameAsked(kTypeName, "TYPE_NAME"); }

inline OnuAbilityProfile With(OnuAbilityProfile profile, unsigned short code, unsigned int value) {
  profile.UpdateInit(code, value);
  return profile;
}

inline OnuAbilityProfile With(OnuAbilityProfile profile, unsigned short code,
                              const std::string& value) {
  profile.UpdateInit(code, value);
  return profile;
}

inline OnuAbilityProfile WithId(OnuAbilityProfile profile, unsigned short id) {
  profile._id = id;
  return profile;
}

inline std::vector<unsigned short> IdsOf(const std::vector<OnuAbilityProfile>& profiles) {
  std::vector<unsigned short> ids;
  std::transform(profiles.begin(), profiles.end(), std::back_inserter(ids),
                 [](const OnuAbilityProfile& profile) { return profile._id; });
  return ids;
}

inline unsigned int NumberOf(const OnuAbilityProfile& profile, unsigned short code) {
  const auto found = profile._common_ability.find(code);
  return found == profile._common_ability.end() ? 0xDEADU : found->second.ability_ushort_value;
}

inline std::string TextOf(const OnuAbilityProfile& profile, unsigned short code) {
  const auto found = profile._common_ability.find(code);
  return found == profile._common_ability.end() ? "(absent)" : found->second.ability_string_value;
}

// A table whose profiles a test stores and reads without the operations under
// test, and without its lock: a test has one thread.
template <class Table>
class OpenTable : public Table {
 public:
  std::vector<OnuAbilityProfile>& profiles() ONU_ABILITY_NOT_ANALYSED { return this->_vec_profile; }
  CMutexLock& mutex() { return this->_mutex; }
  void Put(const OnuAbilityProfile& profile) ONU_ABILITY_NOT_ANALYSED {
    this->_vec_profile.push_back(profile);
  }
};

class TableTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    ForgetSetUp();
  }

  void ForgetSetUp() {
    host.ForgetLog();
    host.ForgetMutexCalls();
  }

  // Compares everything logged since the last take with `expected`. Of the
  // traces (level 10) only those count that `expected` names.
  void ExpectLog(const std::vector<LogLine>& expected) {
    std::vector<LogLine> logged;
    for (const LogLine& line : host.TakeLog()) {
      if (line.level != 10 || std::count(expected.begin(), expected.end(), line) != 0) {
        logged.push_back(line);
      }
    }
    EXPECT_EQ(expected, logged);
  }

  // The lock of `table` was taken once, without limit, and released.
  template <class Table>
  void ExpectLockedOnce(OpenTable<Table>& table) {
    const std::vector<MutexCall>& calls = host.mutex_calls();
    ASSERT_EQ(2U, calls.size());
    EXPECT_EQ(MutexCall::kLock, calls[0].kind);
    EXPECT_EQ(&table.mutex(), calls[0].mutex);
    EXPECT_EQ(-1, calls[0].wait_limit);
    EXPECT_EQ(nullptr, calls[0].file);
    EXPECT_EQ(0U, calls[0].line);
    EXPECT_EQ(MutexCall::kUnlock, calls[1].kind);
    EXPECT_EQ(&table.mutex(), calls[1].mutex);
    EXPECT_EQ(nullptr, calls[1].file);
    EXPECT_EQ(0U, calls[1].line);
    host.ForgetMutexCalls();
  }
};

}  // namespace table_test

#endif  // TESTS_ONU_ABILITY_COMMON_TABLE_FIXTURE_H
