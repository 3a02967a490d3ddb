#include "recording_host.h"

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include "bep.h"
#include "host_code.h"
#include "mutex_lock.h"
#include "ulog.h"

thread_local unsigned int HostCode::depth_ = 0;

namespace {

// Guards the records against tests that call the library from several threads.
std::mutex& RecordGuard() {
  static std::mutex* guard = new std::mutex;
  return *guard;
}

std::string Format(const char* format, va_list arguments) {
  va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  if (length < 0) {
    ADD_FAILURE() << "unprintable format: " << format;
    return std::string();
  }
  std::string text(static_cast<size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), format, arguments);
  text.pop_back();
  return text;
}

// Moves " func:NAME,line:N\r\n\r\n" from the end of `line.text` to its fields;
// a text that does not end so stays whole.
void SplitTail(LogLine& line) {
  static const std::string kFunction = " func:";
  static const std::string kLine = ",line:";
  static const std::string kEnd = "\r\n\r\n";
  const std::string& text = line.text;
  const size_t function = text.rfind(kFunction);
  const size_t number = text.rfind(kLine);
  if (function == std::string::npos || number == std::string::npos || number < function ||
      text.size() < number + kLine.size() + kEnd.size() ||
      text.compare(text.size() - kEnd.size(), kEnd.size(), kEnd) != 0) {
    return;
  }
  const size_t digits = number + kLine.size();
  const std::string value = text.substr(digits, text.size() - kEnd.size() - digits);
  if (value.empty() || value.find_first_not_of("0123456789") != std::string::npos) {
    return;
  }
  const size_t name = function + kFunction.size();
  line.function = text.substr(name, number - name);
  line.line = static_cast<unsigned int>(std::stoul(value));
  line.text.resize(function);
}

// Counts a fault's `remaining` calls down; true for the call that must fail.
bool FailsNow(unsigned int& remaining) { return remaining != 0 && --remaining == 0; }

// The blocks of bep_callocEx not yet released.
std::map<void*, unsigned int>& Blocks() {
  static auto* blocks = new std::map<void*, unsigned int>;
  return *blocks;
}

void RecordMemoryCall(const char* name, unsigned int count, unsigned int size, const char* file,
                      unsigned int line) {
  MemoryCall call;
  call.name = name;
  call.count = count;
  call.size = size;
  call.file = file == nullptr ? "" : file;
  call.line = line;
  call.order = RecordingHost::Instance().NextOrder();
  RecordingHost::Instance().memory_calls_.push_back(std::move(call));
}

// What a CMutexLock's handle points to.
struct MutexState {
  std::timed_mutex mutex;
  bool taken = false;  // guarded by RecordGuard
};

MutexState* NewMutex() {
  const HostCode host_code;
  return new MutexState;
}

// The mutexes that this thread holds.
std::vector<const MutexState*>& HeldHere() {
  thread_local std::vector<const MutexState*> held;
  return held;
}

bool WaitFor(MutexState& state, int wait_limit) {
  if (wait_limit < 0) {
    state.mutex.lock();
    return true;
  }
  return state.mutex.try_lock_for(std::chrono::milliseconds(wait_limit));
}

void RecordMutexCall(MutexCall::Kind kind, const void* mutex, int wait_limit = 0,
                     const char* file = nullptr, unsigned int line = 0) {
  RecordingHost& host = RecordingHost::Instance();
  host.mutex_calls_.push_back({kind, mutex, wait_limit, file, line, host.NextOrder()});
}

// A mutex that fails records the call and nothing more.
bool FailedMutexCall(MutexCall::Kind kind, const void* mutex, int wait_limit, const char* file,
                     unsigned int line) {
  const std::lock_guard<std::mutex> guard(RecordGuard());
  if (!RecordingHost::Instance().fail_mutexes_) {
    return false;
  }
  RecordMutexCall(kind, mutex, wait_limit, file, line);
  return true;
}

}  // namespace

bool operator==(const LogLine& a, const LogLine& b) {
  return a.level == b.level && a.text == b.text;
}

std::ostream& operator<<(std::ostream& out, const LogLine& line) {
  return out << "[" << line.level << "] " << ::testing::PrintToString(line.text);
}

LogLine Log(unsigned int level, std::string text) {
  LogLine line;
  line.level = level;
  line.text = std::move(text);
  return line;
}

RecordingHost& RecordingHost::Instance() {
  // Never destroyed: the library's singletons still log while the process ends.
  static RecordingHost* host = new RecordingHost;
  return *host;
}

std::vector<LogLine> RecordingHost::TakeLog() {
  const std::lock_guard<std::mutex> guard(RecordGuard());
  return std::exchange(log_, {});
}

std::vector<LogLine> RecordingHost::TakeLog(std::initializer_list<unsigned int> levels) {
  std::vector<LogLine> taken;
  for (LogLine& line : TakeLog()) {
    if (std::find(levels.begin(), levels.end(), line.level) != levels.end()) {
      taken.push_back(std::move(line));
    }
  }
  return taken;
}

std::vector<LogLine> RecordingHost::TakeLogWithoutTraces() {
  std::vector<LogLine> taken;
  for (LogLine& line : TakeLog()) {
    if (line.level != 10) {
      taken.push_back(std::move(line));
    }
  }
  return taken;
}

void RecordingHost::ForgetLog() { TakeLog(); }

