#include "session/columns.h"

#include <gtest/gtest.h>

namespace olt_host {
namespace {

TEST(Columns, AreReadDownwardsAndFillTheWidth) {
  EXPECT_EQ("  a   cc  e\r\n  b   d\r\n", InColumns({"a", "b", "cc", "d", "e"}, 14));
}

TEST(Columns, AreOneWhenTheScreenIsNarrow) {
  EXPECT_EQ("  long\r\n  short\r\n", InColumns({"long", "short"}, 5));
  EXPECT_EQ("  a\r\n  b\r\n", InColumns({"a", "b"}, 0));
}

TEST(Columns, NeverFillTheLastCell) {
  EXPECT_EQ("  ab\r\n  cd\r\n", InColumns({"ab", "cd"}, 8));
  EXPECT_EQ("  ab  cd\r\n", InColumns({"ab", "cd"}, 9));
}

TEST(Columns, NothingIsNothing) { EXPECT_EQ("", InColumns({}, 80)); }

}  // namespace
}  // namespace olt_host
