#include "failing_memory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "support/host_code.h"

namespace {

// Stands before each block and keeps the alignment of what follows.
struct alignas(std::max_align_t) Header {
  bool counted;
};

std::atomic<unsigned int> left{0};  // requests up to the one that fails; 0: none will
std::atomic<bool> all_after{false};
std::atomic<bool> failed{false};
std::atomic<long> blocks{0};

bool FailsNow() {
  if (failed && all_after) {
    return true;
  }
  if (left == 0 || --left != 0) {
    return false;
  }
  failed = true;
  return true;
}

void* Allocate(std::size_t size) {
  const bool counted = !HostCode::Runs();
  if (counted && FailsNow()) {
    return nullptr;
  }
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (header == nullptr) {
    std::abort();
  }
  header->counted = counted;
  blocks += counted ? 1 : 0;
  return header + 1;
}

void Release(void* block) {
  if (block == nullptr) {
    return;
  }
  Header* header = static_cast<Header*>(block) - 1;
  blocks -= header->counted ? 1 : 0;
  std::free(header);
}

}  // namespace

void failing_memory::Fail(unsigned int k, From from) {
  failed = false;
  all_after = from == From::kThenOnAll;
  left = k;
}

bool failing_memory::Recover() {
  left = 0;
  all_after = false;
  return failed.exchange(false);
}

long failing_memory::Blocks() { return blocks; }

// The linker sends this program's calls here (--wrap). Nobody counts these blocks.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c): the names are the linker's.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
  return !HostCode::Runs() && FailsNow() ? nullptr : __real_calloc(count, size);
}
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c)

void* operator new(std::size_t size) {
  void* block = Allocate(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void* operator new[](std::size_t size) { return operator new(size); }

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}

void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { Release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { Release(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { Release(block); }
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept { Release(block); }
