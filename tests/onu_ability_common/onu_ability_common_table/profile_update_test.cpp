// Update of a held code and UpdateInit.
#include "profile_expectations.h"

namespace {

class ProfileUpdateTest : public LibraryTest {
 protected:
  // Both hold 2 POTS ports, a type name and a LAN port that is not counted yet.
  ProfileUpdateTest() {
    DefineUsualCodes();
    for (OnuAbilityProfile* profile : {&real, &match}) {
      *profile = MakeProfile(profile == &real ? kReal : kMatch);
      profile->UpdateInit(kPotsPorts, 2);
      profile->UpdateInit(kTypeName, std::string("SFU-4"));
      profile->UpdateInit(kFePorts, 4);
      profile->_common_ability_num = 40;
    }
    host.ForgetLog();
  }

  OnuAbilityProfile real;
  OnuAbilityProfile match;
};

// --- A number

TEST_F(ProfileUpdateTest, WildcardBecomesZeroInARealProfileOnly) {
  real.Update(kPotsPorts, kWildcard);
  match.Update(kPotsPorts, kWildcard);

  // Meant: a real profile never keeps the wildcard of patterns.
  EXPECT_EQ(ContentOf(real)[kPotsPorts], NumberEntry(0));
  EXPECT_EQ(ContentOf(match)[kPotsPorts], NumberEntry(kWildcard));
}

TEST_F(ProfileUpdateTest, WildcardStaysInAProfileOfTypeZero) {
  OnuAbilityProfile profile = MakeProfile(0);
  profile.UpdateInit(kPotsPorts, 2);

  profile.Update(kPotsPorts, kWildcard);

  EXPECT_EQ(ContentOf(profile), (Content{{kPotsPorts, NumberEntry(kWildcard)}}));
}

TEST_F(ProfileUpdateTest, NumberReplacesTheNumberAndDerives) {
  real.Update(kPotsPorts, 7);

  EXPECT_EQ(ContentOf(real), (Content{{kAllLan, NumberEntry(4)},
                                      {kFePorts, NumberEntry(4)},
                                      {kPotsPorts, NumberEntry(7)},
                                      {kTypeName, {3, 0, "SFU-4"}},
                                      {kDataUnis, NumberEntry(4)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileUpdateTest, NumberKeepsTheStringBesideIt) {
  real._common_ability[kPotsPorts] = Value(2, 2, "note");

  real.Update(kPotsPorts, 7);

  EXPECT_EQ(ContentOf(real)[kPotsPorts], (Entry{2, 7, "note"}));
}

TEST_F(ProfileUpdateTest, DefaultNumberIsStored) {
  real.Update(kPotsPorts, 0);
  EXPECT_EQ(ContentOf(real)[kPotsPorts], NumberEntry(0));
}

TEST_F(ProfileUpdateTest, NumberForAHeldStringIsRefused) {
  const Content before = ContentOf(real);

  real.Update(kTypeName, 7);

  EXPECT_EQ(ContentOf(real), before);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_TRUE(Contains(log, Log(0, "value_type invalid!value_type:3")));
  EXPECT_EQ(Derivations(log), 0) << "a refused update does not derive";
  EXPECT_EQ(StartTraces(log, "Update"), 1U);
  EXPECT_EQ(EndTraces(log, "Update"), 0U);
}

TEST_F(ProfileUpdateTest, NumberForAnUnsetValueIsRefused) {
  real._common_ability[kPotsPorts] = Value(0, kWildcard);

  real.Update(kPotsPorts, 7);

  EXPECT_EQ(ContentOf(real)[kPotsPorts], (Entry{0, kWildcard, ""}));
  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{Log(0, "value_type invalid!value_type:0")});
}

TEST_F(ProfileUpdateTest, NumberForAnAbsentCodeStoresNothingAndDerives) {
  real.Update(kGePorts, 7);

  EXPECT_EQ(ContentOf(real).count(kGePorts), 0U);
  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(4));
  EXPECT_EQ(ContentOf(real)[kDataUnis], NumberEntry(4));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileUpdateTest, NumberAsksForNoRegistration) {
  real.UpdateInit(77, 1);

  real.Update(77, 2);

  EXPECT_EQ(ContentOf(real)[77], NumberEntry(2));
}

// --- A whole value

TEST_F(ProfileUpdateTest, ValueReplacesAllThreeFieldsWithoutACheck) {
  real.Update(kPotsPorts, Value(3, 9, "x"));
  EXPECT_EQ(ContentOf(real)[kPotsPorts], (Entry{3, 9, "x"}));

  real.Update(kPotsPorts, Value(1, 0, ""));
  EXPECT_EQ(ContentOf(real)[kPotsPorts], (Entry{1, 0, ""}));
}

TEST_F(ProfileUpdateTest, ValueKeepsTheWildcardInARealProfile) {
  real.Update(kPotsPorts, Value(2, kWildcard));

  EXPECT_EQ(ContentOf(real)[kPotsPorts], NumberEntry(kWildcard));
}

TEST_F(ProfileUpdateTest, ValueDerives) {
  real.Update(kFePorts, Value(2, 6));

  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(6));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileUpdateTest, ValueForAnAbsentCodeStoresNothingAndDerives) {
  real.Update(kGePorts, Value(2, 7));

  EXPECT_EQ(ContentOf(real).count(kGePorts), 0U);
  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(4));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

// --- A string

TEST_F(ProfileUpdateTest, StringReplacesTheStringAndDerivesNothing) {
  match.Update(kTypeName, std::string("SFU-8"));

  EXPECT_EQ(ContentOf(match), (Content{{kFePorts, NumberEntry(4)},
                                       {kPotsPorts, NumberEntry(2)},
                                       {kTypeName, {3, kWildcard, "SFU-8"}}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 0);
}

TEST_F(ProfileUpdateTest, StringMayBecomeEmpty) {
  real.Update(kTypeName, std::string());
  EXPECT_EQ(ContentOf(real)[kTypeName], (Entry{3, 0, ""}));
}

TEST_F(ProfileUpdateTest, StringForAHeldNumberIsRefused) {
  real.Update(kPotsPorts, std::string("x"));

  EXPECT_EQ(ContentOf(real)[kPotsPorts], NumberEntry(2));
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_TRUE(Contains(log, Log(0, "value_type invalid!value_type:2")));
  EXPECT_EQ(Derivations(log), 0);
  EXPECT_EQ(EndTraces(log, "Update"), 0U);
}

TEST_F(ProfileUpdateTest, StringForAnAbsentCodeChangesAndDerivesNothing) {
  const Content before = ContentOf(real);

  real.Update(kProfileName, std::string("x"));

  EXPECT_EQ(ContentOf(real), before);
  EXPECT_EQ(Derivations(host.TakeLog()), 0);
}

// --- The cached count

TEST_F(ProfileUpdateTest, CountStaysUnlessADerivedEntryIsWritten) {
  real.Update(kTypeName, std::string("x"));
  real.Update(kPotsPorts, std::string("x"));
  EXPECT_EQ(real._common_ability_num, 40U);
  EXPECT_TRUE(host.ClaimLog(0, "value_type invalid!value_type:2"));

  OnuAbilityProfile plain = MakeProfile(kReal);
  plain.UpdateInit(kPotsPorts, 2);
  plain._common_ability_num = 40;
  plain.Update(kPotsPorts, 3);
  plain.Update(kPotsPorts, Value(2, 4));
  EXPECT_EQ(plain._common_ability_num, 40U);

  real.Update(kPotsPorts, 3);
  EXPECT_EQ(real._common_ability_num, 5U) << "the derived entries were written";
}

TEST_F(ProfileUpdateTest, CompletedUpdatesLogTheirEnd) {
  real.Update(kPotsPorts, 3);
  real.Update(kPotsPorts, Value(2, 4));
  real.Update(kTypeName, std::string("x"));

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Update"), 3U);
  EXPECT_EQ(EndTraces(log, "Update"), 3U);
}

// --- UpdateInit

TEST_F(ProfileUpdateTest, UpdateInitInsertsWithoutAnyRuleCheckOrCount) {
  OnuAbilityProfile profile = MakeProfile(kReal);
  host.ForgetLog();

  profile.UpdateInit(77, 0);
  profile.UpdateInit(78, kWildcard);
  profile.UpdateInit(79, std::string());
  profile.UpdateInit(kFePorts, 4);

  EXPECT_EQ(ContentOf(profile), (Content{{77, NumberEntry(0)},
                                         {78, NumberEntry(kWildcard)},
                                         {79, {3, 0, ""}},
                                         {kFePorts, NumberEntry(4)}}));
  EXPECT_EQ(profile._common_ability_num, 0U);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(Derivations(log), 0);
  EXPECT_FALSE(Contains(log, Log(1, "find ability code null!ability_code:77")));
}

TEST_F(ProfileUpdateTest, UpdateInitOverwritesWhateverIsHeld) {
  match.UpdateInit(kTypeName, 5);
  match.UpdateInit(kPotsPorts, std::string("x"));

  EXPECT_EQ(ContentOf(match), (Content{{kFePorts, NumberEntry(4)},
                                       {kPotsPorts, {3, kWildcard, "x"}},
                                       {kTypeName, NumberEntry(5)}}));
  EXPECT_EQ(match._common_ability_num, 40U);
}

TEST_F(ProfileUpdateTest, UpdateInitOfAStringTakesTheDefaultAsNumber) {
  real.UpdateInit(kProfileName, std::string("A"));
  match.UpdateInit(kProfileName, std::string("A"));

  EXPECT_EQ(ContentOf(real)[kProfileName], (Entry{3, 0, "A"}));
  EXPECT_EQ(ContentOf(match)[kProfileName], (Entry{3, kWildcard, "A"}));
}

TEST_F(ProfileUpdateTest, UpdateInitLogsItsTracesOnly) {
  real.UpdateInit(kPotsPorts, 5);
  real.UpdateInit(kTypeName, std::string("A"));

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "UpdateInit"), 2U);
  EXPECT_EQ(EndTraces(log, "UpdateInit"), 2U);
}

}  // namespace
