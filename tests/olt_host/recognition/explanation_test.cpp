// Explanations of single ONUs in a library made by hand: every road, odd profiles and odd
// reports, each identify mode.
#include "recognition/explanation.h"

#include <gtest/gtest.h>

#include <ctime>
#include <iostream>
#include <map>

#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "host_files.h"
#include "recognition/undisturbed_library.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

using olt_host::CommonType;
using olt_host::Explanation;
using olt_host::IdentifySetting;
using olt_host::LibraryState;
using olt_host::OnuReport;
using olt_host::ProfileFate;
using olt_host::ReportedValue;
using olt_host::Told;

constexpr unsigned short kFe = 24;
constexpr unsigned short kGe = 47;
constexpr unsigned short kVeip = 48;
constexpr unsigned short kCapa = 1002;
constexpr unsigned short kTrans = 1023;
constexpr unsigned short kReport = 1080;
constexpr unsigned short kReal = 1081;
constexpr unsigned short kVendor = 1082;
constexpr unsigned short kName = 1083;
constexpr unsigned short kKey = 1085;
constexpr unsigned int kAny = ONU_ABILITY_WILDCARD;

ONU_ABILITY_CODE_ATTR_INFO Code(unsigned short code, unsigned short value_type,
                                unsigned short confirm_type) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = code;
  record.ability_name = "CODE_" + std::to_string(code);
  record.ability_attr.clear();
  record.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = value_type;
  record.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = confirm_type;
  return record;
}

OnuAbilityProfile Profile(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned short id,
                          const std::map<unsigned short, unsigned int>& numbers,
                          const std::map<unsigned short, std::string>& texts = {}) {
  OnuAbilityProfile profile;
  profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_MATCH_TYPE_EXACT);
  profile._id = id;
  for (const auto& [code, number] : numbers) profile.UpdateInit(code, number);
  for (const auto& [code, text] : texts) profile.UpdateInit(code, text);
  profile._common_ability_num = static_cast<unsigned int>(profile._common_ability.size());
  return profile;
}

class ExplanationOfAnOnu : public testing::Test {
 protected:
  ExplanationOfAnOnu() {
    olt_host::RegisterHooks();
    onu_ability_set_log_level_mask(0);
    state_.attributes = {{1, "CONFIRM_TYPE"}, {5, "VALUE_TYPE"}};
    for (const unsigned short code : {kFe, kGe, kVeip, kCapa})
      state_.codes.push_back(Code(code, 2, 3));
    for (const unsigned short code : {kTrans, kReport, kReal, kKey}) {
      state_.codes.push_back(Code(code, 2, 0));
    }
    for (const unsigned short code : {kVendor, kName}) state_.codes.push_back(Code(code, 3, 1));
    report_.place = 1;
    report_.onu = 2;
  }

  // The newest first, as they are asked.
  void Patterns(std::vector<OnuAbilityProfile> newest_first) {
    state_.match_profiles.assign(newest_first.rbegin(), newest_first.rend());
  }
  static OnuAbilityProfile Pattern(unsigned short id, unsigned int key,
                                   std::map<unsigned short, unsigned int> numbers,
                                   const std::map<unsigned short, std::string>& texts = {}) {
    numbers.insert({{kKey, key}, {kReport, key}, {kReal, key}});
    return Profile(ONU_ABILITY_PROFILE_TYPE_MATCH, id, numbers, texts);
  }
  void RealProfile(unsigned int key, std::map<unsigned short, unsigned int> numbers) {
    numbers[kKey] = key;
    state_.real_profiles.push_back(Profile(ONU_ABILITY_PROFILE_TYPE_REAL,
                                           static_cast<unsigned short>(key), numbers,
                                           {{kName, "TYPE-" + std::to_string(key)}}));
  }

  // Explains, and looks that the library stays as it was and would do the same.
  Explanation Explain(const olt_host::NoteOfProfile& note = nullptr) {
    InstallLibrary(state_);
    olt_host::Reports reports;
    reports.onus = {report_};
    reports.default_settings = settings_;
    const olt_host::Population population(reports);
    const olt_host::ProfileOrigins origins(catalogue_, note);
    const LibraryState before = olt_host::CaptureLibrary();
    Explanation explanation = olt_host::Explainer(origins).Explain(population, report_);
    EXPECT_TRUE(SameState(olt_host::CaptureLibrary(), before));
    const olt_host::ConfirmationResult confirmed = ConfirmOnu(population, report_);
    EXPECT_EQ(explanation.how, confirmed.how);
    EXPECT_EQ(explanation.real_type, confirmed.real_type);
    EXPECT_EQ(explanation.type_name, confirmed.type_name);
    EXPECT_EQ(explanation.report_type, confirmed.report_type);
    return explanation;
  }

