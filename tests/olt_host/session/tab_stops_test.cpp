// Listings in columns, on screens that are narrower than the usual tabs make them.
#include "session/tab_stops.h"

#include <gtest/gtest.h>

namespace olt_host {
namespace {

TEST(TabStops, StandEightColumnsApartWhereThatFits) {
  EXPECT_EQ("a       b\r\n", ExpandTabs("a\tb\r\n", 80));
  EXPECT_EQ("12345678        b", ExpandTabs("12345678\tb", 80));
}

TEST(TabStops, StandFurtherApartWhereCellsWouldNotFit) {
  const std::string cells =
      "GE_PORTS    \t0x4       \tALL_LAN     \t0x4       \tREAL_TYPE   \t"
      "0xfa0     \t";
  EXPECT_EQ("GE_PORTS     0x4          ALL_LAN      0x4          REAL_TYPE    0xfa0",
            ExpandTabs(cells, 80));
  EXPECT_EQ("ability      value        b",
            ExpandTabs("ability \tvalue   \tb\r\n" + cells, 80).substr(0, 27))
      << "all lines of a text have the same stops";
}

TEST(TabStops, AreTheUsualOnesWhereNothingFits) {
  EXPECT_EQ("a       123456789", ExpandTabs("a\t123456789", 5));
}

TEST(TabStops, CountCharactersNotBytes) {
  EXPECT_EQ("\xc3\xa4       b", ExpandTabs("\xc3\xa4\tb", 80));
}

TEST(TabStops, LeaveOtherLinesAlone) {
  const std::string text = "id:    30001    \r\n\r\n\r\nend";
  EXPECT_EQ(text, ExpandTabs(text, 80));
  EXPECT_EQ(text + "\r\na       b", ExpandTabs(text + "\r\na\tb", 80));
}

}  // namespace
}  // namespace olt_host
