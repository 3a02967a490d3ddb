// Random arguments from small alphabets, so that codes, names, keys and texts
// of different operations meet.
#ifndef TESTS_MODEL_RANDOM_INPUT_H
#define TESTS_MODEL_RANDOM_INPUT_H

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "registries.h"

// Every attribute id that a sequence may use.
extern const std::vector<int> kAttributeIds;

class RandomInput {
 public:
  explicit RandomInput(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next();
  // 0 to `bound` - 1.
  unsigned int Below(unsigned int bound);
  // True once in `n`.
  bool OneIn(unsigned int n) { return Below(n) == 0; }

  template <typename T>
  T Pick(std::initializer_list<T> choices) {
    return *(choices.begin() + Below(static_cast<unsigned int>(choices.size())));
  }

  int AttributeId();
  std::string AttributeName();
  unsigned short AttributeValue();
  unsigned short Code();
  std::string CodeName();
  unsigned int Number();
  unsigned int Key();  // also of real types
  unsigned short Short();
  std::string Text();
  model::Value AnyValue();
  int Source();
  int Type();
  int MatchType();
  unsigned int LogMask();

 private:
  std::uint64_t state_;
};

#endif  // TESTS_MODEL_RANDOM_INPUT_H
