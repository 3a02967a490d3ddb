// An empty table: every lookup logs that it found nothing and answers so.
#include "table_fixture.h"

namespace table_test {
namespace {

struct EmptyLookup {
  const char* name;
  unsigned int (*call)(OnuAbilityTableBase& table);
  unsigned int result;
  std::vector<LogLine> log;
};

std::ostream& operator<<(std::ostream& out, const EmptyLookup& lookup) {
  return out << lookup.name;
}

constexpr unsigned short kType = 70;

unsigned int NewId(OnuAbilityTableBase& table) {
  unsigned short id = 0;
  const unsigned int result = table.Get(kDefault, id);
  EXPECT_EQ(30001, id);
  return result;
}

unsigned int ProfilesByKey(OnuAbilityTableBase& table) {
  std::vector<OnuAbilityProfile> profiles;
  return table.Get(kAll, 7U, profiles);
}

unsigned int ProfilesByType(OnuAbilityTableBase& table) {
  std::vector<OnuAbilityProfile> profiles;
  return table.Get(kAll, kType, profiles);
}

unsigned int ProfileByKey(OnuAbilityTableBase& table) {
  OnuAbilityProfile profile;
  return table.Get(kAll, 7U, profile);
}

unsigned int ProfileByType(OnuAbilityTableBase& table) {
  OnuAbilityProfile profile;
  return table.Get(kAll, kType, profile);
}

unsigned int NumberByKey(OnuAbilityTableBase& table) {
  unsigned int value = 55;
  const unsigned int result = table.Get(7U, kFePorts, value);
  EXPECT_EQ(0U, value);
  return result;
}

unsigned int StringByKey(OnuAbilityTableBase& table) {
  std::string value = "before";
  const unsigned int result = table.Get(7U, kTypeName, value);
  EXPECT_EQ("NULL", value);
  return result;
}

unsigned int NumberByType(OnuAbilityTableBase& table) {
  unsigned int value = 55;
  const unsigned int result = table.Get(kType, kFePorts, value);
  EXPECT_EQ(0U, value);
  return result;
}

unsigned int StringByType(OnuAbilityTableBase& table) {
  std::string value = "before";
  const unsigned int result = table.Get(kType, kTypeName, value);
  EXPECT_EQ("NULL", value);
  return result;
}

const LogLine kNothing = Log(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");

std::vector<EmptyLookup> QuestionsAndProfiles() {
  return {
      {"Code", [](OnuAbilityTableBase& table) { return table.IsExist(kFePorts); }, 0, {}},
      {"KeyValue",
       [](OnuAbilityTableBase& table) { return table.IsExist(kAll, 7U); },
       0,
       {Log(10, "(OnuAbilityTableBase)function start!"), kNothing}},
      {"Value",
       [](OnuAbilityTableBase& table) { return table.IsEqual(kAll, kFePorts, 4U); },
       0,
       {PortsNameAsked(), Log(1,
                              "ability value is not equal!profile_source:2, ability_code:1010, "
                              "ability_name:FE_PORTS, ability_value:4")}},
      {"NewId", NewId, kOk, {Log(4, "index:30001")}},
      {"ProfilesByKey",
       ProfilesByKey,
       kNotFound,
       {KeyNameAsked(),
        Log(10,
            "(OnuAbilityTableBase)function start!profile_source:2, key_ability_code:1085, "
            "ability_name:KEY_VALUE, ability_value:0x7"),
        kNothing, Log(10, "(OnuAbilityTableBase)function end!")}},
      {"ProfilesByType",
       ProfilesByType,
       kNotFound,
       {Log(10, "(OnuAbilityTableBase)function start!profile_source:2, onu_real_type:70"), kNothing,
        Log(10, "(OnuAbilityTableBase)function end!")}},
      {"ProfileByKey", ProfileByKey, kNotFound, {kNothing}},
      {"ProfileByType", ProfileByType, kNotFound, {kNothing}},
  };
}

std::vector<EmptyLookup> Values() {
  return {
      {"NumberByKey",
       NumberByKey,
       kNotFound,
       {PortsNameAsked(),
        Log(10,
            "(OnuAbilityTableBase)function start!key_ability_code:1085, key_ability_value:7, "
            "ability_code:1010, ability_name:FE_PORTS"),
        PortsNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, key_ability_value:7, "
            "abilitycode 1010, ability_name:FE_PORTS")}},
      {"StringByKey",
       StringByKey,
       kNotFound,
       {TypeNameAsked(),
        Log(10,
            "(OnuAbilityTableBase)function start!key_ability_code:1085, key_ability_value:7, "
            "ability_code:1083, ability_name:TYPE_NAME"),
        TypeNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, key_ability_value:7, "
            "ability_code:1083, ability_name:TYPE_NAME")}},
      {"NumberByType",
       NumberByType,
       kNotFound,
       {PortsNameAsked(),
        Log(10,
            "(OnuAbilityTableBase)function start!key_ability_code:1085, onu_real_type:70, "
            "ability_code:1010, ability_name:FE_PORTS"),
        PortsNameAsked(),
        Log(1,
            "find null!key_ability_code:1085, onu_real_type:70, abilitycode "
            "1010, ability_name:FE_PORTS")}},
      {"StringByType",
       StringByType,
       kNotFound,
       {TypeNameAsked(),
        Log(1, "find null!onu_real_type:70, ability_code:1083, ability_name:TYPE_NAME")}},
  };
}

class TableBaseEmptyTest : public TableTest, public ::testing::WithParamInterface<EmptyLookup> {
 protected:
  OpenTable<OnuAbilityTableBase> table;
};

TEST_P(TableBaseEmptyTest, LookupFindsNothing) {
  host.ForgetLog();
  EXPECT_EQ(GetParam().result, GetParam().call(table));
  ExpectLog(GetParam().log);
}

std::string NameOf(const ::testing::TestParamInfo<EmptyLookup>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Profiles, TableBaseEmptyTest, ::testing::ValuesIn(QuestionsAndProfiles()),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Values, TableBaseEmptyTest, ::testing::ValuesIn(Values()), NameOf);

}  // namespace
}  // namespace table_test