  static const ReportedValue& Value(const Explanation& explanation, unsigned short code) {
    for (const ReportedValue& value : explanation.values) {
      if (value.code == code) return value;
    }
    throw std::logic_error("no value under code " + std::to_string(code));
  }

  CleanLibrary library_;
  LibraryState state_;
  olt_host::Catalogue catalogue_;
  OnuReport report_;
  olt_host::IdentifySettings settings_;
};

TEST_F(ExplanationOfAnOnu, TellsForEveryProfileWhatDecidedAndHowNearItWas) {
  Patterns({Pattern(9, 103, {{kFe, 4}, {kGe, 4}, {kCapa, kAny}}, {{kVendor, "ACME"}}),
            Pattern(8, 102, {{kGe, 2}}, {{kVendor, "ZKWM"}}), Pattern(7, 101, {{kGe, 2}}),
            Pattern(6, 100, {{kGe, 3}})});
  report_.reported_type = 4711;
  report_.vendor_id = "ACME";
  report_.private_capability = 1;
  report_.abilities = {{kFe, 0}, {kGe, 2}};
  const Explanation explanation = Explain();
  EXPECT_TRUE(explanation.compared);
  EXPECT_EQ(explanation.winner, 2U);
  ASSERT_EQ(explanation.profiles.size(), 4U);
  const olt_host::ProfileVerdict& newest = explanation.profiles[0];
  EXPECT_EQ(newest.turn, 1U);
  EXPECT_EQ(newest.key, 103U);
  EXPECT_EQ(newest.fate, ProfileFate::kLost);
  ASSERT_TRUE(newest.tally.decider);
  EXPECT_EQ(newest.tally.decider->code, kFe);
  EXPECT_EQ(newest.tally.decider->reported.ability_ushort_value, 0U);
  EXPECT_EQ(newest.tally.decider->held->ability_ushort_value, 4U);
  EXPECT_EQ(newest.tally.against, 2U);    // both kinds of ports
  EXPECT_EQ(newest.tally.wildcards, 1U);  // the capability
  EXPECT_EQ(newest.tally.agrees, 1U);     // the vendor
  EXPECT_EQ(newest.tally.absent, 0U);
  EXPECT_EQ(explanation.profiles[1].tally.decider->code, kVendor);
  EXPECT_EQ(explanation.profiles[1].tally.absent, 2U);
  EXPECT_EQ(explanation.profiles[1].tally.decider->held->ability_string_value, "ZKWM");
  EXPECT_EQ(explanation.profiles[2].fate, ProfileFate::kWon);
  EXPECT_EQ(explanation.profiles[3].fate, ProfileFate::kNeverAsked);
  EXPECT_FALSE(explanation.profiles[3].fits);
}

TEST_F(ExplanationOfAnOnu, TellsValuesApartFromWildcardsAndWhatIsMissing) {
  Patterns({Pattern(9, 100, {})});
  report_.vendor_id = "";
  report_.private_capability = 1;
  report_.abilities = {{kGe, kAny}, {kVeip, 2}, {4000, 7}};
  const Explanation explanation = Explain();
  EXPECT_EQ(Value(explanation, kFe).told, Told::kNotTold);
  EXPECT_FALSE(Value(explanation, kFe).compared);
  EXPECT_EQ(Value(explanation, kGe).told, Told::kAnything);
  EXPECT_FALSE(Value(explanation, kGe).compared);
  EXPECT_EQ(Value(explanation, kVendor).told, Told::kAnything);
  EXPECT_EQ(Value(explanation, kVeip).told, Told::kValue);
  EXPECT_EQ(Value(explanation, kVeip).value.ability_ushort_value, 2U);
  EXPECT_EQ(Value(explanation, kVeip).compared->ability_ushort_value, kAny);
  EXPECT_EQ(Value(explanation, kCapa).value.ability_ushort_value, 1U);
  EXPECT_EQ(Value(explanation, kCapa).compared->ability_ushort_value, 1U);
  EXPECT_EQ(Value(explanation, kReport).told, Told::kNotTold);
  // A code that nobody registered is not asked for.
  EXPECT_EQ(Value(explanation, 4000).told, Told::kNotAsked);
  EXPECT_TRUE(Value(explanation, 4000).has_value);
  EXPECT_FALSE(Value(explanation, 4000).compared);
}

