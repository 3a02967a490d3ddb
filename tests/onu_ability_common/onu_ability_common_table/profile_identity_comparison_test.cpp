// A profile against a real type, a vendor identifier or a key ability value.
#include "profile_expectations.h"

namespace {

class ProfileIdentityComparisonTest : public LibraryTest {
 protected:
  ProfileIdentityComparisonTest() {
    DefineUsualCodes();
    host.ForgetLog();
  }

  unsigned int RealTypeIs(unsigned short real_type) { return profile == real_type; }
  unsigned int VendorIs(const std::string& vendor_id) { return profile == vendor_id; }
  unsigned int KeyValueIs(unsigned int value) { return profile == value; }

  OnuAbilityProfile profile = MakeProfile(kReal);
};

// --- Real type

TEST_F(ProfileIdentityComparisonTest, RealTypeIsTheNumberOfItsCode) {
  profile.UpdateInit(kRealType, 857);

  EXPECT_EQ(RealTypeIs(857), 1U);
  EXPECT_EQ(RealTypeIs(858), 0U);
}

TEST_F(ProfileIdentityComparisonTest, AbsentRealTypeIsNotEvenTheDefault) {
  EXPECT_EQ(RealTypeIs(0), 0U);
  EXPECT_EQ(ContentOf(profile), Content{});
}

TEST_F(ProfileIdentityComparisonTest, RealTypeIsComparedInThirtyTwoBits) {
  profile.UpdateInit(kRealType, 0x10000 + 857);
  EXPECT_EQ(RealTypeIs(857), 0U);

  profile.UpdateInit(kRealType, kWildcard);
  EXPECT_EQ(RealTypeIs(0xFFFF), 0U);
}

TEST_F(ProfileIdentityComparisonTest, RealTypeIsReadWhateverItsTag) {
  profile._common_ability[kRealType] = Value(3, 857, "SFU");
  EXPECT_EQ(RealTypeIs(857), 1U);

  profile._common_ability[kRealType] = Value(0, 857);
  EXPECT_EQ(RealTypeIs(857), 1U);
  EXPECT_TRUE(host.TakeLogWithoutTraces().empty());
}

TEST_F(ProfileIdentityComparisonTest, OnlyAnotherRealTypeLogsItsEnd) {
  profile.UpdateInit(kRealType, 857);
  host.ForgetLog();

  RealTypeIs(857);
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 0U);

  RealTypeIs(858);
  log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 1U);
  EXPECT_EQ(EndTraces(log, "operator=="), 1U);
}

// --- Vendor identifier

TEST_F(ProfileIdentityComparisonTest, VendorComparesByLengthAndBytes) {
  profile.UpdateInit(kVendorId, std::string("ABCD"));

  EXPECT_EQ(VendorIs("ABCD"), 1U);
  EXPECT_EQ(VendorIs("ABCE"), 0U);
  EXPECT_EQ(VendorIs("ABC"), 0U);
  EXPECT_EQ(VendorIs(std::string("ABCD\0", 5)), 0U);
}

TEST_F(ProfileIdentityComparisonTest, EmptyVendorOnEitherSideMatches) {
  profile.UpdateInit(kVendorId, std::string("ABCD"));
  EXPECT_EQ(VendorIs(""), 1U);

  profile.UpdateInit(kVendorId, std::string());
  EXPECT_EQ(VendorIs("WXYZ"), 1U);
  EXPECT_EQ(VendorIs(""), 1U);
}

TEST_F(ProfileIdentityComparisonTest, ProfileWithoutVendorMatchesNone) {
  EXPECT_EQ(VendorIs("ABCD"), 0U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{NameAsked(1082, "VENDOR_ID"),
                                  Log(1, "get null!ability_code:1082, ability_name:VENDOR_ID"),
                                  Log(4, "get failed!ret:0x80000004")}));
  EXPECT_EQ(VendorIs(""), 0U);
}

