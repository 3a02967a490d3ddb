// The translation of the reported type by the identify modes.
#include <tuple>

#include "confirm_onu_type_fixture.h"

namespace {

constexpr unsigned short kSfuCommonType = 4001;
constexpr unsigned short kHguCommonType = 4002;

class ConfirmOnuTypeTranslationTest : public ConfirmOnuTypeTest {
 protected:
  void SetUp() override {
    ConfirmOnuTypeTest::SetUp();
    OnuAbilityRegExternFunc::GetInstance()->SetSfuCommonType(kSfuCommonType);
    OnuAbilityRegExternFunc::GetInstance()->SetHguCommonType(kHguCommonType);
    Hooks().onu.reported_type = 700;
    pattern_ = Pattern(700, 601);
    real_ = MakeRealProfile(700, 601);
  }

  // Whatever the capability, 0 included, the real profile states it.
  void HasCapability(unsigned int capability) { real_.UpdateInit(1002, capability); }
  void IsTranslated() { real_.UpdateInit(1023, 1U); }
  // The identify settings of the OLT.
  static void HasModes(unsigned short sfu_mode, unsigned short hgu_mode) {
    Hooks().onu.settings[0] = sfu_mode;
    Hooks().onu.settings[2] = hgu_mode;
  }

  void Perform() {
    AddToTable(pattern_);
    AddToTable(real_);
    host.ForgetLog();
    EXPECT_EQ(onu_.Perform(), ONU_ABILITY_RET_OK);
  }

  // The type in the hand-over and the one told to the host agree.
  void ExpectReportType(unsigned int type) {
    EXPECT_EQ(LastArgument(5), type);
    EXPECT_EQ(Number(onu_, 1080), type);
    EXPECT_EQ(Number(Hooks().handed_over.back(), 1080), type);
    EXPECT_EQ(onu_._report_type, type);
  }

  OnuAbilityProfile pattern_;
  OnuAbilityProfile real_;
  ConfirmOnuType onu_{kPlace, kOnu};
};

// --- The whole decision table.

enum Vendor { kZkwm, kOtherVendor, kEmptyVendor, kNoVendor };

// Capability, SFU mode, HGU mode, vendor identifier of the match profile.
using Case = std::tuple<unsigned int, unsigned short, unsigned short, Vendor>;

// What each HGU mode makes of an HGU whose vendor identifier is "ZKWM" or empty,
// and of any other.
struct HguRule {
  unsigned int zkwm;
  unsigned int other;
};
constexpr HguRule kHguRules[] = {
    {700, 700},                        // 0
    {kSfuCommonType, kSfuCommonType},  // 1
    {kHguCommonType, kHguCommonType},  // 2
    {700, kHguCommonType},             // 3
    {kHguCommonType, 700},             // 4
    {700, 700},                        // 5
};

unsigned int ExpectedType(const Case& row) {
  const auto& [capability, sfu_mode, hgu_mode, vendor] = row;
  if (capability == 0) {
    return sfu_mode == 1 ? kSfuCommonType : 700U;
  }
  if (capability == 1) {
    const HguRule& rule = kHguRules[hgu_mode];
    return vendor == kZkwm || vendor == kEmptyVendor ? rule.zkwm : rule.other;
  }
  return 700U;
}

class ConfirmOnuTypeDecisionTest : public ConfirmOnuTypeTranslationTest,
                                   public ::testing::WithParamInterface<Case> {
 protected:
  void HasVendor(Vendor vendor) {
    static const char* const kTexts[] = {"ZKWM", "ABCD", ""};
    if (vendor != kNoVendor) {
      pattern_.UpdateInit(1082, std::string(kTexts[vendor]));
    }
  }
};

TEST_P(ConfirmOnuTypeDecisionTest, ChoosesTheReportType) {
  const auto& [capability, sfu_mode, hgu_mode, vendor] = GetParam();
  HasCapability(capability);
  HasModes(sfu_mode, hgu_mode);
  HasVendor(vendor);
  IsTranslated();
  Perform();
  ExpectReportType(ExpectedType(GetParam()));
}

std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  static const char* const kVendors[] = {"Zkwm", "OtherVendor", "EmptyVendor", "NoVendor"};
  const auto& [capability, sfu_mode, hgu_mode, vendor] = info.param;
  return "Capability" + std::to_string(capability) + "SfuMode" + std::to_string(sfu_mode) +
         "HguMode" + std::to_string(hgu_mode) + kVendors[vendor];
}

INSTANTIATE_TEST_SUITE_P(
    EachMode, ConfirmOnuTypeDecisionTest,
    ::testing::Combine(::testing::Values(0U, 1U, 2U), ::testing::Values<unsigned short>(0, 1, 2),
                       ::testing::Values<unsigned short>(0, 1, 2, 3, 4, 5),
                       ::testing::Values(kZkwm, kOtherVendor, kEmptyVendor, kNoVendor)),
    CaseName);

// --- Single rules.

TEST_F(ConfirmOnuTypeTranslationTest, HguOfAnotherVendorGetsTheHguCommonTypeInMode3) {
  HasCapability(1);
  HasModes(0, 3);
  IsTranslated();
  pattern_.Add(1082, std::string("ABCD"));
  Perform();
  ExpectReportType(kHguCommonType);
}

