// The answers of the ten hooks, called as the library calls them.
#include <gtest/gtest.h>

#include "catalogue/reports.h"
#include "confirmation/hooks.h"
#include "confirmation/population.h"
#include "host_files.h"
#include "onu_ability_common_reg_extern_func.h"

namespace olt_host_test {
namespace {

class SilentObserver : public olt_host::ConfirmationObserver {
 public:
  void OnProfile(unsigned int stage, const ConfirmOnuType& /*profile*/) override {
    stages.push_back(stage);
  }
  void OnRealType(std::uint16_t type) override { real_type = type; }
  void OnReportType(std::uint16_t type) override { report_type = type; }

  std::vector<unsigned int> stages;
  std::uint16_t real_type = 0;
  std::uint16_t report_type = 0;
};

olt_host::Population TwoOnus() {
  olt_host::Reports reports;
  reports.default_settings = {10, 11, 12, 13};
  reports.settings[7] = {20, 21, 22, 23};
  olt_host::OnuReport telling;
  telling.place = 7;
  telling.onu = 1;
  telling.vendor_id = "ACME";
  telling.reported_type = 1201;
  telling.private_capability = 1;
  telling.device_name = "A name of 20 bytes..";
  telling.abilities = {{47, 4}};
  olt_host::OnuReport silent;
  silent.place = 7;
  silent.onu = 2;
  silent.read_abilities = false;
  reports.onus = {telling, silent};
  return olt_host::Population(reports);
}

class Hooks : public testing::Test {
 protected:
  Hooks() : _population(TwoOnus()), _context(_population, _observer) { olt_host::RegisterHooks(); }

