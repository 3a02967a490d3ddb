// What the manager's lookups write to their outputs, and its copies of a whole
// table.
#include "manager_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kType = 70;

class TableManagerOutputsTest : public ManagerTest {
 protected:
  // A real profile of each source with key value 7 and type 70, and a match
  // profile.
  void SetUp() override {
    ManagerTest::SetUp();
    InitTables();
    AddToTable(With(With(MakeRealProfile(7, kType, kDefault), kFePorts, 1), kTypeName, "OLD"));
    AddToTable(With(With(MakeRealProfile(7, kType, kExternal), kFePorts, 2), kTypeName, "NEW"));
    AddToTable(With(With(MakeMatchProfile(7, kType), kFePorts, 3), kTypeName, "PATTERN"));
    ForgetSetUp();
  }
};

TEST_F(TableManagerOutputsTest, OutputsComeFromTheTableOfTheType) {
  unsigned int number = 0;
  EXPECT_EQ(kOk, manager.Get(kReal, 7U, kFePorts, number));
  EXPECT_EQ(2U, number);
  EXPECT_EQ(kOk, manager.Get(kMatch, 7U, kFePorts, number));
  EXPECT_EQ(3U, number);
  EXPECT_EQ(kOk, manager.Get(kReal, kType, kFePorts, number));
  EXPECT_EQ(2U, number);
  std::string text;
  EXPECT_EQ(kOk, manager.Get(kReal, 7U, kTypeName, text));
  EXPECT_EQ("NEW", text);
  EXPECT_EQ(kOk, manager.Get(kMatch, kType, kTypeName, text));
  EXPECT_EQ("PATTERN", text);
  OnuAbilityProfile profile;
  EXPECT_EQ(kOk, manager.Get(kReal, kDefault, 7U, profile));
  EXPECT_EQ("OLD", TextOf(profile, kTypeName));
  EXPECT_EQ(kOk, manager.Get(kMatch, kAll, kType, profile));
  EXPECT_EQ("PATTERN", TextOf(profile, kTypeName));
  std::vector<OnuAbilityProfile> profiles;
  EXPECT_EQ(kOk, manager.Get(kReal, kAll, 7U, profiles));
  ASSERT_EQ(2U, profiles.size());
  EXPECT_EQ("NEW", TextOf(profiles[0], kTypeName));
  EXPECT_EQ(kOk, manager.Get(kReal, kDefault, kType, profiles));
  ASSERT_EQ(1U, profiles.size());
  EXPECT_EQ("OLD", TextOf(profiles[0], kTypeName));
}

TEST_F(TableManagerOutputsTest, OutputsOfAMissAreTheTables) {
  unsigned int number = 55;
  EXPECT_EQ(kNotFound, manager.Get(kReal, 9U, kFePorts, number));
  EXPECT_EQ(0U, number);
  std::string text = "before";
  EXPECT_EQ(kNotFound, manager.Get(kReal, 9U, kTypeName, text));
  EXPECT_EQ("NULL", text);
  EXPECT_EQ(kOperateFailed, manager.Get(kReal, 7U, kPowerLamp, number));
}

TEST_F(TableManagerOutputsTest, OutputsStayWhenTheTypeHasNoTable) {
  unsigned int number = 55;
  std::string text = "before";
  OnuAbilityProfile profile = WithId(OnuAbilityProfile(), 9);
  std::vector<OnuAbilityProfile> profiles(2);
  unsigned short id = 8;
  EXPECT_EQ(kInvalidParam, manager.Get(kNoType, 7U, kFePorts, number));
  EXPECT_EQ(kInvalidParam, manager.Get(kNoType, 7U, kTypeName, text));
  EXPECT_EQ(kInvalidParam, manager.Get(kNoType, kAll, 7U, profile));
  EXPECT_EQ(kInvalidParam, manager.Get(kNoType, kAll, kType, profiles));
  EXPECT_EQ(kInvalidParam, manager.Get(kNoType, kAll, id));
  EXPECT_EQ(55U, number);
  EXPECT_EQ("before", text);
  EXPECT_EQ(9, profile._id);
  EXPECT_EQ(2U, profiles.size());
  EXPECT_EQ(8, id);
}

TEST_F(TableManagerOutputsTest, ProfileTypeIsInTheLineOfAnUnknownOne) {
  unsigned int number = 0;
  EXPECT_EQ(kInvalidParam, manager.Get(static_cast<ProfileType>(-1), 7U, kFePorts, number));
  EXPECT_TRUE(host.ClaimLog(1, "profile_type is out of range!profile_type:-1"));
}

// No table of the library fails to give an id; the line stands for one that does.
TEST_F(TableManagerOutputsTest, FailedNewIdIsLogged) {
  AnsweringTable table;
  table.answer = 0x1234;
  OnuAbilityTableBase* real = manager._map_table[kReal];
  manager._map_table[kReal] = &table;
  unsigned short id = 0;
  ForgetSetUp();
  EXPECT_EQ(0x1234U, manager.Get(kReal, kExternal, id));
  EXPECT_EQ((std::vector<LogLine>{
                Log(10, "OnuAbilityTableManager::GetNewId start!"), Log(9, "profile_type valid!"),
                Log(4, "GetOnuAllAbilityValue failed!profile_source:1, ret:0x1234"),
                Log(10, "OnuAbilityTableManager::GetNewId end!")}),
            TakeManagerLog());
  onu_ability_set_log_level_mask(0);
  EXPECT_EQ(0x1234U, manager.Get(kReal, kExternal, id)) << "heard or not";
  onu_ability_set_log_level_mask(0xFFFFFFFFU);
  manager._map_table[kReal] = real;
}

TEST_F(TableManagerOutputsTest, AllProfilesOfATypeAreCopiedWithoutALine) {
  std::vector<OnuAbilityProfile> profiles;
  manager.GetAll(kReal, kAll, profiles);
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
  EXPECT_EQ(2U, host.mutex_calls().size());
  ASSERT_EQ(2U, profiles.size());
  EXPECT_EQ("OLD", TextOf(profiles[0], kTypeName));
  EXPECT_EQ("NEW", TextOf(profiles[1], kTypeName));
  manager.GetAll(kReal, kExternal, profiles);
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog()) << "of what was there before, too";
  ASSERT_EQ(1U, profiles.size());
  EXPECT_EQ("NEW", TextOf(profiles[0], kTypeName));
  manager.GetAll(kMatch, kDefault, profiles);
  ASSERT_EQ(1U, profiles.size());
  EXPECT_EQ("PATTERN", TextOf(profiles[0], kTypeName));
}

TEST_F(TableManagerOutputsTest, AllProfilesOfATypeWithoutTableAreNone) {
  std::vector<OnuAbilityProfile> profiles(1);
  host.ForgetLog();
  manager.GetAll(kNoType, kAll, profiles);
  EXPECT_TRUE(profiles.empty());
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
}

}  // namespace
}  // namespace table_test