TEST_F(ConfirmOnuTypeTranslationTest, HguOfAnotherVendorKeepsItsTypeInMode4) {
  HasCapability(1);
  HasModes(0, 4);
  IsTranslated();
  pattern_.Add(1082, std::string("ABCD"));
  Perform();
  ExpectReportType(700);
}

TEST_F(ConfirmOnuTypeTranslationTest, RealProfileWithoutTranslateFlagNeverTranslates) {
  HasCapability(1);
  HasModes(1, 2);
  Perform();
  ExpectReportType(700);
}

TEST_F(ConfirmOnuTypeTranslationTest, TranslateFlagOf0NeverTranslates) {
  HasCapability(1);
  HasModes(1, 2);
  real_.UpdateInit(1023, 0U);
  Perform();
  ExpectReportType(700);
}

TEST_F(ConfirmOnuTypeTranslationTest, AnyTranslateFlagBut0Translates) {
  HasCapability(1);
  HasModes(0, 2);
  real_.UpdateInit(1023, 0x100U);
  Perform();
  ExpectReportType(kHguCommonType);
}

// The flag is that of the real profile; one in the pattern means nothing.
TEST_F(ConfirmOnuTypeTranslationTest, TranslateFlagOfTheMatchProfileDoesNotCount) {
  HasCapability(1);
  HasModes(0, 2);
  pattern_.Add(1023, 1U);
  Perform();
  ExpectReportType(700);
}

TEST_F(ConfirmOnuTypeTranslationTest, MissingCapabilityIsLoggedAndCountsAsSfu) {
  HasModes(1, 2);
  IsTranslated();
  Perform();
  ExpectReportType(kSfuCommonType);
  EXPECT_TRUE(host.ClaimLog(4, "GetOnucapa failed!onu_capa:0"));
}

TEST_F(ConfirmOnuTypeTranslationTest, CapabilityOfTheMatchProfileDoesNotCount) {
  HasCapability(1);
  HasModes(1, 0);
  IsTranslated();
  pattern_.Add(1002, 0U);
  Perform();
  ExpectReportType(700);
}

// The choice is written with an update, which does not add a code; the host is
// told all the same.
TEST_F(ConfirmOnuTypeTranslationTest, MatchProfileWithoutReportTypeDoesNotGetOne) {
  HasCapability(1);
  HasModes(0, 2);
  IsTranslated();
  pattern_.Del(1080);
  Perform();
  EXPECT_FALSE(Holds(onu_, 1080));
  EXPECT_EQ(LastArgument(5), kHguCommonType);
}

TEST_F(ConfirmOnuTypeTranslationTest, LogsTheTranslation) {
  HasCapability(1);
  HasModes(6, 2);
  IsTranslated();
  pattern_.Update(1080, 650U);
  real_.Add(1083, std::string("HOME-1"));
  Perform();
  std::vector<LogLine> log = TakeConfirmationLog();
  ASSERT_GE(log.size(), 3U);
  log.erase(log.begin(), log.end() - 3);
  EXPECT_EQ(log, (std::vector<LogLine>{
                     Log(4, "onu_capa:1,sfu_identify_mode:6,hgu_identify_mode:2"),
                     Log(4,
                         "(before trans type)_key_ability_value:700,onu_reporttype:650, "
                         "trans_type_by_hsw:1"),
                     Log(4, "(after trans type)onu_realtype:700,onu_reporttype:4002"),
                 }));
}

TEST_F(ConfirmOnuTypeTranslationTest, StepAnswers0AndReadsTheKeyValueAnew) {
  AddToTable(real_);
  ConfirmOnuType onu(kPlace, kOnu);
  onu.Add(700U);
  onu.Add(1080, 650U);
  EXPECT_EQ(onu.TransOnutypeByHswSwitch(), ONU_ABILITY_RET_OK);
  EXPECT_EQ(onu._key_ability_value, 700U);
  EXPECT_EQ(onu._report_type, 650U);
}

class ConfirmOnuTypeCommonTypesTest : public ConfirmOnuTypeTest {
 protected:
  // The report type told for an ONU of this capability when both modes translate.
  unsigned int TranslatedType(unsigned int capability) {
    Hooks().onu.reported_type = 700;
    Hooks().onu.settings[0] = 1;
    Hooks().onu.settings[2] = 2;
    AddToTable(Pattern(700, 601));
    OnuAbilityProfile real = MakeRealProfile(700, 601);
    real.UpdateInit(1002, capability);
    real.UpdateInit(1023, 1U);
    AddToTable(real);
    ConfirmOnuType onu(kPlace, kOnu);
    onu.Perform();
    return LastArgument(5);
  }
};

TEST_F(ConfirmOnuTypeCommonTypesTest, SfuCommonTypeIs857UntilTheHostSetsAnother) {
  EXPECT_EQ(TranslatedType(0), 857U);
}

TEST_F(ConfirmOnuTypeCommonTypesTest, HguCommonTypeIs762UntilTheHostSetsAnother) {
  EXPECT_EQ(TranslatedType(1), 762U);
}

}  // namespace
