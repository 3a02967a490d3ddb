// A hook that fails costs what it would have told, and nothing else.
#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeFailingHooksTest : public ConfirmOnuTypeTest {};

TEST_F(ConfirmOnuTypeFailingHooksTest, FailingHook0LeavesTheVendorIdentifierUnset) {
  Hooks().onu.status[0] = 1;
  Hooks().onu.vendor_id = "ZKWM";
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_FALSE(Holds(onu, 1082));
  EXPECT_EQ(CallsOf(1), 1U);
}

TEST_F(ConfirmOnuTypeFailingHooksTest, FailingHook9LeavesTheDeviceNameUnsetAndUnlogged) {
  Hooks().onu.status[9] = 0x80000001U;
  Hooks().onu.device_name = "HOME-1";
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_FALSE(Holds(Hooks().handed_over.at(0), 1083));
  for (const LogLine& line : host.TakeLog()) {
    EXPECT_EQ(line.text.find("onu_device_name"), std::string::npos) << line;
  }
}

// The hooks whose result does not count. They do what the scripted ones do and
// then report a failure.

template <unsigned short id, typename... Arguments>
unsigned int DoAndFail(Arguments... arguments) {
  reinterpret_cast<unsigned int (*)(Arguments...)>(HookFunction(id))(arguments...);
  return 0x80000003U;
}

unsigned int CapabilityAndFail(unsigned short place, unsigned char onu, unsigned short setting_3,
                               unsigned char* capability) {
  return DoAndFail<2>(place, onu, setting_3, capability);
}
unsigned int HandOverAndFail(unsigned short place, unsigned char onu, unsigned int stage,
                             ConfirmOnuType* profile) {
  return DoAndFail<3>(place, onu, stage, profile);
}
unsigned int RealTypeAndFail(unsigned short place, unsigned char onu, unsigned short type) {
  return DoAndFail<4>(place, onu, type);
}
unsigned int ReportTypeAndFail(unsigned short place, unsigned char onu, unsigned short type) {
  return DoAndFail<5>(place, onu, type);
}
unsigned int ValueAndFail(unsigned short place, unsigned char onu, unsigned short code,
                          unsigned int* value) {
  return DoAndFail<6>(place, onu, code, value);
}
unsigned int SettingAndFail(unsigned int index, unsigned short place, unsigned short* setting) {
  return DoAndFail<7>(index, place, setting);
}

TEST_F(ConfirmOnuTypeFailingHooksTest, ResultsOfHooks2To7DoNotCount) {
  ReplaceHook(2, &CapabilityAndFail);
  ReplaceHook(3, &HandOverAndFail);
  ReplaceHook(4, &RealTypeAndFail);
  ReplaceHook(5, &ReportTypeAndFail);
  ReplaceHook(6, &ValueAndFail);
  ReplaceHook(7, &SettingAndFail);
  Hooks().onu.values[1020] = 2;
  Hooks().onu.settings[2] = 3;
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 1;
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(Number(onu, 1020), 2U);
  EXPECT_EQ(Number(onu, 1002), 1U);
  EXPECT_EQ(onu._identify_setting[2], 3U);
  EXPECT_EQ(CallsOf(3), 2U);
  EXPECT_EQ(CallsOf(4) + CallsOf(5), 2U);
}

// --- Hooks that fill nothing.

unsigned int FillNoSetting(unsigned int, unsigned short, unsigned short*) { return 1; }
unsigned int FillNoCapability(unsigned short, unsigned char, unsigned short, unsigned char*) {
  return 1;
}
unsigned int FillNoValue(unsigned short, unsigned char, unsigned short, unsigned int*) { return 1; }

TEST_F(ConfirmOnuTypeFailingHooksTest, UnfilledSettingsStayZeroAndUnfilledValuesWildcards) {
  ReplaceHook(7, &FillNoSetting);
  ReplaceHook(2, &FillNoCapability);
  ReplaceHook(6, &FillNoValue);
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  for (const unsigned short setting : onu._identify_setting) {
    EXPECT_EQ(setting, 0U);
  }
  EXPECT_EQ(onu._private_capability, 0xFFU);
  EXPECT_EQ(Number(onu, 1002), 0xFFFFFFFFU);
  EXPECT_EQ(Number(onu, 1010), 0xFFFFFFFFU);
  EXPECT_EQ(Number(onu, 1020), 0xFFFFFFFFU);
}

TEST_F(ConfirmOnuTypeFailingHooksTest, AnOnuThatAnswersNothingIsConfirmedAsItself) {
  ReplaceHook(6, &FillNoValue);
  Hooks().onu.status[0] = 1;
  Hooks().onu.status[9] = 1;
  Hooks().onu.reported_type = 700;
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(LastArgument(4), 0xFFFFU);
  EXPECT_EQ(LastArgument(5), 700U);
}

}  // namespace
