// That what goes wrong in a child process is noticed, without which the tests of faults would
// show nothing.
#include "observed_call.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "mutex_lock.h"
#include "prepared_library.h"

namespace {

class ObservedCall : public ::testing::Test {
 protected:
  ObservedCall() { PrepareLibrary(Service::kHeard); }

  // What is noticed of a call, compared with one that does nothing.
  static std::string Noticed(std::function<unsigned long long()> run) {
    const Observation nothing = ObserveInChild(Call{[] { return 0ULL; }});
    return Differences(ObserveInChild(Call{std::move(run)}), nothing);
  }

  CMutexLock mutex_;
};

TEST_F(ObservedCall, OfNothingIsLikeAnother) {
  EXPECT_EQ("", Noticed([] { return 0ULL; }));
}

TEST_F(ObservedCall, ThatReturnsSomethingElseIsNoticed) {
  EXPECT_NE("", Noticed([] { return 1ULL; }));
}

TEST_F(ObservedCall, ThatKeepsALockIsNoticed) {
  EXPECT_NE("", Noticed([this] {
              mutex_.Lock(-1, __FILE__, __LINE__);
              return 0ULL;
            }));
}

TEST_F(ObservedCall, ThatTakesTwoLocksIsNoticed) {
  EXPECT_NE("", Noticed([this] {
              CMutexLock other;
              mutex_.Lock(-1, __FILE__, __LINE__);
              other.Lock(-1, __FILE__, __LINE__);
              other.Unlock(__FILE__, __LINE__);
              mutex_.Unlock(__FILE__, __LINE__);
              return 0ULL;
            }));
}

TEST_F(ObservedCall, ThatCrashesIsNoticed) {
  EXPECT_NE("", Noticed([]() -> unsigned long long { std::abort(); }));
}

TEST_F(ObservedCall, ThatNeverEndedWellIsNotLikeAnotherOfItsKind) {
  const auto crash = [] {
    return ObserveInChild(Call{[]() -> unsigned long long { std::abort(); }});
  };
  EXPECT_NE("", Differences(crash(), crash()));
}

}  // namespace
