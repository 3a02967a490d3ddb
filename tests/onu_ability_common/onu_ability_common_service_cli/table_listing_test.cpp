// The listings of a table: all of it, and the profiles of one real type.
#include "listing_text.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class ListingTableTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }

  static std::string ShowAll(int type, int source, int flag = 1) {
    vty terminal;
    onu_ability_show_all_onucapa_table(type, source, flag, &terminal);
    return terminal.text;
  }
  static std::string ShowItem(int type, int source, unsigned short real_type, int flag = 1) {
    vty terminal;
    onu_ability_show_item(type, source, flag, real_type, &terminal);
    return terminal.text;
  }

  // The listing of a real profile with real type 601 and a key below 10.
  static std::string Real(const std::string& id, const std::string& source,
                          const std::string& key) {
    ListedProfile listed;
    listed.id = id;
    listed.source = source;
    listed.match_type = "2";
    listed.size = "58";
    listed.num = "2";
    listed.cells = "REAL_TYPE   \t0x259     \tKEY_VALUE   \t0x" + key + "       \t";
    return ListingOf(listed);
  }
};

const LogLine kForeignSource =
    Log(0, "profile source don't match!_profile_source:1, profile_source:0");

// --- All of a table.

TEST_F(ListingTableTest, AllProfilesAreListedInTableOrder) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeRealProfile(6, 601, 1));
  AddToTable(MakeRealProfile(7, 601));
  EXPECT_EQ(ShowAll(1, 2),
            Real("30001", "0", "5") + Real("30001", "1", "6") + Real("30002", "0", "7"));
}

TEST_F(ListingTableTest, AnEmptyTableListsNothing) {
  EXPECT_EQ(ShowAll(1, 2), "");
  EXPECT_EQ(ShowAll(2, 2), "");
}

TEST_F(ListingTableTest, Source0ListsNothingOfAnExternalProfileAndLogsIt) {
  AddToTable(MakeRealProfile(6, 601, 1));
  host.ForgetLog();
  EXPECT_EQ(ShowAll(1, 0), "");
  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{kForeignSource});
}

TEST_F(ListingTableTest, SourceFiltersTheListing) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeRealProfile(6, 601, 1));
  AddToTable(MakeRealProfile(7, 601));
  EXPECT_EQ(ShowAll(1, 0), Real("30001", "0", "5") + Real("30002", "0", "7"));
  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{kForeignSource});
  EXPECT_EQ(ShowAll(1, 1), Real("30001", "1", "6"));
  EXPECT_EQ(host.TakeLog({0}).size(), 2U);
}

TEST_F(ListingTableTest, MatchTableIsListedByItsOwnDefaults) {
  OnuAbilityProfile profile = MakeMatchProfile(6, 601);
  profile.UpdateInit(1020, 0xFFFFFFFFU);
  AddToTable(profile);
  ListedProfile expected;
  expected.id = "30001";
  expected.type = "2";
  expected.match_type = "2";
  expected.report_type = expected.default_value = expected.data_uni = "-1";
  expected.size = "72";
  expected.num = "2";
  expected.cells = "REAL_TYPE   \t0x259     \tKEY_VALUE   \t0x6       \t";
  EXPECT_EQ(ShowAll(2, 2, 0), ListingOf(expected));
  expected.cells =
      "POTS_PORTS  \t0xffffffff\tREAL_TYPE   \t0x259     \tKEY_VALUE   \t0x6       \t\r\n";
  EXPECT_EQ(ShowAll(2, 2, 1), ListingOf(expected));
}

// A comparison leaves an entry of no type in a pattern without a key value.
TEST_F(ListingTableTest, KeyEntryOfAComparisonIsListedByTypeAndCode) {
  OnuAbilityProfile pattern = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  pattern.Add(1020, 2U);
  AddToTable(pattern);
  OnuAbilityProfile report = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  report.Add(1020, 9U);
  EXPECT_EQ(OnuAbilityTableManager::GetInstance()->operator==(report), 0U);
  ListedProfile expected;
  expected.id = "30001";
  expected.type = "2";
  expected.match_type = "2";
  expected.report_type = expected.default_value = expected.data_uni = "-1";
  expected.size = "58";
  expected.num = "1";  // stale, as meant
  expected.cells = "POTS_PORTS  \t0x2       \t000000000000\t1085    \t";
  EXPECT_EQ(ShowAll(2, 2), ListingOf(expected));
}

