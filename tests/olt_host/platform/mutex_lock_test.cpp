// The host's mutex: exclusion, time limits, misuse.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "mutex_lock.h"

namespace {

using Clock = std::chrono::steady_clock;

// The result of a call made by another thread.
template <typename Call>
unsigned int Elsewhere(Call call) {
  unsigned int result = 99;
  std::thread([&] { result = call(); }).join();
  return result;
}

TEST(PlatformMutexLock, LocksAndUnlocks) {
  CMutexLock mutex;
  EXPECT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
  EXPECT_EQ(0U, mutex.Lock(0, __FILE__, __LINE__));
  EXPECT_EQ(0U, mutex.Unlock(__FILE__, __LINE__));
}

TEST(PlatformMutexLock, GivesUpAfterTheWaitLimit) {
  CMutexLock mutex;
  ASSERT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  const auto start = Clock::now();
  EXPECT_NE(0U, Elsewhere([&] { return mutex.Lock(30, nullptr, 0); }));
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(30));
  EXPECT_NE(0U, Elsewhere([&] { return mutex.Lock(0, nullptr, 0); }));
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
  EXPECT_EQ(0U, Elsewhere([&] {
              const unsigned int result = mutex.Lock(0, nullptr, 0);
              mutex.Unlock(nullptr, 0);
              return result;
            }));
}

TEST(PlatformMutexLock, WaitsForTheHolderWithinTheLimit) {
  CMutexLock mutex;
  ASSERT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  std::atomic<unsigned int> limited{99};
  std::atomic<unsigned int> unlimited{99};
  std::thread first([&] {
    limited = mutex.Lock(60000, nullptr, 0);
    mutex.Unlock(nullptr, 0);
  });
  std::thread second([&] {
    unlimited = mutex.Lock(-1, nullptr, 0);
    mutex.Unlock(nullptr, 0);
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(99U, limited);
  EXPECT_EQ(99U, unlimited);
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
  first.join();
  second.join();
  EXPECT_EQ(0U, limited);
  EXPECT_EQ(0U, unlimited);
}

TEST(PlatformMutexLock, KeepsThreadsApart) {
  CMutexLock mutex;
  int counter = 0;
  const auto count = [&] {
    for (int i = 0; i < 20000; ++i) {
      mutex.Lock(-1, nullptr, 0);
      ++counter;
      mutex.Unlock(nullptr, 0);
    }
  };
  std::thread first(count);
  std::thread second(count);
  first.join();
  second.join();
  EXPECT_EQ(40000, counter);
}

TEST(PlatformMutexLock, RefusesASecondLockByTheSameThread) {
  CMutexLock mutex;
  ASSERT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  EXPECT_NE(0U, mutex.Lock(-1, nullptr, 0));
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
}

TEST(PlatformMutexLock, RefusesToUnlockWhatTheThreadDoesNotHold) {
  CMutexLock mutex;
  EXPECT_NE(0U, mutex.Unlock(nullptr, 0));
  ASSERT_EQ(0U, mutex.Lock(-1, nullptr, 0));
  EXPECT_NE(0U, Elsewhere([&] { return mutex.Unlock(nullptr, 0); }));
  EXPECT_NE(0U, Elsewhere([&] { return mutex.Lock(0, nullptr, 0); })) << "it is still held";
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
  EXPECT_NE(0U, mutex.Unlock(nullptr, 0));
}

TEST(PlatformMutexLock, RefusesOtherNegativeLimits) {
  CMutexLock mutex;
  EXPECT_NE(0U, mutex.Lock(-2, nullptr, 0));
  EXPECT_EQ(0U, mutex.Lock(0, nullptr, 0)) << "it was not taken";
  EXPECT_EQ(0U, mutex.Unlock(nullptr, 0));
}

}  // namespace
