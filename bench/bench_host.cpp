#include "bench_host.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <mutex>
#include <string>
#include <type_traits>

#include "bep.h"
#include "mutex_lock.h"
#include "ulog.h"
#include "variant.h"
#include "vty.h"

namespace {

constexpr unsigned int kOk = 0;
constexpr unsigned int kFailed = 1;
constexpr unsigned int kNextItem = 0xFFFF;

std::atomic<std::uint64_t>& Waited() {
  static std::atomic<std::uint64_t> waited{0};
  return waited;
}

struct Items {
  std::string bytes;
  std::size_t cursor = 0;
};

unsigned int Put(void* handle, const void* data, std::size_t size, unsigned int index) {
  if (index != kNextItem) return kFailed;
  static_cast<Items*>(handle)->bytes.append(static_cast<const char*>(data), size);
  return kOk;
}

unsigned int Take(void* handle, void* data, std::size_t size, unsigned int index) {
  Items& items = *static_cast<Items*>(handle);
  if (index != kNextItem || items.bytes.size() - items.cursor < size) return kFailed;
  std::memcpy(data, items.bytes.data() + items.cursor, size);
  items.cursor += size;
  return kOk;
}

}  // namespace

std::uint64_t TakeWaitedNanoseconds() { return Waited().exchange(0); }

double ThreadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void ulogPrintf(unsigned int /*module_id*/, unsigned int /*level*/, const char* /*format*/, ...) {}

CMutexLock::CMutexLock() : _handle(new std::mutex) {}

CMutexLock::~CMutexLock() { delete static_cast<std::mutex*>(_handle); }

unsigned int CMutexLock::Lock(int /*wait_limit*/, const char* /*file*/, unsigned int /*line*/) {
  auto& mutex = *static_cast<std::mutex*>(_handle);
  if (!mutex.try_lock()) {
    const auto start = std::chrono::steady_clock::now();
    mutex.lock();
    const std::chrono::nanoseconds waited = std::chrono::steady_clock::now() - start;
    Waited() += static_cast<std::uint64_t>(waited.count());
  }
  return kOk;
}

unsigned int CMutexLock::Unlock(const char* /*file*/, unsigned int /*line*/) {
  static_cast<std::mutex*>(_handle)->unlock();
  return kOk;
}

Variant::Variant() : _handle(new Items) {}

Variant::~Variant() { delete static_cast<Items*>(_handle); }

unsigned int Variant::Append(unsigned short value, unsigned int index) {
  return Put(_handle, &value, sizeof value, index);
}

unsigned int Variant::Append(unsigned int value, unsigned int index) {
  return Put(_handle, &value, sizeof value, index);
}

unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int index) {
  return Put(_handle, bytes, length, index);
}

unsigned int Variant::Fetch(unsigned short& value, unsigned int index) const {
  return Take(_handle, &value, sizeof value, index);
}

unsigned int Variant::Fetch(unsigned int& value, unsigned int index) const {
  return Take(_handle, &value, sizeof value, index);
}

unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int index) const {
  return Take(_handle, bytes, length, index);
}

int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }

unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }

void* bep_callocEx(unsigned int count, unsigned int size, const char* /*file*/,
                   unsigned int /*line*/) {
  return std::calloc(count, size);
}

void bep_freeEx(void* block, const char* /*file*/, unsigned int /*line*/) { std::free(block); }

void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  if (count <= dst_size) std::memcpy(dst, src, count);
}

void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  if (count <= dst_size) std::memset(dst, value, count);
}

int vty_out(struct vty* /*vty*/, const char* /*format*/, ...) { return 0; }

int install_element(unsigned int /*node*/, struct cmd_element* /*element*/) { return 0; }

int cl_install_module(const char* /*name*/, int (* /*install*/)(), int (* /*showrun*/)()) {
  return 0;
}
