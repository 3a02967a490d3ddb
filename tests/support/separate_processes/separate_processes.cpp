#include "support/separate_processes/separate_processes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void GiveUp(const char* what) {
  std::perror(what);
  std::exit(2);
}

// What a test's process leaves for its parent, in memory that both see.
struct Report {
  bool ended;  // the test came to its end, rather than the process before it
  bool skipped;
};

struct Running {
  std::string test;
  pid_t process = 0;
  std::FILE* output = nullptr;
  Report* report = nullptr;
  Clock::time_point deadline;
  bool too_long = false;
};

// While the framework lists its tests it applies the filter and the shard to them.
std::vector<std::string> SelectedTests() {
  std::fflush(stdout);
  const int terminal = dup(STDOUT_FILENO);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (terminal < 0 || nowhere < 0) {
    GiveUp("/dev/null");
  }
  dup2(nowhere, STDOUT_FILENO);
  GTEST_FLAG_SET(list_tests, true);
  const int listed = RUN_ALL_TESTS();
  GTEST_FLAG_SET(list_tests, false);
  std::fflush(stdout);
  dup2(terminal, STDOUT_FILENO);
  close(terminal);
  close(nowhere);
  if (listed != 0) {
    std::exit(listed);
  }

  std::vector<std::string> tests;
  const testing::UnitTest& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const testing::TestInfo& test = *suite.GetTestInfo(j);
      if (test.should_run()) {
        tests.push_back(std::string(suite.name()) + "." + test.name());
      }
    }
  }
  return tests;
}

std::string SignalName(int number) {
  const char* short_name = sigabbrev_np(number);
  return short_name != nullptr ? std::string("SIG") + short_name : std::to_string(number);
}

// The process of one test, from its first step to its exit status.
int RunOneTest(const Running& run, const sigset_t& signals) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  sigprocmask(SIG_SETMASK, &signals, nullptr);
  dup2(fileno(run.output), STDOUT_FILENO);
  dup2(fileno(run.output), STDERR_FILENO);
  std::fclose(run.output);
  unsetenv("GTEST_TOTAL_SHARDS");
  unsetenv("GTEST_SHARD_INDEX");
  GTEST_FLAG_SET(filter, run.test);
  const int status = RUN_ALL_TESTS();
  run.report->skipped = testing::UnitTest::GetInstance()->skipped_test_count() > 0;
  run.report->ended = testing::UnitTest::GetInstance()->test_to_run_count() == 1;
  return status;
}

class Runner {
 public:
  Runner(const SeparateProcesses& wanted, std::vector<std::string> tests);
  int Run();

 private:
  void Start(const std::string& test);
  void WaitForAny();
  void KillLateOnes();
  void TakeEnded();
  void Judge(Running run, int status);
  void ShowFailure(const Running& run, const std::string& why);
  void ShowProgress() const;
  int ShowSummary() const;
  bool StopsHere() const { return GTEST_FLAG_GET(fail_fast) && !failures_.empty(); }

  SeparateProcesses wanted_;
  std::vector<std::string> tests_;
  std::deque<Running> running_;
  std::vector<std::string> failures_;  // a test and why, each
  std::vector<std::string> skipped_;
  size_t started_ = 0;
  size_t ended_ = 0;
  sigset_t child_signal_;
  sigset_t signals_before_;
  bool in_child_ = false;
  int child_status_ = 0;
};

Runner::Runner(const SeparateProcesses& wanted, std::vector<std::string> tests)
    : wanted_(wanted), tests_(std::move(tests)) {
  sigemptyset(&child_signal_);
  sigaddset(&child_signal_, SIGCHLD);
  sigprocmask(SIG_BLOCK, &child_signal_, &signals_before_);
}

int Runner::Run() {
  while (started_ < tests_.size() || !running_.empty()) {
    while (started_ < tests_.size() && running_.size() < wanted_.jobs && !StopsHere()) {
      Start(tests_[started_++]);
      if (in_child_) {
        return child_status_;
      }
    }
    if (running_.empty()) {
      break;
    }
    WaitForAny();
    TakeEnded();
    KillLateOnes();
  }
  sigprocmask(SIG_SETMASK, &signals_before_, nullptr);
  return ShowSummary();
}

