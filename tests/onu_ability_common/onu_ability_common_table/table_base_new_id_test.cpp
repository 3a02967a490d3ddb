// The ids that a table gives to new profiles: 30001 to 65533, per source.
#include "table_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kFirst = 30001;
constexpr unsigned short kLast = 65533;

class TableBaseNewIdTest : public TableTest {
 protected:
  // Stores profiles of `source` with all ids from kFirst to `last`.
  void PutIdsUpTo(unsigned short last, int source) {
    onu_ability_set_log_level_mask(0);
    OnuAbilityProfile profile = MakeProfile(kReal, source);
    table.profiles().reserve(last);
    for (unsigned int id = kFirst; id <= last; ++id) {
      profile._id = static_cast<unsigned short>(id);
      table.Put(profile);
    }
    onu_ability_set_log_level_mask(0xFFFFFFFFU);
    ForgetSetUp();
  }

  unsigned short NewId(ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
    unsigned short id = 1;
    EXPECT_EQ(kOk, table.Get(source, id));
    return id;
  }

  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseNewIdTest, EmptyTableGives30001AndLogsIt) {
  EXPECT_EQ(30001, NewId(kDefault));
  ExpectLog({Log(4, "index:30001")});
}

TEST_F(TableBaseNewIdTest, LowestGapIsTaken) {
  for (const unsigned short id : std::vector<unsigned short>{30003, 30001, 30005}) {
    table.Put(WithId(MakeProfile(kReal, kExternal), id));
  }
  ForgetSetUp();
  EXPECT_EQ(30002, NewId(kExternal));
  ExpectLog({Log(4, "index:30002")});
}

TEST_F(TableBaseNewIdTest, NewIdIsNotReserved) {
  EXPECT_EQ(30001, NewId(kExternal));
  EXPECT_EQ(30001, NewId(kExternal));
}

TEST_F(TableBaseNewIdTest, IdsOfTheOtherSourceDoNotBlock) {
  table.Put(WithId(MakeProfile(kReal, kDefault), 30001));
  EXPECT_EQ(30001, NewId(kExternal));
  EXPECT_EQ(30002, NewId(kDefault));
}

// As an id's owner, source 2 is a source like any other, not a filter.
TEST_F(TableBaseNewIdTest, SourceTwoEqualsNoSource) {
  table.Put(WithId(MakeProfile(kReal, kDefault), 30001));
  table.Put(WithId(MakeProfile(kReal, kExternal), 30001));
  EXPECT_EQ(30001, NewId(kAll));
}

TEST_F(TableBaseNewIdTest, IdsBelowTheRangeDoNotMatter) {
  table.Put(WithId(MakeProfile(kReal, kExternal), 30000));
  table.Put(WithId(MakeProfile(kReal, kExternal), 1));
  EXPECT_EQ(30001, NewId(kExternal));
}

TEST_F(TableBaseNewIdTest, LastIdIs65533) {
  PutIdsUpTo(kLast - 1, kExternal);
  EXPECT_EQ(65533, NewId(kExternal));
}

TEST_F(TableBaseNewIdTest, AllIdsOfOneSourceTakenGives65535AndLeavesTheOtherSource30001) {
  PutIdsUpTo(kLast, kExternal);
  EXPECT_EQ(65535, NewId(kExternal));
  ExpectLog({Log(4, "index:65535")});
  EXPECT_EQ(30001, NewId(kDefault));
}

}  // namespace
}  // namespace table_test
