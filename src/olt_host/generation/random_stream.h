// Random numbers that are the same on every platform: the engine is the standard's, and
// what is made of its output is stated here.
#ifndef OLT_HOST_GENERATION_RANDOM_STREAM_H
#define OLT_HOST_GENERATION_RANDOM_STREAM_H

#include <cstdint>
#include <random>

namespace olt_host {

class RandomStream {
 public:
  // A stream of its own for every seed, item and purpose, so that what one of them draws
  // does not shift the others.
  RandomStream(std::uint64_t seed, std::uint64_t item, std::uint64_t purpose)
      : _engine(Mixed(Mixed(Mixed(seed) ^ item) ^ purpose)) {}

  // 0 to `bound` - 1. REQUIRES: `bound` is not 0.
  std::uint32_t Below(std::uint32_t bound) {
    return static_cast<std::uint32_t>(((_engine() >> 32U) * bound) >> 32U);
  }
  bool Coin() { return Below(2) == 1; }

 private:
  // Neighbouring numbers come far apart.
  static std::uint64_t Mixed(std::uint64_t number) {
    number += 0x9E3779B97F4A7C15ULL;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBULL;
    return number ^ (number >> 31U);
  }

  std::mt19937_64 _engine;
};

}  // namespace olt_host

#endif  // OLT_HOST_GENERATION_RANDOM_STREAM_H