void Runner::Start(const std::string& test) {
  Running run;
  run.test = test;
  run.output = std::tmpfile();
  if (run.output == nullptr) {
    GiveUp("a file for the output of a test");
  }
  void* shared =
      mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) {
    GiveUp("memory for the report of a test");
  }
  run.report = new (shared) Report{false, false};
  run.deadline = Clock::now() + wanted_.timeout;
  std::fflush(nullptr);
  run.process = fork();
  if (run.process < 0) {
    GiveUp("fork");
  }
  if (run.process == 0) {
    in_child_ = true;
    child_status_ = RunOneTest(run, signals_before_);
    return;
  }
  setpgid(run.process, run.process);  // whoever comes first, parent or child
  running_.push_back(run);
}

void Runner::WaitForAny() {
  const auto first =
      std::min_element(running_.begin(), running_.end(),
                       [](const Running& a, const Running& b) { return a.deadline < b.deadline; });
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::max(first->deadline - Clock::now(), Clock::duration::zero()));
  timespec limit{};
  // A signal may stand for several processes or for one that is taken already.
  limit.tv_sec = left.count() >= 1000 ? 1 : 0;
  limit.tv_nsec = static_cast<long>(left.count() % 1000) * 1000000L;
  sigtimedwait(&child_signal_, nullptr, &limit);
}

void Runner::KillLateOnes() {
  for (Running& run : running_) {
    if (!run.too_long && Clock::now() >= run.deadline) {
      run.too_long = true;
      run.deadline += std::chrono::hours(1);  // killed once
      kill(run.process, SIGKILL);
    }
  }
}

void Runner::TakeEnded() {
  for (auto run = running_.begin(); run != running_.end();) {
    siginfo_t ended{};
    const auto process = static_cast<id_t>(run->process);
    if (waitid(P_PID, process, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid == 0) {
      ++run;
      continue;
    }
    kill(-run->process, SIGKILL);  // what the test started and left behind
    int status = 0;
    waitpid(run->process, &status, 0);
    const Running taken = std::move(*run);
    run = running_.erase(run);
    Judge(taken, status);
  }
}

void Runner::Judge(Running run, int status) {
  ++ended_;
  if (run.too_long) {
    ShowFailure(run, "took longer than " + std::to_string(wanted_.timeout.count()) + " s");
  } else if (WIFSIGNALED(status)) {
    const int number = WTERMSIG(status);
    ShowFailure(run, "killed by " + SignalName(number) + " (" + strsignal(number) + ")");
  } else if (WEXITSTATUS(status) != 0) {
    ShowFailure(run, "exit status " + std::to_string(WEXITSTATUS(status)));
  } else if (!run.report->ended) {
    ShowFailure(run, "the process ended before the test");
  } else if (run.report->skipped) {
    skipped_.push_back(run.test);
  }
  std::fclose(run.output);
  munmap(run.report, sizeof(Report));
  ShowProgress();
}

void Runner::ShowFailure(const Running& run, const std::string& why) {
  failures_.push_back(run.test + ": " + why);
  std::printf("---- %s: %s\n", run.test.c_str(), why.c_str());
  std::rewind(run.output);
  char bytes[4096];
  for (size_t n = 0; (n = std::fread(bytes, 1, sizeof bytes, run.output)) > 0;) {
    std::fwrite(bytes, 1, n, stdout);
  }
  std::printf("---- end of %s\n", run.test.c_str());
  std::fflush(stdout);
}

// Ten lines over the whole run.
void Runner::ShowProgress() const {
  if (ended_ * 10 / tests_.size() != (ended_ - 1) * 10 / tests_.size()) {
    std::printf("%zu of %zu tests ended, %zu failed\n", ended_, tests_.size(), failures_.size());
    std::fflush(stdout);
  }
}

int Runner::ShowSummary() const {
  if (tests_.empty()) {
    std::printf("no test is selected\n");
    return 1;
  }
  for (const std::string& failure : failures_) {
    std::printf("failed: %s\n", failure.c_str());
  }
  for (const std::string& test : skipped_) {
    std::printf("skipped: %s\n", test.c_str());
  }
  if (ended_ < tests_.size()) {
    std::printf("not run after the first failure: %zu tests\n", tests_.size() - ended_);
  }
  std::printf("%zu tests in %zu processes: ", ended_, started_);
  if (failures_.empty() && skipped_.empty()) {
    std::printf("all passed\n");
  } else {
    std::printf("%zu passed, %zu failed, %zu skipped\n",
                ended_ - failures_.size() - skipped_.size(), failures_.size(), skipped_.size());
  }
  std::fflush(stdout);
  return failures_.empty() ? 0 : 1;
}

}  // namespace

int RunTestsInSeparateProcesses(const SeparateProcesses& wanted) {
  return Runner(wanted, SelectedTests()).Run();
}