TEST_F(ProfileIdentityComparisonTest, VendorThatIsANumberIsInvalid) {
  profile.UpdateInit(kVendorId, 5);
  host.ForgetLog();

  EXPECT_EQ(VendorIs(""), 0U);

  EXPECT_EQ(host.TakeLogWithoutTraces().back(), Log(0, "value_type invalid!value_type:2"));
}

TEST_F(ProfileIdentityComparisonTest, VendorsAreLoggedAfterTheReading) {
  profile.UpdateInit(kVendorId, std::string("ABCD"));
  host.ForgetLog();

  VendorIs("WXYZ");

  EXPECT_EQ(
      host.TakeLogWithoutTraces(),
      (std::vector<LogLine>{NameAsked(1082, "VENDOR_ID"),
                            Log(9,
                                "get ok!ability_code:1082, ability_name:VENDOR_ID, value_type:3, "
                                "ability_int_value:0, ability_string_value:ABCD"),
                            Log(4, "vendorid_1:ABCD, vendorid_2:WXYZ")}));
}

TEST_F(ProfileIdentityComparisonTest, OnlyAnotherVendorLogsItsEnd) {
  profile.UpdateInit(kVendorId, std::string("ABCD"));
  host.ForgetLog();

  VendorIs("ABCD");
  VendorIs("");
  std::vector<LogLine> log = host.TakeLog();
  EXPECT_EQ(StartTraces(log, "operator=="), 2U);
  EXPECT_EQ(EndTraces(log, "operator=="), 0U);

  VendorIs("WXYZ");
  log = host.TakeLog();
  EXPECT_EQ(EndTraces(log, "operator=="), 1U);
}

// --- Key ability value

TEST_F(ProfileIdentityComparisonTest, KeyValueCompares) {
  profile.UpdateInit(kKeyValue, 501);
  host.ForgetLog();

  EXPECT_EQ(KeyValueIs(501), 1U);
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            (std::vector<LogLine>{
                Log(4, "(OnuAbilityProfile)get key ability value, key_ability_code:1085"),
                NameAsked(1085, "KEY_VALUE"),
                Log(9,
                    "get ok!_key_ability_code:1085, ability_name:KEY_VALUE, value_type:2, "
                    "ability_value:501"),
                Log(4, "(OnuAbilityProfile)key_ability_value_temp:501, key_ability_value:501")}));

  EXPECT_EQ(KeyValueIs(502), 0U);
  EXPECT_TRUE(
      Contains(host.TakeLog(),
               Log(4, "(OnuAbilityProfile)key_ability_value_temp:501, key_ability_value:502")));
}

TEST_F(ProfileIdentityComparisonTest, KeyValueFollowsTheRegistrysCode) {
  profile.UpdateInit(kKeyValue, 501);
  profile.UpdateInit(kRealType, 857);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kRealType);

  EXPECT_EQ(KeyValueIs(857), 1U);
  EXPECT_EQ(KeyValueIs(501), 0U);
}

TEST_F(ProfileIdentityComparisonTest, AbsentKeyValueComparesAsTheDefault) {
  EXPECT_EQ(KeyValueIs(0), 1U);
  EXPECT_EQ(KeyValueIs(501), 0U);

  profile = MakeProfile(kMatch);
  EXPECT_EQ(KeyValueIs(kWildcard), 1U);
  EXPECT_EQ(KeyValueIs(0), 0U);
}

TEST_F(ProfileIdentityComparisonTest, KeyValueKnowsNoWildcard) {
  profile.UpdateInit(kKeyValue, 501);

  EXPECT_EQ(KeyValueIs(kWildcard), 0U);
}

TEST_F(ProfileIdentityComparisonTest, OnlyAnotherKeyValueLogsItsEnd) {
  profile.UpdateInit(kKeyValue, 501);
  host.ForgetLog();

  KeyValueIs(501);
  EXPECT_EQ(EndTraces(host.TakeLog(), "operator=="), 0U);

  KeyValueIs(502);
  EXPECT_EQ(EndTraces(host.TakeLog(), "operator=="), 1U);
}

}  // namespace
