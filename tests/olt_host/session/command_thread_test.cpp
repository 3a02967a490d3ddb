// The one thread of all commands.
#include "session/command_thread.h"

#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <vector>

#include "session/session_fixture.h"

namespace olt_host {
namespace {

TEST(TheCommandThread, RunsWhatOtherThreadsAskForOnOneThread) {
  ServedCommands commands;
  std::thread::id first;
  std::thread::id second;
  EXPECT_TRUE((*commands).Run([&first] { first = std::this_thread::get_id(); }));
  std::thread other([&] { (*commands).Run([&second] { second = std::this_thread::get_id(); }); });
  other.join();
  EXPECT_EQ(first, second);
  EXPECT_NE(std::this_thread::get_id(), first);
}

TEST(TheCommandThread, RunsATaskOfATaskAtOnce) {
  ServedCommands commands;
  bool inner = false;
  EXPECT_TRUE((*commands).Run([&] { (*commands).Run([&inner] { inner = true; }); }));
  EXPECT_TRUE(inner);
}

TEST(TheCommandThread, ThrowsTheExceptionOfATaskAtItsCaller) {
  ServedCommands commands;
  EXPECT_THROW((*commands).Run([] { throw std::runtime_error("thrown"); }), std::runtime_error);
  EXPECT_TRUE((*commands).Run([] {})) << "and goes on";
}

TEST(TheCommandThread, RunsACallOnceItIsTime) {
  ServedCommands commands;
  std::promise<std::thread::id> called;
  std::thread::id own;
  (*commands).Run([&] {
    own = std::this_thread::get_id();
    (*commands).CallAt(std::chrono::steady_clock::now(),
                       [&called] { called.set_value(std::this_thread::get_id()); });
  });
  EXPECT_EQ(called.get_future().get(), own);
}

TEST(TheCommandThread, RunsWhatIsPostedInItsOrderWithoutAWait) {
  ServedCommands commands;
  std::vector<int> order;
  std::promise<std::thread::id> last;
  std::thread::id own;
  (*commands).Run([&] {
    own = std::this_thread::get_id();
    (*commands).Post([&order] { order.push_back(1); });
    (*commands).Post([] { throw std::runtime_error("lost"); });
    (*commands).Post([&last] { last.set_value(std::this_thread::get_id()); });
    order.push_back(0);
  });
  EXPECT_EQ(last.get_future().get(), own);
  EXPECT_EQ(order, (std::vector<int>{0, 1}));
}

TEST(TheCommandThread, RunsNothingThatIsPostedOnceStopped) {
  bool is_run = false;
  CommandThread commands;
  commands.Post([&commands] { commands.Stop(); });
  commands.Post([&is_run] { is_run = true; });
  commands.Serve();
  commands.Post([&is_run] { is_run = true; });
  commands.Serve();
  EXPECT_FALSE(is_run);
}

TEST(TheCommandThread, RunsTheLaterOfTwoCallsOnly) {
  ServedCommands commands;
  bool first = false;
  std::promise<void> second;
  (*commands).Run([&] {
    const auto now = std::chrono::steady_clock::now();
    (*commands).CallAt(now, [&first] { first = true; });
    (*commands).CallAt(now, [&second] { second.set_value(); });
  });
  second.get_future().get();
  EXPECT_FALSE(first);
}

TEST(TheCommandThread, RunsNoCallBeforeItsTimeAndGoesOnWithTasks) {
  ServedCommands commands;
  bool called = false;
  (*commands).Run([&] {
    (*commands).CallAt(std::chrono::steady_clock::now() + std::chrono::hours(1),
                       [&called] { called = true; });
  });
  for (int i = 0; i < 10; ++i) EXPECT_TRUE((*commands).Run([] {}));
  (*commands).Run([&called] { EXPECT_FALSE(called); });
}

TEST(TheCommandThread, LogsWhatATaskThrowsThatNobodyWaitsFor) {
  testing::internal::CaptureStderr();
  ServedCommands commands;
  (*commands).Run([&] {
    (*commands).Post([] { throw std::runtime_error("the first is thrown"); });
    (*commands).CallAt(std::chrono::steady_clock::now(),
                       [] { throw std::runtime_error("the second is thrown"); });
    (*commands).Post([] { throw 3; });
  });
  // Each may run behind one of these at most.
  for (int i = 0; i < 4; ++i) EXPECT_TRUE((*commands).Run([] {}));
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_NE(log.find("a task failed: the first is thrown"), std::string::npos) << log;
  EXPECT_NE(log.find("a task failed: the second is thrown"), std::string::npos) << log;
  EXPECT_NE(log.find("a task failed\n"), std::string::npos) << log;
}

TEST(TheCommandThread, SurvivesACallThatThrows) {
  ServedCommands commands;
  std::promise<void> called;
  (*commands).Run([&] {
    (*commands).CallAt(std::chrono::steady_clock::now(), [&called] {
      called.set_value();
      throw std::runtime_error("thrown");
    });
  });
  called.get_future().get();
  EXPECT_TRUE((*commands).Run([] {}));
}

TEST(TheCommandThread, NeverRunsTwoTasksAtOnce) {
  ServedCommands commands;
  int inside = 0;
  int most = 0;
  int runs = 0;
  constexpr int kCallers = 8;
  std::vector<std::thread> callers;
  callers.reserve(kCallers);
  for (int caller = 0; caller < kCallers; ++caller) {
    callers.emplace_back([&] {
      for (int i = 0; i < 200; ++i) {
        (*commands).Run([&] {
          most = std::max(most, ++inside);
          ++runs;
          --inside;
        });
      }
    });
  }
  for (std::thread& caller : callers) caller.join();
  EXPECT_EQ(1, most);
  EXPECT_EQ(1600, runs);
}

TEST(TheCommandThread, DropsWaitingTasksWhenItIsStopped) {
  CommandThread commands;  // nobody serves: this thread would
  std::future<bool> waiting = std::async(std::launch::async, [&] {
    return commands.Run([] { ADD_FAILURE() << "run after the stop"; });
  });
  while (commands.waiting() == 0) std::this_thread::yield();
  commands.Stop();
  EXPECT_FALSE(waiting.get());
  EXPECT_FALSE(commands.Run([] { ADD_FAILURE() << "run after the stop"; }));
  commands.Serve();  // returns at once
}

TEST(TheCommandThread, FinishesTheTaskInHandBeforeItStops) {
  CommandThread commands;
  bool done = false;
  std::future<bool> caller = std::async(std::launch::async, [&] {
    return commands.Run([&] {
      commands.Stop();
      done = true;
    });
  });
  commands.Serve();
  EXPECT_TRUE(caller.get());
  EXPECT_TRUE(done);
}

}  // namespace
}  // namespace olt_host
