// The recording host itself: that it fails the tests which it is there to fail.
#include "support/recording_host.h"

#include <gtest/gtest-spi.h>

#include "bep.h"
#include "mutex_lock.h"
#include "support/variant_items.h"
#include "ulog.h"

namespace {

class RecordingHostTest : public LibraryTest {
 public:
  using LibraryTest::TearDown;  // checked while the test still runs
};

class SecondTest : public LibraryTest {
  void TestBody() override {}
};

TEST_F(RecordingHostTest, RefusesASecondTestInTheProcess) {
  EXPECT_FATAL_FAILURE(SecondTest(), "a second test in one process");
}

TEST_F(RecordingHostTest, FailsTheTestOnANestedLock) {
  static CMutexLock outer;
  static CMutexLock inner;
  outer.Lock(-1, nullptr, 0);
  EXPECT_NONFATAL_FAILURE(inner.Lock(-1, nullptr, 0), "already holds a mutex");
  EXPECT_NONFATAL_FAILURE(EXPECT_NE(0U, outer.Lock(-1, nullptr, 0)), "already holds a mutex");
  inner.Unlock(nullptr, 0);
  outer.Unlock(nullptr, 0);
}

TEST_F(RecordingHostTest, FailsTheTestOnAnUnlockOfAFreeMutex) {
  static CMutexLock mutex;
  EXPECT_NONFATAL_FAILURE(mutex.Unlock(nullptr, 0), "does not hold");
}

TEST_F(RecordingHostTest, RecordsTheArgumentsOfLockAndUnlock) {
  CMutexLock mutex;
  EXPECT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  EXPECT_EQ(1U, host.locks_held());
  EXPECT_EQ(0U, mutex.Unlock("caller.cpp", 12));
  ASSERT_EQ(3U, host.mutex_calls().size());
  EXPECT_EQ(MutexCall::kConstruct, host.mutex_calls()[0].kind);
  EXPECT_EQ(MutexCall::kLock, host.mutex_calls()[1].kind);
  EXPECT_EQ(&mutex, host.mutex_calls()[1].mutex);
  EXPECT_EQ(-1, host.mutex_calls()[1].wait_limit);
  EXPECT_EQ(nullptr, host.mutex_calls()[1].file);
  EXPECT_EQ(MutexCall::kUnlock, host.mutex_calls()[2].kind);
  EXPECT_STREQ("caller.cpp", host.mutex_calls()[2].file);
  EXPECT_EQ(12U, host.mutex_calls()[2].line);
}

TEST_F(RecordingHostTest, FailsATestThatEndsWithALockHeld) {
  static RecordingHost& recorded = host;
  recorded.locks_held_ = 1;
  static RecordingHostTest* self = this;
  EXPECT_NONFATAL_FAILURE(self->TearDown(), "still locked");
  recorded.locks_held_ = 0;
}

TEST_F(RecordingHostTest, FailsATestThatLeavesABlock) {
  void* block = bep_callocEx(3, 2, "caller.cpp", 12);
  ASSERT_NE(nullptr, block);
  EXPECT_EQ(1U, host.blocks_in_use());
  static RecordingHostTest* self = this;
  EXPECT_NONFATAL_FAILURE(self->TearDown(), "not released");
  bep_freeEx(block, "caller.cpp", 13);
  EXPECT_EQ(0U, host.blocks_in_use());
}

TEST_F(RecordingHostTest, FailsATestThatLeavesASevereLine) {
  static RecordingHostTest* self = this;
  for (const unsigned int level : {0U, 13U}) {
    ulogPrintf(19, level, "rule broken:%d", 7);
    EXPECT_NONFATAL_FAILURE(self->TearDown(), "rule broken:7");
    EXPECT_TRUE(host.ClaimLog(level, "rule broken:7"));
    EXPECT_FALSE(host.ClaimLog(level, "rule broken:7"));
  }
}

TEST_F(RecordingHostTest, SplitsTheTailOffALine) {
  ulogPrintf(19, 1, "text func:x,line:y func:%s,line:%d\r\n\r\n", "operator==", 12);
  ulogPrintf(20, 1, "text func:%s,line:%d\r\n", "Get", 12);
  const std::vector<LogLine> lines = host.TakeLog();
  ASSERT_EQ(2U, lines.size());
  EXPECT_EQ(Log(1, "text func:x,line:y"), lines[0]);
  EXPECT_EQ("operator==", lines[0].function);
  EXPECT_EQ(12U, lines[0].line);
  EXPECT_EQ(Log(1, "text func:Get,line:12\r\n"), lines[1]);
  EXPECT_EQ("", lines[1].function);
  EXPECT_EQ(20U, lines[1].module_id);
}

TEST_F(RecordingHostTest, FailsTheKthAllocationOnly) {
  host.FailAllocation(2);
  void* first = bep_callocEx(1, 1, nullptr, 0);
  EXPECT_NE(nullptr, first);
  EXPECT_EQ(nullptr, bep_callocEx(1, 1, nullptr, 0));
  void* third = bep_callocEx(1, 1, nullptr, 0);
  EXPECT_NE(nullptr, third);
  bep_freeEx(first, nullptr, 0);
  bep_freeEx(third, nullptr, 0);
  EXPECT_NONFATAL_FAILURE(
      {
        static int not_a_block = 0;
        bep_freeEx(&not_a_block, nullptr, 0);
      },
      "not in use");
}

TEST_F(RecordingHostTest, RefusesCopiesBeyondTheBound) {
  char text[] = "....";
  bep_memCpyEx(text, 2, "abc", 3);
  bep_memSetEx(text, 2, 'x', 3);
  EXPECT_STREQ("....", text);
  bep_memCpyEx(text, 2, "abc", 2);
  EXPECT_STREQ("ab..", text);
}

TEST_F(RecordingHostTest, VariantChecksKindAndLengthOfAFetch) {
  Variant variant;
  EXPECT_EQ(0U, variant.Append(static_cast<unsigned short>(7), 0xFFFF));
  char text[] = "abc";
  EXPECT_EQ(0U, variant.Append(text, 3, 0xFFFF));
  EXPECT_EQ(std::vector<VariantItem>({ShortItem(7), BytesItem("abc")}), ItemsOf(variant));
  unsigned int wide = 1;
  unsigned short narrow = 1;
  char read[] = "....";
  EXPECT_NE(0U, variant.Fetch(wide, 0xFFFF));
  EXPECT_EQ(0U, variant.Fetch(narrow, 0xFFFF));
  EXPECT_EQ(7, narrow);
  EXPECT_NE(0U, variant.Fetch(read, 2, 0xFFFF));
  EXPECT_EQ(1U, ItemsLeft(variant));
  EXPECT_EQ(0U, variant.Fetch(read, 3, 0xFFFF));
  EXPECT_STREQ("abc.", read);
  EXPECT_NE(0U, variant.Fetch(wide, 0xFFFF));
  EXPECT_EQ(1U, wide);
}

TEST_F(RecordingHostTest, VariantFailsTheKthCallOnly) {
  Variant variant;
  PutItems(variant, {IntItem(1), IntItem(2)});
  unsigned int value = 0;
  host.FailFetch(2);
  EXPECT_EQ(0U, variant.Fetch(value, 0xFFFF));
  EXPECT_NE(0U, variant.Fetch(value, 0xFFFF));
  EXPECT_EQ(1U, value);
  EXPECT_EQ(0U, variant.Fetch(value, 0xFFFF));
  EXPECT_EQ(2U, value);
  host.FailAppend(1);
  EXPECT_NE(0U, variant.Append(3U, 0xFFFF));
  EXPECT_EQ(0U, variant.Append(4U, 0xFFFF));
  EXPECT_EQ(std::vector<VariantItem>({IntItem(1), IntItem(2), IntItem(4)}), ItemsOf(variant));
}

}  // namespace
