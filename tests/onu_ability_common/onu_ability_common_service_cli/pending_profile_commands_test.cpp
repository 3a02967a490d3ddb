// The commands that build a profile: add starts it, set fills it, show by
// manual lists it, apply hands it to its table.
#include "command_fixture.h"
#include "listing_text.h"

namespace {

class CommandPendingProfileTest : public CommandOnTablesTest {
 protected:
  unsigned int Add(const std::string& key, const std::string& type = "1",
                   const std::string& vendor_id = "ZKWM", const std::string& name = "HOME-1") {
    return Run(cl_add_onutype_capa_table_cmd, {key, type, "600", "601", vendor_id, name});
  }
  unsigned int Set(const std::string& key, const std::vector<std::string>& pairs) {
    std::vector<std::string> arguments = {"key", key};
    arguments.insert(arguments.end(), pairs.begin(), pairs.end());
    return Run(cl_set_onutype_capa_table_cmd, arguments);
  }
  unsigned int Apply(const std::string& key) {
    return Run(cl_apply_add_onutype_capa_table_cmd, {key});
  }
};

// --- add

TEST_F(CommandPendingProfileTest, AddStartsAnExternalProfile) {
  ASSERT_EQ(Pending(), nullptr);
  EXPECT_EQ(Add("5"), 0U);
  EXPECT_EQ(output, "onu ability item set ok!key_ability_value:5\r\n");
  ASSERT_NE(Pending(), nullptr);
  EXPECT_EQ(Pending()->_profile_type, ONU_ABILITY_PROFILE_TYPE_REAL);
  EXPECT_EQ(Pending()->_profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  EXPECT_EQ(Pending()->_flag_match_type, ONU_ABILITY_MATCH_TYPE_EXACT);
  EXPECT_EQ(Pending()->_common_ability.size(), 5U);
  EXPECT_EQ(Number(*Pending(), 1085), 5U);
  EXPECT_EQ(Number(*Pending(), 1080), 600U);
  EXPECT_EQ(Number(*Pending(), 1081), 601U);
  EXPECT_EQ(Text(*Pending(), 1082), "ZKWM");
  EXPECT_EQ(Text(*Pending(), 1083), "HOME-1");
}

TEST_F(CommandPendingProfileTest, AddStartsAMatchProfile) {
  EXPECT_EQ(Add("5", "2"), 0U);
  EXPECT_EQ(Pending()->_profile_type, ONU_ABILITY_PROFILE_TYPE_MATCH);
  EXPECT_EQ(Pending()->_ability_default_value, 0xFFFFFFFFU);
}

TEST_F(CommandPendingProfileTest, AddReusesAndClearsThePendingProfile) {
  Add("5");
  Set("5", {"1020", "2"});
  OnuAbilityProfile* const pending = Pending();
  EXPECT_EQ(Add("6", "1", "null", "null"), 0U);
  EXPECT_EQ(Pending(), pending);
  EXPECT_EQ(Number(*Pending(), 1085), 6U);
  EXPECT_FALSE(Holds(*Pending(), 1020));
  EXPECT_FALSE(Holds(*Pending(), 1082));
  EXPECT_FALSE(Holds(*Pending(), 1083));
}

TEST_F(CommandPendingProfileTest, NullVendorAndNameAreEmptyTexts) {
  EXPECT_EQ(Add("5", "1", "null", "null"), 0U);
  EXPECT_EQ(Text(*Pending(), 1082), "");
  EXPECT_EQ(Text(*Pending(), 1083), "");
  EXPECT_EQ(Pending()->_common_ability.size(), 3U);
}

TEST_F(CommandPendingProfileTest, LongVendorIsCutTo4AndLongNameTo20Characters) {
  Add("5", "1", "ABCDE", "ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_EQ(Text(*Pending(), 1082), "ABCD");
  EXPECT_EQ(Text(*Pending(), 1083), "ABCDEFGHIJKLMNOPQRST");
}

// Lengths are counted modulo 256, as everywhere where text is copied so.
TEST_F(CommandPendingProfileTest, NameOf259CharactersIsCutToThree) {
  Add("5", "1", "ZKWM", "ABC" + std::string(256, 'x'));
  EXPECT_EQ(Text(*Pending(), 1083), "ABC");
}

TEST_F(CommandPendingProfileTest, KeyIsReadAsUnsigned) {
  EXPECT_EQ(Add("4294967290"), 0U);
  EXPECT_EQ(output, "onu ability item set ok!key_ability_value:4294967290\r\n");
  EXPECT_EQ(Number(*Pending(), 1085), 4294967290U);
}

TEST_F(CommandPendingProfileTest, BadNumbersReadAs0) {
  EXPECT_EQ(Run(cl_add_onutype_capa_table_cmd, {"x", "1", "y", "z", "null", "null"}), 0U);
  EXPECT_EQ(output, "onu ability item set ok!key_ability_value:0\r\n");
  EXPECT_TRUE(Pending()->_common_ability.empty());
}

// An impossible type is refused by the profile, which therefore stays as it
// was; the rest of the command goes on.
TEST_F(CommandPendingProfileTest, ImpossibleTypeAddsToThePendingProfile) {
  Add("5");
  Set("5", {"1020", "2"});
  host.ForgetLog();
  EXPECT_EQ(Add("6", "7"), 0U);
  EXPECT_TRUE(host.ClaimLog(0, "profile_type invalid!profile_type:7"));
  EXPECT_EQ(Pending()->_profile_type, ONU_ABILITY_PROFILE_TYPE_REAL);
  EXPECT_EQ(Number(*Pending(), 1020), 2U);
  EXPECT_EQ(Number(*Pending(), 1085), 6U);
}

// --- set

TEST_F(CommandPendingProfileTest, SetBeforeAnyAddPrintsNothingAndChangesNothing) {
  EXPECT_EQ(Set("5", {"1020", "2"}), 0U);
  EXPECT_EQ(output, "");
  EXPECT_EQ(Pending(), nullptr);
}

TEST_F(CommandPendingProfileTest, SetWithAnotherKeyPrintsBothKeysAndAddsNothing) {
  Add("5");
  EXPECT_EQ(Set("7", {"1020", "2"}), 0U);
  EXPECT_EQ(output,
            "key_ability_value invalid,invalid key_ability_value:7, valid key_ability_value:5\r\n");
  EXPECT_FALSE(Holds(*Pending(), 1020));
}

TEST_F(CommandPendingProfileTest, SetPrintsKeysUnsigned) {
  Add("4294967290");
  Set("4294967291", {});
  EXPECT_EQ(output,
            "key_ability_value invalid,invalid key_ability_value:4294967291, "
            "valid key_ability_value:4294967290\r\n");
}

TEST_F(CommandPendingProfileTest, SetAddsEveryPair) {
  Add("5");
  EXPECT_EQ(Set("5", {"1002", "1", "1010", "2", "1011", "3", "1012", "4", "1020", "5", "1030", "6",
                      "1031", "7", "1080", "8"}),
            0U);
  EXPECT_EQ(output, "set onu_ability_profile ok!\r\n");
  const std::map<unsigned short, unsigned int> expected = {
      {1002, 1}, {1010, 2}, {1011, 3}, {1012, 4}, {1020, 5}, {1030, 6}, {1031, 7}, {1080, 8}};
  for (const auto& [code, value] : expected) {
    EXPECT_EQ(Number(*Pending(), code), value) << code;
  }
}

TEST_F(CommandPendingProfileTest, SetWithoutPairsIsOk) {
  Add("5");
  EXPECT_EQ(Set("5", {}), 0U);
  EXPECT_EQ(output, "set onu_ability_profile ok!\r\n");
  EXPECT_EQ(Pending()->_common_ability.size(), 5U);
}

TEST_F(CommandPendingProfileTest, SetCutsTheCodeTo16Bits) {
  Add("5");
  Set("5", {"66556", "2"});  // 65536 + 1020
  EXPECT_EQ(Number(*Pending(), 1020), 2U);
}

// A code that is not registered is refused by the profile, without a word here.
TEST_F(CommandPendingProfileTest, SetOfAnUnknownCodeIsOk) {
  Add("5");
  EXPECT_EQ(Set("5", {"5000", "2"}), 0U);
  EXPECT_EQ(output, "set onu_ability_profile ok!\r\n");
  EXPECT_FALSE(Holds(*Pending(), 5000));
}

TEST_F(CommandPendingProfileTest, NullValueStoresTheWildcard) {
  Add("5");
  Set("5", {"1020", "null"});
  ASSERT_TRUE(Holds(*Pending(), 1020));
  EXPECT_EQ(Number(*Pending(), 1020), 0xFFFFFFFFU);
}

TEST_F(CommandPendingProfileTest, NullValueMakesAMatchProfileFitAnyNumber) {
  Add("5", "2", "null", "null");
  Set("5", {"1020", "2"});
  Set("5", {"1020", "null"});
  Apply("5");
  OnuAbilityProfile report = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  report.Add(1020, 77U);
  EXPECT_EQ(OnuAbilityTableManager::GetInstance()->operator==(report), 1U);
  EXPECT_EQ(Number(report, 1085), 5U);
}

// --- The numbers of set.

TEST_F(CommandPendingProfileTest, NullIsTheWildcardNumber) {
  char text[] = "null";
  EXPECT_EQ(char_to_onucapa_num(text), 0xFFFFFFFFU);
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(4, "ch_temp is null!")});
}

TEST_F(CommandPendingProfileTest, OtherTextIsTheNumberThatAtoiMakesOfIt) {
  char number[] = "254";
  char text[] = "nullx";
  char negative[] = "-2";
  EXPECT_EQ(char_to_onucapa_num(number), 254U);
  EXPECT_EQ(char_to_onucapa_num(text), 0U);
  EXPECT_EQ(char_to_onucapa_num(negative), 0xFFFFFFFEU);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{Log(4, "atoi:254"), Log(4, "atoi:0"), Log(4, "atoi:-2")}));
}

