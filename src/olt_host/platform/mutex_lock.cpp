// The host's mutex: a std::timed_mutex that knows who holds it, so that a
// thread which would wait for itself, or release what it does not hold, is told
// so instead of hanging or breaking the lock.
#include "mutex_lock.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>
#include <thread>

#include "platform/log_sink.h"

namespace {

constexpr unsigned int kOk = 0;
constexpr unsigned int kTimedOut = 1;
constexpr unsigned int kMisused = 2;

struct Handle {
  std::timed_mutex mutex;
  // Written by the holder only; another thread never finds its own id here.
  std::atomic<std::thread::id> holder{std::thread::id()};
};

unsigned int Misused(const char* what, const char* file, unsigned int line) {
  olt_host::LogHostLine(0, std::string(what) + " by " + (file == nullptr ? "the library" : file) +
                               " line " + std::to_string(line));
  return kMisused;
}

}  // namespace

CMutexLock::CMutexLock() : _handle(new Handle) {}

CMutexLock::~CMutexLock() { delete static_cast<Handle*>(_handle); }

unsigned int CMutexLock::Lock(int wait_limit, const char* file, unsigned int line) {
  Handle& handle = *static_cast<Handle*>(_handle);
  if (handle.holder == std::this_thread::get_id()) {
    return Misused("a mutex locked twice by one thread,", file, line);
  }
  if (wait_limit < -1) return Misused("a mutex locked with a bad wait limit", file, line);
  if (wait_limit == -1) {
    handle.mutex.lock();
  } else if (!handle.mutex.try_lock_for(std::chrono::milliseconds(wait_limit))) {
    return kTimedOut;
  }
  handle.holder = std::this_thread::get_id();
  return kOk;
}

unsigned int CMutexLock::Unlock(const char* file, unsigned int line) {
  Handle& handle = *static_cast<Handle*>(_handle);
  if (handle.holder != std::this_thread::get_id()) {
    return Misused("a mutex unlocked that the thread does not hold,", file, line);
  }
  handle.holder = std::thread::id();
  handle.mutex.unlock();
  return kOk;
}
