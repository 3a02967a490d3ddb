#include "thread_safe_host.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <vector>

#include "bep.h"
#include "mutex_lock.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_table.h"
#include "ulog.h"
#include "variant.h"

namespace {

std::atomic<unsigned long> lines_logged{0};
std::atomic<unsigned long> lines_answered{0};
std::atomic<long> locks_held{0};
std::atomic<unsigned long> wrong_unlocks{0};

thread_local int locks_of_thread = 0;
thread_local bool is_answering = false;
thread_local unsigned int lines_of_thread = 0;

// What a sink may ask at any line, also while the thread holds a table's lock.
void AskWithoutLocks() {
  const unsigned int mask = onu_ability_get_log_level_mask();
  onu_ability_set_log_level_mask(mask);
  onu_ability_search_by_real_type(100);
  OnuAbilityTableManager::GetInstance()->IsEqual(ONU_ABILITY_PROFILE_TYPE_MATCH,
                                                 ONU_ABILITY_PROFILE_SOURCE_ALL, 1040, 100);
  OnuAbilityCodeInfo::GetInstance()->Get(1010, ONU_ABILITY_ATTR_PORT_TYPE);
  OnuAbilityAttrInfo::GetInstance()->Get(ONU_ABILITY_ATTR_LAMP);
}

void AskWithLocks() {
  onu_ability_key_ability_value_is_exist(100);
  onu_ability_get_onu_lamp_total_num(100);
}

}  // namespace

unsigned long LinesLogged() { return lines_logged; }
unsigned long LinesAnswered() { return lines_answered; }
void StopAnswering() { is_answering = true; }
long LocksHeld() { return locks_held; }
unsigned long WrongUnlocks() { return wrong_unlocks; }

extern "C" void ulogPrintf(unsigned int, unsigned int, const char* format, ...) {
  constexpr unsigned int kAnsweredOneOf = 7;
  char line[1024];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof(line), format, arguments);
  va_end(arguments);
  ++lines_logged;
  if (!is_answering && ++lines_of_thread % kAnsweredOneOf == 0) {
    is_answering = true;
    AskWithoutLocks();
    if (locks_of_thread == 0) {
      AskWithLocks();
    }
    is_answering = false;
    ++lines_answered;
  }
}

CMutexLock::CMutexLock() : _handle(new std::mutex) {}
CMutexLock::~CMutexLock() { delete static_cast<std::mutex*>(_handle); }

unsigned int CMutexLock::Lock(int, const char*, unsigned int) {
  static_cast<std::mutex*>(_handle)->lock();
  ++locks_held;
  ++locks_of_thread;
  return 0;
}

unsigned int CMutexLock::Unlock(const char*, unsigned int) {
  if (locks_of_thread == 0) {
    ++wrong_unlocks;
    return 1;
  }
  --locks_held;
  --locks_of_thread;
  static_cast<std::mutex*>(_handle)->unlock();
  return 0;
}

namespace {

struct Bytes {
  std::vector<char> data;
  std::size_t position = 0;
};

unsigned int Put(void* handle, const void* from, std::size_t size) {
  const auto* bytes = static_cast<const char*>(from);
  auto& data = static_cast<Bytes*>(handle)->data;
  data.insert(data.end(), bytes, bytes + size);
  return 0;
}

unsigned int Take(void* handle, void* to, std::size_t size) {
  Bytes& bytes = *static_cast<Bytes*>(handle);
  if (bytes.data.size() - bytes.position < size) {
    return 1;
  }
  std::memcpy(to, bytes.data.data() + bytes.position, size);
  bytes.position += size;
  return 0;
}

}  // namespace

Variant::Variant() : _handle(new Bytes) {}
Variant::~Variant() { delete static_cast<Bytes*>(_handle); }
unsigned int Variant::Append(unsigned short value, unsigned int) {
  return Put(_handle, &value, sizeof(value));
}
unsigned int Variant::Append(unsigned int value, unsigned int) {
  return Put(_handle, &value, sizeof(value));
}
unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int) {
  return Put(_handle, bytes, length);
}
unsigned int Variant::Fetch(unsigned short& value, unsigned int) const {
  return Take(_handle, &value, sizeof(value));
}
unsigned int Variant::Fetch(unsigned int& value, unsigned int) const {
  return Take(_handle, &value, sizeof(value));
}
unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int) const {
  return Take(_handle, bytes, length);
}

extern "C" {
int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }
unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }
void* bep_callocEx(unsigned int count, unsigned int size, const char*, unsigned int) {
  return std::calloc(count, size);
}
void bep_freeEx(void* block, const char*, unsigned int) { std::free(block); }
void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  if (count <= dst_size) {
    std::memcpy(dst, src, count);
  }
}
void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  if (count <= dst_size) {
    std::memset(dst, value, count);
  }
}

int vty_out(struct vty* vty, const char* format, ...) {
  char text[1024];
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, sizeof(text), format, arguments);
  va_end(arguments);
  vty->text = text;
  return length;
}
int install_element(unsigned int, struct cmd_element*) { return 0; }
int cl_install_module(const char*, int (*)(void), int (*)(void)) { return 0; }
}
