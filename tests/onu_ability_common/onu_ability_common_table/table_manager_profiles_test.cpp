// Storing, deleting and matching whole profiles through the manager.
#include "manager_fixture.h"

namespace table_test {
namespace {

using Ids = std::vector<unsigned short>;

class TableManagerProfilesTest : public ManagerTest {
 protected:
  void SetUp() override {
    ManagerTest::SetUp();
    InitTables();
    ForgetSetUp();
  }

  unsigned int AddWithId(OnuAbilityProfile profile, unsigned short id) {
    profile._id = id;
    return manager.Add(profile);
  }
};

LogLine Trace(const std::string& text) { return Log(10, "OnuAbilityTableManager::" + text); }

TEST_F(TableManagerProfilesTest, RealProfileOfSourceOneWithIdZeroIsStoredWithId30001) {
  OnuAbilityProfile profile = MakeRealProfile(7, 70, kExternal);
  EXPECT_EQ(kOk, manager.Add(profile));
  EXPECT_EQ(30001, profile._id);
  EXPECT_EQ((Ids{30001}), IdsOf(TableOf(kReal)));
}

TEST_F(TableManagerProfilesTest, MatchProfileWithId65535GetsANewId) {
  OnuAbilityProfile profile = MakeMatchProfile(7, 70);
  ASSERT_EQ(65535, profile._id);
  EXPECT_EQ(kOk, manager.Add(profile));
  EXPECT_EQ(30001, profile._id);
  EXPECT_EQ((Ids{30001}), IdsOf(TableOf(kMatch)));
}

// A table of the host's own, which numbers its profiles as it likes.
class NumberingTable : public OnuRealAbilityTable {
 public:
  using OnuRealAbilityTable::Get;
  unsigned int Get(ONU_ABILITY_ENUM_PROFILE_SOURCE, unsigned short& id) override {
    id = next;
    return kOk;
  }
  unsigned short next = 40000;
};

TEST_F(TableManagerProfilesTest, HostsOwnTableGivesItsOwnIds) {
  auto* table = new NumberingTable;  // the manager's, as all that it holds
  manager.DelOnuAbilityTable(kReal);
  manager._map_table[kReal] = table;
  OnuAbilityProfile first = MakeRealProfile(7, 70, kExternal);
  EXPECT_EQ(kOk, manager.Add(first));
  EXPECT_EQ(40000, first._id);
  // The same from another source is another's; the same from this one cannot be.
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(8, 80, kDefault), 0));
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(9, 90, kExternal), 0));
  table->next = 30005;
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(10, 100, kExternal), 0));
  EXPECT_EQ((Ids{40000, 40000, 30001, 30005}), IdsOf(TableOf(kReal)));
}

TEST_F(TableManagerProfilesTest, NewIdsCountPerTypeAndSource) {
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(1, 10, kExternal), 0));
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(2, 20, kExternal), 65535));
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(3, 30, kDefault), 0));
  EXPECT_EQ(kOk, AddWithId(MakeMatchProfile(4, 40, kExternal), 0));
  EXPECT_EQ((Ids{30001, 30002, 30001}), IdsOf(TableOf(kReal)));
  EXPECT_EQ((Ids{30001}), IdsOf(TableOf(kMatch)));
}

TEST_F(TableManagerProfilesTest, ValidIdIsKept) {
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(1, 10), 1));
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(2, 20), 65534));
  EXPECT_EQ((Ids{1, 65534}), IdsOf(TableOf(kReal)));
}

TEST_F(TableManagerProfilesTest, AddLogsTheTypeDerivesCountsAndFetchesAnIdInThisOrder) {
  OnuAbilityProfile profile = MakeProfile(kReal, kDefault);
  ForgetSetUp();
  EXPECT_EQ(kOk, manager.Add(profile));
  EXPECT_EQ((std::vector<LogLine>{Trace("Add start!"), Log(4, "profile_type:1"),
                                  Log(6, "all_lan_num:0"), Log(6, "data_uni_total_num:0"),
                                  Trace("GetNewId start!"), Log(9, "profile_type valid!"),
                                  Log(4, "index:30001"), Trace("GetNewId end!"),
                                  Log(9, "profile_type valid!"), Trace("Add end!")}),
            TakeManagerLog());
}

