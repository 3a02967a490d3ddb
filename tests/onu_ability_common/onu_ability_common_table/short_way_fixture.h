// What the tests of the short ways share: the log mask of production, under which
// they are open, the tables of the manager, which have them, and tables whose
// profiles a test changes behind the back of the index.
#ifndef TESTS_ONU_ABILITY_COMMON_SHORT_WAY_FIXTURE_H
#define TESTS_ONU_ABILITY_COMMON_SHORT_WAY_FIXTURE_H

#include <string>
#include <vector>

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/onu_match_ability_table.h"
#include "onu_ability_common_table/onu_real_ability_table.h"
#include "onu_ability_common_table/profile_index.h"
#include "table_fixture.h"

namespace table_test {

constexpr unsigned int kProductionLevels = LogLevels(0, 1, 13);
constexpr unsigned short kGePorts = 1011;
constexpr unsigned short kPotsPorts = 1020;
constexpr unsigned short kVendorId = 1082;

inline void ListenAsInProduction() { onu_ability_set_log_level_mask(kProductionLevels); }

// A profile with nothing but one ability.
inline OnuAbilityProfile Holding(unsigned short code, unsigned int value) {
  return With(MakeProfile(kMatch), code, value);
}
inline OnuAbilityProfile Holding(unsigned short code, const std::string& value) {
  return With(MakeProfile(kMatch), code, value);
}
// A tag that no comparison knows.
inline OnuAbilityProfile HoldingUnknownTag(unsigned short code) {
  OnuAbilityProfile profile = MakeProfile(kMatch);
  profile._common_ability[code].ability_value_type = 7;
  return profile;
}

inline ONU_ABILITY_COMMON_ABILITY_VALUE Number(unsigned int number) {
  return {ONU_ABILITY_VALUE_TYPE_USHORT, number, ""};
}
// As a profile of default value `number` stores a string.
inline ONU_ABILITY_COMMON_ABILITY_VALUE Text(const std::string& text,
                                             unsigned int number = ONU_ABILITY_WILDCARD) {
  return {ONU_ABILITY_VALUE_TYPE_STRING, number, text};
}

// A table with short ways whose profiles a test may change behind the index: what
// is found by the old value was found by the index.
template <class Table>
class IndexedTable : public OpenTable<Table> {
 public:
  IndexedTable() { this->KeepIndex(); }
};

// The manager's tables with no profile in them, in production.
class ShortWayTest : public TableTest {
 protected:
  void SetUp() override {
    TableTest::SetUp();
    InitTables();
    ListenAsInProduction();
    ForgetSetUp();
  }

  static void AddAll(OnuAbilityTableBase& table, const std::vector<OnuAbilityProfile>& profiles) {
    for (OnuAbilityProfile profile : profiles) {
      EXPECT_EQ(kOk, table.Add(profile));
    }
  }

  OnuAbilityTableBase& Real() { return *manager._map_table.at(kReal); }
  OnuAbilityTableBase& Match() { return *manager._map_table.at(kMatch); }

  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
};

}  // namespace table_test

#endif  // TESTS_ONU_ABILITY_COMMON_SHORT_WAY_FIXTURE_H
