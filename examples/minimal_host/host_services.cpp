// Every symbol that the library asks of a host, as plain as it works: copy it and replace the
// bodies by what your system has. The port template says what each of them must keep to.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>

#include "bep.h"
#include "minimal_host.h"
#include "mutex_lock.h"
#include "ulog.h"
#include "variant.h"
#include "vty.h"

// --- ulog.h: from any thread, also under a table's lock. Formats bring their line end.
void ulogPrintf(unsigned int module_id, unsigned int level, const char* format, ...) {
  char line[2048];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof(line), format, arguments);
  va_end(arguments);
  std::fprintf(stderr, "module %u level %u: %s", module_id, level, line);
}

// --- mutex_lock.h: one mutex a table.
static std::mutex& MutexIn(void* handle) { return *static_cast<std::mutex*>(handle); }
CMutexLock::CMutexLock() : _handle(new std::mutex) {}
CMutexLock::~CMutexLock() { delete &MutexIn(_handle); }
unsigned int CMutexLock::Lock(int, const char*, unsigned int) {
  MutexIn(_handle).lock();
  return 0;
}
unsigned int CMutexLock::Unlock(const char*, unsigned int) {
  MutexIn(_handle).unlock();
  return 0;
}

// --- variant.h: items one after another, read in the order in which they were written.
struct Items {
  std::string bytes;
  std::size_t cursor = 0;
};
static unsigned int Put(void* handle, const void* from, unsigned int size) {
  static_cast<Items*>(handle)->bytes.append(static_cast<const char*>(from), size);
  return 0;
}
static unsigned int Take(void* handle, void* to, unsigned int size) {
  Items& items = *static_cast<Items*>(handle);
  if (items.bytes.size() - items.cursor < size) return 1;  // no such item left
  items.cursor += items.bytes.copy(static_cast<char*>(to), size, items.cursor);
  return 0;
}
Variant::Variant() : _handle(new Items) {}
Variant::~Variant() { delete static_cast<Items*>(_handle); }
unsigned int Variant::Append(unsigned short v, unsigned int) { return Put(_handle, &v, 2); }
unsigned int Variant::Append(unsigned int v, unsigned int) { return Put(_handle, &v, 4); }
unsigned int Variant::Append(char* b, unsigned int n, unsigned int) { return Put(_handle, b, n); }
unsigned int Variant::Fetch(unsigned short& v, unsigned int) const { return Take(_handle, &v, 2); }
unsigned int Variant::Fetch(unsigned int& v, unsigned int) const { return Take(_handle, &v, 4); }
unsigned int Variant::Fetch(char* b, unsigned int size, unsigned int) const {
  return Take(_handle, b, size);
}

// --- bep.h: strings and memory.
int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }
unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }
void* bep_callocEx(unsigned int count, unsigned int size, const char*, unsigned int) {
  return std::calloc(count, size);
}
void bep_freeEx(void* block, const char*, unsigned int) { std::free(block); }
void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  if (count <= dst_size) std::memcpy(dst, src, count);
}
void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  if (count <= dst_size) std::memset(dst, value, count);
}

// --- vty.h: terminals and the command line. This host counts commands and reads no line.
struct vty {
} host_terminal;
unsigned int installed_commands = 0;
int vty_out(struct vty*, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int written = std::vprintf(format, arguments);
  va_end(arguments);
  return written;
}
int install_element(unsigned int, struct cmd_element*) { return ++installed_commands, 0; }
int cl_install_module(const char*, int (*install)(void), int (*)(void)) { return install(); }