TEST_F(TableManagerProfilesTest, AddDerivesTheCountsOfTheCallersProfile) {
  OnuAbilityProfile profile = With(MakeRealProfile(7, 70), kFePorts, 4);
  ASSERT_EQ(0U, profile._common_ability.count(ONU_ABILITY_CODE_ALL_LAN));
  EXPECT_EQ(kOk, manager.Add(profile));
  EXPECT_EQ(4U, NumberOf(profile, ONU_ABILITY_CODE_ALL_LAN));
  EXPECT_EQ(4U, NumberOf(profile, ONU_ABILITY_CODE_DATA_UNI));
  EXPECT_EQ(4U, NumberOf(TableOf(kReal)[0], ONU_ABILITY_CODE_ALL_LAN));
}

// Neither the missing table nor the missing id keeps the first steps from
// running; only the missing table is reported.
TEST_F(TableManagerProfilesTest, AddWithoutTableDerivesCountsAndLeavesTheId) {
  OnuAbilityProfile profile = With(MakeProfile(kReal), kFePorts, 4);
  profile._profile_type = kNoType;
  ForgetSetUp();
  EXPECT_EQ(kInvalidParam, manager.Add(profile));
  EXPECT_EQ(0, profile._id);
  EXPECT_EQ(4U, NumberOf(profile, ONU_ABILITY_CODE_ALL_LAN));
  EXPECT_EQ((std::vector<LogLine>{Log(1, "profile_type is out of range!"),
                                  Log(1, "profile_type is out of range!")}),
            host.TakeLog({1}));
}

TEST_F(TableManagerProfilesTest, RefusalOfTheRealTableIsPassedOnWithTheIdAlreadyGiven) {
  EXPECT_EQ(kOk, AddWithId(MakeRealProfile(7, 70, kExternal), 0));
  OnuAbilityProfile duplicate = MakeRealProfile(7, 71, kExternal);
  ForgetSetUp();
  EXPECT_EQ(kOperateFailed, manager.Add(duplicate));
  EXPECT_EQ(30002, duplicate._id);
  EXPECT_EQ(1U, TableOf(kReal).size());
  EXPECT_TRUE(host.ClaimLog(10, "OnuAbilityTableManager::Add end!"));
}

TEST_F(TableManagerProfilesTest, DelOfAProfileThatIsNotStoredReturnsZero) {
  OnuAbilityProfile profile = MakeRealProfile(7, 70);
  EXPECT_EQ(kOk, manager.Del(profile));
  EXPECT_TRUE(host.ClaimLog(1, "DeleteItem of OnuRealAbilityTable failed!"));
  OnuAbilityProfile pattern = WithId(MakeMatchProfile(7, 70), 5);
  EXPECT_EQ(kOk, manager.Del(pattern));
  EXPECT_TRUE(host.ClaimLog(1, "(Del)find null!id:5"));
}

TEST_F(TableManagerProfilesTest, DelByKeyValueThatIsNotStoredReturnsZero) {
  EXPECT_EQ(kOk, manager.Del(kDefault, kReal, 7U));
  EXPECT_TRUE(host.ClaimLog(1, "DeleteItem of OnuRealAbilityTable failed!"));
}

// The match table knows no deletion by key value, and reports success.
TEST_F(TableManagerProfilesTest, DelOfAMatchProfileByKeyValueDeletesNothing) {
  AddToTable(MakeMatchProfile(7, 70));
  EXPECT_EQ(kOk, manager.Del(kDefault, kMatch, 7U));
  EXPECT_EQ(1U, TableOf(kMatch).size());
}

TEST_F(TableManagerProfilesTest, DelTakesTheTableOfTheProfilesType) {
  AddToTable(WithId(MakeRealProfile(7, 70), 5));
  AddToTable(WithId(MakeMatchProfile(7, 70), 5));
  OnuAbilityProfile pattern = WithId(MakeMatchProfile(1, 10), 5);
  EXPECT_EQ(kOk, manager.Del(pattern));
  EXPECT_EQ(1U, TableOf(kReal).size());
  EXPECT_TRUE(TableOf(kMatch).empty());
  EXPECT_EQ(kOk, manager.Del(kDefault, kReal, 7U));
  EXPECT_TRUE(TableOf(kReal).empty());
}

