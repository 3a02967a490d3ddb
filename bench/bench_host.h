// The host that the benchmark is to the library: small and real. Its log sink drops
// every line unformatted, so that a figure is the library's; its mutex tells how long
// threads waited for it.
#ifndef BENCH_BENCH_HOST_H
#define BENCH_BENCH_HOST_H

#include <cstdint>

// Log masks: the levels of a host in production, everything, nothing.
constexpr unsigned int kProduction = (1U << 0) | (1U << 1) | (1U << 13);
constexpr unsigned int kEverything = 0xFFFFFFFFU;
constexpr unsigned int kNothing = 0;

// Nanoseconds that threads have waited for a mutex, all together, since the last call.
std::uint64_t TakeWaitedNanoseconds();

// Seconds of processor time of the calling thread: other programs on the machine
// do not count.
double ThreadSeconds();

#endif  // BENCH_BENCH_HOST_H