  olt_host::Population _population;
  SilentObserver _observer;
  olt_host::ScopedHookContext _context;
  OnuAbilityRegExternFunc& _hooks = *OnuAbilityRegExternFunc::GetInstance();
};

TEST_F(Hooks, AllTenAreRegistered) { EXPECT_TRUE(_hooks.WhetherExternFuncRegistered()); }

TEST(HookBuffers, HoldWhatStandsBehindTheTerminatorWithinTheLimit) {
  olt_host::Reports reports;
  olt_host::OnuReport report;
  report.vendor_id = "ZK";
  report.behind_vendor_id = "\x01xyz";
  report.device_name = "NAME";
  report.behind_device_name = "garbage";
  reports.onus = {report};
  const olt_host::Population population(reports);
  SilentObserver observer;
  const olt_host::ScopedHookContext context(population, observer);
  olt_host::RegisterHooks();
  OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  char vendor_id[5] = {};
  hooks._get_vendor_id(0, 0, vendor_id);
  EXPECT_EQ(std::string(vendor_id, sizeof(vendor_id)), std::string("ZK\0\x01\0", 5));
  char name[21] = {};
  hooks._get_device_name(0, 0, 20, name);
  EXPECT_EQ(std::string(name, 13), std::string("NAME\0garbage\0", 13));
}

TEST_F(Hooks, VendorIdentifier) {
  char vendor_id[5] = {};
  EXPECT_EQ(_hooks._get_vendor_id(7, 1, vendor_id), 0U);
  EXPECT_STREQ(vendor_id, "ACME");
}

TEST_F(Hooks, ReportedType) { EXPECT_EQ(_hooks._get_report_type(7, 1), 1201U); }

TEST_F(Hooks, PrivateCapability) {
  unsigned char capability = 0xFF;
  _hooks._get_private_capability(7, 1, 0, &capability);
  EXPECT_EQ(capability, 1);
}

TEST_F(Hooks, AbilityValue) {
  unsigned int value = 0xFFFFFFFF;
  _hooks._get_ability_value(7, 1, 47, &value);
  EXPECT_EQ(value, 4U);
  value = 0xFFFFFFFF;
  _hooks._get_ability_value(7, 1, 24, &value);
  EXPECT_EQ(value, 0xFFFFFFFFU);
}

TEST_F(Hooks, IdentifySettingsOfThePlaceOrTheDefault) {
  for (unsigned short index = 0; index < 4; ++index) {
    unsigned short setting = 0;
    _hooks._get_identify_setting(index, 7, &setting);
    EXPECT_EQ(setting, 20 + index);
    _hooks._get_identify_setting(index, 8, &setting);
    EXPECT_EQ(setting, 10 + index);
  }
  unsigned short untouched = 99;
  EXPECT_NE(_hooks._get_identify_setting(4, 7, &untouched), 0U);
  EXPECT_EQ(untouched, 99);
}

TEST_F(Hooks, WhetherToReadOneByOne) {
  EXPECT_NE(_hooks._read_one_by_one(7, 1), 0U);
  EXPECT_EQ(_hooks._read_one_by_one(7, 2), 0U);
}

TEST_F(Hooks, DeviceName) {
  char device_name[21] = {};
  EXPECT_EQ(_hooks._get_device_name(7, 1, 20, device_name), 0U);
  EXPECT_STREQ(device_name, "A name of 20 bytes..");
}

TEST_F(Hooks, WhatIsConfirmedReachesTheObserver) {
  ConfirmOnuType profile(7, 1);
  _hooks._hand_over_profile(7, 1, 0, &profile);
  _hooks._hand_over_profile(7, 1, 2, &profile);
  _hooks._set_real_type(7, 1, 5);
  _hooks._set_report_type(7, 1, 6);
  EXPECT_EQ(_observer.stages, (std::vector<unsigned int>{0, 2}));
  EXPECT_EQ(_observer.real_type, 5);
  EXPECT_EQ(_observer.report_type, 6);
}

// What an ONU does not tell, and all of an ONU that nobody knows.
void ExpectNoAnswers(const OnuAbilityRegExternFunc& hooks, unsigned short place,
                     unsigned char onu) {
  char text[21] = {};
  unsigned char capability = 0x55;
  unsigned int value = 0x55;
  EXPECT_NE(hooks._get_vendor_id(place, onu, text), 0U);
  EXPECT_NE(hooks._get_device_name(place, onu, 20, text), 0U);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(hooks._get_report_type(place, onu), 0xFFFFFFFFU);
  hooks._get_private_capability(place, onu, 0, &capability);
  EXPECT_EQ(capability, 0x55);
  hooks._get_ability_value(place, onu, 47, &value);
  EXPECT_EQ(value, 0x55U);
  EXPECT_EQ(hooks._read_one_by_one(place, onu), 0U);
}

TEST_F(Hooks, OnuThatTellsNothing) { ExpectNoAnswers(_hooks, 7, 2); }

TEST_F(Hooks, OnuThatIsNotThere) {
  ExpectNoAnswers(_hooks, 7, 3);
  ExpectNoAnswers(_hooks, 8, 1);
}

TEST(HooksWithoutContext, AnswerLikeAnOnuThatTellsNothing) {
  olt_host::RegisterHooks();
  const OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  ExpectNoAnswers(hooks, 7, 1);
  unsigned short setting = 99;
  EXPECT_NE(hooks._get_identify_setting(0, 7, &setting), 0U);
  EXPECT_EQ(setting, 99);
  ConfirmOnuType profile(7, 1);
  hooks._hand_over_profile(7, 1, 0, &profile);
  hooks._set_real_type(7, 1, 1);
  hooks._set_report_type(7, 1, 1);
}

TEST_F(Hooks, ContextsNestAndEnd) {
  {
    const olt_host::Population nobody{olt_host::Reports()};
    SilentObserver observer;
    const olt_host::ScopedHookContext inner(nobody, observer);
    EXPECT_EQ(_hooks._get_report_type(7, 1), 0xFFFFFFFFU);
  }
  EXPECT_EQ(_hooks._get_report_type(7, 1), 1201U);
}

}  // namespace
}  // namespace olt_host_test