bool RecordingHost::ClaimLog(unsigned int level, const std::string& text) {
  const std::lock_guard<std::mutex> guard(RecordGuard());
  const auto found = std::find(log_.begin(), log_.end(), Log(level, text));
  if (found == log_.end()) {
    return false;
  }
  log_.erase(found);
  return true;
}

// --- ulog.h

void ulogPrintf(unsigned int module_id, unsigned int level, const char* format, ...) {
  const HostCode host_code;
  LogLine line;
  line.module_id = module_id;
  line.level = level;
  line.format = format;
  va_list arguments;
  va_start(arguments, format);
  line.text = Format(format, arguments);
  va_end(arguments);
  SplitTail(line);
  RecordingHost& host = RecordingHost::Instance();
  {
    const std::lock_guard<std::mutex> guard(RecordGuard());
    line.order = host.NextOrder();
    host.log_.push_back(line);
  }
  if (host.log_listener) {
    host.log_listener(line);
  }
}

// --- mutex_lock.h

CMutexLock::CMutexLock() : _handle(NewMutex()) {
  const HostCode host_code;
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordMutexCall(MutexCall::kConstruct, this);
}

CMutexLock::~CMutexLock() {
  const HostCode host_code;
  auto* state = static_cast<MutexState*>(_handle);
  {
    const std::lock_guard<std::mutex> guard(RecordGuard());
    RecordMutexCall(MutexCall::kDestroy, this);
    EXPECT_FALSE(state->taken) << "a mutex is destroyed while it is locked";
  }
  delete state;
}

unsigned int CMutexLock::Lock(int wait_limit, const char* file, unsigned int line) {
  const HostCode host_code;
  if (FailedMutexCall(MutexCall::kLock, this, wait_limit, file, line)) {
    return 1;
  }
  auto* state = static_cast<MutexState*>(_handle);
  std::vector<const MutexState*>& held = HeldHere();
  EXPECT_TRUE(held.empty()) << "Lock by a thread that already holds a mutex";
  const bool own = std::find(held.begin(), held.end(), state) != held.end();
  const bool taken = !own && WaitFor(*state, wait_limit);
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordMutexCall(MutexCall::kLock, this, wait_limit, file, line);
  if (!taken) {
    return 1;
  }
  state->taken = true;
  held.push_back(state);
  ++RecordingHost::Instance().locks_held_;
  return 0;
}

unsigned int CMutexLock::Unlock(const char* file, unsigned int line) {
  const HostCode host_code;
  if (FailedMutexCall(MutexCall::kUnlock, this, 0, file, line)) {
    return 1;
  }
  auto* state = static_cast<MutexState*>(_handle);
  std::vector<const MutexState*>& held = HeldHere();
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordMutexCall(MutexCall::kUnlock, this, 0, file, line);
  const auto own = std::find(held.begin(), held.end(), state);
  if (own == held.end()) {
    ADD_FAILURE() << "Unlock of a mutex that the thread does not hold";
    return 1;
  }
  held.erase(own);
  state->taken = false;
  --RecordingHost::Instance().locks_held_;
  state->mutex.unlock();
  return 0;
}

// --- bep.h

int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }

unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }

void* bep_callocEx(unsigned int count, unsigned int size, const char* file, unsigned int line) {
  const HostCode host_code;
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordingHost& host = RecordingHost::Instance();
  RecordMemoryCall("bep_callocEx", count, size, file, line);
  if (FailsNow(host.fail_allocation_)) {
    return nullptr;
  }
  void* block = std::calloc(count, size);
  if (block != nullptr) {
    Blocks()[block] = count * size;
    ++host.blocks_in_use_;
  }
  return block;
}

void bep_freeEx(void* block, const char* file, unsigned int line) {
  const HostCode host_code;
  const std::lock_guard<std::mutex> guard(RecordGuard());
  const auto found = Blocks().find(block);
  const unsigned int bytes = found == Blocks().end() ? 0 : found->second;
  RecordMemoryCall("bep_freeEx", bytes, 1, file, line);
  if (block == nullptr) {
    return;
  }
  if (found == Blocks().end()) {
    ADD_FAILURE() << "bep_freeEx of a block that is not in use";
    return;
  }
  Blocks().erase(found);
  --RecordingHost::Instance().blocks_in_use_;
  std::free(block);
}

void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  const HostCode host_code;
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordMemoryCall("bep_memCpyEx", count, dst_size, nullptr, 0);
  if (count != 0 && count <= dst_size) {
    std::memcpy(dst, src, count);
  }
}

void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  const HostCode host_code;
  const std::lock_guard<std::mutex> guard(RecordGuard());
  RecordMemoryCall("bep_memSetEx", count, dst_size, nullptr, 0);
  if (count != 0 && count <= dst_size) {
    std::memset(dst, value, count);
  }
}

// --- vty.h

int vty_out(struct vty* terminal, const char* format, ...) {
  const HostCode host_code;
  if (terminal == nullptr) {
    ADD_FAILURE() << "vty_out on a null terminal: " << format;
    return 0;
  }
  va_list arguments;
  va_start(arguments, format);
  const std::string text = Format(format, arguments);
  va_end(arguments);
  terminal->text += text;
  return static_cast<int>(text.size());
}

int install_element(unsigned int node, struct cmd_element* element) {
  const HostCode host_code;
  RecordingHost::Instance().elements_.push_back({node, element});
  return 0;
}

int cl_install_module(const char* name, int (*install)(void), int (*showrun)(void)) {
  const HostCode host_code;
  RecordingHost::Instance().modules_.push_back({name, install, showrun});
  return 0;
}
