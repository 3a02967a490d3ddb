// The abilities of a profile's listing, three cells a line.
#include "listing_text.h"
#include "onu_ability_common_global.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class ListingCellTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }

  // The text between the column titles and the closing stars.
  static std::string Cells(OnuAbilityProfile& profile, unsigned int flag = 1) {
    ONU_ABILITY_PHYSICAL_SN sn;
    vty terminal;
    profile.Show(&terminal, ONU_ABILITY_PROFILE_SOURCE_ALL, flag, sn, 255);
    const std::string titles = "ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n";
    const std::string end = "\r\n********************************************\r\n\r\n\r\n";
    const std::size_t begin = terminal.text.find(titles);
    if (begin == std::string::npos || terminal.text.size() < end.size() ||
        terminal.text.compare(terminal.text.size() - end.size(), end.size(), end) != 0) {
      return "not a listing: " + terminal.text;
    }
    const std::size_t first = begin + titles.size();
    return terminal.text.substr(first, terminal.text.size() - end.size() - first);
  }

  OnuAbilityProfile real_ = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  OnuAbilityProfile match_ = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH);
};

// --- Lines of three.

TEST_F(ListingCellTest, SevenAbilitiesEndWithALineOfOne) {
  real_.UpdateInit(1002, 1U);
  real_.UpdateInit(1010, 4U);
  real_.UpdateInit(1011, 0x12U);
  real_.UpdateInit(1012, 2U);
  real_.UpdateInit(1020, 2U);
  real_.UpdateInit(1080, 0xABCDU);
  real_.UpdateInit(1085, 5U);
  EXPECT_EQ(Cells(real_),
            "ONU_CAPA    \t0x1       \tFE_PORTS    \t0x4       \tGE_PORTS    \t0x12      \t\r\n"
            "WIFI_UNI    \t0x2       \tPOTS_PORTS  \t0x2       \tREPORT_TYPE \t0xabcd    \t\r\n"
            "KEY_VALUE   \t0x5       \t");
}

TEST_F(ListingCellTest, ThreeAbilitiesAreOneLine) {
  real_.UpdateInit(1085, 5U);
  real_.UpdateInit(1002, 1U);
  real_.UpdateInit(1010, 4U);
  EXPECT_EQ(Cells(real_),
            "ONU_CAPA    \t0x1       \tFE_PORTS    \t0x4       \tKEY_VALUE   \t0x5       \t\r\n");
}

TEST_F(ListingCellTest, NoAbilitiesAreNoLine) { EXPECT_EQ(Cells(real_), ""); }

TEST_F(ListingCellTest, OnlyShownCellsFillALine) {
  real_.UpdateInit(1002, 1U);
  real_.UpdateInit(1010, 0U);
  real_.UpdateInit(1011, 3U);
  real_.UpdateInit(1012, 0U);
  real_.UpdateInit(1020, 2U);
  real_.UpdateInit(1085, 5U);
  EXPECT_EQ(Cells(real_, 0),
            "ONU_CAPA    \t0x1       \tGE_PORTS    \t0x3       \tPOTS_PORTS  \t0x2       \t\r\n"
            "KEY_VALUE   \t0x5       \t");
}

// --- The kinds of cells.

TEST_F(ListingCellTest, NumberIsHexInAFieldOf8) {
  real_.UpdateInit(1010, 0U);
  real_.UpdateInit(1020, 0xFFFFFFFFU);
  EXPECT_EQ(Cells(real_), "FE_PORTS    \t0x0       \tPOTS_PORTS  \t0xffffffff\t");
}

TEST_F(ListingCellTest, LampNumberHasFourDigitsInAFieldOf6) {
  real_.UpdateInit(1030, 3U);
  real_.UpdateInit(1031, 0x12345U);
  EXPECT_EQ(Cells(real_), "POWER_LAMP  \t0x0003  \tLAN_LAMP    \t0x12345 \t");
}

TEST_F(ListingCellTest, LampNumberLongerThanItsFieldIsNotCut) {
  real_.UpdateInit(1030, 0x12345678U);
  EXPECT_EQ(Cells(real_), "POWER_LAMP  \t0x12345678\t");
}

