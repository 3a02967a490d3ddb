// When confirmation calls which hook, with what, and what a hook finds in the
// places that it is to fill.
#include <algorithm>

#include "confirm_onu_type_fixture.h"

namespace {

class ConfirmOnuTypeHooksTest : public ConfirmOnuTypeTest {};

TEST_F(ConfirmOnuTypeHooksTest, CallsEveryHookInOrderWithItsArguments) {
  Hooks().onu.reported_type = 700;
  Hooks().onu.settings[3] = 44;
  AddToTable(Pattern(700, 601));
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  // Hook 7 comes first, with its index, and is given no ONU number.
  EXPECT_EQ(Calls(), (std::vector<std::string>{
                         "7:513,0", "7:513,1", "7:513,2", "7:513,3", "0:513,9,0", "1:513,9,0",
                         "8:513,9,0", "6:513,9,1020", "6:513,9,1002", "6:513,9,1010", "2:513,9,44",
                         "9:513,9,20", "3:513,9,0", "3:513,9,2", "4:513,9,601", "5:513,9,700"}));
}

TEST_F(ConfirmOnuTypeHooksTest, GatheringAloneCallsNoHookOfTheResult) {
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  ASSERT_FALSE(Hooks().calls.empty());
  EXPECT_EQ(Hooks().calls.back().id, 3);
  EXPECT_EQ(Hooks().calls.back().argument, 0U);
  EXPECT_EQ(CallsOf(4) + CallsOf(5), 0U);
}

TEST_F(ConfirmOnuTypeHooksTest, NotReadingOneByOneSkipsHooks6And2And9AndCode1002) {
  Hooks().onu.read_one_by_one = 0;
  Hooks().onu.values[1002] = 1;
  Hooks().onu.set_private_capability = true;
  Hooks().onu.private_capability = 1;
  Hooks().onu.device_name = "HOME-1";
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(Calls(),
            (std::vector<std::string>{"7:513,0", "7:513,1", "7:513,2", "7:513,3", "0:513,9,0",
                                      "1:513,9,0", "8:513,9,0", "3:513,9,0"}));
  EXPECT_FALSE(Holds(onu, 1002));
  EXPECT_FALSE(Holds(onu, 1083));
  EXPECT_EQ(onu._private_capability, 0xFFU);
  for (const LogLine& line : TakeConfirmationLog()) {
    EXPECT_EQ(line.text, "type_from_onu_report:0");
  }
}

TEST_F(ConfirmOnuTypeHooksTest, AnyAnswerOfHook8ButZeroReadsOneByOne) {
  Hooks().onu.read_one_by_one = 0x80000000U;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(CallsOf(6), 3U);
  EXPECT_EQ(CallsOf(2), 1U);
  EXPECT_EQ(CallsOf(9), 1U);
}

TEST_F(ConfirmOnuTypeHooksTest, IdentifySettingsAreKeptByIndex) {
  const unsigned short settings[4] = {11, 22, 33, 44};
  std::copy(settings, settings + 4, Hooks().onu.settings);
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(std::vector<unsigned short>(onu._identify_setting, onu._identify_setting + 4),
            std::vector<unsigned short>(settings, settings + 4));
}

TEST_F(ConfirmOnuTypeHooksTest, EveryValueIsPresetToTheWildcard) {
  Hooks().onu.values = {{1020, 2U}, {1002, 1U}};
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(Hooks().presets, std::vector<unsigned int>(3, 0xFFFFFFFFU));
}

// --- What a hook finds, seen from a hook of the test's own.

std::string g_vendor_buffer;
std::string g_device_buffer;
int g_capability_found = -1;
std::vector<const ConfirmOnuType*> g_handed_over;

unsigned int LookAtVendorBuffer(unsigned short, unsigned char, char* vendor_id) {
  g_vendor_buffer.assign(vendor_id, 5);
  std::string("VEND").copy(vendor_id, 4);
  return 0;
}

unsigned int LookAtDeviceBuffer(unsigned short, unsigned char, unsigned int, char* device_name) {
  g_device_buffer.assign(device_name, 21);
  return 0;
}

unsigned int LookAtCapability(unsigned short, unsigned char, unsigned short,
                              unsigned char* private_capability) {
  g_capability_found = *private_capability;
  return 0;
}

unsigned int LookAtProfile(unsigned short, unsigned char, unsigned int, ConfirmOnuType* profile) {
  g_handed_over.push_back(profile);
  return 0;
}

TEST_F(ConfirmOnuTypeHooksTest, BuffersOfHooks0And9AreZeroFilled) {
  ReplaceHook(0, &LookAtVendorBuffer);
  ReplaceHook(9, &LookAtDeviceBuffer);
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(g_vendor_buffer, std::string(5, '\0'));
  EXPECT_EQ(g_device_buffer, std::string(21, '\0'));
}

TEST_F(ConfirmOnuTypeHooksTest, Hook2FindsTheCapabilityUnknown) {
  ReplaceHook(2, &LookAtCapability);
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(g_capability_found, 0xFF);
}

TEST_F(ConfirmOnuTypeHooksTest, Hook2FindsTheLowByteOfTheReportedCapability) {
  ReplaceHook(2, &LookAtCapability);
  Hooks().onu.values[1002] = 0x1201U;
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Init();
  EXPECT_EQ(g_capability_found, 0x01);
}

TEST_F(ConfirmOnuTypeHooksTest, Hook3GetsTheConfirmationItselfBothTimes) {
  ReplaceHook(3, &LookAtProfile);
  ConfirmOnuType onu(kPlace, kOnu);
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(g_handed_over, (std::vector<const ConfirmOnuType*>{&onu, &onu}));
}

// --- A missing hook.

class ConfirmOnuTypeMissingHookTest : public LibraryTest,
                                      public ::testing::WithParamInterface<unsigned short> {};

TEST_P(ConfirmOnuTypeMissingHookTest, StopsPerformBeforeAnyHookIsCalled) {
  DefineUsualCodes();
  InitTables();
  RegisterHooksExcept(GetParam());
  Hooks().onu.reported_type = 700;
  AddToTable(MakeMatchProfile(700, 601));
  ConfirmOnuType onu(0x0201, 9);
  host.ForgetLog();
  EXPECT_EQ(onu.Perform(), ONU_ABILITY_RET_NULL_PTR);
  EXPECT_TRUE(Hooks().calls.empty());
  EXPECT_TRUE(onu._common_ability.empty());
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(13, "there is null pointer!")});
}

INSTANTIATE_TEST_SUITE_P(EachHook, ConfirmOnuTypeMissingHookTest,
                         ::testing::Range<unsigned short>(0, 10));

}  // namespace
