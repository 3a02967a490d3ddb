// Add by code: whole values, numbers and strings.
#include "profile_expectations.h"

namespace {

class ProfileAddTest : public LibraryTest {
 protected:
  ProfileAddTest() {
    DefineUsualCodes();
    real = MakeProfile(kReal);
    match = MakeProfile(kMatch);
    host.ForgetLog();
  }

  // Brings a LAN port in behind the back of the derived counts.
  void PlantUncountedLanPort(OnuAbilityProfile& profile) {
    profile.UpdateInit(kFePorts, 4);
    host.ForgetLog();
  }

  OnuAbilityProfile real;
  OnuAbilityProfile match;
};

// --- A number

TEST_F(ProfileAddTest, RealProfileRefusesZeroAndStoresOne) {
  real.Add(kPotsPorts, 0);
  EXPECT_EQ(ContentOf(real), Content{});

  real.Add(kPotsPorts, 1);
  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, NumberEntry(1)}}));
}

TEST_F(ProfileAddTest, MatchProfileRefusesTheWildcardAndStoresZero) {
  match.Add(kPotsPorts, kWildcard);
  EXPECT_EQ(ContentOf(match), Content{});

  match.Add(kPotsPorts, 0);
  EXPECT_EQ(ContentOf(match), (Content{{kPotsPorts, NumberEntry(0)}}));
}

TEST_F(ProfileAddTest, RealProfileStoresTheWildcardWhenItIsNew) {
  real.Add(kPotsPorts, kWildcard);

  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, NumberEntry(kWildcard)}}));
}

TEST_F(ProfileAddTest, NumberOfAnUnregisteredCodeIsRefused) {
  real.Add(77, 5);

  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{Log(1, "find ability code null!ability_code:77"),
                                  Log(1, "ability_code don't exist,ability_code:77")}));
}

TEST_F(ProfileAddTest, RegistryIsAskedBeforeTheProfile) {
  real.UpdateInit(77, 5);
  host.ForgetLog();

  real.Add(77, 6);

  EXPECT_EQ(ContentOf(real), (Content{{77, NumberEntry(5)}}));
  EXPECT_TRUE(Contains(host.TakeLog(), Log(1, "ability_code don't exist,ability_code:77")));
}

TEST_F(ProfileAddTest, DefaultNumberIsLogged) {
  real.Add(kPotsPorts, 0);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{CodeRegistered(1020), NameAsked(1020, "POTS_PORTS"),
                                  NotHeld(1020, "POTS_PORTS"), NameAsked(1020, "POTS_PORTS"),
                                  Log(4,
                                      "ability value is equal to default value,profile type:1, "
                                      "ability_code:1020, ability_name:POTS_PORTS, "
                                      "ability_value:0, default value:0")}));

  match.Add(kPotsPorts, kWildcard);
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4,
                                     "ability value is equal to default value,profile type:2, "
                                     "ability_code:1020, ability_name:POTS_PORTS, "
                                     "ability_value:-1, default value:-1")});
}

// Expected, not a fault: the question whether the code is held comes first.
TEST_F(ProfileAddTest, FirstInsertionLogsThatTheCodeIsAbsent) {
  real.Add(kPotsPorts, 2);

  EXPECT_EQ(Head(host.TakeLogWithoutTraces(), 3),
            (std::vector<LogLine>{
                CodeRegistered(1020), NameAsked(1020, "POTS_PORTS"),
                Log(1, "ability_code is not exist,ability_code:1020, ability_name:POTS_PORTS")}));
}

TEST_F(ProfileAddTest, NumberDerivesAndSetsTheCount) {
  real.Add(kFePorts, 4);

  EXPECT_EQ(Derivations(host.TakeLog()), 1);
  EXPECT_EQ(ContentOf(real), (Content{{kAllLan, NumberEntry(4)},
                                      {kFePorts, NumberEntry(4)},
                                      {kDataUnis, NumberEntry(4)}}));
  EXPECT_EQ(real._common_ability_num, 3U);
}

TEST_F(ProfileAddTest, NumberSetsTheCountWhenNothingIsDerived) {
  real.UpdateInit(kTypeName, std::string("SFU-4"));
  real.Add(kPotsPorts, 2);

  EXPECT_EQ(real._common_ability_num, 2U);
}

TEST_F(ProfileAddTest, DefaultNumberNeitherDerivesNorCounts) {
  PlantUncountedLanPort(real);

  real.Add(kPotsPorts, 0);

  EXPECT_EQ(Derivations(host.TakeLog()), 0);
  EXPECT_EQ(real._common_ability_num, 0U);
}

TEST_F(ProfileAddTest, SecondAddOfANumberUpdatesWithoutTheDefaultRule) {
  real.Add(kPotsPorts, 5);
  host.ForgetLog();

  real.Add(kPotsPorts, 0);

  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, NumberEntry(0)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);
}

TEST_F(ProfileAddTest, SecondAddOfAWildcardStoresZeroInARealProfile) {
  real.Add(kPotsPorts, 5);
  real.Add(kPotsPorts, kWildcard);

  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, NumberEntry(0)}}));
}