TEST_F(ExplanationOfAnOnu, ReportWithoutAnythingFitsTheNewest) {
  Patterns(
      {Pattern(9, 102, {{kGe, 2}, {kFe, kAny}}, {{kVendor, ""}}), Pattern(8, 101, {{kGe, 4}})});
  report_.read_abilities = false;
  report_.abilities = {{kGe, 4}};
  const Explanation explanation = Explain();
  EXPECT_EQ(explanation.winner, 0U);
  EXPECT_TRUE(explanation.winner_abilities.empty());
  EXPECT_EQ(explanation.unreported, std::vector<std::uint16_t>{kGe});
  EXPECT_TRUE(explanation.profiles[1].fits);
  EXPECT_EQ(Value(explanation, kGe).told, Told::kNotAsked);
  EXPECT_TRUE(Value(explanation, kGe).has_value);
}

TEST_F(ExplanationOfAnOnu, UnsetValueNeverFits) {
  OnuAbilityProfile unset = Pattern(9, 102, {});
  unset._common_ability[kGe] = {};
  Patterns({unset, Pattern(8, 101, {})});
  report_.abilities = {{kGe, 4}};
  const Explanation explanation = Explain();
  EXPECT_EQ(explanation.winner, 1U);
  ASSERT_TRUE(explanation.profiles[0].tally.decider);
  EXPECT_EQ(explanation.profiles[0].tally.decider->held->ability_value_type,
            ONU_ABILITY_VALUE_TYPE_NONE);
}

TEST_F(ExplanationOfAnOnu, ProfileWithoutTheComparedKeyCodeNeverFits) {
  for (auto& record : state_.codes) {
    if (record.ability_code == kKey) record.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = 1;
  }
  OnuAbilityProfile keyless = Pattern(9, 102, {});
  keyless._common_ability.erase(kKey);
  Patterns({keyless, Pattern(8, 101, {{kKey, kAny}})});
  report_.reported_type = 4711;
  const Explanation explanation = Explain();
  EXPECT_FALSE(explanation.profiles[0].key);
  EXPECT_FALSE(explanation.profiles[0].fits);
  ASSERT_TRUE(explanation.profiles[0].tally.decider);
  EXPECT_EQ(explanation.profiles[0].tally.decider->code, kKey);
}

TEST_F(ExplanationOfAnOnu, NoTypeIsTakenForAProfileWithoutKey) {
  OnuAbilityProfile keyless = Pattern(8, 102, {{kGe, 9}});
  keyless._common_ability.erase(kKey);
  Patterns({Pattern(9, 101, {}), keyless});
  report_.abilities = {{kGe, 4}};
  const Explanation explanation = Explain();
  EXPECT_FALSE(explanation.compared);
  EXPECT_EQ(explanation.winner, 1U);
  EXPECT_EQ(explanation.by_abilities, 0U);
  EXPECT_EQ(explanation.how, olt_host::Recognition::kAbilities);
}

TEST_F(ExplanationOfAnOnu, OfEqualKeysTheNewestIsTakenByType) {
  Patterns({Pattern(9, 103, {}), Pattern(8, 101, {{kGe, 9}}), Pattern(7, 101, {})});
  report_.reported_type = 101;
  report_.abilities = {{kGe, 4}};
  const Explanation explanation = Explain();
  EXPECT_EQ(explanation.how, olt_host::Recognition::kType);
  EXPECT_FALSE(explanation.compared);
  EXPECT_EQ(explanation.winner, 1U);
  EXPECT_FALSE(explanation.profiles[1].fits);
  EXPECT_EQ(explanation.by_abilities, 0U);
  EXPECT_EQ(explanation.profiles[0].fate, ProfileFate::kNeverAsked);
  EXPECT_EQ(explanation.profiles[2].fate, ProfileFate::kNeverAsked);
}

