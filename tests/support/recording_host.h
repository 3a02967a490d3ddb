// The host that the library's tests run on. It defines every host symbol,
// records what the library does with them, and fails on command.
//
// Clean state: the library's registries, tables and hooks are process-wide
// singletons, so every test runs in a process of its own. CTest starts one
// process a test; `LibraryTest` refuses to run a second test in one process.
// Run single tests with `ctest -R Name` or with an exact --gtest_filter, and many at
// once with --separate-processes (separate_processes/).
#ifndef TESTS_SUPPORT_RECORDING_HOST_H
#define TESTS_SUPPORT_RECORDING_HOST_H

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "vty.h"

// One line that left through ulogPrintf, the common tail taken off `text`.
struct LogLine {
  unsigned int level = 0;
  std::string format;     // as passed
  std::string text;       // formatted, without " func:NAME,line:N\r\n\r\n"
  std::string function;   // NAME of the tail; empty when the line had no tail
  unsigned int line = 0;  // N of the tail
  unsigned int module_id = 0;
  unsigned long order = 0;  // among all that the host recorded, of whatever kind
};

bool operator==(const LogLine& a, const LogLine& b);  // level and text only
std::ostream& operator<<(std::ostream& out, const LogLine& line);

// A line as an expectation: Log(1, "find null!").
LogLine Log(unsigned int level, std::string text);

// One call of CMutexLock, in call order over all mutexes.
struct MutexCall {
  enum Kind { kConstruct, kLock, kUnlock, kDestroy } kind;
  const void* mutex;
  int wait_limit;     // of Lock
  const char* file;   // as passed
  unsigned int line;  // as passed
  unsigned long order;
};

// One call of a memory primitive of bep.h.
struct MemoryCall {
  std::string name;  // "bep_callocEx", "bep_freeEx", "bep_memCpyEx", ...
  unsigned int count = 0;
  unsigned int size = 0;  // element size, or dst_size
  std::string file;       // empty when null or when the call has none
  unsigned int line = 0;  // of the allocator and the release
  unsigned long order = 0;
};

// The terminal of the tests: collects the bytes of vty_out.
struct vty {
  std::string text;
};

class RecordingHost {
 public:
  static RecordingHost& Instance();

  // --- Log. Every line is recorded, at every level, in order.
  // Takes the lines recorded since the last Take (all levels, or the named ones
  // in order; taking always empties the record).
  std::vector<LogLine> TakeLog();
  std::vector<LogLine> TakeLog(std::initializer_list<unsigned int> levels);
  // As TakeLog() without the "function start!"/"function end!" style traces:
  // everything but level 10.
  std::vector<LogLine> TakeLogWithoutTraces();
  // Forgets what was recorded so far: ends a test's set-up.
  void ForgetLog();
  // True, and takes that one line off the record, when it was recorded.
  bool ClaimLog(unsigned int level, const std::string& text);

  // Hears each line after it is recorded, and may call the library, which then writes
  // lines of its own; null for none.
  std::function<void(const LogLine&)> log_listener;

  // --- Mutex. Lock and Unlock are recorded with their arguments; a nested Lock,
  // an Unlock of a free mutex and a mutex left locked fail the test.
  const std::vector<MutexCall>& mutex_calls() const { return mutex_calls_; }
  void ForgetMutexCalls() { mutex_calls_.clear(); }
  unsigned int locks_held() const { return locks_held_; }
  // From now on Lock and Unlock are recorded, take and release nothing, and report
  // failure.
  void FailMutexes() { fail_mutexes_ = true; }

  // --- Variant. The k-th Append or Fetch from now on fails (1 is the next
  // one); 0 never.
  void FailAppend(unsigned int k) { fail_append_ = k; }
  void FailFetch(unsigned int k) { fail_fetch_ = k; }

  // --- Memory. The k-th bep_callocEx from now on returns null; 0 never.
  void FailAllocation(unsigned int k) { fail_allocation_ = k; }
  const std::vector<MemoryCall>& memory_calls() const { return memory_calls_; }
  void ForgetMemoryCalls() { memory_calls_.clear(); }
  unsigned int blocks_in_use() const { return blocks_in_use_; }

  // --- The command framework.
  struct InstalledElement {
    unsigned int node;
    cmd_element* element;
  };
  struct InstalledModule {
    std::string name;
    int (*install)(void);
    int (*showrun)(void);
  };
  const std::vector<InstalledElement>& elements() const { return elements_; }
  const std::vector<InstalledModule>& modules() const { return modules_; }

  // The place of the next record, for records that are kept elsewhere.
  unsigned long NextOrder() { return next_order_++; }

  // The host symbols of recording_host.cpp write to these; tests use the above.
  std::vector<LogLine> log_;
  std::vector<MutexCall> mutex_calls_;
  std::vector<MemoryCall> memory_calls_;
  std::vector<InstalledElement> elements_;
  std::vector<InstalledModule> modules_;
  unsigned long next_order_ = 0;
  unsigned int locks_held_ = 0;
  unsigned int blocks_in_use_ = 0;
  bool fail_mutexes_ = false;
  unsigned int fail_append_ = 0;
  unsigned int fail_fetch_ = 0;
  unsigned int fail_allocation_ = 0;
};

// Base of every test of the library. At the end of a test it fails on a lock
// still held, a block not freed, and a line of level 0 or 13 that the test did
// not take, claim or forget: rule breaches and null pointers are never noise.
class LibraryTest : public ::testing::Test {
 protected:
  LibraryTest();
  void TearDown() override;
  RecordingHost& host = RecordingHost::Instance();
};

#endif  // TESTS_SUPPORT_RECORDING_HOST_H
