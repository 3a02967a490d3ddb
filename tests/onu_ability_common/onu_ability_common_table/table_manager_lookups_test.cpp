// How the manager forwards lookups: lines and results for a type without a
// table, an empty table and a table that holds the profile.
#include "manager_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kType = 70;

unsigned int NewId(OnuAbilityTableManager& manager, ProfileType type) {
  unsigned short id = 0;
  return manager.Get(type, kDefault, id);
}

unsigned int ProfilesByKey(OnuAbilityTableManager& manager, ProfileType type) {
  std::vector<OnuAbilityProfile> profiles;
  return manager.Get(type, kAll, 7U, profiles);
}

unsigned int ProfilesByType(OnuAbilityTableManager& manager, ProfileType type) {
  std::vector<OnuAbilityProfile> profiles;
  return manager.Get(type, kAll, kType, profiles);
}

unsigned int ProfileByKey(OnuAbilityTableManager& manager, ProfileType type) {
  OnuAbilityProfile profile;
  return manager.Get(type, kAll, 7U, profile);
}

unsigned int ProfileByType(OnuAbilityTableManager& manager, ProfileType type) {
  OnuAbilityProfile profile;
  return manager.Get(type, kAll, kType, profile);
}

unsigned int NumberByKey(OnuAbilityTableManager& manager, ProfileType type) {
  unsigned int value = 0;
  return manager.Get(type, 7U, kFePorts, value);
}

unsigned int StringByKey(OnuAbilityTableManager& manager, ProfileType type) {
  std::string value;
  return manager.Get(type, 7U, kTypeName, value);
}

unsigned int NumberByType(OnuAbilityTableManager& manager, ProfileType type) {
  unsigned int value = 0;
  return manager.Get(type, kType, kFePorts, value);
}

unsigned int StringByType(OnuAbilityTableManager& manager, ProfileType type) {
  std::string value;
  return manager.Get(type, kType, kTypeName, value);
}

LogLine Trace(const std::string& text) { return Log(10, "OnuAbilityTableManager::" + text); }

const char kMiss[] = "profile_type is out of range!profile_type:1";
const LogLine kHit = Log(9, "profile_type valid!");
const LogLine kFindNull = Log(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");
const char kProfileEnd[] = "OnuAbilityTableManager::GetOnuAllAbilityValue end!";
const char kValueEnd[] = "OnuAbilityTableManager::Get ability value end!";

Forwarding NewIdForwarding() {
  return {"NewId",
          NewId,
          {Trace("GetNewId start!")},
          "profile_type is out of range!",
          kInvalidParam,
          {kHit},
          {Log(4, "index:30001")},
          {},
          kOk,
          kOk,
          "OnuAbilityTableManager::GetNewId end!",
          "Get source 0 id",
          false};
}

std::vector<Forwarding> ProfileLists() {
  return {
      {"ProfilesByKey",
       ProfilesByKey,
       {Trace("Get vec_onu_ability_profile start!profile_type:1, profile_source:2, "
              "ability_value:0x7")},
       "(OnuAbilityTableManager)profile_type is out of range!profile_type:1",
       kInvalidParam,
       {Log(9, "(OnuAbilityTableManager)profile_type valid!")},
       {KeyNameAsked(), kFindNull},
       {Log(4,
            "Get vec_onu_ability_profile failed!ret:0x80000004, profile_source:2, "
            "ability_value:0x7")},
       kNotFound,
       kOk,
       kProfileEnd,
       "Get source 2 key 7 all",
       false},
      {"ProfilesByType",
       ProfilesByType,
       {Trace("Get vec_onu_ability_profile start!profile_type:1, profile_source:2, "
              "ability_value:70")},
       "(OnuAbilityTableManager)profile_type is out of range!profile_type:1",
       kInvalidParam,
       {Log(9, "(OnuAbilityTableManager)profile_type valid!")},
       {kFindNull},
       {Log(4,
            "Get vec_onu_ability_profile failed!ret:0x80000004, profile_source:2, "
            "ability_value:70")},
       kNotFound,
       kOk,
       kProfileEnd,
       "",
       false},
  };
}

std::vector<Forwarding> SingleProfiles() {
  return {
      {"ProfileByKey",
       ProfileByKey,
       {Trace("GetOnuAllAbilityValue start!profile_type:1, profile_source:2, "
              "key_ability_value:7")},
       kMiss,
       kInvalidParam,
       {kHit},
       {kFindNull},
       {Log(4,
            "GetOnuAllAbilityValue failed!ret:0x80000004, profile_source:2, "
            "key_ability_value:7")},
       kNotFound,
       kOk,
       kProfileEnd,
       "Get source 2 key 7 one",
       false},
      {"ProfileByType",
       ProfileByType,
       {Trace("GetOnuAllAbilityValue start!profile_type:1, profile_source:2, onu_real_type:70")},
       kMiss,
       kInvalidParam,
       {kHit},
       {kFindNull},
       {Log(4,
            "GetOnuAllAbilityValue failed!ret:0x80000004, profile_source:2, "
            "onu_real_type:70")},
       kNotFound,
       kOk,
       kProfileEnd,
       "Get source 2 type 70 one",
       false},
      NewIdForwarding(),
  };
}

// Each of the three kinds of failure line has a level and a text of its own.
std::vector<Forwarding> ValuesByKey() {
  return {
      {"NumberByKey",
       NumberByKey,
       {PortsNameAsked(), Trace("Get ability value start!profile_type:1, key_ability_value:7, "
                                "ability_code:1010, ability_name:FE_PORTS")},
       kMiss,
       kInvalidParam,
       {kHit},
       {PortsNameAsked(), PortsNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, key_ability_value:7, abilitycode 1010, "
            "ability_name:FE_PORTS")},
       {PortsNameAsked(),
        Log(5,
            "Get Ability Value failed!profile_type:1, key_ability_value:7, ability_code:1010, "
            "ability_name:FE_PORTS, ret:0x80000004")},
       kNotFound,
       kOk,
       kValueEnd,
       "Get key 7 code 1010 number",
       false},
      {"StringByKey",
       StringByKey,
       {TypeNameAsked(), Trace("Get (str)ability value start!profile_type:1, key_ability_value:7, "
                               "ability_code:1083, ability_name:TYPE_NAME")},
       kMiss,
       kInvalidParam,
       {kHit},
       {TypeNameAsked(), TypeNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, key_ability_value:7, ability_code:1083, "
            "ability_name:TYPE_NAME")},
       {TypeNameAsked(), Log(1,
                             "Get Ability Value failed!key_ability_value:7, ability_code:1083, "
                             "ability_name:TYPE_NAME, ret:0x80000004")},
       kNotFound,
       kOk,
       kValueEnd,
       "Get key 7 code 1083 string",
       false},
  };
}

