// The commands on the registry of ability codes.
#include "command_fixture.h"

namespace {

class CommandAbilityCodeTest : public CommandTest {
 protected:
  void SetUp() override {
    RegisterAttributes();
    DefineCode(1001, "ALL_LAN");
    DefineCode(1010, "FE_PORTS", {{1, 3}, {4, 3}});
    host.ForgetLog();
  }

  static std::vector<ONU_ABILITY_CODE_ATTR_INFO>& Records() {
    return OnuAbilityCodeInfo::GetInstance()->Get();
  }

  using Attributes = std::map<ONU_ABILITY_ENUM_ABILITY_ATTR_ID, unsigned short>;
  static Attributes AttributesOf(unsigned short code) {
    for (const ONU_ABILITY_CODE_ATTR_INFO& record : Records()) {
      if (record.ability_code == code) {
        return record.ability_attr;
      }
    }
    return {};
  }
  static Attributes MakeAttributes(unsigned short confirm_type, unsigned short lamp,
                                   unsigned short port_type, unsigned short value_type) {
    return {{ONU_ABILITY_ATTR_CONFIRM_TYPE, confirm_type},
            {ONU_ABILITY_ATTR_LAMP, lamp},
            {ONU_ABILITY_ATTR_PORT_TYPE, port_type},
            {ONU_ABILITY_ATTR_VALUE_TYPE, value_type}};
  }

  const std::string all_lan_ =
      "\r\n****************************************\r\n"
      "ability_name:ALL_LAN\r\n"
      "ability_code:1001\r\n"
      "ability_attr_id:1\r\nability_attr_name:CONFIRM_TYPE\r\nability_attr_value:0\r\n"
      "ability_attr_id:3\r\nability_attr_name:LAMP\r\nability_attr_value:0\r\n"
      "ability_attr_id:4\r\nability_attr_name:PORT_TYPE\r\nability_attr_value:0\r\n"
      "ability_attr_id:5\r\nability_attr_name:VALUE_TYPE\r\nability_attr_value:2\r\n"
      "\r\n****************************************\r\n\r\n";
  const std::string fe_ports_ =
      "\r\n****************************************\r\n"
      "ability_name:FE_PORTS\r\n"
      "ability_code:1010\r\n"
      "ability_attr_id:1\r\nability_attr_name:CONFIRM_TYPE\r\nability_attr_value:3\r\n"
      "ability_attr_id:3\r\nability_attr_name:LAMP\r\nability_attr_value:0\r\n"
      "ability_attr_id:4\r\nability_attr_name:PORT_TYPE\r\nability_attr_value:3\r\n"
      "ability_attr_id:5\r\nability_attr_name:VALUE_TYPE\r\nability_attr_value:2\r\n"
      "\r\n****************************************\r\n\r\n";
};

// --- show ability code

TEST_F(CommandAbilityCodeTest, ArgumentThatIsNullIsTheCodeZero) {
  const unsigned int result = RunVector(cl_show_onu_ability_code_info_cmd, {nullptr});
  const std::string shown = output;
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"0"}), result);
  EXPECT_EQ(output, shown);
}

TEST_F(CommandAbilityCodeTest, ShowWithoutArgumentListsTheWholeRegistry) {
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {}), 0U);
  EXPECT_EQ(output,
            "\r\n########################################\r\n"
            "_vec_ability_attr:2\r\n" +
                all_lan_ + fe_ports_ + "########################################\r\n");
}

TEST_F(CommandAbilityCodeTest, ShowWithDigitsListsThatCode) {
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"1010"}), 0U);
  EXPECT_EQ(output, fe_ports_);
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"66546"}), 0U);  // 65536 + 1010
  EXPECT_EQ(output, fe_ports_);
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"1011"}), 0U);
  EXPECT_EQ(output, "");
}

TEST_F(CommandAbilityCodeTest, ShowWithTextListsTheCodesWhoseNamesHoldIt) {
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"lan"}), 0U);
  EXPECT_EQ(output, all_lan_);
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"L"}), 0U);
  EXPECT_EQ(output, all_lan_);
  EXPECT_EQ(Run(cl_show_onu_ability_code_info_cmd, {"1010x"}), 0U);
  EXPECT_EQ(output, "");
}

// --- set ability_code

TEST_F(CommandAbilityCodeTest, SetDefinesACode) {
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"2000", "NEW_CODE", "1", "3", "4", "7"}), 0U);
  EXPECT_EQ(output, "set ability code ok!\r\n");
  ASSERT_EQ(Records().size(), 3U);
  EXPECT_EQ(Records()[2].ability_code, 2000U);
  EXPECT_EQ(Records()[2].ability_name, "NEW_CODE");
  EXPECT_EQ(Records()[2].ability_attr, MakeAttributes(3, 0, 7, 2));
}

