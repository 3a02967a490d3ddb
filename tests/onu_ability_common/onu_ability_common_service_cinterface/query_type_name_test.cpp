// Asking for an ONU type name, by key ability value and by real type. Both ways
// obey the same rules, so most tests run for both.
#include <cstring>

#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

constexpr unsigned int kKey = 70000;  // 4464 in its low 16 bits
constexpr unsigned short kType = 700;
const char kName[] = "ABCDEFGHIJKLMNOPQRST";  // 20 characters

struct NameQuery {
  const char* name;
  unsigned int (*known)(char* buffer, unsigned int size);
  unsigned int (*unknown)(char* buffer, unsigned int size);
  const char* failure;  // the line of `known`
};

std::ostream& operator<<(std::ostream& out, const NameQuery& query) { return out << query.name; }

unsigned int ByKey(char* buffer, unsigned int size) {
  return onu_ability_get_onu_type_name_by_key_value(kKey, buffer, size);
}
unsigned int ByUnknownKey(char* buffer, unsigned int size) {
  return onu_ability_get_onu_type_name_by_key_value(9, buffer, size);
}
unsigned int ByType(char* buffer, unsigned int size) {
  return onu_ability_get_onu_type_name_by_realtype(kType, buffer, size);
}
unsigned int ByUnknownType(char* buffer, unsigned int size) {
  return onu_ability_get_onu_type_name_by_realtype(9, buffer, size);
}

class QueryTypeNameTest : public LibraryTest, public ::testing::WithParamInterface<NameQuery> {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    std::memset(buffer, '#', sizeof(buffer));
    host.ForgetLog();
  }

  void AddNamed(const std::string& name, int source = 0) {
    OnuAbilityProfile profile = MakeRealProfile(kKey, kType, source);
    profile.UpdateInit(1083, name);
    AddToTable(profile);
    host.ForgetLog();
  }

  void ExpectUntouched() { EXPECT_EQ(std::string(sizeof(buffer), '#'), Bytes(sizeof(buffer))); }

  std::string Bytes(size_t count) { return std::string(buffer, count); }

  char buffer[32];
};

TEST_P(QueryTypeNameTest, NameOfTwentyCharactersIsCutToABufferOfEight) {
  InitTables();
  AddNamed(kName);
  host.ForgetMemoryCalls();
  EXPECT_EQ(0U, GetParam().known(buffer, 8));
  EXPECT_EQ(std::string("ABCDEFG\0#", 9), Bytes(9));
  EXPECT_TRUE(host.ClaimLog(5, "onu_type_name:ABCDEFG"));
  ASSERT_EQ(1U, host.memory_calls().size());
  EXPECT_EQ("bep_memCpyEx", host.memory_calls()[0].name);
  EXPECT_EQ(7U, host.memory_calls()[0].count);
}

TEST_P(QueryTypeNameTest, NameThatFitsIsCopiedWhole) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(0U, GetParam().known(buffer, sizeof(buffer)));
  EXPECT_STREQ(kName, buffer);
  EXPECT_EQ('#', buffer[21]);
  EXPECT_TRUE(host.ClaimLog(5, "onu_type_name:ABCDEFGHIJKLMNOPQRST"));
}

TEST_P(QueryTypeNameTest, SizeCountsTheTerminator) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(0U, GetParam().known(buffer, 21));
  EXPECT_STREQ(kName, buffer);
  EXPECT_EQ(0U, GetParam().known(buffer, 20));
  EXPECT_STREQ("ABCDEFGHIJKLMNOPQRS", buffer);
}

TEST_P(QueryTypeNameTest, SizeOneGivesAnEmptyName) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(0U, GetParam().known(buffer, 1));
  EXPECT_EQ(std::string("\0#", 2), Bytes(2));
  EXPECT_TRUE(host.ClaimLog(5, "onu_type_name:"));
}

// Meant: a size of 0 is not guarded.
TEST_P(QueryTypeNameTest, SizeZeroCopiesTheWholeName) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(0U, GetParam().known(buffer, 0));
  EXPECT_STREQ(kName, buffer);
}

TEST_P(QueryTypeNameTest, EmptyStoredNameIsASuccess) {
  InitTables();
  AddNamed("");
  EXPECT_EQ(0U, GetParam().known(buffer, sizeof(buffer)));
  EXPECT_EQ(std::string("\0#", 2), Bytes(2));
}

TEST_P(QueryTypeNameTest, NewestProfileOfAnySourceAnswers) {
  InitTables();
  AddNamed("OLD", 1);
  AddNamed("NEW", 0);
  EXPECT_EQ(0U, GetParam().known(buffer, sizeof(buffer)));
  EXPECT_STREQ("NEW", buffer);
}

TEST_P(QueryTypeNameTest, NullBufferIsRefusedAndTheManagerNotAsked) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(ONU_ABILITY_RET_NULL_PTR, GetParam().known(nullptr, 8));
  EXPECT_EQ((std::vector<LogLine>{Log(13, "p_onu_type_name is null!")}),
            host.TakeLogWithoutTraces());
}

TEST_P(QueryTypeNameTest, UnknownProfileLeavesTheBufferUntouched) {
  InitTables();
  AddNamed(kName);
  EXPECT_EQ(ONU_ABILITY_RET_NOT_FOUND, GetParam().unknown(buffer, sizeof(buffer)));
  ExpectUntouched();
}

// The manager's status is 0x80000003 here.
TEST_P(QueryTypeNameTest, ProfileWithoutNameIsNotFound) {
  InitTables();
  AddToTable(MakeRealProfile(kKey, kType));
  host.ForgetLog();
  EXPECT_EQ(ONU_ABILITY_RET_NOT_FOUND, GetParam().known(buffer, sizeof(buffer)));
  ExpectUntouched();
  const std::vector<LogLine> log = host.TakeLogWithoutTraces();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(Log(1, GetParam().failure), log.back());
}

// The manager's status is 0x80000002 here.
TEST_P(QueryTypeNameTest, BeforeInitIsNotFound) {
  EXPECT_EQ(ONU_ABILITY_RET_NOT_FOUND, GetParam().known(buffer, sizeof(buffer)));
  ExpectUntouched();
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!profile_type:1"));
  EXPECT_TRUE(host.ClaimLog(1, GetParam().failure));
}

TEST_P(QueryTypeNameTest, MatchProfilesAreNotAsked) {
  InitTables();
  OnuAbilityProfile profile = MakeMatchProfile(kKey, kType);
  profile.UpdateInit(1083, kName);
  AddToTable(profile);
  EXPECT_EQ(ONU_ABILITY_RET_NOT_FOUND, GetParam().known(buffer, sizeof(buffer)));
}

std::string NameOf(const ::testing::TestParamInfo<NameQuery>& info) { return info.param.name; }

// The failure line prints a key value's low 16 bits.
INSTANTIATE_TEST_SUITE_P(
    BothWays, QueryTypeNameTest,
    ::testing::Values(NameQuery{"ByKeyValue", ByKey, ByUnknownKey,
                                "onu_ability_get_onu_type_name failed!key_ability_value:4464"},
                      NameQuery{"ByRealType", ByType, ByUnknownType,
                                "onu_ability_get_onu_type_name failed!onu_real_type:700"}),
    NameOf);

}  // namespace