// Deriving the counts first lets a profile be found by them.
TEST_F(TableManagerProfilesTest, DelDerivesTheCountsBeforeItSearches) {
  AddToTable(With(MakeMatchProfile(7, 70), kFePorts, 4));
  OnuAbilityProfile profile = With(MakeMatchProfile(7, 70), kFePorts, 4);
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  EXPECT_EQ(kOk, manager.Del(profile));
  EXPECT_TRUE(TableOf(kMatch).empty());
  EXPECT_EQ(4U, NumberOf(profile, ONU_ABILITY_CODE_ALL_LAN));
}

TEST_F(TableManagerProfilesTest, DelAllEmptiesOneTableOfOneSource) {
  AddToTable(MakeRealProfile(1, 10, kDefault));
  AddToTable(MakeRealProfile(2, 20, kExternal));
  AddToTable(MakeMatchProfile(3, 30, kExternal));
  EXPECT_EQ(kOk, manager.DelAll(kExternal, kReal));
  ASSERT_EQ(1U, TableOf(kReal).size());
  EXPECT_EQ(kDefault, TableOf(kReal)[0]._profile_source);
  EXPECT_EQ(1U, TableOf(kMatch).size());
}

TEST_F(TableManagerProfilesTest, DelAllOfTypeThreeIsInvalidAndChangesNothing) {
  AddToTable(MakeRealProfile(1, 10, kExternal));
  AddToTable(MakeMatchProfile(3, 30, kExternal));
  EXPECT_EQ(kInvalidParam, manager.DelAll(kExternal, static_cast<ProfileType>(3)));
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!"));
  EXPECT_EQ(1U, TableOf(kReal).size());
  EXPECT_EQ(1U, TableOf(kMatch).size());
}

TEST_F(TableManagerProfilesTest, MatchOverwritesAReportThatFitsAPattern) {
  AddToTable(With(MakeMatchProfile(7, 70), kFePorts, 4));
  OnuAbilityProfile report = With(MakeProfile(kMatch), kFePorts, 4);
  ForgetSetUp();
  EXPECT_EQ(1U, manager == report);
  EXPECT_EQ(7U, NumberOf(report, kKeyValue));
  EXPECT_EQ(30001, report._id);
  EXPECT_TRUE(host.ClaimLog(10, "OnuAbilityTableManager::operator== end!ret:0x1"));
}

TEST_F(TableManagerProfilesTest, MatchAnswersNoForAReportThatFitsNone) {
  AddToTable(With(MakeMatchProfile(7, 70), kFePorts, 4));
  OnuAbilityProfile report = With(MakeProfile(kMatch), kFePorts, 8);
  ForgetSetUp();
  EXPECT_EQ(0U, manager == report);
  EXPECT_EQ(0U, report._common_ability.count(kKeyValue));
  EXPECT_TRUE(host.ClaimLog(10, "OnuAbilityTableManager::operator== end!ret:0x0"));
}

// Meant: the real table keeps the base's answer.
TEST_F(TableManagerProfilesTest, MatchOfARealProfileIsYesWithoutLooking) {
  OnuAbilityProfile profile = MakeRealProfile(7, 70);
  ForgetSetUp();
  EXPECT_EQ(1U, manager == profile);
  EXPECT_TRUE(host.mutex_calls().empty());
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_NONE, profile._flag_match_type);
}

TEST_F(TableManagerProfilesTest, BindCountsOfMatchProfilesAreInert) {
  AddToTable(MakeMatchProfile(7, 70, kExternal));
  EXPECT_EQ(kOk, manager.AddBindCount(kMatch, 7U));
  EXPECT_EQ(kOk, manager.MinusBindCount(kMatch, 8U));
  EXPECT_EQ(0U, TableOf(kMatch)[0]._bind_count);
}

TEST_F(TableManagerProfilesTest, BindCountKeepsARealProfileFromDeletion) {
  AddToTable(MakeRealProfile(7, 70, kExternal));
  EXPECT_EQ(kOk, manager.AddBindCount(kReal, 7U));
  EXPECT_EQ(1U, TableOf(kReal)[0]._bind_count);
  EXPECT_EQ(kOk, manager.Del(kExternal, kReal, 7U));
  EXPECT_EQ(1U, TableOf(kReal).size());
  EXPECT_EQ(kOk, manager.MinusBindCount(kReal, 7U));
  EXPECT_EQ(kOk, manager.Del(kExternal, kReal, 7U));
  EXPECT_TRUE(TableOf(kReal).empty());
}

}  // namespace
}  // namespace table_test
