// Reading one ability or the key ability value from a profile, and IsExist.
#include "profile_expectations.h"

namespace {

constexpr unsigned int kNotFound = 0x80000004U;

class ProfileReadingTest : public LibraryTest {
 protected:
  ProfileReadingTest() {
    DefineUsualCodes();
    real = MakeProfile(kReal);
    match = MakeProfile(kMatch);
    host.ForgetLog();
  }

  OnuAbilityProfile real;
  OnuAbilityProfile match;
  ONU_ABILITY_COMMON_ABILITY_VALUE value = Value(9, 9, "before");
  unsigned int number = 99;
  std::string text = "before";
};

// --- The whole value

TEST_F(ProfileReadingTest, AbsentCodeOfAMatchProfileGivesTheWildcardAndNotFound) {
  EXPECT_EQ(match.Get(kPotsPorts, value), kNotFound);

  EXPECT_EQ(EntryOf(value), (Entry{2, 0xFFFFFFFFU, ""}));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1020, "POTS_PORTS"),
                                  Log(1, "get null!ability_code:1020, ability_name:POTS_PORTS")}));
}

TEST_F(ProfileReadingTest, AbsentCodeOfARealProfileGivesZeroAndNotFound) {
  EXPECT_EQ(real.Get(kPotsPorts, value), kNotFound);

  EXPECT_EQ(EntryOf(value), (Entry{2, 0, ""}));
}

TEST_F(ProfileReadingTest, AbsentUnregisteredCodeIsNamedNull) {
  EXPECT_EQ(real.Get(77, value), kNotFound);

  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameUnknown(77),
                                  Log(1, "get null!ability_code:77, ability_name:NULL")}));
}

TEST_F(ProfileReadingTest, WholeValueIsCopiedWithAllThreeFields) {
  real._common_ability[kTypeName] = Value(3, 17, "SFU-4");

  EXPECT_EQ(real.Get(kTypeName, value), 0U);

  EXPECT_EQ(EntryOf(value), (Entry{3, 17, "SFU-4"}));
  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{NameAsked(1083, "TYPE_NAME"),
                            Log(9,
                                "get ok!ability_code:1083, ability_name:TYPE_NAME, value_type:3, "
                                "ability_int_value:17, ability_string_value:SFU-4")}));
}

TEST_F(ProfileReadingTest, WholeValueIsReadWhateverItsTag) {
  real._common_ability[kPotsPorts];

  EXPECT_EQ(real.Get(kPotsPorts, value), 0U);

  EXPECT_EQ(EntryOf(value), (Entry{0, 0xFFFFFFFFU, ""}));
}

// --- The number

TEST_F(ProfileReadingTest, AbsentNumberGivesTheDefaultValue) {
  EXPECT_EQ(match.Get(kPotsPorts, number), kNotFound);
  EXPECT_EQ(number, 0xFFFFFFFFU);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1020, "POTS_PORTS"),
                                  Log(1, "get null!ability_code:1020, ability_name:POTS_PORTS")}));

  EXPECT_EQ(real.Get(kPotsPorts, number), kNotFound);
  EXPECT_EQ(number, 0U);
}

TEST_F(ProfileReadingTest, NumberOfAStringCodeIsRefusedAndLeavesTheOutput) {
  real.UpdateInit(kTypeName, std::string("SFU-4"));
  host.ForgetLog();

  EXPECT_EQ(real.Get(kTypeName, number), kNotFound);

  EXPECT_EQ(number, 99U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1083, "TYPE_NAME"),
                                  Log(0,
                                      "value type is not ushort!ability_code:1083, "
                                      "ability_name:TYPE_NAME, value_type:3")}));
}

TEST_F(ProfileReadingTest, NumberIsReadWithAllThirtyTwoBits) {
  real.UpdateInit(kPotsPorts, 0x12345678);
  host.ForgetLog();

  EXPECT_EQ(real.Get(kPotsPorts, number), 0U);

  EXPECT_EQ(number, 0x12345678U);
  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{NameAsked(1020, "POTS_PORTS"),
                            Log(9,
                                "get ok!ability_code:1020, ability_name:POTS_PORTS, value_type:2, "
                                "ability_value:305419896")}));
}

