// The commands on the profiles of the tables: list, delete, update.
#include <cstdlib>

#include "command_fixture.h"
#include "listing_text.h"

namespace {

class CommandProfileTest : public CommandOnTablesTest {
 protected:
  // The listing of MakeRealProfile(key, 601) or MakeMatchProfile(key, 601), with
  // the key below 10, stored first of its source.
  static ListedProfile Listed(const std::string& type, const std::string& source,
                              const std::string& key) {
    ListedProfile listed;
    listed.id = "30001";
    listed.type = type;
    listed.source = source;
    listed.match_type = "2";
    listed.size = "58";
    listed.num = "2";
    listed.cells = "REAL_TYPE   \t0x259     \tKEY_VALUE   \t0x" + key + "       \t";
    if (type == "2") {
      listed.report_type = listed.default_value = listed.data_uni = "-1";
    }
    return listed;
  }
};

// --- show onucapa_table

TEST_F(CommandProfileTest, ShowListsTheTableOfTheWord) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeMatchProfile(6, 601));
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"match", "2", "1"}), 0U);
  EXPECT_EQ(output, ListingOf(Listed("2", "0", "6")) + "\r\n");
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"real", "2", "1"}), 0U);
  EXPECT_EQ(output, ListingOf(Listed("1", "0", "5")) + "\r\n");
}

TEST_F(CommandProfileTest, ShowTakesEveryOtherWordForReal) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeMatchProfile(6, 601));
  for (const char* word : {"matc", "matchx", "MATCH", ""}) {
    EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {word, "2", "1"}), 0U);
    EXPECT_EQ(output, ListingOf(Listed("1", "0", "5")) + "\r\n") << word;
  }
}

TEST_F(CommandProfileTest, ShowOfAnEmptyTablePrintsALineBreak) {
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"real", "2", "1"}), 0U);
  EXPECT_EQ(output, "\r\n");
}

TEST_F(CommandProfileTest, ShowPassesSourceAndFlag) {
  AddToTable(MakeRealProfile(5, 601));
  OnuAbilityProfile external = MakeRealProfile(6, 601, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  external.UpdateInit(1020, 0U);
  AddToTable(external);
  ListedProfile expected = Listed("1", "1", "6");
  expected.size = "72";
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"real", "1", "0"}), 0U);
  EXPECT_EQ(output, ListingOf(expected) + "\r\n");
  EXPECT_TRUE(host.ClaimLog(0, "profile source don't match!_profile_source:0, profile_source:1"));
}

TEST_F(CommandProfileTest, ShowWithARealTypeListsOnlyItsProfiles) {
  AddToTable(MakeRealProfile(5, 601));
  AddToTable(MakeRealProfile(6, 602));
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"real", "2", "1", "real_type", "601"}), 0U);
  EXPECT_EQ(output, ListingOf(Listed("1", "0", "5")) + "\r\n");
  // 65536 + 601
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"real", "2", "1", "real_type", "66137"}), 0U);
  EXPECT_EQ(output, ListingOf(Listed("1", "0", "5")) + "\r\n");
}

TEST_F(CommandProfileTest, ShowOfAnUnknownRealTypeSaysSo) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_show_onu_ability_table_cmd, {"match", "2", "1", "real_type", "601"}), 0U);
  EXPECT_EQ(output, "GetOnuAllAbilityValue failed!onu_real_type:601\r\n\r\n");
}

// --- del

TEST_F(CommandProfileTest, DelRemovesTheProfileOfKeyTypeAndSource) {
  AddToTable(MakeRealProfile(5, 601, ONU_ABILITY_PROFILE_SOURCE_DEFAULT));
  AddToTable(MakeRealProfile(5, 601, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL));
  EXPECT_EQ(Run(cl_del_onutype_capa_table_cmd, {"5", "1", "0"}), 0U);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n");
  const std::vector<OnuAbilityProfile> table = TableOf(1);
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(table[0]._profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
}

TEST_F(CommandProfileTest, DelOfAnUnknownKeyCountsAsSuccess) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_del_onutype_capa_table_cmd, {"7", "1", "0"}), 0U);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n");
  EXPECT_EQ(TableOf(1).size(), 1U);
}

// Match profiles cannot be deleted by key; the table does not say so.
TEST_F(CommandProfileTest, DelOfAMatchProfileCountsAsSuccessAndKeepsIt) {
  AddToTable(MakeMatchProfile(5, 601));
  EXPECT_EQ(Run(cl_del_onutype_capa_table_cmd, {"5", "2", "0"}), 0U);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n");
  EXPECT_EQ(TableOf(2).size(), 1U);
}

TEST_F(CommandProfileTest, DelWithoutATableFails) {
  EXPECT_EQ(Run(cl_del_onutype_capa_table_cmd, {"5", "3", "0"}), 0U);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Del failed\r\n");
}

// --- update ... uint_ability_value

TEST_F(CommandProfileTest, UpdateNumberAddsTheValueToTheProfile) {
  AddToTable(MakeMatchProfile(5, 601, ONU_ABILITY_PROFILE_SOURCE_DEFAULT));
  AddToTable(MakeMatchProfile(5, 601, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL));
  AddToTable(MakeRealProfile(5, 601, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL));
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"5", "2", "1", "1020", "4"}), 0U);
  EXPECT_EQ(output, "Add ability value ok!\r\n");
  EXPECT_FALSE(Holds(TableOf(2)[0], 1020));
  EXPECT_EQ(Number(TableOf(2)[1], 1020), 4U);
  EXPECT_FALSE(Holds(TableOf(1)[0], 1020));
}