TEST_F(ListingCellTest, StringIsInAFieldOf8AndNotCut) {
  real_.UpdateInit(1082, std::string("ZKWM"));
  real_.UpdateInit(1083, std::string("TWELVE-CHARS"));
  real_.UpdateInit(1093, std::string());
  EXPECT_EQ(Cells(real_),
            "VENDOR_ID   \tZKWM    \tTYPE_NAME   \tTWELVE-CHARS\tPROFILE_NAME\t        \t\r\n");
}

// The kind follows the value, not the code's declaration.
TEST_F(ListingCellTest, StringUnderALampCodeIsAStringCell) {
  real_.UpdateInit(1030, std::string("on"));
  EXPECT_EQ(Cells(real_), "POWER_LAMP  \ton      \t");
}

// A value of no type shows type and code, not the name, as meant.
TEST_F(ListingCellTest, OtherTypesShowTypeAndCode) {
  real_._common_ability[1010] = ONU_ABILITY_COMMON_ABILITY_VALUE();
  real_._common_ability[1030].ability_value_type = 7;
  EXPECT_EQ(Cells(real_), "000000000000\t1010    \t000000000007\t1030    \t");
}

TEST_F(ListingCellTest, LongNameIsCutTo12Characters) {
  real_.UpdateInit(65533, 6U);
  EXPECT_EQ(Cells(real_), "DATA_UNI_TOT\t0x6       \t");
}

TEST_F(ListingCellTest, UnknownCodeIsAPlainCellNamedNull) {
  real_.UpdateInit(5000, 3U);
  EXPECT_EQ(Cells(real_), "NULL        \t0x3       \t");
}

// --- The flag.

TEST_F(ListingCellTest, Flag0HidesNumbersEqualToTheDefaultOfARealProfile) {
  real_.UpdateInit(1010, 0U);
  real_.UpdateInit(1020, 0xFFFFFFFFU);
  real_.UpdateInit(1030, 0U);
  EXPECT_EQ(Cells(real_, 0), "POTS_PORTS  \t0xffffffff\t");
  EXPECT_EQ(Cells(real_, 1),
            "FE_PORTS    \t0x0       \tPOTS_PORTS  \t0xffffffff\tPOWER_LAMP  \t0x0000  \t\r\n");
}

TEST_F(ListingCellTest, Flag0HidesNumbersEqualToTheDefaultOfAMatchProfile) {
  match_.UpdateInit(1010, 0U);
  match_.UpdateInit(1020, 0xFFFFFFFFU);
  EXPECT_EQ(Cells(match_, 0), "FE_PORTS    \t0x0       \t");
  EXPECT_EQ(Cells(match_, 1), "FE_PORTS    \t0x0       \tPOTS_PORTS  \t0xffffffff\t");
}

// A string's number is the default as a rule, and the empty string the default
// of strings; neither hides it.
TEST_F(ListingCellTest, Flag0NeverHidesAString) {
  match_.UpdateInit(1082, std::string("ZKWM"));
  match_.UpdateInit(1083, std::string());
  EXPECT_EQ(Cells(match_, 0), "VENDOR_ID   \tZKWM    \tTYPE_NAME   \t        \t");
}

TEST_F(ListingCellTest, Flag0NeverHidesAValueOfAnotherType) {
  match_._common_ability[1010] = ONU_ABILITY_COMMON_ABILITY_VALUE();
  EXPECT_EQ(Cells(match_, 0), "000000000000\t1010    \t");
}

// --- Without the lamp attribute every number is a plain cell.

class ListingWithoutLampAttributeTest : public LibraryTest {};

TEST_F(ListingWithoutLampAttributeTest, NumbersArePlainCells) {
  OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
  DefineCode(1030, "POWER_LAMP");
  InitTables();
  OnuAbilityProfile profile = MakeProfile(ONU_ABILITY_PROFILE_TYPE_REAL);
  profile.UpdateInit(1030, 3U);
  ONU_ABILITY_PHYSICAL_SN sn;
  vty terminal;
  profile.Show(&terminal, ONU_ABILITY_PROFILE_SOURCE_ALL, 1, sn, 255);
  ListedProfile expected;
  expected.size = "44";
  expected.cells = "POWER_LAMP  \t0x3       \t";
  EXPECT_EQ(terminal.text, ListingOf(expected));
  host.ForgetLog();  // asking for an attribute that nobody registered is a rule breach
}

}  // namespace
