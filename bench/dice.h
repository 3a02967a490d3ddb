// Numbers that look random and are the same on every machine and in every run, so
// that two runs measure the same populations.
#ifndef BENCH_DICE_H
#define BENCH_DICE_H

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : _state(seed) {}

  // 0 to `bound` - 1.
  unsigned int Below(std::size_t bound) {
    _state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = _state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return static_cast<unsigned int>((mixed ^ (mixed >> 31)) % bound);
  }

  template <typename Item>
  void Shuffle(std::vector<Item>& items) {
    for (std::size_t left = items.size(); left > 1; --left) {
      std::swap(items[left - 1], items[Below(left)]);
    }
  }

 private:
  std::uint64_t _state;
};

#endif  // BENCH_DICE_H