TEST_F(ExplanationOfAnOnu, NothingFits) {
  Patterns({Pattern(9, 103, {{kGe, 1}})});
  report_.reported_type = 4711;
  report_.abilities = {{kGe, 4}};
  const Explanation explanation = Explain();
  EXPECT_EQ(explanation.how, olt_host::Recognition::kNone);
  EXPECT_FALSE(explanation.winner);
  EXPECT_FALSE(explanation.real_type);
  EXPECT_EQ(explanation.profiles[0].fate, ProfileFate::kLost);
  EXPECT_EQ(explanation.report_type, 4711);
}

TEST_F(ExplanationOfAnOnu, WithoutAnyProfile) {
  const Explanation explanation = Explain();
  EXPECT_TRUE(explanation.profiles.empty());
  EXPECT_FALSE(explanation.winner);
}

TEST_F(ExplanationOfAnOnu, ProfileOfAnOperatorComesWithItsNote) {
  OnuAbilityProfile own = Pattern(9, 103, {});
  own._profile_source = ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
  Patterns({own, Pattern(8, 101, {})});
  report_.abilities = {{kGe, 4}};
  olt_host::OperatorNote note;
  note.user = "root";
  const Explanation explanation = Explain([&note](const OnuAbilityProfile& profile) {
    return profile._id == 9 ? std::optional(note) : std::nullopt;
  });
  EXPECT_EQ(explanation.winner, 0U);
  EXPECT_EQ(explanation.origin.kind, olt_host::OriginKind::kOperator);
  ASSERT_TRUE(explanation.origin.note);
  EXPECT_EQ(explanation.origin.note->user, "root");
  EXPECT_FALSE(Explain().origin.note);
}

TEST_F(ExplanationOfAnOnu, ReadingALackingAttributeLeavesTheRegistryAsItWas) {
  for (auto& record : state_.codes) {
    if (record.ability_code == kGe || record.ability_code == kReport) record.ability_attr.clear();
  }
  Patterns({Pattern(9, 103, {{kGe, 1}})});
  report_.reported_type = 4711;
  report_.abilities = {{kGe, 4}};
  EXPECT_EQ(Explain().winner, 0U);
}

TEST_F(ExplanationOfAnOnu, NearestFirstByAbilitiesAgainstThenAgreeingThenNewest) {
  Patterns({Pattern(9, 105, {{kGe, 1}, {kFe, 1}}), Pattern(8, 104, {{kGe, 1}}),
            Pattern(7, 103, {{kGe, 1}, {kFe, 2}}), Pattern(6, 102, {{kGe, 1}})});
  report_.abilities = {{kGe, 4}, {kFe, 2}};
  const Explanation explanation = Explain();
  EXPECT_EQ(NearestOf(explanation, ProfileFate::kLost, false),
            (std::vector<std::size_t>{2, 1, 3, 0}));
  EXPECT_TRUE(NearestOf(explanation, ProfileFate::kLost, true).empty());
}

class ExplanationOfTranslation : public ExplanationOfAnOnu {
 protected:
  ExplanationOfTranslation() {
    state_.sfu_common_type = 800;
    state_.hgu_common_type = 700;
    report_.reported_type = 101;
  }
  olt_host::TypeTranslation Translate(unsigned int capability, const std::string& vendor = "") {
    state_.real_profiles.clear();
    RealProfile(101, {{kTrans, 1}, {kCapa, capability}});
    OnuAbilityProfile pattern = Pattern(9, 101, {});
    if (!vendor.empty()) pattern.UpdateInit(kVendor, vendor);
    Patterns({pattern});
    return Explain().translation;
  }
};

TEST_F(ExplanationOfTranslation, OfAnSfuFollowsTheSfuMode) {
  olt_host::TypeTranslation translation = Translate(0);
  EXPECT_EQ(translation.setting, IdentifySetting::kSfuMode);
  EXPECT_EQ(translation.common, CommonType::kNone);
  EXPECT_FALSE(translation.Translated());
  settings_.sfu_mode = 1;
  settings_.hgu_mode = 2;
  translation = Translate(0);
  EXPECT_EQ(translation.mode, 1U);
  EXPECT_EQ(translation.common, CommonType::kSfu);
  EXPECT_EQ(translation.common_type, 800U);
  EXPECT_EQ(translation.before, 101U);
  EXPECT_EQ(translation.after, 800U);
  settings_.sfu_mode = 2;
  EXPECT_FALSE(Translate(0).Translated());
}