// No table is locked while the terminal is written to.
TEST_F(ListingTableTest, ListingLeavesTheTableFree) {
  AddToTable(MakeRealProfile(5, 601));
  ShowAll(1, 2);
  ShowItem(1, 2, 601);
  EXPECT_EQ(host.locks_held(), 0U);
}

TEST_F(ListingTableTest, AllRefusesANullTerminal) {
  onu_ability_show_all_onucapa_table(1, 2, 1, nullptr);
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(13, "there is null pointer!")});
}

TEST_F(ListingTableTest, AllRefusesTypesOtherThan1And2) {
  for (const int type : {-1, 0, 3}) {
    EXPECT_EQ(ShowAll(type, 2), "");
    EXPECT_EQ(host.TakeLogWithoutTraces(),
              std::vector<LogLine>{Log(
                  0, "flag_match_or_real is invalid,flag_match_or_real:" + std::to_string(type))});
  }
}

// --- One real type.

TEST_F(ListingTableTest, ItemListsTheProfilesOfTheRealTypeNewestFirst) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeRealProfile(6, 602));
  AddToTable(MakeRealProfile(7, 601, 1));
  EXPECT_EQ(ShowItem(1, 2, 601), Real("30001", "1", "7") + Real("30001", "0", "5"));
}

TEST_F(ListingTableTest, ItemFiltersBySource) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeRealProfile(7, 601, 1));
  EXPECT_EQ(ShowItem(1, 0, 601), Real("30001", "0", "5"));
  EXPECT_EQ(ShowItem(1, 1, 601), Real("30001", "1", "7"));
  EXPECT_TRUE(host.TakeLog({0}).empty());
}

TEST_F(ListingTableTest, ItemPassesTheFlag) {
  OnuAbilityProfile profile = MakeRealProfile(5, 601);
  profile.UpdateInit(1020, 0U);
  AddToTable(profile);
  EXPECT_EQ(ShowItem(1, 2, 601, 0).find("POTS_PORTS"), std::string::npos);
  EXPECT_NE(ShowItem(1, 2, 601, 1).find("POTS_PORTS  \t0x0       \t"), std::string::npos);
}

TEST_F(ListingTableTest, ItemOfAnUnknownRealTypePrintsAFailure) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(ShowItem(1, 2, 65535), "GetOnuAllAbilityValue failed!onu_real_type:65535\r\n");
  EXPECT_EQ(ShowItem(1, 1, 601), "GetOnuAllAbilityValue failed!onu_real_type:601\r\n");
}

TEST_F(ListingTableTest, ItemRefusesANullTerminal) {
  onu_ability_show_item(1, 2, 1, 601, nullptr);
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(13, "there is null pointer!")});
}

TEST_F(ListingTableTest, ItemRefusesTypesOtherThan1And2) {
  for (const int type : {-1, 0, 3}) {
    EXPECT_EQ(ShowItem(type, 2, 601), "");
    EXPECT_EQ(host.TakeLogWithoutTraces(),
              std::vector<LogLine>{
                  Log(0, "profile_type is invalid,flag_match_or_real:" + std::to_string(type))});
  }
}

// --- Before the tables are there.

class ListingBeforeInitTest : public LibraryTest {};

TEST_F(ListingBeforeInitTest, AllListsNothing) {
  vty terminal;
  onu_ability_show_all_onucapa_table(1, 2, 1, &terminal);
  onu_ability_show_all_onucapa_table(2, 2, 1, &terminal);
  EXPECT_EQ(terminal.text, "");
}

TEST_F(ListingBeforeInitTest, ItemPrintsAFailure) {
  vty terminal;
  onu_ability_show_item(2, 2, 1, 601, &terminal);
  EXPECT_EQ(terminal.text, "GetOnuAllAbilityValue failed!onu_real_type:601\r\n");
}

}  // namespace
