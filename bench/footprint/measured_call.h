// What one call takes of a board's memory: the stack below its caller, and what it asks
// the heap for.
//
// The call runs in a thread of its own whose stack was painted before; how far down the
// paint is gone tells what was used. The program's own operator new counts.
#ifndef BENCH_FOOTPRINT_MEASURED_CALL_H
#define BENCH_FOOTPRINT_MEASURED_CALL_H

#include <cstddef>
#include <functional>

struct Footprint {
  std::size_t stack = 0;    // bytes; those of the first 100 may read as 0
  std::size_t blocks = 0;   // requested from the heap
  std::size_t bytes = 0;    // in them
  std::size_t peak = 0;     // most that was held at a time of what was requested
  std::ptrdiff_t kept = 0;  // of it, or of what was there before, when the call was over
};

Footprint Measure(const std::function<void()>& call);

#endif  // BENCH_FOOTPRINT_MEASURED_CALL_H