// --- The string

TEST_F(ProfileReadingTest, AbsentStringGivesTheEmptyString) {
  EXPECT_EQ(match.Get(kTypeName, text), kNotFound);

  EXPECT_EQ(text, "");
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1083, "TYPE_NAME"),
                                  Log(1, "get null!ability_code:1083, ability_name:TYPE_NAME")}));
}

TEST_F(ProfileReadingTest, StringOfANumberCodeIsRefusedAndLeavesTheOutput) {
  real.UpdateInit(kPotsPorts, 2);
  host.ForgetLog();

  EXPECT_EQ(real.Get(kPotsPorts, text), kNotFound);

  EXPECT_EQ(text, "before");
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1020, "POTS_PORTS"),
                                  Log(0,
                                      "value type is not string!ability_code:1020, "
                                      "ability_name:POTS_PORTS, value_type:2")}));
}

TEST_F(ProfileReadingTest, StringIsReadBack) {
  real.UpdateInit(kTypeName, std::string("SFU-4"));
  host.ForgetLog();

  EXPECT_EQ(real.Get(kTypeName, text), 0U);

  EXPECT_EQ(text, "SFU-4");
  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{NameAsked(1083, "TYPE_NAME"),
                            Log(9,
                                "get ok!ability_code:1083, ability_name:TYPE_NAME, value_type:3, "
                                "ability_value:SFU-4")}));
}

TEST_F(ProfileReadingTest, UnsetValueReadsNeitherAsNumberNorAsString) {
  real._common_ability[kPotsPorts];

  EXPECT_EQ(real.Get(kPotsPorts, number), kNotFound);
  EXPECT_EQ(real.Get(kPotsPorts, text), kNotFound);

  EXPECT_EQ(number, 99U);
  EXPECT_EQ(text, "before");
  EXPECT_EQ(host.TakeLog({0}), (std::vector<LogLine>{Log(0,
                                                         "value type is not ushort!ability_code:"
                                                         "1020, ability_name:POTS_PORTS, "
                                                         "value_type:0"),
                                                     Log(0,
                                                         "value type is not string!ability_code:"
                                                         "1020, ability_name:POTS_PORTS, "
                                                         "value_type:0")}));
}

// --- The key ability value

TEST_F(ProfileReadingTest, KeyValueIsReadUnderTheKeyCode) {
  real.UpdateInit(kKeyValue, 501);
  host.ForgetLog();

  EXPECT_EQ(real.Get(number), 0U);

  EXPECT_EQ(number, 501U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                NameAsked(1085, "KEY_VALUE"),
                Log(9,
                    "get ok!_key_ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                    "ability_value:501")}));
}

TEST_F(ProfileReadingTest, AbsentKeyValueGivesTheDefaultValue) {
  EXPECT_EQ(match.Get(number), kNotFound);

  EXPECT_EQ(number, 0xFFFFFFFFU);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                NameAsked(1085, "KEY_VALUE"),
                Log(1, "get null!ability_code:1085, ability_name:KEY_VALUE")}));
}

TEST_F(ProfileReadingTest, KeyValueThatIsAStringIsRefused) {
  real.UpdateInit(kKeyValue, std::string("K"));
  host.ForgetLog();

  EXPECT_EQ(real.Get(number), kNotFound);

  EXPECT_EQ(number, 99U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                NameAsked(1085, "KEY_VALUE"),
                Log(0,
                    "value type is not ushort!_key_ability_code:1085, ability_name:KEY_VALUE, "
                    "value_type:3")}));
}

