// Random arguments from small alphabets, so that codes, names, keys and texts
// of different operations meet.
#ifndef TESTS_MODEL_RANDOM_INPUT_H
#define TESTS_MODEL_RANDOM_INPUT_H

#include <string>
#include <vector>

#include "registries.h"
#include "support/random_numbers.h"

// Every attribute id that a sequence may use.
extern const std::vector<int> kAttributeIds;

class RandomInput : public RandomNumbers {
 public:
  using RandomNumbers::RandomNumbers;

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
};

#endif  // TESTS_MODEL_RANDOM_INPUT_H
