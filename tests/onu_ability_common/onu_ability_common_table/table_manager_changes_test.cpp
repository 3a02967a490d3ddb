// How the manager forwards changes and yes/no questions: lines and results for
// a type without a table, an empty table and a table that holds the profile.
#include "manager_fixture.h"

namespace table_test {
namespace {

OnuAbilityProfile ProfileOf(ProfileType type) {
  OnuAbilityProfile profile;
  profile._profile_type = type;
  profile._id = 5;
  return profile;
}

unsigned int AddProfile(OnuAbilityTableManager& manager, ProfileType type) {
  OnuAbilityProfile profile = ProfileOf(type);
  return manager.Add(profile);
}

unsigned int DelProfile(OnuAbilityTableManager& manager, ProfileType type) {
  OnuAbilityProfile profile = ProfileOf(type);
  return manager.Del(profile);
}

unsigned int MatchProfile(OnuAbilityTableManager& manager, ProfileType type) {
  OnuAbilityProfile profile = ProfileOf(type);
  return manager == profile;
}

unsigned int DelByKey(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.Del(kExternal, type, 7U);
}

unsigned int DelAll(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.DelAll(kExternal, type);
}

unsigned int AddNumber(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.Add(type, kExternal, 7U, kFePorts, 74U);
}

unsigned int AddString(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.Add(type, kExternal, 7U, kTypeName, std::string("NAME"));
}

unsigned int KeyExists(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.IsExist(type, kAll, 7U);
}

unsigned int ValueIsEqual(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.IsEqual(type, kAll, kFePorts, 74U);
}

unsigned int AddBindCount(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.AddBindCount(type, 7U);
}

unsigned int MinusBindCount(OnuAbilityTableManager& manager, ProfileType type) {
  return manager.MinusBindCount(type, 7U);
}

LogLine Trace(const std::string& text) { return Log(10, "OnuAbilityTableManager::" + text); }

const LogLine kNoLan = Log(6, "all_lan_num:0");
const LogLine kNoDataUni = Log(6, "data_uni_total_num:0");
const LogLine kNothingDeleted = Log(1, "DeleteItem of OnuRealAbilityTable failed!");
const LogLine kNothingBound = Log(1, "find null in OnuRealAbilityTable!key_ability_value:7");

std::vector<Forwarding> ProfileChanges() {
  return {
      {"AddProfile",
       AddProfile,
       {Trace("Add start!"), Log(4, "profile_type:1"), kNoLan, kNoDataUni},
       "profile_type is out of range!",
       kInvalidParam,
       {Log(9, "profile_type valid!")},
       {},
       {},
       kOk,
       kOk,
       "OnuAbilityTableManager::Add end!",
       "Add",
       false},
      {"DelProfile",
       DelProfile,
       {Trace("Del profile start!"), kNoLan, kNoDataUni},
       "table_type is out of range!",
       kInvalidParam,
       {},
       {kNothingDeleted},
       {},
       kOk,
       kOk,
       "OnuAbilityTableManager::Del profile end!",
       "Del",
       true},
      {"DelByKey",
       DelByKey,
       {Trace("Del profile start!")},
       "table_type is out of range!",
       kInvalidParam,
       {Log(9, "profile_type is valid!")},
       {kNothingDeleted},
       {},
       kOk,
       kOk,
       "OnuAbilityTableManager::Del profile end!",
       "Del source 1 key 7",
       true},
      {"DelAll",
       DelAll,
       {Trace("Del All profile start!")},
       "profile_type is out of range!",
       kInvalidParam,
       {Log(9, "profile_type is valid!")},
       {},
       {},
       kOk,
       kOk,
       "OnuAbilityTableManager::Del All profile end!",
       "DelAll source 1",
       true},
  };
}

std::vector<Forwarding> ValueAdditions() {
  return {
      {"AddNumber",
       AddNumber,
       {PortsNameAsked(),
        Trace("add ability value start!profile_type:1, profile_source:1, ability_code:1010, "
              "ability_name:FE_PORTS, ability_value:0x4a")},
       "(OnuAbilityTableManager)profile_type is out of range!profile_type:1",
       kInvalidParam,
       {Log(9, "(OnuAbilityTableManager)profile_type valid!")},
       {PortsNameAsked(), Log(1,
                              "Add-1 failed!profile_source:1, key_ability_value:7, "
                              "ability_code:1010, ability_name:FE_PORTS, ability_value:74")},
       {PortsNameAsked(),
        Log(5,
            "Add Ability Value failed!profile_type:1, profile_source:1, ability_code:1010, "
            "ability_name:FE_PORTS, ability_value:0x4a, ret:0x80000003")},
       kOperateFailed,
       kOk,
       "OnuAbilityTableManager::Add ability value end!",
       "",
       false},
      {"AddString",
       AddString,
       {Trace("Add-string start!")},
       "profile_type is out of range!",
       kInvalidParam,
       {Log(9, "profile_type valid!")},
       {TypeNameAsked(), Log(1,
                             "Add-string failed!profile_source:1, key_ability_value:7, "
                             "ability_code:1083, ability_name:TYPE_NAME, ability_value:NAME")},
       {},
       kOperateFailed,
       kOk,
       "OnuAbilityTableManager::Add-string end!",
       "",
       false},
  };
}

std::vector<Forwarding> Questions() {
  return {
      {"MatchProfile",
       MatchProfile,
       {Trace("operator== start!")},
       "profile_type is out of range!",
       0,
       {},
       {},
       {},
       1,
       1,
       "OnuAbilityTableManager::operator== end!ret:0x1",
       "operator==",
       false},
      {"KeyExists",
       KeyExists,
       {Trace("IsExist start!")},
       "profile_type is out of range!",
       0,
       {Log(9, "OnuAbilityTable::IsExist_1 start!")},
       {Log(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!")},
       {Log(4,
            "key_ability_value do not exist!profile_type:1, profile_source:2, "
            "key_ability_value:7")},
       0,
       1,
       "OnuAbilityTableManager::IsExist end!",
       "",
       false},
      {"ValueIsEqual",
       ValueIsEqual,
       {Trace("IsEqual start!")},
       "profile_type is out of range!",
       0,
       {Log(9, "OnuAbilityTable::IsEqual_1 start!")},
       {PortsNameAsked(), Log(1,
                              "ability value is not equal!profile_source:2, ability_code:1010, "
                              "ability_name:FE_PORTS, ability_value:74")},
       {PortsNameAsked(),
        Log(4,
            "ability_value is not equal!profile_type:1, profile_source:2,ability_code:1010, "
            "ability_name:FE_PORTS, ability_value:74")},
       0,
       1,
       "OnuAbilityTableManager::IsEqual end!",
       "",
       false},
  };
}

std::vector<Forwarding> BindCounts() {
  return {
      {"AddBindCount",
       AddBindCount,
       {Trace("AddBindCount start!")},
       "profile_type is out of range!",
       kInvalidParam,
       {Log(9, "OnuAbilityTable::AddBindCount start!")},
       {kNothingBound},
       {},
       kOperateFailed,
       kOk,
       "OnuAbilityTableManager::AddBindCount end!",
       "AddBindCount key 7",
       false},
      {"MinusBindCount",
       MinusBindCount,
       {Trace("MinusBindCount start!")},
       "profile_type is out of range!",
       kInvalidParam,
       {Log(9, "profile_type valid!")},
       {kNothingBound},
       {},
       kOperateFailed,
       kOk,
       "OnuAbilityTableManager::MinusBindCount end!",
       "MinusBindCount key 7",
       false},
  };
}

class TableManagerForwardedChangeTest : public ForwardingTest {};
class TableManagerChangeResultTest : public ForwardingTest {};

TEST_P(TableManagerForwardedChangeTest, BeforeInitIsOutOfRange) { ExpectMissBeforeInit(); }
TEST_P(TableManagerForwardedChangeTest, TypeWithoutTableIsOutOfRange) {
  ExpectMissForTypesWithoutTable();
}
TEST_P(TableManagerForwardedChangeTest, EmptyTableIsAskedAndItsFailureLogged) {
  ExpectEmptyTable();
}
TEST_P(TableManagerForwardedChangeTest, SuccessLogsNoFailure) { ExpectFound(); }
TEST_P(TableManagerChangeResultTest, TableIsAskedAndItsResultPassedOnOrDiscarded) {
  ExpectAnswerOfTheTable();
}

INSTANTIATE_TEST_SUITE_P(Profiles, TableManagerForwardedChangeTest,
                         ::testing::ValuesIn(ProfileChanges()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(Values, TableManagerForwardedChangeTest,
                         ::testing::ValuesIn(ValueAdditions()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(Questions, TableManagerForwardedChangeTest,
                         ::testing::ValuesIn(Questions()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(BindCounts, TableManagerForwardedChangeTest,
                         ::testing::ValuesIn(BindCounts()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(
    All, TableManagerChangeResultTest,
    ::testing::ValuesIn(Virtual({ProfileChanges(), Questions(), BindCounts()})), NameOfForwarding);

}  // namespace
}  // namespace table_test