std::vector<Forwarding> ValuesByType() {
  return {
      {"StringByType",
       StringByType,
       {TypeNameAsked(), Trace("Get ability value start!profile_type:1, onu_real_type:70, "
                               "ability_code:1083, ability_name:TYPE_NAME")},
       kMiss,
       kInvalidParam,
       {kHit},
       {TypeNameAsked(),
        Log(1, "find null!onu_real_type:70, ability_code:1083, ability_name:TYPE_NAME")},
       {TypeNameAsked(), Log(1,
                             "Get (str)Ability Value failed!onu_real_type:70, ability_code:1083, "
                             "ability_name:TYPE_NAME, ret:0x80000004")},
       kNotFound,
       kOk,
       kValueEnd,
       "Get type 70 code 1083 string",
       false},
      // The failure line of the string lookup, "(str)" included, is meant.
      {"NumberByType",
       NumberByType,
       {PortsNameAsked(), Trace("Get ability value start!profile_type:1, onu_real_type:70, "
                                "ability_code:1010, ability_name:FE_PORTS")},
       kMiss,
       kInvalidParam,
       {kHit},
       {PortsNameAsked(), PortsNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, onu_real_type:70, abilitycode 1010, "
            "ability_name:FE_PORTS")},
       {PortsNameAsked(), Log(1,
                              "Get (str)Ability Value failed!onu_real_type:70, ability_code:1010, "
                              "ability_name:FE_PORTS, ret:0x80000004")},
       kNotFound,
       kOk,
       kValueEnd,
       "",
       false},
  };
}

class TableManagerForwardedLookupTest : public ForwardingTest {};
class TableManagerLookupResultTest : public ForwardingTest {};

TEST_P(TableManagerForwardedLookupTest, BeforeInitIsOutOfRange) { ExpectMissBeforeInit(); }
TEST_P(TableManagerForwardedLookupTest, TypeWithoutTableIsOutOfRange) {
  ExpectMissForTypesWithoutTable();
}
TEST_P(TableManagerForwardedLookupTest, EmptyTableIsAskedAndItsFailureLogged) {
  ExpectEmptyTable();
}
TEST_P(TableManagerForwardedLookupTest, SuccessLogsNoFailure) { ExpectFound(); }
TEST_P(TableManagerLookupResultTest, TableIsAskedAndItsResultPassedOn) { ExpectAnswerOfTheTable(); }

INSTANTIATE_TEST_SUITE_P(ProfileLists, TableManagerForwardedLookupTest,
                         ::testing::ValuesIn(ProfileLists()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(SingleProfiles, TableManagerForwardedLookupTest,
                         ::testing::ValuesIn(SingleProfiles()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(ValuesByKey, TableManagerForwardedLookupTest,
                         ::testing::ValuesIn(ValuesByKey()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(ValuesByType, TableManagerForwardedLookupTest,
                         ::testing::ValuesIn(ValuesByType()), NameOfForwarding);
INSTANTIATE_TEST_SUITE_P(All, TableManagerLookupResultTest,
                         ::testing::ValuesIn(Virtual({ProfileLists(), SingleProfiles(),
                                                      ValuesByKey(), ValuesByType()})),
                         NameOfForwarding);

}  // namespace
}  // namespace table_test
