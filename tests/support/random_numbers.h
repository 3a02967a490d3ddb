// Random numbers of a seed, the same on every platform: tests of random sequences
// print the seed, and it must mean the same everywhere. A fuzzer gives bytes that are
// drawn before them.
#ifndef TESTS_SUPPORT_RANDOM_NUMBERS_H
#define TESTS_SUPPORT_RANDOM_NUMBERS_H

#include <cstdint>
#include <initializer_list>
#include <string_view>

class RandomNumbers {
 public:
  // `drawn_first` must outlive this: each byte of it is a number.
  explicit RandomNumbers(std::uint64_t seed, std::string_view drawn_first = {})
      : state_(seed), drawn_first_(drawn_first) {}

  std::uint64_t Next();
  // 0 to `bound` - 1.
  unsigned int Below(unsigned int bound);
  // True once in `n`.
  bool OneIn(unsigned int n) { return Below(n) == 0; }

  template <typename T>
  T Pick(std::initializer_list<T> choices) {
    return *(choices.begin() + Below(static_cast<unsigned int>(choices.size())));
  }

 private:
  std::uint64_t state_;
  std::string_view drawn_first_;
};

#endif  // TESTS_SUPPORT_RANDOM_NUMBERS_H
