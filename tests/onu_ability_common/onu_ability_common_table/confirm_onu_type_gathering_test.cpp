// What gathering makes of an ONU's answers.
#include "confirm_onu_type_fixture.h"
#include "support/traces.h"

namespace {

class ConfirmOnuTypeGatheringTest : public ConfirmOnuTypeTest {
 protected:
  // The report as the host sees it when everything is gathered.
  const OnuAbilityProfile& Gather() {
    onu_.Init();
    return Hooks().handed_over.at(0);
  }

  ConfirmOnuType onu_{kPlace, kOnu};
};

TEST_F(ConfirmOnuTypeGatheringTest, ReportedTypeIsKeyValueAndReportType) {
  Hooks().onu.reported_type = 0x00012345U;
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Number(report, 1085), 0x00012345U);
  EXPECT_EQ(Number(report, 1080), 0x00012345U);
  EXPECT_EQ(onu_._type_from_onu_report, 0x00012345U);
}

TEST_F(ConfirmOnuTypeGatheringTest, ReportedTypeGoesUnderTheKeyCodeOfTheRegistry) {
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(2085);
  ConfirmOnuType onu(kPlace, kOnu);
  Hooks().onu.reported_type = 700;
  onu.Init();
  EXPECT_EQ(Number(onu, 2085), 700U);
  EXPECT_FALSE(Holds(onu, 1085));
}

TEST_F(ConfirmOnuTypeGatheringTest, VendorIdentifierAndDeviceNameAreStoredAsText) {
  Hooks().onu.vendor_id = "ZKWM";
  Hooks().onu.device_name = "HOME-1";
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Text(report, 1082), "ZKWM");
  EXPECT_EQ(Text(report, 1083), "HOME-1");
  EXPECT_TRUE(host.ClaimLog(4, "onu_device_name:HOME-1."));
}

TEST_F(ConfirmOnuTypeGatheringTest, ShortNamesEndAtTheirTerminator) {
  Hooks().onu.vendor_id = std::string("AB\0D", 4);
  Hooks().onu.device_name = std::string("H\0ME", 4);
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Text(report, 1082), "AB");
  EXPECT_EQ(Text(report, 1083), "H");
}

TEST_F(ConfirmOnuTypeGatheringTest, BuffersFilledToTheLastByteGiveThatManyCharacters) {
  Hooks().onu.vendor_id = "ABCDE";
  Hooks().onu.device_name = "ABCDEFGHIJKLMNOPQRSTU";
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Text(report, 1082), "ABCDE");
  EXPECT_EQ(Text(report, 1083), "ABCDEFGHIJKLMNOPQRSTU");
  EXPECT_TRUE(host.ClaimLog(4, "onu_device_name:ABCDEFGHIJKLMNOPQRSTU."));
}

TEST_F(ConfirmOnuTypeGatheringTest, EmptyNamesAreNotStored) {
  Hooks().onu.vendor_id = "";
  Hooks().onu.device_name = "";
  const OnuAbilityProfile& report = Gather();
  EXPECT_FALSE(Holds(report, 1082));
  EXPECT_FALSE(Holds(report, 1083));
  EXPECT_TRUE(host.ClaimLog(4, "onu_device_name:."));
}

TEST_F(ConfirmOnuTypeGatheringTest, AskedValuesAreStoredAndUnfilledOnesStayWildcards) {
  Hooks().onu.values = {{1020, 2U}};
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Number(report, 1020), 2U);
  EXPECT_FALSE(Holds(report, 1010));
  EXPECT_EQ(Number(report, 1010), 0xFFFFFFFFU);
}

TEST_F(ConfirmOnuTypeGatheringTest, AsksOnlyForNumberCodesWithBit1OfTheConfirmType) {
  DefineCode(2001, "COMPARED_ONLY", {{1, 1}});
  DefineCode(2002, "ASKED", {{1, 2}});
  DefineCode(2004, "OTHER_BIT", {{1, 4}});
  DefineCode(2006, "ASKED_TOO", {{1, 6}});
  DefineCode(2007, "TEXT", {{1, 3}, {5, 3}});
  DefineCode(2008, "NO_VALUE_TYPE", {{1, 3}, {5, 0}});
  Gather();
  std::vector<unsigned int> asked;
  for (const HookCall& call : Hooks().calls) {
    if (call.id == 6) {
      asked.push_back(call.argument);
    }
  }
  EXPECT_EQ(asked, (std::vector<unsigned int>{1020, 1002, 1010, 2002, 2006}));
}