TEST_F(CommandProfileTest, UpdateNumberChangesAHeldValue) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"5", "1", "0", "1081", "602"}), 0U);
  EXPECT_EQ(Number(TableOf(1)[0], 1081), 602U);
}

TEST_F(CommandProfileTest, UpdateNumberOfAnUnknownProfileFails) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"7", "1", "0", "1020", "4"}), 0U);
  EXPECT_EQ(output, "Add ability value failed!\r\n");
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"5", "1", "1", "1020", "4"}), 0U);
  EXPECT_EQ(output, "Add ability value failed!\r\n");
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"5", "3", "0", "1020", "4"}), 0U);
  EXPECT_EQ(output, "Add ability value failed!\r\n");
}

// The profile's own refusal is not passed on.
TEST_F(CommandProfileTest, UpdateNumberThatTheProfileRefusesIsOk) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_update_uint_ability_value_cmd, {"5", "1", "0", "5000", "4"}), 0U);
  EXPECT_EQ(output, "Add ability value ok!\r\n");
  EXPECT_FALSE(Holds(TableOf(1)[0], 5000));
}

// --- update ... string_ability_value

TEST_F(CommandProfileTest, UpdateStringAddsTheTextToTheProfile) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_update_string_ability_value_cmd, {"5", "1", "0", "1083", "HOME-1"}), 0U);
  EXPECT_EQ(output, "Add ability value ok!\r\n");
  EXPECT_EQ(Text(TableOf(1)[0], 1083), "HOME-1");
  EXPECT_EQ(Run(cl_update_string_ability_value_cmd, {"5", "1", "0", "1083", "HOME-2"}), 0U);
  EXPECT_EQ(Text(TableOf(1)[0], 1083), "HOME-2");
}

TEST_F(CommandProfileTest, UpdateStringOfAnUnknownProfileFails) {
  AddToTable(MakeRealProfile(5, 601));
  EXPECT_EQ(Run(cl_update_string_ability_value_cmd, {"7", "1", "0", "1083", "HOME-1"}), 0U);
  EXPECT_EQ(output, "Add ability value failed!\r\n");
  EXPECT_EQ(Run(cl_update_string_ability_value_cmd, {"5", "3", "0", "1083", "HOME-1"}), 0U);
  EXPECT_EQ(output, "Add ability value failed!\r\n");
}

// --- The two ways of reading a key. Only the string update reads it signed, as
// meant, which shows where the number fits neither type.

class CommandKeyReadingTest : public CommandProfileTest {
 protected:
  void SetUp() override {
    CommandProfileTest::SetUp();
    ASSERT_NE(signed_key_, unsigned_key_);
    AddToTable(MakeMatchProfile(signed_key_, 601));
    AddToTable(MakeMatchProfile(unsigned_key_, 602));
  }

  // The real type of the profile that holds code 1020 or 1083.
  static unsigned int Updated(unsigned short code) {
    for (const OnuAbilityProfile& profile : TableOf(2)) {
      if (Holds(profile, code)) {
        return Number(profile, 1081);
      }
    }
    return 0;
  }

  const std::string text_ = "9223372036854775808";  // 2 to the 63rd
  const unsigned int signed_key_ =
      static_cast<unsigned int>(std::strtol(text_.c_str(), nullptr, 10));
  const unsigned int unsigned_key_ =
      static_cast<unsigned int>(std::strtoul(text_.c_str(), nullptr, 10));
};

TEST_F(CommandKeyReadingTest, AddSetAndApplyReadTheKeyUnsigned) {
  const std::string key = std::to_string(unsigned_key_);
  Run(cl_add_onutype_capa_table_cmd, {text_, "1", "600", "601", "null", "null"});
  EXPECT_EQ(output, "onu ability item set ok!key_ability_value:" + key + "\r\n");
  Run(cl_set_onutype_capa_table_cmd, {"key", text_});
  EXPECT_EQ(output, "set onu_ability_profile ok!\r\n");
  Run(cl_apply_add_onutype_capa_table_cmd, {text_});
  EXPECT_EQ(output, "add ability profile successfully,key_ability_value:" + key + "\r\n");
}

TEST_F(CommandKeyReadingTest, DelReadsTheKeyUnsigned) {
  AddToTable(MakeRealProfile(unsigned_key_, 602));
  Run(cl_del_onutype_capa_table_cmd, {text_, "1", "0"});
  EXPECT_TRUE(TableOf(1).empty());
}

TEST_F(CommandKeyReadingTest, UpdateNumberReadsTheKeyUnsigned) {
  Run(cl_update_uint_ability_value_cmd, {text_, "2", "0", "1020", "4"});
  EXPECT_EQ(Updated(1020), 602U);
}

TEST_F(CommandKeyReadingTest, UpdateStringReadsTheKeySigned) {
  Run(cl_update_string_ability_value_cmd, {text_, "2", "0", "1083", "HOME-1"});
  EXPECT_EQ(Updated(1083), 601U);
}

}  // namespace