TEST_F(CommandAbilityCodeTest, SetWithoutPairsTakesTheDefaults) {
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"2000", "NEW_CODE"}), 0U);
  EXPECT_EQ(AttributesOf(2000), MakeAttributes(0, 0, 0, 2));
}

// What the operator does not give is not taken over from the old record.
TEST_F(CommandAbilityCodeTest, SetReplacesTheWholeRecordInPlace) {
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"1001", "LAN_TOTAL", "3", "1"}), 0U);
  ASSERT_EQ(Records().size(), 2U);
  EXPECT_EQ(Records()[0].ability_name, "LAN_TOTAL");
  EXPECT_EQ(Records()[0].ability_attr, MakeAttributes(0, 1, 0, 2));
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"1010", "FE_PORTS"}), 0U);
  EXPECT_EQ(Records()[1].ability_attr, MakeAttributes(0, 0, 0, 2));
}

TEST_F(CommandAbilityCodeTest, SetTakesEightPairs) {
  for (int id = 11; id <= 16; ++id) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id),
                                           "ATTRIBUTE_" + std::to_string(id));
  }
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd,
                {"2000", "NEW_CODE", "1", "1", "3", "2", "11", "3", "12", "4", "13", "5", "14", "6",
                 "15", "7", "16", "8"}),
            0U);
  Attributes expected = MakeAttributes(1, 2, 0, 2);
  for (int id = 11; id <= 16; ++id) {
    expected[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id)] =
        static_cast<unsigned short>(id - 8);
  }
  EXPECT_EQ(AttributesOf(2000), expected);
}

TEST_F(CommandAbilityCodeTest, SetSkipsAnUnknownAttributeAndIsOk) {
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"2000", "NEW_CODE", "9", "1", "1", "3"}), 0U);
  EXPECT_EQ(output, "set ability code ok!\r\n");
  EXPECT_EQ(AttributesOf(2000), MakeAttributes(3, 0, 0, 2));
}

TEST_F(CommandAbilityCodeTest, SetThatTheRegistryRefusesIsOk) {
  EXPECT_EQ(Run(cl_set_onu_ability_code_info_cmd, {"2000", "FE_PORTS"}), 0U);
  EXPECT_EQ(output, "set ability code ok!\r\n");
  EXPECT_EQ(Records().size(), 2U);
  EXPECT_TRUE(host.ClaimLog(0, "ability name is invalid!ability_code:2000, ability_name:FE_PORTS"));
  EXPECT_TRUE(host.ClaimLog(0, "ability_code_info is invalid!"));
}

TEST_F(CommandAbilityCodeTest, SetCutsTheCodeTo16Bits) {
  Run(cl_set_onu_ability_code_info_cmd, {"67536", "NEW_CODE"});  // 65536 + 2000
  EXPECT_EQ(Records().back().ability_code, 2000U);
}

// --- del ability code

TEST_F(CommandAbilityCodeTest, DelRemovesTheCode) {
  EXPECT_EQ(Run(cl_del_onu_ability_code_info_cmd, {"1010"}), 0U);
  EXPECT_EQ(output, "del ability code ok!\r\n");
  ASSERT_EQ(Records().size(), 1U);
  EXPECT_EQ(Records()[0].ability_code, 1001U);
}

TEST_F(CommandAbilityCodeTest, DelCutsTheCodeTo16Bits) {
  Run(cl_del_onu_ability_code_info_cmd, {"66546"});  // 65536 + 1010
  EXPECT_EQ(Records().size(), 1U);
}

TEST_F(CommandAbilityCodeTest, DelOfAnUnknownCodeIsOk) {
  EXPECT_EQ(Run(cl_del_onu_ability_code_info_cmd, {"2000"}), 0U);
  EXPECT_EQ(output, "del ability code ok!\r\n");
  EXPECT_EQ(Records().size(), 2U);
}

TEST_F(CommandAbilityCodeTest, DelOfACodeInUseFails) {
  InitTables();
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  profile.Add(1010, 4U);
  AddToTable(profile);
  host.ForgetLog();
  EXPECT_EQ(Run(cl_del_onu_ability_code_info_cmd, {"1010"}), 0U);
  EXPECT_EQ(output, "del ability code failed!\r\n");
  EXPECT_EQ(Records().size(), 2U);
  EXPECT_TRUE(host.ClaimLog(0, "ability_code exist!ability_code:1010"));
}

}  // namespace
