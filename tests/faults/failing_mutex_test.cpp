// A mutex that reports failure: every operation goes on as if it had the lock, and
// unlocks all the same. There is no limit to the wait, and no status for it.
#include <gtest/gtest.h>

#include <algorithm>

#include "operations.h"
#include "prepared_library.h"
#include "support/recording_host.h"

namespace {

class FailingMutex : public ::testing::TestWithParam<size_t> {};

std::ptrdiff_t CallsOf(MutexCall::Kind kind) {
  const auto& calls = RecordingHost::Instance().mutex_calls();
  return std::count_if(calls.begin(), calls.end(),
                       [kind](const MutexCall& call) { return call.kind == kind; });
}

TEST_P(FailingMutex, ChangesNoResultAndIsUnlocked) {
  PrepareLibrary(Service::kHeard);
  const Call call = EveryOperation()[GetParam()].prepare();
  const Observation expected = ObserveInChild(call);
  RecordingHost& host = RecordingHost::Instance();
  EXPECT_EQ("", Differences(ObserveInChild(call, [&host] { host.FailMutexes(); }), expected));
  host.FailMutexes();
  host.ForgetMutexCalls();
  call.run();
  EXPECT_EQ(CallsOf(MutexCall::kLock), CallsOf(MutexCall::kUnlock));
}

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return EveryOperation()[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, FailingMutex, ::testing::Range(size_t{0}, EveryOperation().size()),
                         NameOf);

}  // namespace