TEST_F(ProfileAddTest, NumberForAHeldStringIsRefusedByTheUpdate) {
  real.Add(kTypeName, std::string("SFU-4"));
  host.ForgetLog();

  real.Add(kTypeName, 7);

  EXPECT_EQ(ContentOf(real), (Content{{kTypeName, {3, 0, "SFU-4"}}}));
  EXPECT_EQ(host.TakeLog({0}), std::vector<LogLine>{Log(0, "value_type invalid!value_type:3")});
}

TEST_F(ProfileAddTest, NumberIsNotComparedWithTheValueTypeOfTheCode) {
  real.Add(kTypeName, 7);

  EXPECT_EQ(ContentOf(real), (Content{{kTypeName, NumberEntry(7)}}));
}

// --- A whole value

TEST_F(ProfileAddTest, ValueOfAnUnregisteredCodeIsRefused) {
  real.Add(77, Value(2, 5));

  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{Log(1, "find ability code null!ability_code:77"),
                                  Log(1, "ability_code don't exist,ability_code:77")}));
}

TEST_F(ProfileAddTest, ValueIsStoredUnchanged) {
  real.Add(kPotsPorts, Value(2, 9, "note"));
  real.Add(kTypeName, Value(3, 17, "SFU-4"));

  EXPECT_EQ(ContentOf(real),
            (Content{{kPotsPorts, {2, 9, "note"}}, {kTypeName, {3, 17, "SFU-4"}}}));
}

TEST_F(ProfileAddTest, DefaultNumberValueIsLoggedWithItsTag) {
  real.Add(kPotsPorts, Value(2, 0, "note"));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{CodeRegistered(1020), NameAsked(1020, "POTS_PORTS"),
                                  NotHeld(1020, "POTS_PORTS"), NameAsked(1020, "POTS_PORTS"),
                                  Log(4,
                                      "ability value is equal to default value,profile type:1, "
                                      "value type:2, ability_code:1020, ability name:POTS_PORTS, "
                                      "ability_value:0, default value:0")}));

  match.Add(kPotsPorts, Value(2, kWildcard));
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4,
                                     "ability value is equal to default value,profile type:2, "
                                     "value type:2, ability_code:1020, ability name:POTS_PORTS, "
                                     "ability_value:-1, default value:-1")});
  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(ContentOf(match), Content{});
}

TEST_F(ProfileAddTest, EmptyStringValueIsTheDefaultOfEveryProfile) {
  real.Add(kTypeName, Value(3, 17));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{CodeRegistered(1083), NameAsked(1083, "TYPE_NAME"),
                                  NotHeld(1083, "TYPE_NAME"),
                                  Log(4,
                                      "ability value is equal to default value,profile type:1, "
                                      "value type:3, ability_code:1083, ability_value:")}));

  match.Add(kTypeName, Value(3, 17));
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4,
                                     "ability value is equal to default value,profile type:2, "
                                     "value type:3, ability_code:1083, ability_value:")});
  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(ContentOf(match), Content{});
}

TEST_F(ProfileAddTest, ValueOfAnotherTagIsRefused) {
  for (const unsigned int tag : {0U, 1U, 4U}) {
    host.ForgetLog();
    real.Add(kPotsPorts, Value(tag, 5, "x"));
    EXPECT_EQ(host.TakeLogWithoutTraces(),
              (std::vector<LogLine>{
                  CodeRegistered(1020), NameAsked(1020, "POTS_PORTS"), NotHeld(1020, "POTS_PORTS"),
                  Log(4, "ability value type is invalid,profile type:1, value type:" +
                             std::to_string(tag) + ", ability_code:1020")}));
  }
  EXPECT_EQ(ContentOf(real), Content{});
}

TEST_F(ProfileAddTest, ValueDerivesAndSetsTheCount) {
  real.Add(kFePorts, Value(2, 4));

  EXPECT_EQ(Derivations(host.TakeLog()), 1);
  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(4));
  EXPECT_EQ(real._common_ability_num, 3U);
}

TEST_F(ProfileAddTest, StringValueDerivesAndSetsTheCountToo) {
  PlantUncountedLanPort(real);

  real.Add(kTypeName, Value(3, 0, "SFU-4"));

  EXPECT_EQ(Derivations(host.TakeLog()), 1);
  EXPECT_EQ(ContentOf(real)[kAllLan], NumberEntry(4));
  EXPECT_EQ(real._common_ability_num, 4U);
}

TEST_F(ProfileAddTest, ValueSetsTheCountWhenNothingIsDerived) {
  real.Add(kTypeName, Value(3, 0, "SFU-4"));
  EXPECT_EQ(real._common_ability_num, 1U);
}

TEST_F(ProfileAddTest, SecondAddOfAValueReplacesAllThreeFieldsWithoutAnyRule) {
  real.Add(kPotsPorts, Value(2, 9));
  real._common_ability_num = 40;
  host.ForgetLog();

  real.Add(kPotsPorts, Value(2, 0));
  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, NumberEntry(0)}}));
  EXPECT_EQ(Derivations(host.TakeLog()), 1);

  real.Add(kPotsPorts, Value(3, 7, ""));
  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, {3, 7, ""}}}));

  real.Add(kPotsPorts, Value(1, kWildcard, "x"));
  EXPECT_EQ(ContentOf(real), (Content{{kPotsPorts, {1, kWildcard, "x"}}}));
  EXPECT_EQ(real._common_ability_num, 40U) << "an update does not set the count";
}