// Meant: the lookup follows the registry, the messages name the profile's own
// key code.
TEST_F(ProfileReadingTest, KeyValueIsLookedUpByTheRegistrysCodeAndLoggedUnderItsOwn) {
  real.UpdateInit(kKeyValue, 5);
  real.UpdateInit(kRealType, 77);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  host.ForgetLog();

  EXPECT_EQ(real.Get(number), 0U);

  EXPECT_EQ(number, 77U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1081"),
                NameAsked(1085, "KEY_VALUE"),
                Log(9,
                    "get ok!_key_ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                    "ability_value:77")}));
}

TEST_F(ProfileReadingTest, AbsentKeyValueIsLoggedUnderTheProfilesOwnKeyCode) {
  real.UpdateInit(kKeyValue, 5);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);
  host.ForgetLog();

  EXPECT_EQ(real.Get(number), kNotFound);

  EXPECT_EQ(number, 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1081"),
                NameAsked(1085, "KEY_VALUE"),
                Log(1, "get null!ability_code:1085, ability_name:KEY_VALUE")}));
}

TEST_F(ProfileReadingTest, KeyValueOfAnotherTagIsLoggedUnderTheProfilesOwnKeyCode) {
  real.UpdateInit(kKeyValue, 5);
  real.UpdateInit(kTypeName, std::string("SFU-4"));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kTypeName);
  host.ForgetLog();

  EXPECT_EQ(real.Get(number), kNotFound);

  EXPECT_EQ(host.TakeLog({0, 4}),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1083"),
                Log(0,
                    "value type is not ushort!_key_ability_code:1085, ability_name:KEY_VALUE, "
                    "value_type:3")}));
}

// --- IsExist

TEST_F(ProfileReadingTest, IsExistOfAHeldCodeIsSilent) {
  real.UpdateInit(kPotsPorts, 0);
  host.ForgetLog();

  EXPECT_TRUE(real.IsExist(kPotsPorts));

  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

TEST_F(ProfileReadingTest, IsExistOfAnAbsentCodeIsLogged) {
  EXPECT_FALSE(real.IsExist(kPotsPorts));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                NameAsked(1020, "POTS_PORTS"),
                Log(1, "ability_code is not exist,ability_code:1020, ability_name:POTS_PORTS")}));

  EXPECT_FALSE(real.IsExist(77));
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameUnknown(77), Log(1,
                                                       "ability_code is not exist,ability_code:77, "
                                                       "ability_name:NULL")}));
}

TEST_F(ProfileReadingTest, ReadingChangesNothing) {
  match.UpdateInit(kTypeName, std::string("SFU-4"));
  const Content content = ContentOf(match);

  match.Get(kPotsPorts, value);
  match.Get(kPotsPorts, number);
  match.Get(kPotsPorts, text);
  match.Get(number);
  match.IsExist(kPotsPorts);

  EXPECT_EQ(ContentOf(match), content);
}

// --- Traces

TEST_F(ProfileReadingTest, EveryReadingOfAnAbsentCodeLogsItsEnd) {
  onu_ability_set_log_level_mask(1U << 10);  // so the registry is not asked
  real.Get(kPotsPorts, value);
  real.Get(kPotsPorts, number);
  real.Get(kPotsPorts, text);
  real.Get(number);

  EXPECT_EQ(EndTraces(host.TakeLog(), "Get"), 4U);
}

TEST_F(ProfileReadingTest, WholeValueAndKeyValueLogTheirStart) {
  real.UpdateInit(kPotsPorts, 2);
  real.UpdateInit(kKeyValue, 501);
  onu_ability_set_log_level_mask(1U << 10);  // so the registry is not asked
  host.ForgetLog();

  real.Get(kPotsPorts, value);
  EXPECT_EQ(StartTraces(host.TakeLog(), "Get"), 1U);

  real.Get(number);
  EXPECT_EQ(StartTraces(host.TakeLog(), "Get"), 1U);
}

TEST_F(ProfileReadingTest, IsExistLogsItsStartAndForAHeldCodeItsEnd) {
  real.UpdateInit(kPotsPorts, 2);
  host.ForgetLog();

  real.IsExist(kPotsPorts);
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "IsExist"), 1U);
  EXPECT_EQ(EndTraces(log, "IsExist"), 1U);

  real.IsExist(kFePorts);
  EXPECT_EQ(StartTraces(host.TakeLog(), "IsExist"), 1U);
}

}  // namespace