// --- show by manual

TEST_F(CommandPendingProfileTest, ShowByManualBeforeAnyAddPrintsALineBreak) {
  EXPECT_EQ(Run(cl_show_onu_ability_table_by_manual_cmd, {"1"}), 0U);
  EXPECT_EQ(output, "\r\n");
}

TEST_F(CommandPendingProfileTest, ShowByManualListsThePendingProfile) {
  Add("5");
  EXPECT_EQ(Run(cl_show_onu_ability_table_by_manual_cmd, {"1"}), 0U);
  ListedProfile expected;
  expected.report_type = "600";
  expected.vendor_id = "ZKWM";
  expected.match_type = "2";
  expected.source = "1";
  expected.size = "100";
  expected.num = "5";
  expected.cells =
      "REPORT_TYPE \t0x258     \tREAL_TYPE   \t0x259     \tVENDOR_ID   \tZKWM    \t\r\n"
      "TYPE_NAME   \tHOME-1  \tKEY_VALUE   \t0x5       \t";
  EXPECT_EQ(output, ListingOf(expected) + "\r\n");
}

TEST_F(CommandPendingProfileTest, ShowByManualPassesTheFlag) {
  Add("5", "1", "null", "null");
  Pending()->UpdateInit(1020, 0U);
  Run(cl_show_onu_ability_table_by_manual_cmd, {"0"});
  EXPECT_EQ(output.find("POTS_PORTS"), std::string::npos);
  Run(cl_show_onu_ability_table_by_manual_cmd, {"1"});
  EXPECT_NE(output.find("POTS_PORTS  \t0x0       \t"), std::string::npos);
}

