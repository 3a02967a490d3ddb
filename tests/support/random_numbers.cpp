#include "random_numbers.h"

std::uint64_t RandomNumbers::Next() {
  if (!drawn_first_.empty()) {
    const auto byte = static_cast<unsigned char>(drawn_first_.front());
    drawn_first_.remove_prefix(1);
    return byte;
  }
  // splitmix64: the same sequence everywhere, unlike the standard's distributions.
  state_ += 0x9E3779B97F4A7C15ULL;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

unsigned int RandomNumbers::Below(unsigned int bound) {
  return static_cast<unsigned int>(Next() % bound);
}