// --- A string

TEST_F(ProfileAddTest, StringOfAnUnregisteredCodeIsRefused) {
  real.Add(77, std::string("x"));

  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{Log(1, "find ability code null!ability_code:77"),
                                  Log(1, "ability_code don't exist,ability_code:77")}));
}

TEST_F(ProfileAddTest, EmptyStringIsStoredOnNeitherType) {
  real.Add(kTypeName, std::string());
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{CodeRegistered(1083), NameAsked(1083, "TYPE_NAME"),
                                  NotHeld(1083, "TYPE_NAME"), NameAsked(1083, "TYPE_NAME"),
                                  Log(4,
                                      "ability value is equal to default value,profile type:1, "
                                      "ability_code:1083, ability name:TYPE_NAME, "
                                      "ability_value:")}));

  match.Add(kTypeName, std::string());
  EXPECT_EQ(host.TakeLog({4}),
            std::vector<LogLine>{Log(4,
                                     "ability value is equal to default value,profile type:2, "
                                     "ability_code:1083, ability name:TYPE_NAME, "
                                     "ability_value:")});
  EXPECT_EQ(ContentOf(real), Content{});
  EXPECT_EQ(ContentOf(match), Content{});
}

TEST_F(ProfileAddTest, StringIsStoredBesideTheDefaultNumber) {
  match.Add(kTypeName, std::string("SFU-4"));
  real.Add(kTypeName, std::string("SFU-4"));

  EXPECT_EQ(ContentOf(match), (Content{{kTypeName, {3, kWildcard, "SFU-4"}}}));
  EXPECT_EQ(ContentOf(real), (Content{{kTypeName, {3, 0, "SFU-4"}}}));
}

// Meant: strings never feed the derived counts.
TEST_F(ProfileAddTest, StringSetsTheCountAndDerivesNothing) {
  PlantUncountedLanPort(real);

  real.Add(kTypeName, std::string("SFU-4"));

  EXPECT_EQ(Derivations(host.TakeLog()), 0);
  EXPECT_EQ(ContentOf(real), (Content{{kFePorts, NumberEntry(4)}, {kTypeName, {3, 0, "SFU-4"}}}));
  EXPECT_EQ(real._common_ability_num, 2U);
}

TEST_F(ProfileAddTest, SecondAddOfAStringReplacesTheStringAndNothingElse) {
  PlantUncountedLanPort(real);

  real.Add(kFePorts, std::string("four"));

  EXPECT_EQ(ContentOf(real), (Content{{kFePorts, {2, 4, "four"}}})) << "the tag is not examined";
  EXPECT_EQ(real._common_ability_num, 0U);
  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(Derivations(log), 0);
  EXPECT_EQ(StartTraces(log, "Update"), 0U) << "this path does not pass through Update";
}

TEST_F(ProfileAddTest, SecondAddOfAStringMayEmptyIt) {
  real.Add(kTypeName, std::string("SFU-4"));
  host.ForgetLog();

  real.Add(kTypeName, std::string());

  EXPECT_EQ(ContentOf(real), (Content{{kTypeName, {3, 0, ""}}}));
  EXPECT_TRUE(host.TakeLog({4}).empty());
}

// --- Traces

TEST_F(ProfileAddTest, OnlyACompletedAddLogsItsEnd) {
  real.Add(kPotsPorts, 2);
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 1U);
  EXPECT_EQ(EndTraces(log, "Add"), 1U);

  real.Add(kProfileName, std::string("x"));
  real.Add(kTypeName, Value(3, 0, "x"));
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 2U);
  EXPECT_EQ(EndTraces(log, "Add"), 2U);
}

TEST_F(ProfileAddTest, AddOfAHeldCodeCompletesAndLogsItsEnd) {
  real.UpdateInit(kPotsPorts, 2);
  real.UpdateInit(kKeyValue, 501);
  host.ForgetLog();

  real.Add(kPotsPorts, 3);
  real.Add(kPotsPorts, Value(2, 4));
  real.Add(kPotsPorts, std::string("x"));
  real.Add(502U);

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 4U);
  EXPECT_EQ(EndTraces(log, "Add"), 4U);
}

TEST_F(ProfileAddTest, RefusedAddLogsNoEnd) {
  real.Add(77, 2);
  real.Add(77, Value(2, 2));
  real.Add(77, std::string("x"));
  real.Add(kPotsPorts, 0);
  real.Add(kPotsPorts, Value(2, 0));
  real.Add(kPotsPorts, Value(3, 0));
  real.Add(kPotsPorts, Value(1, 0));
  real.Add(kPotsPorts, std::string());

  const std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "Add"), 8U);
  EXPECT_EQ(EndTraces(log, "Add"), 0U);
}

}  // namespace
