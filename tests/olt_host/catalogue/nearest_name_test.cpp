#include "catalogue/nearest_name.h"

#include <gtest/gtest.h>

namespace olt_host_test {
namespace {

const std::vector<std::string> kNames = {"abilities", "key", "id", "source"};

TEST(NearestName, FindsAMissingAnExtraAndAWrongLetter) {
  EXPECT_EQ(olt_host::NearestName("abilites", kNames), "abilities");
  EXPECT_EQ(olt_host::NearestName("sourcee", kNames), "source");
  EXPECT_EQ(olt_host::NearestName("sourse", kNames), "source");
}

TEST(NearestName, CountsASwapOfNeighboursAsOneSlip) {
  EXPECT_EQ(olt_host::NearestName("kye", {"kit", "key"}), "key");
}

TEST(NearestName, TakesUpperAndLowerCaseAsTheSame) {
  EXPECT_EQ(olt_host::NearestName("ABILITIES", kNames), "abilities");
}

TEST(NearestName, FindsNothingWhenAllAreFar) {
  EXPECT_EQ(olt_host::NearestName("zebra", kNames), "");
  EXPECT_EQ(olt_host::NearestName("xy", kNames), "");
  EXPECT_EQ(olt_host::NearestName("abilities", {}), "");
  EXPECT_EQ(olt_host::NearestName(std::string(1000000, 'a'), kNames), "");
}

TEST(NearestName, ExpectationListsAllWhenNoneIsNear) {
  EXPECT_EQ(olt_host::ExpectedName("zebra", kNames), "one of abilities, key, id, source");
  EXPECT_EQ(olt_host::ExpectedName("sorce", kNames), "\"source\"");
}

}  // namespace
}  // namespace olt_host_test
