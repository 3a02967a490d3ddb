#include "footprint/measured_call.h"

#include <pthread.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::size_t kStackBytes = std::size_t{1} << 20U;
constexpr unsigned char kPaint = 0xA5;
// Left unpainted below the painter's own variables, for what the compiler keeps there.
constexpr std::size_t kOwnRoom = 64;

struct Heap {
  bool counts = false;
  std::size_t blocks = 0;
  std::size_t bytes = 0;
  std::ptrdiff_t held = 0;
  std::ptrdiff_t peak = 0;
};

Heap& CountedHeap() {
  static Heap heap;
  return heap;
}

struct Call {
  const std::function<void()>* call;
  std::vector<unsigned char>* stack;
  std::size_t used;
};

// Paints the stack up to where this function's own variables stand and returns how many
// bytes that are. The lowest one is at `low`.
[[gnu::noinline]] std::size_t PaintBelow(volatile unsigned char* low) {
  volatile unsigned char here = 0;
  const std::size_t bytes =
      reinterpret_cast<std::uintptr_t>(&here) - reinterpret_cast<std::uintptr_t>(low) - kOwnRoom;
  for (std::size_t i = 0; i < bytes; ++i) low[i] = kPaint;
  return bytes;
}

void* RunPainted(void* argument) {
  Call& call = *static_cast<Call*>(argument);
  volatile unsigned char* low = call.stack->data();
  const std::size_t painted = PaintBelow(low);
  CountedHeap().counts = true;
  (*call.call)();
  CountedHeap().counts = false;
  std::size_t left = 0;
  while (left < painted && low[left] == kPaint) ++left;
  call.used = left == painted ? 0 : painted - left + kOwnRoom;
  return nullptr;
}

// The size of a block stands before it, in as many bytes as keep it aligned.
constexpr std::size_t kSizeRoom = alignof(std::max_align_t);

}  // namespace

void* operator new(std::size_t size) {
  auto* block = static_cast<unsigned char*>(std::malloc(size + kSizeRoom));
  if (block == nullptr) throw std::bad_alloc();
  *reinterpret_cast<std::size_t*>(block) = size;
  Heap& heap = CountedHeap();
  if (heap.counts) {
    ++heap.blocks;
    heap.bytes += size;
    heap.held += static_cast<std::ptrdiff_t>(size);
    heap.peak = std::max(heap.peak, heap.held);
  }
  return block + kSizeRoom;
}

void operator delete(void* pointer) noexcept {
  if (pointer == nullptr) return;
  unsigned char* block = static_cast<unsigned char*>(pointer) - kSizeRoom;
  Heap& heap = CountedHeap();
  if (heap.counts) {
    heap.held -= static_cast<std::ptrdiff_t>(*reinterpret_cast<std::size_t*>(block));
  }
  std::free(block);
}

void operator delete(void* pointer, std::size_t /*size*/) noexcept { operator delete(pointer); }

Footprint Measure(const std::function<void()>& call) {
  std::vector<unsigned char> stack(kStackBytes);
  Call painted{&call, &stack, 0};
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  CountedHeap() = Heap();
  pthread_t thread{};
  if (pthread_attr_setstack(&attributes, stack.data(), stack.size()) != 0 ||
      pthread_create(&thread, &attributes, RunPainted, &painted) != 0) {
    throw std::runtime_error("cannot start a thread on a stack of its own");
  }
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  const Heap& heap = CountedHeap();
  return {painted.used, heap.blocks, heap.bytes, static_cast<std::size_t>(heap.peak), heap.held};
}