// --- apply

TEST_F(CommandPendingProfileTest, ApplyBeforeAnyAddPrintsNothingAndChangesNothing) {
  EXPECT_EQ(Apply("5"), 0U);
  EXPECT_EQ(output, "");
  EXPECT_TRUE(TableOf(1).empty());
  EXPECT_TRUE(TableOf(2).empty());
}

TEST_F(CommandPendingProfileTest, ApplyStoresACopyInTheTableOfItsType) {
  Add("5");
  EXPECT_EQ(Apply("5"), 0U);
  EXPECT_EQ(output, "add ability profile successfully,key_ability_value:5\r\n");
  const std::vector<OnuAbilityProfile> table = TableOf(1);
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(Number(table[0], 1085), 5U);
  EXPECT_EQ(Text(table[0], 1083), "HOME-1");
  EXPECT_EQ(table[0]._profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  EXPECT_EQ(table[0]._id, 30001U);
  EXPECT_TRUE(TableOf(2).empty());
}

TEST_F(CommandPendingProfileTest, ApplyKeepsThePendingProfile) {
  Add("5", "2");
  OnuAbilityProfile* const pending = Pending();
  Apply("5");
  EXPECT_EQ(Pending(), pending);
  EXPECT_EQ(Number(*Pending(), 1085), 5U);
  EXPECT_EQ(Apply("5"), 0U);
  EXPECT_EQ(TableOf(2).size(), 2U);
}

TEST_F(CommandPendingProfileTest, ApplyWithAnotherKeyPrintsBothKeysAndIsAnInvalidParameter) {
  Add("5");
  EXPECT_EQ(Apply("7"), ONU_ABILITY_RET_INVALID_PARAM);
  EXPECT_EQ(output,
            "key_ability_value is not exist!invalid key_ability_value:7,"
            "valid key_ability_value:5\r\n");
  EXPECT_TRUE(TableOf(1).empty());
}

TEST_F(CommandPendingProfileTest, ApplyThatTheTableRefusesFails) {
  AddToTable(MakeRealProfile(5, 700, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL));
  Add("5");
  EXPECT_EQ(Apply("5"), ONU_ABILITY_RET_OPERATE_FAILED);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Add failed\r\n");
  EXPECT_EQ(TableOf(1).size(), 1U);
}

// Whatever the manager's status, the command's own is one.
TEST_F(CommandPendingProfileTest, ApplyOfAProfileWithoutATableFails) {
  Add("5", "0");
  EXPECT_EQ(Apply("5"), ONU_ABILITY_RET_OPERATE_FAILED);
  EXPECT_EQ(output, "ONU_ABILITY_INSTANCE_TABLE_MGR.Add failed\r\n");
}

}  // namespace
