// Emptying a table by source.
#include "table_fixture.h"

namespace table_test {
namespace {

using Ids = std::vector<unsigned short>;

class TableBaseDeletionTest : public TableTest {
 protected:
  // Ids 1 to 6, of sources 0 0 1 0 1 1.
  void SetUp() override {
    TableTest::SetUp();
    unsigned short id = 0;
    for (const int source : {0, 0, 1, 0, 1, 1}) {
      table.Put(WithId(MakeProfile(kReal, source), ++id));
    }
    ForgetSetUp();
  }

  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseDeletionTest, ProfilesOfOneSourceGoTheOthersKeepTheirOrder) {
  EXPECT_EQ(kOk, table.DelAll(kDefault));
  EXPECT_EQ((Ids{3, 5, 6}), IdsOf(table.profiles()));
}

TEST_F(TableBaseDeletionTest, NeighboursOfOneSourceAllGo) {
  EXPECT_EQ(kOk, table.DelAll(kExternal));
  EXPECT_EQ((Ids{1, 2, 4}), IdsOf(table.profiles()));
}

// Deleting wants an equal source: 2 is no filter here.
TEST_F(TableBaseDeletionTest, SourceTwoDeletesNothing) {
  EXPECT_EQ(kOk, table.DelAll(kAll));
  EXPECT_EQ((Ids{1, 2, 3, 4, 5, 6}), IdsOf(table.profiles()));
}

TEST_F(TableBaseDeletionTest, NothingToDeleteIsSuccess) {
  table.profiles().clear();
  EXPECT_EQ(kOk, table.DelAll(kDefault));
}

TEST_F(TableBaseDeletionTest, BoundProfilesGoToo) {
  table.profiles()[0]._bind_count = 3;
  EXPECT_EQ(kOk, table.DelAll(kDefault));
  EXPECT_EQ((Ids{3, 5, 6}), IdsOf(table.profiles()));
}

TEST_F(TableBaseDeletionTest, DeletionIsTracedAndLogsNothingElse) {
  EXPECT_EQ(kOk, table.DelAll(kDefault));
  ExpectLog({Log(10, "OnuAbilityTableBase::Del All profile start!"),
             Log(10, "OnuAbilityTableBase::Del All profile end!")});
}

// Later profiles move down by assignment, which leaves a profile's key ability
// code where it is.
TEST_F(TableBaseDeletionTest, KeyCodesStayInTheirPlaces) {
  table.profiles().clear();
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(5);
  table.Put(WithId(MakeProfile(kReal, kDefault), 1));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(7);
  table.Put(WithId(MakeProfile(kReal, kExternal), 2));
  EXPECT_EQ(kOk, table.DelAll(kDefault));
  ASSERT_EQ((Ids{2}), IdsOf(table.profiles()));
  EXPECT_EQ(5, table.profiles()[0]._key_ability_code);
}

}  // namespace
}  // namespace table_test
