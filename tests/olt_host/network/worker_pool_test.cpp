// Work on copies of the process: results in order, failures in the place of their task, and
// nothing left behind, whatever becomes of a worker.
#include "network/worker_pool.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::WorkerPool;
using olt_host::WorkError;

using Texts = std::vector<std::string>;

WorkerPool::Source Each(const Texts& tasks) {
  return [&tasks, i = std::size_t{0}]() mutable -> std::optional<std::string> {
    if (i == tasks.size()) return std::nullopt;
    return tasks[i++];
  };
}

WorkerPool::Sink Into(Texts& results) {
  return [&results](const std::string& result) { results.push_back(result); };
}

Texts Numbers(int count) {
  Texts texts;
  for (int i = 0; i < count; ++i) {
    texts.push_back(std::to_string(i));
  }
  return texts;
}

Texts ResultsOf(WorkerPool& pool, const Texts& tasks) {
  Texts results;
  pool.Run(Each(tasks), Into(results));
  return results;
}

// What Run throws as WorkError; what was taken before is in `results`.
std::string FailureOf(WorkerPool& pool, const Texts& tasks, Texts& results) {
  try {
    pool.Run(Each(tasks), Into(results));
  } catch (const WorkError& error) {
    return error.what();
  }
  return "no error";
}

std::string Same(const std::string& task) { return task; }

// Long enough for the time limit of a test.
[[noreturn]] void WorkForEver() {
  for (;;) {
    pause();
  }
}

std::size_t OpenDescriptors() {
  const std::filesystem::directory_iterator folder("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
}

bool HasChildren() { return waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD; }

class Pipe {
 public:
  Pipe() {
    if (pipe(_ends.data()) != 0) throw std::runtime_error("no pipe");
  }
  ~Pipe() {
    Close(0);
    Close(1);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  void Put() const { EXPECT_EQ(write(_ends[1], "x", 1), 1); }
  // False when nobody can put any more.
  bool Get() const {
    char byte = 0;
    return read(_ends[0], &byte, 1) == 1;
  }
  void Close(std::size_t end) {
    if (_ends[end] >= 0) close(_ends[end]);
    _ends[end] = -1;
  }

 private:
  std::array<int, 2> _ends{-1, -1};
};

TEST(WorkerPool, ResultsComeInTheOrderOfTheTasks) {
  for (const unsigned int workers : {1U, 2U, 3U, 8U}) {
    WorkerPool pool(workers, [](const std::string& task) {
      // Neighbours differ most.
      std::this_thread::sleep_for(std::chrono::microseconds(std::stoi(task) * 7919 % 3000));
      return "done " + task;
    });
    Texts expected;
    for (const std::string& task : Numbers(200)) {
      expected.push_back("done " + task);
    }
    EXPECT_EQ(ResultsOf(pool, Numbers(200)), expected) << workers;
  }
}

TEST(WorkerPool, DoesThousandsOfSmallTasksAndEmptyOnes) {
  Texts tasks = Numbers(5000);
  for (std::size_t i = 0; i < tasks.size(); i += 3) {
    tasks[i].clear();
  }
  WorkerPool pool(3, Same);
  EXPECT_EQ(ResultsOf(pool, tasks), tasks);
}

TEST(WorkerPool, DoesTasksFarBiggerThanWhatASocketHolds) {
  Texts tasks;
  for (std::size_t i = 0; i < 6; ++i) {
    std::string task(10'000'000 + i, '\0');
    for (std::size_t at = 0; at < task.size(); ++at) {
      task[at] = static_cast<char>((at * (i + 3)) >> 4U);
    }
    tasks.push_back(task);
  }
  WorkerPool pool(2, [](std::string task) {
    std::reverse(task.begin(), task.end());
    return task;
  });
  Texts results = ResultsOf(pool, tasks);
  for (std::string& result : results) {
    std::reverse(result.begin(), result.end());
  }
  EXPECT_TRUE(results == tasks);
}

TEST(WorkerPool, HasNothingToDoForNoTasks) {
  WorkerPool pool(2, Same);
  EXPECT_EQ(ResultsOf(pool, {}), Texts{});
  EXPECT_EQ(ResultsOf(pool, {"again"}), Texts{"again"});
}

TEST(WorkerPool, WorkersWorkAtTheSameTime) {
  const Pipe first;
  const Pipe second;
  WorkerPool pool(2, [&](const std::string& task) {
    (task == "a" ? first : second).Put();
    return std::string((task == "a" ? second : first).Get() ? "met" : "alone");
  });
  EXPECT_EQ(ResultsOf(pool, {"a", "b"}), (Texts{"met", "met"}));
}

TEST(WorkerPool, WhatAWorkerChangesStaysThere) {
  int done = 10;
  WorkerPool pool(1, [&done](const std::string&) { return std::to_string(++done); });
  done = 50;
  EXPECT_EQ(ResultsOf(pool, {"", "", ""}), (Texts{"11", "12", "13"}));
  EXPECT_EQ(done, 50);
}

TEST(WorkerPool, AsksForTasksABoundedNumberAhead) {
  for (const std::size_t workers : {std::size_t{1}, std::size_t{3}}) {
    WorkerPool pool(static_cast<unsigned int>(workers), [](const std::string& task) {
      // Every tenth holds the results of the others up.
      std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(task) % 10 == 0 ? 30 : 0));
      return task;
    });
    std::size_t asked = 0;
    std::size_t taken = 0;
    std::size_t most = 0;
    pool.Run(
        [&]() -> std::optional<std::string> {
          if (asked == 60) return std::nullopt;
          most = std::max(most, ++asked - taken);
          return std::to_string(asked - 1);
        },
        [&](const std::string& result) { EXPECT_EQ(result, std::to_string(taken++)); });
    EXPECT_EQ(taken, 60U);
    EXPECT_LE(most, WorkerPool::kTasksAhead * workers);
    // A slow task does not stop the other workers either.
    EXPECT_GE(most, workers == 1 ? 1 : workers + 1);
  }
}

