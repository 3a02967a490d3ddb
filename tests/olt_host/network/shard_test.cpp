// Which OLTs belong to which shard: one shard each, the same everywhere and for ever.
#include "network/shard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace olt_host_test {
namespace {

using olt_host::ParseShard;
using olt_host::Shard;

std::uint32_t ShardOf(const std::string& olt, std::uint32_t count) {
  for (std::uint32_t number = 1; number <= count; ++number) {
    if (Shard{number, count}.HasOlt(olt)) return number;
  }
  return 0;
}

std::vector<std::string> Olts(const char* format, int count) {
  std::vector<std::string> olts;
  for (int i = 1; i <= count; ++i) {
    std::string name(64, '\0');
    const int length = std::snprintf(name.data(), name.size(), format, i);
    name.resize(static_cast<std::size_t>(length));
    olts.push_back(name);
  }
  return olts;
}

TEST(Shard, EachOltIsInExactlyOne) {
  for (const std::uint32_t count : {1U, 2U, 3U, 10U, 97U}) {
    for (const std::string& olt : Olts("olt-%04d", 200)) {
      int shards = 0;
      for (std::uint32_t number = 1; number <= count; ++number) {
        shards += Shard{number, count}.HasOlt(olt) ? 1 : 0;
      }
      EXPECT_EQ(shards, 1) << olt << " of " << count;
    }
  }
}

TEST(Shard, EachLineWithoutAnOltIsInExactlyOne) {
  for (std::uint64_t line = 1; line <= 50; ++line) {
    int shards = 0;
    for (std::uint32_t number = 1; number <= 7; ++number) {
      shards += Shard{number, 7}.HasLine(line) ? 1 : 0;
    }
    EXPECT_EQ(shards, 1) << line;
  }
}

TEST(Shard, NamesThatCountUpSpreadEvenly) {
  for (const char* format : {"olt-%05d", "olt-%d", "OLT%03dA", "region-7/site-%04d/olt-1", "%d"}) {
    for (const std::uint32_t count : {2U, 3U, 8U, 10U, 16U, 64U}) {
      std::vector<int> olts(count);
      for (const std::string& olt : Olts(format, 1000)) {
        ++olts[ShardOf(olt, count) - 1];
      }
      const int mean = 1000 / static_cast<int>(count);
      EXPECT_LE(*std::max_element(olts.begin(), olts.end()), 2 * mean + 4) << format << count;
      EXPECT_GE(*std::min_element(olts.begin(), olts.end()), mean / 4) << format << count;
    }
  }
}

// A change would make shards of one run, done by two versions, leave OLTs out.
TEST(Shard, AnOltNeverMoves) {
  EXPECT_EQ(ShardOf("", 10), 6U);
  EXPECT_EQ(ShardOf("a", 10), 5U);
  EXPECT_EQ(ShardOf("olt-0001", 10), 5U);
  EXPECT_EQ(ShardOf("olt-0002", 10), 2U);
  EXPECT_EQ(ShardOf("olt-00001", 10), 10U);
  EXPECT_EQ(ShardOf("olt-01000", 10), 2U);
  EXPECT_EQ(ShardOf("Łódź/7", 10), 9U);
  EXPECT_EQ(ShardOf("olt-0001", 9973), 2630U);
  EXPECT_EQ(ShardOf("olt-0002", 9973), 5362U);
}

TEST(Shard, TheWholeHasEveryOlt) {
  EXPECT_TRUE(Shard{}.IsWhole());
  EXPECT_TRUE(Shard{}.HasOlt("olt-0001"));
  EXPECT_TRUE(Shard{}.HasOlt(""));
  EXPECT_FALSE((Shard{1, 2}).IsWhole());
}

TEST(Shard, IsWrittenAsNumberOfCount) {
  for (const char* text : {"1/1", "3/10", "10/10", "10000/10000"}) {
    const auto shard = ParseShard(text);
    ASSERT_TRUE(shard) << text;
    EXPECT_EQ(ToText(*shard), text);
  }
}

TEST(Shard, EveryOtherTextIsRefused) {
  for (const char* text : {"",
                           "/",
                           "3",
                           "3/",
                           "/10",
                           "0/10",
                           "11/10",
                           "3/0",
                           "0/0",
                           "-1/10",
                           "+3/10",
                           " 3/10",
                           "3/10 ",
                           "3 /10",
                           "3/ 10",
                           "3/10/2",
                           "3:10",
                           "a/b",
                           "3/10x",
                           "0x3/10",
                           "3.0/10",
                           "1/10001",
                           "10001/10001",
                           "4294967297/4294967298",
                           "1/99999999999999999999"}) {
    EXPECT_FALSE(ParseShard(text)) << '"' << text << '"';
  }
  EXPECT_FALSE(ParseShard(std::string("3/10\0", 5)));
}

}  // namespace
}  // namespace olt_host_test
