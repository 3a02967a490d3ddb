// The upper part of a profile's listing.
#include <algorithm>

#include "listing_text.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class ListingHeaderTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }

  std::string Show(OnuAbilityProfile& profile, int source = 2, unsigned int flag = 1) {
    vty terminal;
    profile.Show(&terminal, static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source), flag, sn_,
                 omci_mode_);
    return terminal.text;
  }

  ONU_ABILITY_PHYSICAL_SN sn_;
  unsigned char omci_mode_ = 255;
};

// The one text written out whole; the others are put together from its lines.
TEST_F(ListingHeaderTest, ShowsEveryLineInOrder) {
  OnuAbilityProfile lamps = MakeRealProfile(5, 601);
  lamps.Add(1030, 3U);
  lamps.Add(1031, 0x104U);
  AddToTable(lamps);
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 1);
  profile.Add(1080, 600U);
  profile.Add(1081, 601U);
  profile.Add(1082, std::string("ZKWM"));
  profile.Add(1093, std::string("home profile"));
  profile.UpdateInit(65533, 6U);
  profile._id = 17;
  profile._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  profile._bind_count = 2;
  profile._age_count = 9;
  sn_.pon_no = 3;
  sn_.onu_id = 4;
  sn_.vendor_id = "ABCD";
  const unsigned char serial[6] = {0x01, 0x02, 0x0a, 0xb0, 0x00, 0xff};
  std::copy(serial, serial + 6, sn_.serial);
  omci_mode_ = 1;
  EXPECT_EQ(Show(profile),
            "********************************************\r\n"
            "id:                    17                            \r\n"
            "onu_sn:ABCD01020ab000ff\r\n"
            "pon_no:                3                             \r\n"
            "onu_id:                4                             \r\n"
            "omci_mode:             1                             \r\n"
            "reporttype:            600                           \r\n"
            "vendor id:             ZKWM                          \r\n"
            "ability profile name:  home profile                  \r\n"
            "default value:         0                             \r\n"
            "flag_match_type:       2                             \r\n"
            "profile_type:          1                             \r\n"
            "profile_source:        1                             \r\n"
            "data uni total num:    6                             \r\n"
            "total lamp num:        7                             \r\n"
            "bind count:            2                             \r\n"
            "age_count:             9                             \r\n"
            "size:                  100                           \r\n"
            "common_ability_num:    4                             \r\n"
            "--------------common ability----------------\r\n"
            "ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n"
            "REPORT_TYPE \t0x258     \tREAL_TYPE   \t0x259     \tVENDOR_ID   \tZKWM    \t\r\n"
            "PROFILE_NAME\thome profile\tDATA_UNI_TOT\t0x6       \t"
            "\r\n********************************************\r\n\r\n\r\n");
}

TEST_F(ListingHeaderTest, EmptyRealProfileShowsItsDefaults) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  EXPECT_EQ(Show(profile), ListingOf(ListedProfile()));
}

TEST_F(ListingHeaderTest, EmptyMatchProfileShowsItsDefaultsAsMinus1) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  ListedProfile expected;
  expected.id = "65535";
  expected.type = "2";
  expected.report_type = expected.default_value = expected.data_uni = "-1";
  EXPECT_EQ(Show(profile), ListingOf(expected));
}

// --- The place of the ONU.

TEST_F(ListingHeaderTest, WithoutSerialNumberAndModeThePlaceLinesAreLeftOut) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  const std::string listing = Show(profile);
  EXPECT_EQ(listing.find("pon_no:"), std::string::npos);
  EXPECT_EQ(listing.find("onu_id:"), std::string::npos);
  EXPECT_EQ(listing.find("omci_mode:"), std::string::npos);
  EXPECT_NE(listing.find("\r\nonu_sn:000000000000\r\nreporttype:"), std::string::npos);
}

TEST_F(ListingHeaderTest, PonNumberAloneIsShown) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  sn_.pon_no = 0;
  ListedProfile expected;
  expected.pon_no = "0";
  EXPECT_EQ(Show(profile), ListingOf(expected));
}

TEST_F(ListingHeaderTest, OnuIdAloneIsShown) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  sn_.onu_id = 254;
  ListedProfile expected;
  expected.onu_id = "254";
  EXPECT_EQ(Show(profile), ListingOf(expected));
}

