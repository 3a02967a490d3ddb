// Each hook answers nonsense, in each place where it is asked: statuses, lengths, texts
// without an end, numbers from one end of their range to the other. The confirmation
// ends, tells the host its types once, and leaves tables and registries alone.
#include <gtest/gtest.h>

#include "observed_call.h"
#include "prepared_library.h"
#include "short_ways/texts.h"
#include "support/recording_host.h"
#include "support/scripted_hooks.h"

namespace {

const std::vector<unsigned int> kWildNumbers = {
    0,           1,           2,           0x7F,        0xFF,       0x100,
    0x7FFF,      0x8000,      0xFFFE,      0xFFFF,      0x10000,    0x7FFFFFFF,
    0x80000000U, 0x80000001U, 0x80000004U, 0xFFFFFFFEU, 0xFFFFFFFFU};

// One answer of the ONU or of a hook, set to a number.
struct Answer {
  const char* name;
  void (*set)(ScriptedOnu& onu, unsigned int number);
};

template <int kHook>
void SetStatus(ScriptedOnu& onu, unsigned int number) {
  onu.status[kHook] = number;
}

template <int kIndex>
void SetSetting(ScriptedOnu& onu, unsigned int number) {
  onu.settings[kIndex] = static_cast<unsigned short>(number);
}

const std::vector<Answer> kAnswers = {
    {"VendorStatus", SetStatus<0>},
    {"PrivateCapabilityStatus", SetStatus<2>},
    {"HandOverStatus", SetStatus<3>},
    {"RealTypeStatus", SetStatus<4>},
    {"ReportTypeStatus", SetStatus<5>},
    {"ValueStatus", SetStatus<6>},
    {"SettingStatus", SetStatus<7>},
    {"DeviceNameStatus", SetStatus<9>},
    {"ReportedType", [](ScriptedOnu& onu, unsigned int n) { onu.reported_type = n; }},
    {"PrivateCapability",
     [](ScriptedOnu& onu, unsigned int n) {
       onu.private_capability = static_cast<unsigned char>(n);
     }},
    {"Value1002", [](ScriptedOnu& onu, unsigned int n) { onu.values[1002] = n; }},
    {"Value1010", [](ScriptedOnu& onu, unsigned int n) { onu.values[1010] = n; }},
    {"Value1020", [](ScriptedOnu& onu, unsigned int n) { onu.values[1020] = n; }},
    {"Setting0", SetSetting<0>},
    {"Setting1", SetSetting<1>},
    {"Setting2", SetSetting<2>},
    {"Setting3", SetSetting<3>},
    {"ReadOneByOne", [](ScriptedOnu& onu, unsigned int n) { onu.read_one_by_one = n; }},
    {"VendorLength",
     [](ScriptedOnu& onu, unsigned int n) { onu.vendor_id = std::string(n % 6, 'V'); }},
    {"DeviceNameLength",
     [](ScriptedOnu& onu, unsigned int n) { onu.device_name = std::string(n % 22, 'N'); }},
    {"VendorBytes",
     [](ScriptedOnu& onu, unsigned int n) {
       onu.vendor_id = std::string(5, static_cast<char>(n % 255 + 1));
     }},
    {"DeviceNameBytes",
     [](ScriptedOnu& onu, unsigned int n) {
       onu.device_name = std::string(21, static_cast<char>(n % 255 + 1));
     }},
};

unsigned int CallsOf(int id) {
  unsigned int count = 0;
  for (const HookCall& call : Hooks().calls) {
    count += call.id == id ? 1 : 0;
  }
  return count;
}

class WildHooks : public ::testing::TestWithParam<size_t> {
 protected:
  void Confirm(unsigned int number) {
    SCOPED_TRACE(number);
    const ScriptedOnu usual = Hooks().onu;
    kAnswers[GetParam()].set(Hooks().onu, number);
    Hooks().calls.clear();
    ConfirmOnuType onu(3, 4);
    EXPECT_EQ(ONU_ABILITY_RET_OK, onu.Perform());
    EXPECT_EQ(1U, CallsOf(4));
    EXPECT_EQ(1U, CallsOf(5));
    EXPECT_EQ(2U, CallsOf(3));
    Hooks().onu = usual;
  }
};

void ExpectUntouched(Service service, const std::function<void()>& confirm) {
  PrepareLibrary(service);
  Hooks().onu.set_private_capability = true;
  const Call nothing{[] { return 0ULL; }};
  const Observation before = Observe(nothing, 0);
  confirm();
  EXPECT_EQ("", Differences(Observe(nothing, 0), before));
  EXPECT_EQ(0U, RecordingHost::Instance().locks_held());
  EXPECT_EQ(0U, RecordingHost::Instance().blocks_in_use());
  const Answers answers = AskEverything();
  EXPECT_EQ(answers.walks, answers.short_ways);
}

TEST_P(WildHooks, EndInAConfirmationThatIsHeard) {
  ExpectUntouched(Service::kHeard, [this] {
    for (const unsigned int number : kWildNumbers) {
      Confirm(number);
    }
  });
}

TEST_P(WildHooks, EndInAConfirmationThatNobodyHears) {
  ExpectUntouched(Service::kInUse, [this] {
    for (const unsigned int number : kWildNumbers) {
      Confirm(number);
    }
  });
}

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return kAnswers[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, WildHooks, ::testing::Range(size_t{0}, kAnswers.size()), NameOf);

}  // namespace