TEST_F(ConfirmOnuTypeGatheringTest, AbsentAttributesReadAsZeroAndAreAddedToTheRecord) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records = OnuAbilityCodeInfo::GetInstance()->Get();
  ONU_ABILITY_CODE_ATTR_INFO& record = records.at(5);
  ASSERT_EQ(record.ability_code, 1020U);
  record.ability_attr.clear();
  Hooks().onu.values = {{1020, 2U}};
  const OnuAbilityProfile& report = Gather();
  EXPECT_FALSE(Holds(report, 1020));
  const std::map<ONU_ABILITY_ENUM_ABILITY_ATTR_ID, unsigned short> expected = {
      {ONU_ABILITY_ATTR_CONFIRM_TYPE, 0}, {ONU_ABILITY_ATTR_VALUE_TYPE, 0}};
  EXPECT_EQ(records.at(5).ability_attr, expected);
  EXPECT_TRUE(host.ClaimLog(4, "confirm_type_attr_value:0, ability_value_type_attr_value:0"));
}

// --- The private capability.

TEST_F(ConfirmOnuTypeGatheringTest, UnknownPrivateCapabilityGivesTheWildcardUnderCode1002) {
  Hooks().onu.values[1002] = 1U;
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 0xFF;
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Number(report, 1002), 0xFFFFFFFFU);
  EXPECT_EQ(onu_._private_capability, 0xFFU);
}

TEST_F(ConfirmOnuTypeGatheringTest, KnownPrivateCapabilityReplacesTheReportedOne) {
  Hooks().onu.values[1002] = 1U;
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 0;
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(Number(report, 1002), 0U);
  EXPECT_TRUE(host.ClaimLog(4, "onu_capa_private:0"));
}

TEST_F(ConfirmOnuTypeGatheringTest, LowByteOfTheReportedCapabilityStandsInForThePrivateOne) {
  Hooks().onu.values[1002] = 0x1201U;
  const OnuAbilityProfile& report = Gather();
  EXPECT_EQ(onu_._private_capability, 1U);
  EXPECT_EQ(Number(report, 1002), 1U);
  EXPECT_TRUE(host.ClaimLog(4, "onu_capa_private:1"));
}

// --- The log of a whole report.

TEST_F(ConfirmOnuTypeGatheringTest, LogsEveryStepInOrder) {
  Hooks().onu.reported_type = 700;
  Hooks().onu.values = {{1020, 2U}};
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 1;
  Hooks().onu.device_name = "HOME-1";
  Gather();
  EXPECT_EQ(TakeConfirmationLog(),
            (std::vector<LogLine>{
                Log(4, "type_from_onu_report:700"),
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"),  // 1085
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"),  // 1080
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"),  // 1081
                Log(4, "confirm_type_attr_value:1, ability_value_type_attr_value:3"),  // 1082
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:3"),  // 1083
                Log(4, "confirm_type_attr_value:3, ability_value_type_attr_value:2"),
                Log(4, "ability_code:1020, ability_name:POTS_PORTS, ability_value:2"),
                Log(4, "confirm_type_attr_value:3, ability_value_type_attr_value:2"),
                Log(4, "ability_code:1002, ability_name:ONU_CAPA, ability_value:-1"),
                Log(4, "confirm_type_attr_value:3, ability_value_type_attr_value:2"),
                Log(4, "ability_code:1010, ability_name:FE_PORTS, ability_value:-1"),
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"),  // 1023
                Log(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"),  // 48
                Log(4, "onu_capa_private:1"),
                Log(4, "onu_device_name:HOME-1."),
            }));
}

TEST_F(ConfirmOnuTypeTest, WhatIsGatheredIsSaidByInit) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ("Init",
            SaidBy("confirm_type_attr_value:3, ability_value_type_attr_value:2", host.TakeLog()));
}

// --- Attributes are read from the record, not through the attribute registry,
// which answers "absent" for an id that it does not know.

class ConfirmOnuTypeBareRegistryTest : public LibraryTest {};

TEST_F(ConfirmOnuTypeBareRegistryTest, UnregisteredConfirmTypeReadsAsZeroAndIsAdded) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = 1010;
  record.ability_name = "FE_PORTS";
  OnuAbilityCodeInfo::GetInstance()->Get().push_back(record);
  RegisterHooks();
  host.ForgetLog();
  ConfirmOnuType onu(1, 1);
  onu.Init();
  EXPECT_TRUE(host.ClaimLog(4, "confirm_type_attr_value:0, ability_value_type_attr_value:2"));
  for (const HookCall& call : Hooks().calls) {
    EXPECT_NE(call.id, 6);
  }
  const auto& attributes = OnuAbilityCodeInfo::GetInstance()->Get().at(0).ability_attr;
  EXPECT_EQ(attributes.at(ONU_ABILITY_ATTR_CONFIRM_TYPE), 0U);
  host.ForgetLog();  // the profile asks for the port types of its codes, a rule breach here
}

}  // namespace