TEST_F(ListingHeaderTest, OmciModeAloneIsShown) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  omci_mode_ = 0;
  ListedProfile expected;
  expected.omci_mode = "0";
  EXPECT_EQ(Show(profile), ListingOf(expected));
}

// --- Counts that are shown as they are, stale or not.

TEST_F(ListingHeaderTest, StaleCountIsShownBesideTheExactSize) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  profile.Add(1020, 2U);
  profile.Add(1080, 600U);
  profile.Del(1080);
  ListedProfile expected;
  expected.size = "44";
  expected.num = "2";
  expected.cells = "POTS_PORTS  \t0x2       \t";
  EXPECT_EQ(Show(profile), ListingOf(expected));
}

// --- Where the numbers come from.

// Lamps are those of the real profile of the real type, not of the one listed.
TEST_F(ListingHeaderTest, LampTotalIsThatOfTheRealTypesProfile) {
  OnuAbilityProfile real = MakeRealProfile(5, 601);
  real.Add(1030, 3U);
  AddToTable(real);
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
  profile.Add(1081, 0x10000U + 601U);
  profile.Add(1031, 8U);
  EXPECT_NE(Show(profile).find("total lamp num:        3      "), std::string::npos);
}

TEST_F(ListingHeaderTest, HeldCodesOfTheOtherTypeShowTheirUnusedHalf) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  profile._ability_default_value = 9;
  profile.UpdateInit(1080, std::string("text"));
  profile.UpdateInit(1082, 5U);
  profile._ability_default_value = 0;
  const std::string listing = Show(profile);
  EXPECT_NE(listing.find("reporttype:            9      "), std::string::npos);
  EXPECT_NE(listing.find("vendor id:                    "), std::string::npos);
}

// The data UNI total is read twice, as meant.
TEST_F(ListingHeaderTest, ReadsTheCodesInOrder) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  host.ForgetLog();
  Show(profile);
  std::vector<LogLine> reads;
  for (const LogLine& line : host.TakeLog({1})) {
    if (line.text.rfind("get null!", 0) == 0) {
      reads.push_back(line);
    }
  }
  EXPECT_EQ(reads, (std::vector<LogLine>{
                       Log(1, "get null!ability_code:1080, ability_name:REPORT_TYPE"),
                       Log(1, "get null!ability_code:1081, ability_name:REAL_TYPE"),
                       Log(1, "get null!ability_code:1082, ability_name:VENDOR_ID"),
                       Log(1, "get null!ability_code:1093, ability_name:PROFILE_NAME"),
                       Log(1, "get null!ability_code:65533, ability_name:DATA_UNI_TOTAL"),
                       Log(1, "get null!ability_code:65533, ability_name:DATA_UNI_TOTAL")}));
}

// --- What is refused.

TEST_F(ListingHeaderTest, NullTerminalIsLogged) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  host.ForgetLog();
  profile.Show(nullptr, ONU_ABILITY_PROFILE_SOURCE_ALL, 1, sn_, 255);
  EXPECT_EQ(host.TakeLogWithoutTraces(), std::vector<LogLine>{Log(13, "there is null pointer!")});
}

TEST_F(ListingHeaderTest, AnotherSourceIsLoggedAndShowsNothing) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 1);
  host.ForgetLog();
  EXPECT_EQ(Show(profile, 0), "");
  EXPECT_EQ(host.TakeLogWithoutTraces(),
            std::vector<LogLine>{
                Log(0, "profile source don't match!_profile_source:1, profile_source:0")});
}

TEST_F(ListingHeaderTest, OwnSourceAndAllSourcesShowTheProfile) {
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 1);
  ListedProfile expected;
  expected.source = "1";
  EXPECT_EQ(Show(profile, 1), ListingOf(expected));
  EXPECT_EQ(Show(profile, 2), ListingOf(expected));
}

class ListingWithoutTablesTest : public LibraryTest {};

TEST_F(ListingWithoutTablesTest, ShowsALampTotalOf0) {
  DefineUsualCodes();
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  ONU_ABILITY_PHYSICAL_SN sn;
  vty terminal;
  profile.Show(&terminal, ONU_ABILITY_PROFILE_SOURCE_ALL, 1, sn, 255);
  EXPECT_EQ(terminal.text, ListingOf(ListedProfile()));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
}

}  // namespace