TEST(WorkerPool, AFailureComesInThePlaceOfItsResult) {
  for (const unsigned int workers : {1U, 2U, 5U}) {
    WorkerPool pool(workers, [](const std::string& task) -> std::string {
      if (task == "17") throw std::runtime_error("task 17 makes no sense");
      // The failure is known before the results that go before it.
      std::this_thread::sleep_for(std::chrono::milliseconds(3));
      return task;
    });
    Texts results;
    EXPECT_EQ(FailureOf(pool, Numbers(40), results), "task 17 makes no sense");
    EXPECT_EQ(results, Numbers(17)) << workers;
  }
}

TEST(WorkerPool, AFailureWithoutAMessageIsOneToo) {
  WorkerPool pool(1, [](const std::string&) -> std::string { throw 1; });
  Texts results;
  EXPECT_EQ(FailureOf(pool, {""}, results), "a worker process failed without a message");
}

TEST(WorkerPool, TellsHowAWorkerEnded) {
  for (const unsigned int workers : {1U, 2U}) {
    WorkerPool killed(workers, [](const std::string& task) {
      if (task == "5") kill(getpid(), SIGKILL);
      return task;
    });
    Texts results;
    EXPECT_EQ(FailureOf(killed, Numbers(20), results), "a worker process was ended by signal 9");
    EXPECT_EQ(results, Numbers(5));

    WorkerPool left(workers, [](const std::string& task) {
      if (task == "5") _exit(3);
      return task;
    });
    results.clear();
    EXPECT_EQ(FailureOf(left, Numbers(20), results), "a worker process ended with status 3");
    EXPECT_EQ(results, Numbers(5));
  }
}

TEST(WorkerPool, AWorkerThatDiedWhileItWasIdleIsFoundWhenItIsNeeded) {
  WorkerPool pool(1, [](const std::string&) { return std::to_string(getpid()); });
  const pid_t worker = std::stoi(ResultsOf(pool, {""}).front());
  kill(worker, SIGKILL);
  siginfo_t ended{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(worker), &ended, WEXITED | WNOWAIT), 0);
  Texts results;
  EXPECT_EQ(FailureOf(pool, {std::string(5'000'000, 'x')}, results),
            "a worker process was ended by signal 9");
}

TEST(WorkerPool, LetsThroughWhatSourceAndSinkThrow) {
  for (const bool in_source : {true, false}) {
    std::size_t taken = 0;
    const auto begin = std::chrono::steady_clock::now();
    {
      WorkerPool pool(2, [](const std::string& task) -> std::string {
        if (task != "0") WorkForEver();
        return task;
      });
      const Texts tasks = Numbers(2);
      const WorkerPool::Source each = Each(tasks);
      EXPECT_THROW(pool.Run(
                       [&]() -> std::optional<std::string> {
                         std::optional<std::string> task = each();
                         if (!task && in_source) throw std::domain_error("no more");
                         return task;
                       },
                       [&](const std::string&) {
                         ++taken;
                         if (!in_source) throw std::domain_error("no more");
                       }),
                   std::domain_error);
    }
    EXPECT_LE(taken, 1U);
    // The worker that would work for ever is not waited for.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
    EXPECT_FALSE(HasChildren());
  }
}

TEST(WorkerPool, LeavesNothingBehind) {
  const std::size_t descriptors = OpenDescriptors();
  for (int i = 0; i < 5; ++i) {
    WorkerPool pool(3, Same);
    EXPECT_EQ(ResultsOf(pool, Numbers(10)), Numbers(10));
  }
  { const WorkerPool unused(3, Same); }
  EXPECT_EQ(OpenDescriptors(), descriptors);
  EXPECT_FALSE(HasChildren());
}

