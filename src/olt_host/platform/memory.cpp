// The host's string and memory primitives: the C library's, but that no copy or
// fill ever goes beyond the room that the caller states.
#include <cstdlib>
#include <cstring>
#include <string>

#include "bep.h"
#include "platform/log_sink.h"

namespace {

bool Fits(const char* call, const void* dst, unsigned int dst_size, unsigned int count) {
  if (dst != nullptr && count <= dst_size) return true;
  if (count == 0) return false;  // nothing to do, and nothing wrong
  olt_host::LogHostLine(0, std::string(call) + " refused: " + std::to_string(count) +
                               " bytes for " +
                               (dst == nullptr ? "a null pointer" : std::to_string(dst_size)));
  return false;
}

}  // namespace

int bep_StrCmp(const char* a, const char* b) { return std::strcmp(a, b); }

unsigned int bep_StrLen(const char* text) { return static_cast<unsigned int>(std::strlen(text)); }

void* bep_callocEx(unsigned int count, unsigned int size, const char* file, unsigned int line) {
  void* const block = std::calloc(count, size);
  if (block == nullptr && count > 0 && size > 0) {
    olt_host::LogHostLine(0, "no memory for " + std::to_string(count) + " times " +
                                 std::to_string(size) + " bytes at " +
                                 (file == nullptr ? "?" : file) + " line " + std::to_string(line));
  }
  return block;
}

void bep_freeEx(void* block, const char*, unsigned int) { std::free(block); }

void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  if (Fits("bep_memCpyEx", dst, dst_size, count)) std::memcpy(dst, src, count);
}

void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) {
  if (Fits("bep_memSetEx", dst, dst_size, count)) std::memset(dst, value, count);
}