TEST_F(ExplanationOfTranslation, OfAnHguFollowsTheHguMode) {
  const std::map<std::uint16_t, std::pair<CommonType, CommonType>> expected = {
      // By mode: of any vendor, and of the vendor that is treated apart.
      {0, {CommonType::kNone, CommonType::kNone}}, {1, {CommonType::kSfu, CommonType::kSfu}},
      {2, {CommonType::kHgu, CommonType::kHgu}},   {3, {CommonType::kHgu, CommonType::kNone}},
      {4, {CommonType::kNone, CommonType::kHgu}},  {5, {CommonType::kNone, CommonType::kNone}},
  };
  settings_.sfu_mode = 1;
  for (const auto& [mode, common] : expected) {
    SCOPED_TRACE(mode);
    settings_.hgu_mode = mode;
    for (const bool apart : {false, true}) {
      const olt_host::TypeTranslation translation = Translate(1, apart ? "ZKWM" : "ACME");
      const CommonType wanted = apart ? common.second : common.first;
      EXPECT_EQ(translation.setting, IdentifySetting::kHguMode);
      EXPECT_EQ(translation.mode, mode);
      EXPECT_EQ(translation.common, wanted);
      EXPECT_EQ(translation.is_vendor_apart,
                mode == 3 || mode == 4 ? std::optional(apart) : std::nullopt);
      EXPECT_EQ(translation.after, wanted == CommonType::kNone  ? 101U
                                   : wanted == CommonType::kSfu ? 800U
                                                                : 700U);
    }
  }
}

TEST_F(ExplanationOfTranslation, OfAnotherCapabilityOrNoneIsNoTranslation) {
  settings_.sfu_mode = 1;
  settings_.hgu_mode = 2;
  EXPECT_EQ(Translate(2).setting, IdentifySetting::kNone);
  state_.real_profiles.clear();
  const olt_host::TypeTranslation without = Explain().translation;
  EXPECT_FALSE(without.real_profile);
  EXPECT_EQ(without.key, 101U);
  EXPECT_FALSE(without.Translated());
  RealProfile(101, {{kCapa, 1}});
  EXPECT_EQ(Explain().translation.trans_type, 0U);
}

// The library itself, as far as it must not be disturbed.
TEST(UndisturbedLibrary, IsSilentAndListensAgainAfterwards) {
  onu_ability_set_log_level_mask(0x2001);
  {
    const olt_host::UndisturbedLibrary undisturbed;
    EXPECT_EQ(onu_ability_get_log_level_mask(), 0U);
  }
  EXPECT_EQ(onu_ability_get_log_level_mask(), 0x2001U);
}

TEST_F(ExplanationOfAnOnu, OfTwoThousandPatternsOfSixtyAbilities) {
  constexpr unsigned short kAbilities = 60;
  for (unsigned short code = 2000; code < 2000 + kAbilities; ++code) {
    state_.codes.push_back(Code(code, 2, 3));
    report_.abilities[code] = code % 7U;
  }
  std::vector<OnuAbilityProfile> patterns;
  for (unsigned short i = 0; i < 2000; ++i) {
    std::map<unsigned short, unsigned int> numbers;
    for (unsigned short code = 2000; code < 2000 + kAbilities; ++code) {
      numbers[code] = (code + (code % 60 == i % 60 ? 1U : 0U)) % 7U;
    }
    patterns.push_back(Pattern(static_cast<unsigned short>(i + 1), 10000U + i, numbers));
  }
  Patterns(std::move(patterns));
  InstallLibrary(state_);
  olt_host::Reports reports;
  reports.onus = {report_};
  const olt_host::Population population(reports);
  const olt_host::ProfileOrigins origins(catalogue_);
  // How long it takes is measured, not tested: machines are shared.
  const std::clock_t start = std::clock();
  const Explanation explanation = olt_host::Explainer(origins).Explain(population, report_);
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  std::cout << "explained in " << seconds * 1000 << " ms of processor time\n";
  EXPECT_EQ(explanation.profiles.size(), 2000U);
}

}  // namespace
}  // namespace olt_host_test