TEST(WorkerPool, AWorkerHoldsItsOwnSocketOnly) {
  const std::string expected = std::to_string(OpenDescriptors() + 1);
  WorkerPool pool(3, [](const std::string&) { return std::to_string(OpenDescriptors()); });
  EXPECT_EQ(ResultsOf(pool, Numbers(6)), Texts(6, expected));
}

TEST(WorkerPool, WorkersLeaveTheExitToTheParent) {
  static int at_exit = -1;  // a descriptor that lives as long as the handler
  const TemporaryDirectory directory;
  at_exit = creat(directory.Path("exits").c_str(), 0600);
  ASSERT_EQ(std::atexit([] {
              if (write(at_exit, "x", 1) < 0) at_exit = -1;
            }),
            0);
  {
    WorkerPool pool(2, Same);
    EXPECT_EQ(ResultsOf(pool, Numbers(4)), Numbers(4));
  }
  EXPECT_EQ(ReadFile(directory.Path("exits")), "");
  close(at_exit);
  at_exit = -1;
}

TEST(WorkerPool, EndsBeforeALaterPoolDoes) {
  auto first = std::make_unique<WorkerPool>(2, Same);
  WorkerPool second(2, [](const std::string& task) { return task + task; });
  EXPECT_EQ(ResultsOf(*first, {"a"}), Texts{"a"});
  first.reset();
  EXPECT_EQ(ResultsOf(second, {"a"}), Texts{"aa"});
}

// Runs `parent` in a process of its own, kills that, and says whether everybody who holds
// the pipe, so every worker, is gone after it.
template <typename Parent>
bool WorkersAreGoneAfter(const Parent& parent) {
  Pipe held;
  const Pipe ready;
  const pid_t process = fork();
  if (process == 0) {
    parent(ready);
    _exit(1);
  }
  held.Close(1);
  EXPECT_TRUE(ready.Get());
  kill(process, SIGKILL);
  EXPECT_EQ(waitpid(process, nullptr, 0), process);
  return !held.Get();
}

TEST(WorkerPool, IdleWorkersEndWithTheirParent) {
  EXPECT_TRUE(WorkersAreGoneAfter([](const Pipe& ready) {
    const WorkerPool first(2, Same);
    const WorkerPool second(2, Same);
    ready.Put();
    WorkForEver();
  }));
}

TEST(WorkerPool, BusyWorkersEndWithTheirParent) {
  EXPECT_TRUE(WorkersAreGoneAfter([](const Pipe& ready) {
    WorkerPool pool(2, [&ready](const std::string&) -> std::string {
      ready.Put();
      WorkForEver();
    });
    ResultsOf(pool, {"", ""});
  }));
}

TEST(WorkerPool, AnInterruptIsForTheParentToDecideOn) {
  WorkerPool pool(1, [](const std::string& task) {
    kill(getpid(), SIGINT);
    return task;
  });
  EXPECT_EQ(ResultsOf(pool, {"a"}), Texts{"a"});
}

TEST(WorkerPool, TextInABufferOfTheParentIsWrittenOnce) {
  const TemporaryDirectory directory;
  std::FILE* const file = std::fopen(directory.Path("out").c_str(), "w");
  ASSERT_NE(file, nullptr);
  std::fputs("once\n", file);
  {
    WorkerPool pool(3, [](const std::string& task) {
      std::fflush(nullptr);
      return task;
    });
    EXPECT_EQ(ResultsOf(pool, Numbers(9)), Numbers(9));
  }
  std::fclose(file);
  EXPECT_EQ(ReadFile(directory.Path("out")), "once\n");
}

TEST(WorkerPool, SignalsOfTheParentDisturbNothing) {
  struct sigaction action {};
  struct sigaction before {};
  // Without SA_RESTART: every call that waits is broken off.
  action.sa_handler = [](int) {};
  ASSERT_EQ(sigaction(SIGALRM, &action, &before), 0);
  const itimerval often{{0, 300}, {0, 300}};
  const itimerval never{};
  {
    WorkerPool pool(2, Same);
    ASSERT_EQ(setitimer(ITIMER_REAL, &often, nullptr), 0);
    const Texts tasks(30, std::string(1'000'000, 'x'));
    EXPECT_TRUE(ResultsOf(pool, tasks) == tasks);
  }
  setitimer(ITIMER_REAL, &never, nullptr);
  sigaction(SIGALRM, &before, nullptr);
}

TEST(AllCores, AreThoseThatTheProcessMayUse) {
  cpu_set_t before;
  ASSERT_EQ(sched_getaffinity(0, sizeof(before), &before), 0);
  EXPECT_EQ(olt_host::AllCores(), static_cast<unsigned int>(CPU_COUNT(&before)));
  std::size_t core = 0;
  while (!CPU_ISSET(core, &before)) ++core;
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(core, &one);
  ASSERT_EQ(sched_setaffinity(0, sizeof(one), &one), 0);
  EXPECT_EQ(olt_host::AllCores(), 1U);
  EXPECT_EQ(sched_setaffinity(0, sizeof(before), &before), 0);
}

}  // namespace
}  // namespace olt_host_test
